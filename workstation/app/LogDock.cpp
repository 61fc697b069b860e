#include "LogDock.h"

#include "Icons.h"
#include "LogModel.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

/// Lets entries through by what the user wants to see.
class SeverityFilter : public QSortFilterProxyModel
{
public:
    enum Choice
    {
        Everything,
        WarningsAndErrors,
        ErrorsOnly
    };

    using QSortFilterProxyModel::QSortFilterProxyModel;

    void setChoice(int choice)
    {
        m_choice = choice;
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override
    {
        const int severity = sourceModel()->index(row, 0, parent).data(LogModel::SeverityRole).toInt();
        switch (m_choice) {
        case WarningsAndErrors:
            return severity == 2 || severity == 3;
        case ErrorsOnly:
            return severity == 3;
        default:
            return true;
        }
    }

private:
    int m_choice = Everything;
};

QToolButton* barButton(Icons::Shape shape, const QString& text, const QString& name)
{
    auto* button = new QToolButton;
    button->setIcon(Icons::make(shape));
    button->setToolTip(text);
    button->setAccessibleName(text);
    button->setObjectName(name);
    button->setAutoRaise(true);
    return button;
}

}  // namespace

LogDock::LogDock(LogModel& model, QWidget* parent)
    : QDockWidget(QStringLiteral("Log"), parent)
    , m_model(model)
    , m_pFilter(new SeverityFilter(this))
    , m_pView(new QTreeView)
    , m_pChoice(new QComboBox)
{
    setObjectName(QStringLiteral("LogDock"));
    setAllowedAreas(Qt::BottomDockWidgetArea | Qt::TopDockWidgetArea);

    m_pFilter->setSourceModel(&m_model);
    m_pView->setObjectName(QStringLiteral("LogView"));
    m_pView->setModel(m_pFilter);
    m_pView->setRootIsDecorated(false);
    m_pView->setUniformRowHeights(true);
    m_pView->setAlternatingRowColors(true);
    m_pView->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_pView->setFrameShape(QFrame::NoFrame);
    m_pView->header()->setStretchLastSection(true);
    m_pView->setColumnWidth(LogModel::TimeColumn, 80);
    m_pView->setColumnWidth(LogModel::KindColumn, 120);

    m_pChoice->setObjectName(QStringLiteral("LogChoice"));
    m_pChoice->addItems(
        {QStringLiteral("Everything"), QStringLiteral("Warnings and errors"), QStringLiteral("Errors")});
    auto* copy = barButton(Icons::Shape::Copy, QStringLiteral("Copy the selected entries, or all"),
                           QStringLiteral("LogCopy"));
    auto* clear =
        barButton(Icons::Shape::Clear, QStringLiteral("Clear the list"), QStringLiteral("LogClear"));

    auto* bar = new QHBoxLayout;
    bar->setContentsMargins(8, 4, 4, 4);
    auto* label = new QLabel(QStringLiteral("Show"));
    label->setBuddy(m_pChoice);
    bar->addWidget(label);
    bar->addWidget(m_pChoice);
    bar->addStretch();
    bar->addWidget(copy);
    bar->addWidget(clear);

    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(bar);
    column->addWidget(m_pView);
    setWidget(content);

    connect(m_pChoice, QOverload<int>::of(&QComboBox::currentIndexChanged), this, &LogDock::showOnly);
    connect(copy, &QToolButton::clicked, this, &LogDock::copySelection);
    connect(clear, &QToolButton::clicked, &m_model, &LogModel::clear);
    connect(m_pFilter, &QAbstractItemModel::rowsAboutToBeInserted, this, [this] {
        const QScrollBar* scroll = m_pView->verticalScrollBar();
        m_atEnd = scroll->value() == scroll->maximum();
    });
    connect(m_pFilter, &QAbstractItemModel::rowsInserted, this, &LogDock::keepNewestInSight);
}

void LogDock::showOnly(int choice)
{
    static_cast<SeverityFilter*>(m_pFilter)->setChoice(choice);
    m_pView->scrollToBottom();
}

void LogDock::copySelection() const
{
    QModelIndexList rows = m_pView->selectionModel()->selectedRows();
    if (rows.isEmpty()) {
        for (int row = 0; row < m_pFilter->rowCount(); ++row)
            rows << m_pFilter->index(row, 0);
    }
    std::sort(rows.begin(), rows.end());
    QStringList lines;
    for (const QModelIndex& row : rows)
        lines << formatLogLine(m_model.entry(m_pFilter->mapToSource(row).row()));
    QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
}

void LogDock::keepNewestInSight()
{
    if (m_atEnd) m_pView->scrollToBottom();
}
