#pragma once

#include "slices/logic/TileLayout.h"

#include <optional>

/// Zooming a slice view that lies in a scroll area: a new minimum height for it.
struct SliceZoom
{
    int width = 0;   ///< of the view, in pixels
    int height = 0;  ///< of the view, in pixels
    bool singleView = false;
    int tiles = 0;
    TileGrid grid;  ///< in force
    TileLayoutMode mode = BestAspectGrid;
    TileWeights weights;
    double aspect = 0.0;  ///< of a tile, width by height
    int maxTextureSize = 0;

    /// The minimum height after a step in, or nothing when a step would not enlarge anything, or would not
    /// fit on the graphics card. Several columns grow until a column less is needed or the tiles get larger.
    std::optional<int> in() const;

    /// The minimum height after a step out, never below 0. Several columns shrink until a column more is
    /// needed or the tiles get smaller.
    int out() const;

private:
    bool sameColumnsAndFillsWidth(int atHeight) const;
};
