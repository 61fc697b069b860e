#include "transfer/HoverPoints.h"

#include <QColorDialog>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QWidget>

namespace {

/// The colour that the user chooses; invalid when cancelled, or when `parent` went away meanwhile. Not
/// QColorDialog::getColor(): its dialog lies on the stack and dies twice with its parent.
QColor askForColor(const QColor& initial, QWidget* parent)
{
    const QPointer<QColorDialog> dialog = new QColorDialog(initial, parent);
    dialog->setWindowTitle(QStringLiteral("Select Color"));
    dialog->exec();
    if (!dialog) return {};
    QColor chosen = dialog->selectedColor();
    delete dialog;
    return chosen;
}

}  // namespace

HoverPoints::HoverPoints(QWidget* widget, PointShape shape)
    : QObject(widget)
    , m_widget(widget)
    , m_shape(shape)
{
    widget->installEventFilter(this);
    connect(this, SIGNAL(pointsChanged(QPolygonF)), widget, SLOT(update()));
}

bool HoverPoints::eventFilter(QObject* object, QEvent* event)
{
    if (object != m_widget || !m_enabled) return false;
    if (!m_widget->isEnabled()) {
        m_currentIndex = -1;  // the release will not be heard of
        return false;
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return mousePressed(static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseButtonRelease:
        m_currentIndex = -1;
        emit pointsCommitted();
        return false;
    case QEvent::MouseButtonDblClick:
        return mouseDoubleClicked(static_cast<const QMouseEvent&>(*event));
    case QEvent::MouseMove:
        if (m_currentIndex >= 0) movePoint(m_currentIndex, static_cast<QMouseEvent*>(event)->pos(), true);
        return false;
    case QEvent::Paint:
        paintEventOf(object, event);
        return true;
    default:
        return false;
    }
}

bool HoverPoints::mousePressed(const QMouseEvent& event)
{
    const int index = pointAt(event.pos());
    if (event.button() == Qt::RightButton && index >= 0 && m_editable) {
        ControlPoints edited = chain();
        removePoint(edited, index);
        take(edited);
        firePointChange();
        return true;
    }
    if (event.button() != Qt::LeftButton || m_points.isEmpty()) return false;
    if (index >= 0) {
        m_currentIndex = index;
        return true;
    }
    if (!m_editable) return false;
    ControlPoints edited = chain();
    const bool inserted = insertPoint(edited, event.pos(), m_sortType);
    take(edited);
    if (inserted) firePointChange();
    return inserted;
}

bool HoverPoints::mouseDoubleClicked(const QMouseEvent& event)
{
    const int index = pointAt(event.pos());
    if (event.button() != Qt::LeftButton || index < 0) return false;
    m_currentIndex = -1;  // the release goes to the dialog
    const QPointer<HoverPoints> self = this;
    const unsigned generation = m_generation;
    const QColor initial = index < m_colors.size() ? QColor(m_colors.at(index)) : QColor(Qt::white);
    const QColor chosen = askForColor(initial, m_widget);
    if (!self) return true;                        // the widget is gone, and the event with it
    if (m_generation != generation) return false;  // another chain came: this choice was not for it
    if (chosen.isValid() && index < m_colors.size()) m_colors[index] = chosen.rgb();
    emit pointsChanged(m_points);
    emit pointsCommitted();
    return false;
}

void HoverPoints::movePoint(int index, const QPointF& point, bool emitUpdate)
{
    ControlPoints edited = chain();
    if (!::movePoint(edited, index, point, bounds())) return;
    take(edited);
    if (emitUpdate) firePointChange();
}

void HoverPoints::firePointChange()
{
    ControlPoints sorted = chain();
    sortPoints(sorted, m_sortType);
    take(sorted);
    emit pointsChanged(m_points);
}

void HoverPoints::setPoints(const QPolygonF& points)
{
    ControlPoints replaced = chain();
    ::setPoints(replaced, points, bounds());
    take(replaced);
    ++m_generation;
    m_frame = m_widget->size();
}

void HoverPoints::setPoints(const QPolygonF& points, const QVector<QRgb>& colors)
{
    setPoints(points);
    setColors(colors);
}

void HoverPoints::setColors(const QVector<QRgb>& colors)
{
    m_colors = colors;
}

void HoverPoints::setLocks(const QVector<LockType>& locks)
{
    m_locks = locks;
}

void HoverPoints::setPointLock(int index, LockType lock)
{
    if (index >= 0 && index < m_locks.size()) m_locks[index] = lock;
}

std::optional<QPointF> HoverPoints::followSize()
{
    const QSize size = m_widget->size();
    if (size.isEmpty() || m_frame.isEmpty() || size == m_frame) return {};
    const QPointF factors(double(size.width()) / m_frame.width(), double(size.height()) / m_frame.height());
    ControlPoints scaled = chain();
    scalePoints(scaled, factors.x(), factors.y(), bounds());
    take(scaled);
    m_frame = size;
    return factors;
}

void HoverPoints::setEnabled(bool enabled)
{
    if (m_enabled == enabled) return;
    m_enabled = enabled;
    m_currentIndex = -1;
    if (m_widget) m_widget->update();
}

void HoverPoints::paintEventOf(QObject* object, QEvent* event)
{
    QWidget* const widget = m_widget;
    m_widget = nullptr;  // the event comes back through this filter
    QCoreApplication::sendEvent(object, event);
    m_widget = widget;
    paintPoints();
}

void HoverPoints::paintPoints()
{
    if (m_points.isEmpty()) return;
    QPainter painter(m_widget);
    painter.setRenderHint(QPainter::Antialiasing);
    paintConnection(painter);
    painter.setPen(m_pointPen);
    painter.setBrush(m_pointBrush);
    if (m_colors.size() == m_points.size()) paintMarkers(painter);
}

void HoverPoints::paintConnection(QPainter& painter) const
{
    if (m_connectionPen.style() == Qt::NoPen || m_connectionType == NoConnection) return;
    painter.setPen(m_connectionPen);
    if (m_connectionType == LineConnection) {
        painter.drawPolyline(m_points);
        return;
    }
    QPainterPath path(m_points.first());
    for (int i = 1; i < m_points.size(); ++i) {
        const QPointF& from = m_points.at(i - 1);
        const QPointF& to = m_points.at(i);
        const double middle = from.x() + (to.x() - from.x()) / 2.0;
        path.cubicTo({middle, from.y()}, {middle, to.y()}, to);
    }
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(path);
}

void HoverPoints::paintMarkers(QPainter& painter) const
{
    for (int i = 0; i < m_points.size(); ++i) {
        painter.setBrush(QColor(m_colors.at(i)));
        const QRectF marker = pointBoundingRect(i);
        if (m_shape == CircleShape && !isStepLock(lockOf(chain(), i)))
            painter.drawEllipse(marker);
        else
            painter.drawRect(marker);
    }
}

int HoverPoints::pointAt(const QPointF& position) const
{
    for (int i = 0; i < m_points.size(); ++i) {
        QPainterPath path;
        if (m_shape == CircleShape)
            path.addEllipse(pointBoundingRect(i));
        else
            path.addRect(pointBoundingRect(i));
        if (path.contains(position)) return i;
    }
    return -1;
}

QRectF HoverPoints::pointBoundingRect(int index) const
{
    return markerRect(chain(), index, m_pointSize);
}

QRectF HoverPoints::bounds() const
{
    if (!m_bounds.isEmpty()) return m_bounds;
    const auto* widget = qobject_cast<const QWidget*>(parent());
    return widget ? QRectF(widget->rect()) : QRectF();
}

ControlPoints HoverPoints::chain() const
{
    return {m_points, m_colors, m_locks, m_currentIndex};
}

void HoverPoints::take(const ControlPoints& chain)
{
    m_points = chain.points;
    m_colors = chain.colors;
    m_locks = chain.locks;
    m_currentIndex = chain.current;
}
