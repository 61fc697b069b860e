#pragma once

#include "lib/hvapi/scene/logic/ViewProjection.h"

#include <array>

namespace hvscene {

// Corners and offsets are in the order (x0,y0,z0), (x1,y0,z0), (x1,y1,z0), (x0,y1,z0), then the same at z1.

/// An offset o moves its corner by (o.x r.x, o.y r.y, -o.z r.z), with r the way from the box's centre to the
/// corner.
using CropOffsets = std::array<Vec3, 8>;
using CropCorners = std::array<Vec3, 8>;

/// A face of the box: the lower or the upper one of an axis (0 to 2 for x to z).
struct CropFace
{
    int axis = 0;
    bool upper = false;

    bool operator==(const CropFace& o) const { return axis == o.axis && upper == o.upper; }
};

/// The eight corners, in the volume's own space, of the box with the offsets.
CropCorners cropCorners(const Box& box, const CropOffsets& offsets);
/// The offsets that move the box's corners to `corners`; 0 along an axis on which the box has no length.
CropOffsets cropOffsets(const Box& box, const CropCorners& corners);

/// Numbers of the four corners of a face, in turn about it.
std::array<int, 4> cornersOf(CropFace face);
/// The middle of the four corners.
Vec3 faceMiddle(const CropCorners& corners, CropFace face);

/// Moves a face along its axis so that its corners lie at `coordinate`, but not out of `box`, and not nearer
/// to the opposite face than a hundredth of the box's length. What stands on other axes stays.
CropCorners withFaceAt(const Box& box, CropCorners corners, CropFace face, double coordinate);

}  // namespace hvscene
