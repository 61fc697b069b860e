#include "transfer/logic/ColorTableStops.h"

#include "transfer/logic/KeyIndices.h"

#include <algorithm>

namespace {

QRgb colorAt(const ColorTableView& table, int index, int alpha)
{
    const unsigned char* entry = table.bytes + 4 * static_cast<std::ptrdiff_t>(index);
    return qRgba(entry[0], entry[1], entry[2], alpha);
}

// Truncated into 0..last; 0 for what is no number.
int truncatedWithin(float value, int last)
{
    if (!(value > 0.0F)) return 0;
    return value < static_cast<float>(last) ? static_cast<int>(value) : last;
}

}  // namespace

TransferStops stopsOfColorTable(const ColorTableView& table, bool reversed)
{
    TransferStops stops;
    QVector<int> keys = keyIndices(table.bytes, table.entries);
    if (reversed) std::reverse(keys.begin(), keys.end());
    const int last = table.entries - 1;
    for (const int key : keys) {
        const int place = reversed ? last - key : key;
        const float position = static_cast<float>(place) / static_cast<float>(table.entries);
        const int alpha = place >= last ? 255 : std::min(place, 255);
        stops.append({static_cast<double>(position), QColor::fromRgba(colorAt(table, key, alpha))});
    }
    return stops;
}

QVector<QRgb> colorsOfPoints(const QPolygonF& points, const QSize& size, const ColorTableView& table,
                             bool reversed)
{
    QVector<QRgb> colors;
    if (!table.bytes || table.entries < 1) return colors;
    const int last = table.entries - 1;
    for (const QPointF& point : points) {
        const float x = static_cast<float>(point.x()) / static_cast<float>(size.width());
        const float y = static_cast<float>(point.y()) / static_cast<float>(size.height());
        const int index = truncatedWithin(x * static_cast<float>(last), last);
        colors.append(colorAt(table, reversed ? last - index : index, truncatedWithin(y * 255.0F, 255)));
    }
    return colors;
}
