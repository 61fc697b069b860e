#include "transfer/logic/RenderThreshold.h"

#include <algorithm>
#include <cmath>

namespace {

int truncatedToInt(double value)
{
    constexpr double limit = 1e9;
    return static_cast<int>(std::clamp(value, -limit, limit));
}

}  // namespace

int renderThreshold(const QPolygonF& points)
{
    for (int i = 1; i < points.size(); ++i) {
        const QPointF& from = points.at(i - 1);
        const QPointF& to = points.at(i);
        const double dx = std::trunc(to.x() - from.x());
        const double dy = std::trunc(std::abs(to.y() - from.y()));
        if (dx < 3.0 && dy > 150.0) return truncatedToInt(to.x() * 255.0 / 233.0);
    }
    return -1;
}
