#include "slices/logic/TileLayout.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>

namespace {

int rowsFor(int tiles, int columns)
{
    return (tiles + columns - 1) / columns;
}

TileGrid squareGrid(int tiles)
{
    int columns = static_cast<int>(std::sqrt(static_cast<double>(tiles)));
    if (columns * columns < tiles) ++columns;
    return {columns, rowsFor(tiles, columns)};
}

TileGrid bestAspectGrid(int tiles, const TileWeights& weights, int width, int height)
{
    const TileGrid square = squareGrid(tiles);
    if (width <= 0 || height <= 0) return square;

    const double weightWidth = weights.width;
    const double weightHeight = weights.height;
    std::map<double, TileGrid> grids;
    grids[(square.columns * weightWidth) / (square.rows * weightHeight)] = square;
    for (int c = 1; c <= tiles; ++c) {
        const double rows = static_cast<double>(tiles) / c;
        grids[(c * weightWidth) / (rows * weightHeight)] = {c, rowsFor(tiles, c)};
    }

    const double wanted = static_cast<double>(width) / height;
    double nearest = 100000.0;
    TileGrid best = square;
    for (const auto& [aspect, grid] : grids) {
        const double distance = std::abs(wanted - aspect);
        if (distance >= nearest) continue;
        nearest = distance;
        best = grid;
    }
    return best;
}

int grown(int weight, double side)
{
    // A side that no counter can hold is as good as the largest one that can.
    constexpr double kMost = std::numeric_limits<int>::max();
    const double thousandths = side * 1000.0;
    if (!(thousandths >= 0.0)) return weight;
    return std::max(weight, static_cast<int>(std::min(thousandths, kMost)));
}

}  // namespace

void TileWeights::growTo(const SliceWindow& window)
{
    width = grown(width, window.width());
    height = grown(height, window.height());
}

TileGrid tileGrid(TileLayoutMode mode, int tiles, const TileWeights& weights, int width, int height)
{
    if (tiles <= 0) return {};
    switch (mode) {
    case SquareGrid:
        return squareGrid(tiles);
    case OneRow:
    case OneRowToo:
        return {tiles, 1};
    case OneColumn:
        return {1, tiles};
    default:
        return bestAspectGrid(tiles, weights, width, height);
    }
}

bool TileRect::contains(double px, double py) const
{
    return px >= x && px <= x + width && py >= y && py <= y + height;
}

TileCell tileCell(const TileGrid& grid, int width, int height)
{
    // In 64 bits: a hundred thousand tiles side by side in a small widget must not wrap.
    const auto share = [](qint64 room, qint64 count) {
        return static_cast<int>(std::max<qint64>(0, (room - (count * 2 + 2)) / count));
    };
    return {share(width, grid.columns), share(height, grid.rows)};
}

bool fillsWidth(double aspect, const TileCell& cell)
{
    return aspect * cell.height > cell.width;
}

TileRect singleRect(double aspect, int width, int height)
{
    if (!(aspect > 0.0) || width <= 0 || height <= 0) return {};
    int w = width;
    int h = height;
    if (aspect > static_cast<double>(width) / height)
        h = static_cast<int>(width / aspect);
    else
        w = static_cast<int>(height * aspect);
    const int x = (width - w) / 2;
    const int y = (height - h) / 2;
    return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(w), static_cast<float>(h)};
}

std::vector<TileRect> tileRects(int tiles, const TileGrid& grid, double aspect, int width, int height)
{
    if (tiles <= 0 || !(aspect > 0.0) || width <= 0 || height <= 0) return {};
    const TileCell cell = tileCell(grid, width, height);
    int w = cell.width;
    int h = cell.height;
    int surplusX = 0;
    int surplusY = 0;
    if (fillsWidth(aspect, cell)) {
        h = static_cast<int>(cell.width / aspect);
        surplusY = height - (grid.rows * (h + 2) + 2);
    } else {
        w = static_cast<int>(cell.height * aspect);
        surplusX = width - (grid.columns * (w + 2) + 2);
    }

    std::vector<TileRect> rects;
    rects.reserve(static_cast<std::size_t>(tiles));
    for (int i = 0; i < tiles; ++i) {
        const int row = i / grid.columns;
        const int column = i % grid.columns;
        const int x = surplusX / 2 + column * w + column + 2;
        const int y = surplusY / 2 + (grid.rows - row - 1) * h + (grid.rows - row) + 2;
        rects.push_back(
            {static_cast<float>(x), static_cast<float>(y), static_cast<float>(w), static_cast<float>(h)});
    }
    return rects;
}
