#include "transfer/CTransferFunction1DWidget.h"

#include "hvimage/CILImage.h"
#include "transfer/CColorTableWidget.h"
#include "transfer/HistogramAxesPainter.h"
#include "transfer/logic/HistogramLine.h"
#include "transfer/logic/PointCursor.h"

#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cstddef>

CTransferFunction1DWidget::CTransferFunction1DWidget(int type, QWidget* parent)
    : QWidget(parent)
    , m_type(type)
    , m_hoverPoints(new HoverPoints(this, HoverPoints::CircleShape))
    , m_gradient(0.0, 0.0, 0.0, 0.0)
{
    QPalette colors = palette();
    colors.setBrush(backgroundRole(), Qt::lightGray);
    setPalette(colors);
    setAutoFillBackground(true);
    setMouseTracking(true);
    connect(m_hoverPoints, SIGNAL(pointsChanged(QPolygonF)), this, SLOT(pointsUpdated()));
    connect(m_hoverPoints, SIGNAL(pointsCommitted()), this, SIGNAL(colorsChanged()));
    pointsUpdated();
    emit colorsChanged();
}

CTransferFunction1DWidget::~CTransferFunction1DWidget()
{
    if (m_colorTableWidget) m_colorTableWidget->setImage(nullptr);
}

void CTransferFunction1DWidget::setColorTableWidget(CColorTableWidget* widget)
{
    if (m_colorTableWidget && m_colorTableWidget != widget) m_colorTableWidget->setImage(nullptr);
    m_colorTableWidget = widget;
    if (widget && !m_image.isNull()) widget->setImage(&m_image);
}

void CTransferFunction1DWidget::setEnabled(bool enabled)
{
    QWidget::setEnabled(enabled);
    m_hoverPoints->setEnabled(enabled);
}

void CTransferFunction1DWidget::pointsUpdated()
{
    if (m_type != colorAndAlpha) return;
    const auto stops = stopsOfPoints(m_hoverPoints->points(), m_hoverPoints->colors(), size(), m_maxOpacity);
    if (stops) setGradientStops(*stops);
}

void CTransferFunction1DWidget::setGradientStops(const TransferStops& stops)
{
    if (m_type != colorAndAlpha) return;
    m_gradient = QLinearGradient(0.0, 0.0, width(), 0.0);
    for (const auto& [position, color] : stops)
        if (position >= 0.0 && position <= 1.0) m_gradient.setColorAt(position, color);
    paintGradient();
    update();
}

void CTransferFunction1DWidget::refreshImage()
{
    if (m_image.size() != size()) paintGradient();
}

void CTransferFunction1DWidget::paintGradient()
{
    if (m_type != colorAndAlpha || size().isEmpty()) return;
    if (m_image.size() != size()) m_image = QImage(size(), QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&m_image);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(0, 0, width(), 1, m_gradient);
    painter.end();
    // All rows are alike, and a copy is several times as fast as a gradient.
    const uchar* const first = m_image.constScanLine(0);
    for (int row = 1; row < m_image.height(); ++row)
        std::copy_n(first, m_image.bytesPerLine(), m_image.scanLine(row));
    if (m_colorTableWidget) m_colorTableWidget->setImage(&m_image);
}

void CTransferFunction1DWidget::setTransferStops(const TransferStops& stops)
{
    const ControlPoints chain = pointsOfStops(stops, size());
    m_hoverPoints->setPoints(chain.points, chain.colors);
    m_hoverPoints->setLocks(chain.locks);
    m_hoverPoints->setSortType(HoverPoints::XSort);
    pointsUpdated();
    update();
    if (runBackwards(stops)) m_hoverPoints->firePointChange();
}

unsigned char* CTransferFunction1DWidget::makeColorTable()
{
    constexpr int entries = 256;
    auto* table = new unsigned char[entries * 4]();
    refreshImage();
    if (m_image.isNull()) return table;
    const int row = std::min(1, m_image.height() - 1);
    for (int i = 0; i < entries; ++i) {
        const QRgb pixel = m_image.pixel(tableColumn(i, m_image.width()), row);
        unsigned char* entry = table + static_cast<std::ptrdiff_t>(i) * 4;
        entry[0] = static_cast<unsigned char>(qRed(pixel));
        entry[1] = static_cast<unsigned char>(qGreen(pixel));
        entry[2] = static_cast<unsigned char>(qBlue(pixel));
        entry[3] = static_cast<unsigned char>(qAlpha(pixel));
    }
    return table;
}

void CTransferFunction1DWidget::setMaxOpacity(float opacity)
{
    if (opacity >= 0.0F && opacity <= 255.0F) m_maxOpacity = opacity;
}

void CTransferFunction1DWidget::setHistogram(const double* values, int count)
{
    if (!values) return;
    CILImage row;
    // The picture reads the values only.
    if (!row.initWithData(eTypeDouble, count, 1, const_cast<double*>(values))) return;
    row.RefreshImageStats();
    setHistogramPoints(histogramLine(values, count, row.getMin(), row.getMax(), size()));
}

void CTransferFunction1DWidget::setHistogramPoints(const QVector<QPointF>& points)
{
    m_histogramPoints = points;
    m_histogramSize = size();
    update();
}

void CTransferFunction1DWidget::setAxisRange(float min, float max)
{
    m_axisMin = min;
    m_axisMax = max;
}

void CTransferFunction1DWidget::setShowAxes(bool show)
{
    m_showAxes = show;
    update();
}

void CTransferFunction1DWidget::onYAxisMaxValueChanged(double val)
{
    if (!(val > 0.0)) return;
    m_yAxisMax = val;
    update();
}

QSize CTransferFunction1DWidget::sizeHint() const
{
    return {150, 100};
}

void CTransferFunction1DWidget::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
}

void CTransferFunction1DWidget::mouseMoveEvent(QMouseEvent* event)
{
    const ControlPoints chain{m_hoverPoints->points(), m_hoverPoints->colors(), m_hoverPoints->locks(), -1};
    setCursor(pointCursor(chain, m_hoverPoints->pointSize(), event->pos()));
}

// The points are drawn on top by their editor.
void CTransferFunction1DWidget::paintEvent(QPaintEvent*)
{
    refreshImage();
    QPainter painter(this);
    paintHistogram(painter);
    if (m_showAxes) paintHistogramAxes(painter, size(), m_axisMin, m_axisMax, m_yAxisMax);
}

void CTransferFunction1DWidget::paintHistogram(QPainter& painter) const
{
    if (m_histogramPoints.isEmpty()) return;
    const double bottom = height();
    QPainterPath path(QPointF(0.0, bottom));
    for (const QPointF& point : m_histogramPoints)
        path.lineTo(point.x(), bottom - (bottom - point.y()) / m_yAxisMax);
    path.lineTo(width(), bottom);
    painter.fillPath(path, QColor(255, 0, 0, 255));
}

void CTransferFunction1DWidget::resizeEvent(QResizeEvent*)
{
    if (isVisible()) followSize();
}

void CTransferFunction1DWidget::showEvent(QShowEvent*)
{
    followSize();
}

// A widget without an area keeps what it has: nothing could be scaled back from it.
void CTransferFunction1DWidget::followSize()
{
    if (size().isEmpty()) return;
    if (!m_histogramSize.isEmpty() && m_histogramSize != size()) {
        const double xScale = double(width()) / m_histogramSize.width();
        const double yScale = double(height()) / m_histogramSize.height();
        for (QPointF& point : m_histogramPoints)
            point = {point.x() * xScale, point.y() * yScale};
    }
    m_histogramSize = size();
    const std::optional<QPointF> factors = m_hoverPoints->followSize();
    pointsUpdated();
    if (factors) emit pointsScaled(factors->x(), factors->y());
}
