#include "transfer/logic/ControlPoints.h"

#include "transfer/logic/MixedColor.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLockDistance = 3.0;    ///< pixels between a moved point and a locked neighbour
constexpr double kStepWidth = 1.0;       ///< pixels between the two points of a step
constexpr double kEndMarkerExtra = 4.0;  ///< pixels by which the markers at the ends are larger
constexpr double kSamePlace = 1e-12;

constexpr QRgb kWhite = 0xffffffffU;

bool samePoint(const QPointF& a, const QPointF& b)
{
    return std::abs(a.x() - b.x()) <= kSamePlace && std::abs(a.y() - b.y()) <= kSamePlace;
}

double clamped(double value, double low, double high)
{
    if (!(value >= low)) return low;
    return value > high ? high : value;
}

bool has(const ControlPoints& chain, int index)
{
    return index >= 0 && index < chain.points.size();
}

double xOf(const ControlPoints& chain, int index)
{
    return chain.points.at(index).x();
}

bool freePointMayGo(const ControlPoints& chain, int index, const QPointF& to)
{
    if (index == 0 || index == chain.points.size() - 1) return false;
    const QPointF& previous = chain.points.at(index - 1);
    const QPointF& next = chain.points.at(index + 1);
    if (samePoint(to, next) || samePoint(to, previous)) return false;
    const PointLock after = lockOf(chain, index + 1);
    if ((after == LockToBottom || after == LockToRight) && to.x() >= next.x() - kLockDistance) return false;
    const PointLock before = lockOf(chain, index - 1);
    return !((before == LockToTop || before == LockToLeft) && previous.x() + kLockDistance >= to.x());
}

/// Whether a step may have its lower point at `index`, its upper one at `index` + 1, and stand at `x`.
bool stepMayGo(const ControlPoints& chain, int before, int after, double x)
{
    if (has(chain, before) && xOf(chain, before) >= x - kLockDistance) return false;
    return !(has(chain, after) && x + kLockDistance >= xOf(chain, after));
}

template <class List>
void removeEntry(List& list, int index)
{
    if (index >= 0 && index < list.size()) list.removeAt(index);
}

void removeEntries(ControlPoints& chain, int index)
{
    removeEntry(chain.points, index);
    removeEntry(chain.colors, index);
    removeEntry(chain.locks, index);
}

int insertionIndex(const QPolygonF& points, const QPointF& at, PointSort sort)
{
    if (sort == NoSort) return 0;
    const auto larger = [&](const QPointF& point) {
        return sort == XSort ? point.x() > at.x() : point.y() > at.y();
    };
    return static_cast<int>(std::find_if(points.begin(), points.end(), larger) - points.begin());
}

bool isCloseToALock(const ControlPoints& chain, int pos, double x)
{
    if (lockOf(chain, pos - 1) == NoLock && lockOf(chain, pos) == NoLock) return false;
    if (has(chain, pos - 1) && xOf(chain, pos - 1) >= x - kLockDistance) return true;
    return has(chain, pos) && x + kLockDistance >= xOf(chain, pos);
}

float shareOfWay(const ControlPoints& chain, int pos, double x)
{
    const double t = (x - xOf(chain, pos - 1)) / std::abs(xOf(chain, pos) - xOf(chain, pos - 1));
    return std::isfinite(t) ? static_cast<float>(t) : 0.0F;
}

/// Colour of a point that will stand between `pos` - 1 and `pos`.
QRgb colorAt(const ControlPoints& chain, int pos, double x)
{
    if (chain.colors.isEmpty()) return kWhite;
    const int last = chain.colors.size() - 1;
    const bool between = has(chain, pos - 1) && has(chain, pos) && pos <= last;
    if (between) return mixedColor(chain.colors.at(pos - 1), chain.colors.at(pos), shareOfWay(chain, pos, x));
    return chain.colors.at(has(chain, pos) && pos <= last ? pos : std::min(std::max(pos - 1, 0), last));
}

}  // namespace

PointLock lockOf(const ControlPoints& chain, int index)
{
    return index >= 0 && index < chain.locks.size() ? chain.locks.at(index) : NoLock;
}

bool isStepLock(PointLock lock)
{
    return lock == LockToBottom || lock == LockToTop;
}

QRectF markerRect(const ControlPoints& chain, int index, const QSizeF& size)
{
    if (!has(chain, index)) return {};
    const bool atEnd = index == 0 || index == chain.points.size() - 1;
    const double extra = atEnd ? kEndMarkerExtra : 0.0;
    const double width = size.width() + extra;
    const double height = size.height() + extra;
    const QPointF& point = chain.points.at(index);
    return {point.x() - width / 2.0, point.y() - height / 2.0, width, height};
}

QPointF boundPoint(const QPointF& point, const QRectF& bounds, PointLock lock)
{
    QPointF bound(clamped(point.x(), bounds.left(), bounds.right()),
                  clamped(point.y(), bounds.top(), bounds.bottom()));
    if (lock & LockToLeft)
        bound.setX(bounds.left());
    else if (lock & LockToRight)
        bound.setX(bounds.right());
    if (lock & LockToTop)
        bound.setY(bounds.top());
    else if (lock & LockToBottom)
        bound.setY(bounds.bottom());
    return bound;
}

void setPoints(ControlPoints& chain, const QPolygonF& points, const QRectF& bounds)
{
    QPolygonF bound;
    bound.reserve(points.size());
    for (const QPointF& point : points)
        bound.append(boundPoint(point, bounds, NoLock));
    chain.points = bound;
    chain.locks = QVector<PointLock>(bound.size(), NoLock);
    chain.current = -1;
}

void scalePoints(ControlPoints& chain, double xScale, double yScale, const QRectF& bounds)
{
    for (QPointF& point : chain.points)
        point = boundPoint(QPointF(point.x() * xScale, point.y() * yScale), bounds, NoLock);
}

bool movePoint(ControlPoints& chain, int index, const QPointF& to, const QRectF& bounds)
{
    if (!has(chain, index)) return false;
    const PointLock lock = lockOf(chain, index);
    const QPointF place = boundPoint(to, bounds, lock);
    if (lock == NoLock) {
        if (!freePointMayGo(chain, index, to)) return false;
    } else if (lock == LockToBottom) {
        if (!stepMayGo(chain, index - 1, index + 2, to.x())) return false;
        if (lockOf(chain, index + 1) == LockToTop)
            chain.points[index + 1] = boundPoint({place.x() + kStepWidth, 0.0}, bounds, LockToTop);
    } else if (lock == LockToTop) {
        if (!stepMayGo(chain, index - 2, index + 1, to.x())) return false;
        if (lockOf(chain, index - 1) == LockToBottom)
            chain.points[index - 1] = boundPoint({place.x() - kStepWidth, 0.0}, bounds, LockToBottom);
    }
    chain.points[index] = place;
    return true;
}

bool removePoint(ControlPoints& chain, int index)
{
    if (!has(chain, index)) return false;
    const PointLock lock = lockOf(chain, index);
    if (lock != NoLock && !isStepLock(lock)) return false;
    // The later entry goes first, so that the earlier one keeps its index.
    if (lock == LockToBottom && lockOf(chain, index + 1) == LockToTop) removeEntries(chain, index + 1);
    removeEntries(chain, index);
    if (lock == LockToTop && lockOf(chain, index - 1) == LockToBottom) removeEntries(chain, index - 1);
    chain.current = -1;
    return true;
}

bool insertPoint(ControlPoints& chain, const QPointF& at, PointSort sort)
{
    const int pos = insertionIndex(chain.points, at, sort);
    if (isCloseToALock(chain, pos, at.x())) {
        if (isStepLock(lockOf(chain, pos - 1))) chain.current = pos - 1;
        return false;
    }
    chain.colors.insert(std::min(pos, chain.colors.size()), colorAt(chain, pos, at.x()));
    while (chain.locks.size() < chain.points.size())
        chain.locks.append(NoLock);
    chain.locks.insert(pos, NoLock);
    chain.points.insert(pos, at);
    chain.current = pos;
    return true;
}

void sortPoints(ControlPoints& chain, PointSort sort)
{
    if (sort == NoSort) return;
    const bool dragging = has(chain, chain.current);
    const QPointF dragged = dragging ? chain.points.at(chain.current) : QPointF();

    QPolygonF sorted = chain.points;
    std::sort(sorted.begin(), sorted.end(), [sort](const QPointF& a, const QPointF& b) {
        return sort == XSort ? a.x() < b.x() : a.y() < b.y();
    });
    const auto placeOf = [&sorted](const QPointF& point) {
        const auto same = [&](const QPointF& other) { return samePoint(point, other); };
        return static_cast<int>(std::find_if(sorted.begin(), sorted.end(), same) - sorted.begin());
    };
    const QVector<QRgb> colors = chain.colors;
    const QVector<PointLock> locks = chain.locks;
    for (int i = 0; i < chain.points.size(); ++i) {
        const int j = placeOf(chain.points.at(i));
        if (i < colors.size() && j < colors.size()) chain.colors[j] = colors.at(i);
        if (i < locks.size() && j < locks.size()) chain.locks[j] = locks.at(i);
    }
    chain.points = sorted;
    if (!dragging) return;
    const int found = placeOf(dragged);
    if (found < sorted.size()) chain.current = found;
}
