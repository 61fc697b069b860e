#include "lib/hvapi/windows/ClickPane.h"

#include "hvapi/sequence/CHVSDataset.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvimage/CILImage.h"
#include "lib/hvapi/windows/logic/ClickPicture.h"

#include <QFormLayout>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>

#include <cmath>

namespace {

constexpr int steps = 1000;
constexpr int firstLow = 200;  // a fifth of the range hides the dark of the camera
constexpr int barWidth = 18;
constexpr int barRoom = 86;

QString numberText(double value)
{
    bool const isCount = std::abs(value) >= 100.0 && std::abs(value) < 1e7;
    return isCount ? QString::number(value, 'f', 0) : QString::number(value, 'g', 3);
}

double valueAt(QSlider const& slider, CILImage const& image)
{
    return image.getMin() + (image.getMax() - image.getMin()) * slider.value() / steps;
}

}  // namespace

ClickView::ClickView(QWidget* parent)
    : QWidget(parent)
    , m_palette(eColorTableRainbow)
{
    setObjectName("m_pClickView");
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(160, 120);
}

void ClickView::display(QImage const& picture, bool hasBar, double low, double high)
{
    m_picture = picture;
    m_hasBar = hasBar;
    m_low = low;
    m_high = high;
    update();
}

void ClickView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    if (m_picture.isNull()) {
        painter.setPen(Qt::lightGray);
        painter.drawText(rect(), Qt::AlignCenter, tr("This click has no image that can be shown."));
        return;
    }
    QRect const room = rect().adjusted(8, 8, m_hasBar ? -barRoom - 8 : -8, -8);
    QSize const size = m_picture.size().scaled(room.size(), Qt::KeepAspectRatio);
    QRect target(QPoint(), size);
    target.moveCenter(room.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform, size.width() < m_picture.width());
    painter.drawImage(target, m_picture);
    if (m_hasBar) paintBar(painter, QRect(room.right() + 14, room.top() + 10, barWidth, room.height() - 20));
}

void ClickView::paintBar(QPainter& painter, QRect const& area)
{
    int const entries = m_palette.getMaxIndex();
    unsigned char const* table = m_palette.getColorTableBuffer();
    if (!table || area.height() < 2) return;
    for (int y = 0; y < area.height(); ++y) {
        int const entry = (area.height() - 1 - y) * (entries - 1) / (area.height() - 1);
        unsigned char const* color = table + 4 * entry;
        painter.setPen(QColor(color[0], color[1], color[2]));
        painter.drawLine(area.left(), area.top() + y, area.right(), area.top() + y);
    }
    painter.setPen(Qt::white);
    int const marks = 4;
    for (int i = 0; i <= marks; ++i) {
        int const y = area.bottom() - i * (area.height() - 1) / marks;
        painter.drawLine(area.right() + 1, y, area.right() + 4, y);
        painter.drawText(QRect(area.right() + 7, y - 10, barRoom - barWidth - 14, 20),
                         Qt::AlignLeft | Qt::AlignVCenter, numberText(m_low + (m_high - m_low) * i / marks));
    }
}

ClickPane::ClickPane(QWidget* parent)
    : QWidget(parent)
    , m_list(new QListWidget)
    , m_view(new ClickView)
    , m_low(new QSlider(Qt::Horizontal))
    , m_high(new QSlider(Qt::Horizontal))
    , m_facts(new QLabel)
    , m_range(new QWidget)
{
    m_list->setObjectName("m_pClickList");
    m_list->setFlow(QListView::LeftToRight);
    m_list->setFixedHeight(m_list->fontMetrics().height() * 2 + 14);
    m_low->setObjectName("m_pClickLow");
    m_high->setObjectName("m_pClickHigh");
    m_facts->setObjectName("m_pClickFacts");
    for (auto* slider : {m_low, m_high}) {
        slider->setRange(0, steps);
        connect(slider, &QSlider::valueChanged, this, &ClickPane::redraw);
    }
    auto* form = new QFormLayout(m_range);
    form->setContentsMargins(0, 0, 0, 0);
    form->addRow(tr("Lowest colour"), m_low);
    form->addRow(tr("Highest colour"), m_high);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_list);
    column->addWidget(m_view, 1);
    column->addWidget(m_facts);
    column->addWidget(m_range);
    connect(m_list, &QListWidget::currentRowChanged, this, &ClickPane::select);
}

void ClickPane::display(CHVSSequenceDataset* sequence)
{
    m_sequence = sequence;
    QStringList const numbers = sequence->getClickNumbers();
    QStringList shown;
    for (int row = 0; row < m_list->count(); ++row)
        shown << m_list->item(row)->text();
    setVisible(!numbers.isEmpty());
    if (shown == numbers) return;
    QSignalBlocker const quiet(m_list);
    m_list->clear();
    m_list->addItems(numbers);
    if (numbers.isEmpty()) return;
    m_list->setCurrentRow(0);
    select(0);
}

void ClickPane::select(int row)
{
    auto const datasets = m_sequence ? m_sequence->getDatasets() : QList<CHVSDataset*>();
    m_dataset = datasets.value(row, nullptr);
    QSignalBlocker const quietLow(m_low);
    QSignalBlocker const quietHigh(m_high);
    m_low->setValue(firstLow);
    m_high->setValue(steps);
    redraw();
}

void ClickPane::redraw()
{
    if (!m_dataset) {
        m_view->display(QImage(), false, 0.0, 0.0);
        return;
    }
    CILImage* photograph = m_dataset->getCoreImage(IMAGETYPE_PHOTOGRAPH);
    CILImage* light = m_dataset->getCoreImage(IMAGETYPE_LUMINESCENT);
    hvwindows::LuminescentColors colors;
    if (light) {
        colors.low = valueAt(*m_low, *light);
        colors.high = valueAt(*m_high, *light);
    }
    m_view->display(hvwindows::clickPicture(photograph, light, colors), light != nullptr, colors.low,
                    colors.high);
    m_range->setVisible(light != nullptr);
    double const fieldOfView =
        m_dataset->getFOVForImage(light ? IMAGETYPE_LUMINESCENT : IMAGETYPE_PHOTOGRAPH);
    QStringList facts;
    if (photograph)
        facts << tr("Photograph %1 x %2").arg(photograph->getWidth()).arg(photograph->getHeight());
    if (light) facts << tr("Luminescent image %1 x %2").arg(light->getWidth()).arg(light->getHeight());
    if (fieldOfView > 0.0) facts << tr("Field of view %1 cm").arg(fieldOfView);
    m_facts->setText(facts.join(QStringLiteral("   ")));
}
