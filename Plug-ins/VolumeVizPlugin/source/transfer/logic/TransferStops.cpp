#include "transfer/logic/TransferStops.h"

#include <algorithm>
#include <cmath>

namespace {

QColor colorOf(const QVector<QRgb>& colors, int index)
{
    if (colors.isEmpty()) return Qt::white;
    return QColor(colors.at(std::min(index, colors.size() - 1)));
}

int alphaAt(double y, double height, float maxOpacity)
{
    const double alpha = (height - y) / height * static_cast<double>(maxOpacity);
    if (!(alpha > 0.0)) return 0;
    return alpha < 255.0 ? static_cast<int>(alpha) : 255;
}

QPolygonF sortedByX(QPolygonF points)
{
    std::sort(points.begin(), points.end(), [](const QPointF& a, const QPointF& b) { return a.x() < b.x(); });
    return points;
}

}  // namespace

std::optional<TransferStops> stopsOfPoints(const QPolygonF& points, const QVector<QRgb>& colors,
                                           const QSize& size, float maxOpacity)
{
    if (size.isEmpty()) return {};
    const double width = size.width();
    const double height = size.height();
    const QPolygonF sorted = sortedByX(points);
    TransferStops stops;
    stops.reserve(sorted.size());
    for (int i = 0; i < sorted.size(); ++i) {
        double x = std::trunc(sorted.at(i).x());
        const double y = std::trunc(sorted.at(i).y());
        if (i + 1 < sorted.size() && x == sorted.at(i + 1).x()) continue;
        if (x / width > 1.0) return {};
        if (i > 0 && x == std::trunc(sorted.at(i - 1).x())) x += 1.0;
        QColor color = colorOf(colors, i);
        color.setAlpha(alphaAt(y, height, maxOpacity));
        stops.append({x / width, color});
    }
    return stops;
}

ControlPoints pointsOfStops(const TransferStops& stops, const QSize& size)
{
    ControlPoints chain;
    for (const auto& [position, color] : stops) {
        const float share = static_cast<float>(255 - color.alpha()) / 255.0F;
        chain.points.append({position * size.width(), share * static_cast<float>(size.height())});
        chain.colors.append(color.rgba());
        chain.locks.append(NoLock);
    }
    if (stops.isEmpty()) return chain;
    chain.locks.first() = LockToLeft;
    chain.locks.last() = LockToRight;
    return chain;
}

bool runBackwards(const TransferStops& stops)
{
    return !stops.isEmpty() && stops.first().first > stops.last().first;
}

int tableColumn(int entry, int width)
{
    const double step = (width - 1) / 255.0;
    return static_cast<int>(entry * step + 0.5);
}
