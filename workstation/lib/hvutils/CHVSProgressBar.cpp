#include "hvutils/CHVSProgressBar.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int refreshIntervalMs = 40;
constexpr int dialogWidth = 440;

}  // namespace

class CHVSProgressBar::Private
{
public:
    QLabel* activity = nullptr;
    QProgressBar* bar = nullptr;
    QString text;
    int percent = 0;
    QElapsedTimer sinceRefresh;
    QTimer pending;  // shows what came too soon after the last refresh

    void refresh()
    {
        pending.stop();
        activity->setText(activity->fontMetrics().elidedText(text, Qt::ElideMiddle, activity->width()));
        bar->setValue(percent);
        sinceRefresh.start();
    }

    void refreshSoon()
    {
        if (!sinceRefresh.isValid() || sinceRefresh.elapsed() >= refreshIntervalMs)
            refresh();
        else if (!pending.isActive())
            pending.start(refreshIntervalMs);
    }
};

CHVSProgressBar::CHVSProgressBar(QWidget* parent, char const* name, bool modal, QFlags<Qt::WindowType> flags)
    : QDialog(parent, flags)
    , d(std::make_unique<Private>())
{
    setObjectName(QString::fromLatin1(name));
    setModal(modal);
    setFixedWidth(dialogWidth);

    d->activity = new QLabel(this);
    d->activity->setObjectName(QStringLiteral("activity"));
    d->activity->setTextFormat(Qt::PlainText);
    d->bar = new QProgressBar(this);
    d->bar->setObjectName(QStringLiteral("progress"));
    d->bar->setRange(0, 100);
    auto* const cancel = new QPushButton(tr("Cancel"), this);
    cancel->setAutoDefault(false);  // Return must not stop a long work
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 16, 16, 12);
    layout->setSpacing(10);
    layout->addWidget(d->activity);
    layout->addWidget(d->bar);
    layout->addWidget(cancel, 0, Qt::AlignRight);

    d->pending.setSingleShot(true);
    connect(&d->pending, &QTimer::timeout, this, [this] { d->refresh(); });
    initDialog();
}

CHVSProgressBar::~CHVSProgressBar() = default;

void CHVSProgressBar::initDialog()
{
    d->text.clear();
    d->percent = 0;
    d->refresh();
}

void CHVSProgressBar::setProgress(int percent)
{
    d->percent = std::clamp(percent, 0, 100);
    d->refreshSoon();
}

void CHVSProgressBar::setActivityText(QString text)
{
    d->text = text;
    d->refreshSoon();
}
