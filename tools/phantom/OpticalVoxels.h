#pragma once

#include "phantom/Vec3.h"

#include <string>
#include <vector>

namespace phantom {

/// A light in the mouse: the brightest in its middle, weaker outwards by a normal distribution.
struct Light
{
    Vec3 middle;
    double spread;  ///< standard deviation, mm
    double peak;    ///< in its middle
    double reach;   ///< it ends at this distance from the middle, mm
};

/// Those that the pictures of a sequence show from above: one deep in the liver, and one in the left thigh
/// that comes through the skin.
const std::vector<Light>& lights();

/// What a reconstruction of the lights would be: the text of a sequence's "OpticalVoxels.txt", with voxels of
/// 1 mm of the mouse's space. `scale` is what the reader is told of a length of 1 mm.
std::string opticalVoxelText(double scale);

}  // namespace phantom
