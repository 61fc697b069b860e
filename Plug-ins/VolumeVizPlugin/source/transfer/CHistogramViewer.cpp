#include "transfer/CHistogramViewer.h"

#include "hvutils/adjustExpValue.h"
#include "transfer/CColorTableWidget.h"
#include "transfer/CTransferFunction1DWidget.h"

#include <QSignalBlocker>
#include <QVBoxLayout>

#include <algorithm>

CHistogramViewer::CHistogramViewer(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint)
{
    setupUi(this);
    setObjectName(QStringLiteral("Histogram Viewer"));
    setModal(true);
    setAttribute(Qt::WA_QuitOnClose, false);

    auto* layout = new QVBoxLayout(m_pViewerTransferFrame);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    m_pTransferWidget =
        new CTransferFunction1DWidget(CTransferFunction1DWidget::colorAndAlpha, m_pViewerTransferFrame);
    m_pTransferWidget->setShowAxes(true);
    m_pColorTableWidget = new CColorTableWidget(m_pViewerTransferFrame);
    m_pColorTableWidget->setFixedHeight(m_pColorTableWidget->sizeHint().height());
    m_pTransferWidget->setColorTableWidget(m_pColorTableWidget);
    layout->addWidget(m_pTransferWidget, 1);
    layout->addWidget(m_pColorTableWidget);

    connect(m_pViewerDonePB, SIGNAL(clicked()), this, SLOT(onClickDonePB()));
    connect(m_pTransferWidget->hoverPoints(), SIGNAL(pointsCommitted()), this, SLOT(onPointsCommitted()));
    connect(m_pViewerLogHistogramCB, SIGNAL(toggled(bool)), this, SLOT(onToggleLogHistogramCB(bool)));
    connect(m_pViewerUnitCB, SIGNAL(currentIndexChanged(QString)), this,
            SLOT(onMinMaxUnitCBIndexChanged(QString)));
    connect(m_pYAxisMaxSpinBox, SIGNAL(valueChanged(double)), m_pTransferWidget,
            SLOT(onYAxisMaxValueChanged(double)));
}

double CHistogramViewer::xRatio() const
{
    return std::max(1, m_pTransferWidget->width()) / static_cast<double>(m_refWidth);
}

double CHistogramViewer::yRatio() const
{
    return std::max(1, m_pTransferWidget->height()) / static_cast<double>(m_refHeight);
}

void CHistogramViewer::setReferenceSize(const QSize& size)
{
    m_refWidth = std::max(1, size.width());
    m_refHeight = std::max(1, size.height());
}

void CHistogramViewer::setTransferFunction(const QPolygonF& points, const QVector<QRgb>& colors,
                                           const QVector<HoverPoints::LockType>& locks)
{
    m_points = points;
    m_colors = colors;
    m_locks = locks;
    QPolygonF scaled;
    for (const QPointF& point : points)
        scaled.append({point.x() * xRatio(), point.y() * yRatio()});
    HoverPoints* editor = m_pTransferWidget->hoverPoints();
    editor->setPoints(scaled, colors);
    editor->setLocks(locks);
    editor->setSortType(HoverPoints::XSort);
    m_pTransferWidget->pointsUpdated();
}

void CHistogramViewer::setHistogram(const HistogramBins& bins, const QVector<QPointF>& line)
{
    m_histogram = bins;
    QVector<QPointF> scaled;
    for (const QPointF& point : line)
        scaled.append({point.x() * xRatio(), point.y() * yRatio()});
    m_pTransferWidget->setHistogramPoints(scaled);
}

void CHistogramViewer::setLogarithmic(bool logarithmic)
{
    const QSignalBlocker blocker(m_pViewerLogHistogramCB);
    m_pViewerLogHistogramCB->setChecked(logarithmic);
}

void CHistogramViewer::setYAxisMax(double value)
{
    m_pYAxisMaxSpinBox->setValue(value);
}

void CHistogramViewer::setUnits(const SUnitRanges& ranges, const QStringList& units, const QString& current)
{
    m_ranges = ranges;
    {
        const QSignalBlocker blocker(m_pViewerUnitCB);
        m_pViewerUnitCB->clear();
        m_pViewerUnitCB->addItems(units);
    }
    // An index that stays the same would show nothing.
    if (m_pViewerUnitCB->currentText() == current)
        onMinMaxUnitCBIndexChanged(current);
    else
        m_pViewerUnitCB->setCurrentIndex(m_pViewerUnitCB->findText(current));
}

void CHistogramViewer::onClickDonePB()
{
    accept();
}

void CHistogramViewer::onPointsCommitted()
{
    const HoverPoints* editor = m_pTransferWidget->hoverPoints();
    QPolygonF points;
    const QPolygonF shown = editor->points();
    for (const QPointF& point : shown)
        points.append({point.x() / xRatio(), point.y() / yRatio()});
    m_points = points;
    m_colors = editor->colors();
    m_locks = editor->locks();
    emit updateTransferFunction(m_points, m_colors, m_locks);
}

void CHistogramViewer::onToggleLogHistogramCB(bool logarithmic)
{
    m_pViewerLogHistogramCB->setFocus();
    const HistogramBins shown = logarithmic ? logarithms(m_histogram) : m_histogram;
    m_pTransferWidget->setHistogram(shown.data(), static_cast<int>(shown.size()));
    emit updateLogHistogramStatus(m_pViewerLogHistogramCB->checkState());
}

void CHistogramViewer::onMinMaxUnitCBIndexChanged(QString strUnit)
{
    RangeTexts texts = rangeTexts(m_ranges, strUnit);
    // The axis goes by what the labels say.
    m_pTransferWidget->setAxisRange(texts.min.toFloat(), texts.max.toFloat());
    adjustExpValue(texts.min);
    adjustExpValue(texts.max);
    m_pViewerMinLabel->setText(texts.min);
    m_pViewerMaxLabel->setText(texts.max);
    m_pTransferWidget->update();
    emit updateMinMaxUnitCB(strUnit);
}
