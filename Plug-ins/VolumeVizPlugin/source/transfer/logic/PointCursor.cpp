#include "transfer/logic/PointCursor.h"

#include <cmath>

namespace {

Qt::CursorShape cursorOfLock(PointLock lock)
{
    switch (lock) {
    case NoLock:
        return Qt::PointingHandCursor;
    case LockToLeft:
    case LockToRight:
        return Qt::SizeVerCursor;
    case LockToTop:
    case LockToBottom:
        return Qt::SizeHorCursor;
    }
    return Qt::ArrowCursor;
}

}  // namespace

Qt::CursorShape pointCursor(const ControlPoints& chain, const QSizeF& size, const QPoint& mouse)
{
    const QRectF spot(mouse.x(), mouse.y(), 1.0, 1.0);
    for (int i = 0; i < chain.points.size(); ++i) {
        const QPointF& point = chain.points.at(i);
        const QRectF area(point.x() - size.width() / 2.0, point.y() - size.height() / 2.0, size.width(),
                          size.height());
        const PointLock lock = lockOf(chain, i);
        if (area.intersects(spot)) return cursorOfLock(lock);
        // The pixel column counts: points of a resized widget stand between whole numbers.
        if (isStepLock(lock) && std::floor(point.x()) == mouse.x()) return Qt::SplitHCursor;
    }
    return Qt::PointingHandCursor;
}
