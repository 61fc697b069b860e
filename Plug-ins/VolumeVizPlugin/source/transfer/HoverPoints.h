#pragma once

#include "transfer/logic/ControlPoints.h"

#include <QBrush>
#include <QObject>
#include <QPen>
#include <QPolygonF>
#include <QRectF>
#include <QSize>
#include <QVector>

#include <optional>

class QMouseEvent;
class QPainter;
class QWidget;

/// Lets the user edit a chain of control points on top of another widget: it filters the widget's events,
/// draws the points when the widget has painted itself, and turns mouse events into insertions, deletions,
/// drags and changes of colour. The rules are those of ControlPoints.
///
/// Points are in the widget's pixels. Whoever replaces the whole chain calls `setPoints` first, since that
/// takes the locks away, and then `setLocks`.
class HoverPoints : public QObject
{
    Q_OBJECT

public:
    enum PointShape : int
    {
        CircleShape = 0,
        RectangleShape = 1,
    };

    enum ConnectionType : int
    {
        NoConnection = 0,
        LineConnection = 1,
        CurveConnection = 2,
    };

    using SortType = PointSort;
    static constexpr SortType NoSort = ::NoSort;
    static constexpr SortType XSort = ::XSort;
    static constexpr SortType YSort = ::YSort;

    using LockType = PointLock;
    static constexpr LockType NoLock = ::NoLock;
    static constexpr LockType LockToLeft = ::LockToLeft;
    static constexpr LockType LockToRight = ::LockToRight;
    static constexpr LockType LockToTop = ::LockToTop;
    static constexpr LockType LockToBottom = ::LockToBottom;

    /// Works on `widget`, whose child it becomes.
    HoverPoints(QWidget* widget, PointShape shape);

    bool eventFilter(QObject* object, QEvent* event) override;

    /// Replaces the points, brought into the bounds; all of them are free then. Colours stay. An edit that is
    /// under way ends without a commit.
    void setPoints(const QPolygonF& points);
    void setPoints(const QPolygonF& points, const QVector<QRgb>& colors);
    void setColors(const QVector<QRgb>& colors);
    void setLocks(const QVector<LockType>& locks);
    /// Nothing for an index without a lock.
    void setPointLock(int index, LockType lock);

    QPolygonF points() const { return m_points; }
    QVector<QRgb> colors() const { return m_colors; }
    QVector<LockType> locks() const { return m_locks; }
    QSizeF pointSize() const { return m_pointSize; }
    bool isEnabled() const { return m_enabled; }

    /// The order that the points get with the next change; nothing is sorted now.
    void setSortType(SortType type) { m_sortType = type; }
    void setConnectionType(ConnectionType type) { m_connectionType = type; }
    /// Limits the points to a rectangle; an empty one means the whole widget.
    void setBounds(const QRectF& bounds) { m_bounds = bounds; }
    /// Whether points can be added and removed.
    void setEditable(bool editable) { m_editable = editable; }

    /// Brings the points from the size that the widget had when they were set to its present one: all keep
    /// their place in it, with colours and locks. No signal. Gives the factors along x and y; nothing where
    /// there was nothing to do, as in a widget without an area.
    std::optional<QPointF> followSize();

    /// Brings the points into order and tells of them.
    void firePointChange();

public slots:
    /// A disabled editor neither reacts nor draws; an edit that is under way ends without a commit.
    void setEnabled(bool enabled);
    void setDisabled(bool disabled) { setEnabled(!disabled); }

signals:
    /// After every change of the points, during a drag as well.
    void pointsChanged(const QPolygonF& points);
    /// An edit has ended: the mouse was released, or the colour dialog was closed.
    void pointsCommitted();

private:
    bool mousePressed(const QMouseEvent& event);
    bool mouseDoubleClicked(const QMouseEvent& event);
    void movePoint(int index, const QPointF& point, bool emitUpdate);
    void paintEventOf(QObject* object, QEvent* event);
    void paintPoints();
    void paintConnection(QPainter& painter) const;
    void paintMarkers(QPainter& painter) const;

    /// The first point whose marker is at `position`; -1 for none.
    int pointAt(const QPointF& position) const;
    QRectF pointBoundingRect(int index) const;
    QRectF bounds() const;
    ControlPoints chain() const;
    void take(const ControlPoints& chain);

    QWidget* m_widget;
    QVector<QRgb> m_colors;
    QPolygonF m_points;
    QRectF m_bounds;
    PointShape m_shape;
    SortType m_sortType = NoSort;
    ConnectionType m_connectionType = CurveConnection;
    QVector<LockType> m_locks;
    QSizeF m_pointSize{11.0, 11.0};
    int m_currentIndex = -1;
    bool m_editable = true;
    bool m_enabled = true;
    QPen m_pointPen{QColor(0, 0, 0, 191), 1.0};
    QBrush m_pointBrush{QColor(191, 191, 191, 127)};
    QPen m_connectionPen{QColor(0, 0, 0, 200), 2.0};

    unsigned m_generation = 0;  ///< counts the chains that were set
    QSize m_frame;              ///< size of the widget that the points are in pixels of
};
