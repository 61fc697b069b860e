#pragma once

#include "slices/logic/SliceCamera.h"
#include "slices/logic/TileLayout.h"

#include <QString>

/// One slice of a slice view.
struct SliceTile
{
    QString label;           ///< the text shown in the tile
    double position = 0.0;   ///< along the view's axis, in millimetres
    double thickness = 0.0;  ///< millimetres; the distance to the next tile as well
    SliceWindow window;      ///< the part of the volume seen
    TileRect rect;           ///< pixels of the view, from its bottom left
};
