#pragma once

#include <QIcon>
#include <QPalette>

/// Pictograms of the 3D view's tool bar, drawn in the colours of a palette.
enum class ViewIcon
{
    Front,        ///< a cube with its front filled
    Side,         ///< a cube with its right side filled
    Top,          ///< a cube with its top filled
    Iso,          ///< a cube
    Reset,        ///< a cube in a frame
    BoundingBox,  ///< the edges of a box
    Axes,         ///< three axes from one point
    ScaleBar,     ///< a bar with ends
    SliceX,       ///< a cube cut across x, and so for y and z
    SliceY,
    SliceZ,
    Measure  ///< a ruler
};

QIcon viewIcon(ViewIcon icon, QPalette const& palette);
