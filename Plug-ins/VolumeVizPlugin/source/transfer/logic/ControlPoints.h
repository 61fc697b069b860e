#pragma once

#include "transfer/logic/PointLock.h"

#include <QPointF>
#include <QPolygonF>
#include <QRectF>
#include <QRgb>
#include <QSizeF>
#include <QVector>

/// The order that an edited chain of control points is kept in.
enum PointSort : int
{
    NoSort = 0,
    XSort = 1,
    YSort = 2,
};

/// A chain of control points in the pixels of the widget that it is edited on: x from left to right, y from
/// top to bottom. The three lists belong together by index. Lists of different lengths do no harm: a point
/// without a lock is free, and one without a colour takes none along.
///
/// Two neighbours of which the first is locked to the bottom and the second to the top form a step: they
/// stand one pixel apart, move together and go together.
struct ControlPoints
{
    QPolygonF points;
    QVector<QRgb> colors;
    QVector<PointLock> locks;
    int current = -1;  ///< index of the point that is being dragged; -1 for none
};

/// The lock of a point; NoLock for an index without one.
PointLock lockOf(const ControlPoints& chain, int index);

/// True for a point of a step.
bool isStepLock(PointLock lock);

/// Marker and hit area of a point: a rectangle of `size` around it, 4 pixels wider and higher for the first
/// and the last point. Empty for an index outside the chain.
QRectF markerRect(const ControlPoints& chain, int index, const QSizeF& size);

/// The point, brought into `bounds` and to the edges that its lock names. A coordinate that is no number goes
/// to the left or top edge.
QPointF boundPoint(const QPointF& point, const QRectF& bounds, PointLock lock);

/// Replaces the points by `points`, each brought into `bounds`; all of them are free, none is being dragged.
/// The colours stay.
void setPoints(ControlPoints& chain, const QPolygonF& points, const QRectF& bounds);

/// The widget has another size: scales all points and brings them into the new `bounds`. Colours, locks and
/// the dragged point stay.
void scalePoints(ControlPoints& chain, double xScale, double yScale, const QRectF& bounds);

/// Moves a point as far as its lock allows; the other point of a step follows at one pixel. False, with the
/// chain left as it was, when the move is refused: a free point at an end, a place that a neighbour has, and
/// a place nearer than 3 pixels to a locked neighbour.
bool movePoint(ControlPoints& chain, int index, const QPointF& to, const QRectF& bounds);

/// Removes a free point, or both points of the step that the point belongs to; no point is being dragged
/// then. False for a point at an edge, which stays.
bool removePoint(ControlPoints& chain, int index);

/// Inserts a free point at `at`, unbounded, in front of the first point that has a larger x (YSort: y),
/// behind all when there is none, and in front of all without an order. It becomes the dragged one. Its
/// colour is that of the neighbours mixed by the distance in x; behind all, that of the last; white where
/// there are no colours.
///
/// False when a neighbour is locked and either neighbour is nearer than 3 pixels in x; if the previous one
/// then belongs to a step, it becomes the dragged one instead.
bool insertPoint(ControlPoints& chain, const QPointF& at, PointSort sort);

/// Brings the points into order; colours, locks and the dragged point go with them. Points with equal
/// coordinates share the colour and the lock of the last of them, which end up at the first.
void sortPoints(ControlPoints& chain, PointSort sort);
