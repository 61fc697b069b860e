#include "slices/logic/SliceZoom.h"

#include <algorithm>

bool SliceZoom::sameColumnsAndFillsWidth(int atHeight) const
{
    const TileGrid then = tileGrid(mode, tiles, weights, width, atHeight);
    const TileCell cell = tileCell(then, width, atHeight);
    return then.columns == grid.columns && cell.height > 0 && fillsWidth(aspect, cell);
}

std::optional<int> SliceZoom::in() const
{
    const int limit = static_cast<int>(maxTextureSize * 0.8);
    if (width <= 0 || height <= 0 || height >= limit) return std::nullopt;
    if (static_cast<qint64>(width) * height >= static_cast<qint64>(limit) * 1000) return std::nullopt;

    int wanted = static_cast<int>(height * 1.05);
    if (singleView) {
        if (aspect >= static_cast<double>(width) / height) return std::nullopt;
    } else if (grid.columns == 1) {
        const TileCell cell = tileCell(grid, width, height);
        if (aspect * cell.height >= cell.width) return std::nullopt;
    } else if (grid.columns > 1) {
        while (wanted < limit && sameColumnsAndFillsWidth(wanted))
            wanted = std::max(wanted + 1, static_cast<int>(wanted * 1.01));
    }
    return wanted;
}

int SliceZoom::out() const
{
    int wanted = static_cast<int>(height * 0.95);
    if (grid.columns > 1) {
        while (wanted > 0 && sameColumnsAndFillsWidth(wanted))
            wanted = static_cast<int>(wanted * 0.99);
    }
    return std::max(0, wanted);
}
