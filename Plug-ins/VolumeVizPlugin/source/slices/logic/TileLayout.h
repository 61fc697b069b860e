#pragma once

#include "slices/logic/SliceCamera.h"

#include <vector>

/// How tiles of one shape fill a widget: a grid, and in it rectangles of whole pixels with their origin at
/// the bottom left of the widget.

/// The shape of a tile as a pair of whole numbers. They only grow, so that the grid does not jump between
/// orientations.
struct TileWeights
{
    int width = 1;
    int height = 1;

    /// Takes the window's sides in thousandths of a millimetre where they are larger.
    void growTo(const SliceWindow& window);
};

struct TileGrid
{
    int columns = 1;
    int rows = 1;
};

inline bool operator==(const TileGrid& a, const TileGrid& b)
{
    return a.columns == b.columns && a.rows == b.rows;
}

enum TileLayoutMode : int
{
    SquareGrid = 0,
    BestAspectGrid = 1,
    OneRow = 2,
    OneRowToo = 3,
    OneColumn = 4
};

/// The grid for a number of tiles in a widget of width x height pixels. With the best aspect it is the one
/// whose own aspect comes nearest to the widget's, the narrower of two that are equally near. One cell where
/// there is no tile, and the square grid in a widget without height.
TileGrid tileGrid(TileLayoutMode mode, int tiles, const TileWeights& weights, int width, int height);

/// A rectangle in pixels, whole numbers all of them.
struct TileRect
{
    float x = 0.0F;
    float y = 0.0F;
    float width = 0.0F;
    float height = 0.0F;

    /// The edges count as inside.
    bool contains(double px, double py) const;
};

/// The room for one tile in pixels: one pixel lies between tiles and two at the border. 0 where the widget is
/// too small for the grid.
struct TileCell
{
    int width = 0;
    int height = 0;
};

TileCell tileCell(const TileGrid& grid, int width, int height);

/// True when tiles of that aspect (width by height) are as wide as their cell; otherwise they are as high.
bool fillsWidth(double aspect, const TileCell& cell);

/// The largest rectangle of that aspect in the widget, centred. Empty for an aspect or a widget of 0.
TileRect singleRect(double aspect, int width, int height);

/// One rectangle for each tile, left to right and top to bottom. No rectangle for an aspect or a widget of 0;
/// rectangles without a side where the cells have none.
std::vector<TileRect> tileRects(int tiles, const TileGrid& grid, double aspect, int width, int height);
