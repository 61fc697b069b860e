#pragma once

#include "lib/hvapi/scene/logic/Vec3.h"

class C3DVolumeData;

namespace hvscene {

enum class BoxEdges
{
    Hidden,  ///< those that meet in the corner farthest from the viewer
    Visible  ///< the others
};

/// Draws edges of the volume's box under its transformation, smooth and half transparent, without writing
/// depth. `towardsViewer` is a direction of the scene. Needs the scene's matrices.
void drawBoxOutline(C3DVolumeData& volume, Vec3 towardsViewer, BoxEdges edges, float lineWidth);

}  // namespace hvscene
