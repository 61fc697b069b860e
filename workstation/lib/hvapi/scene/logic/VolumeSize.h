#pragma once

#include "lib/hvapi/scene/logic/Vec3.h"

#include <cstddef>
#include <optional>

namespace hvscene {

/// Size of a volume: counts of voxels and lengths in millimetres along x, y and z.
struct VolumeSize
{
    int width = 0;
    int height = 0;
    int depth = 0;
    Vec3 lengths;

    std::size_t voxels() const;
    Vec3 thickness() const;
    /// Centred on the origin.
    Box box() const;
};

/// Counts a, b, c lie along x, y, z; extent[0] belongs to a, extent[2] to b and extent[1] to c. Nothing for a
/// count that is 0 or above the signed 32-bit range, a product above `maxVoxels`, and a length that is not
/// finite or not above 0.
std::optional<VolumeSize> volumeSize(unsigned int a, unsigned int b, unsigned int c, const float* extent,
                                     std::size_t maxVoxels);

/// All three finite and above 0.
bool isLength(Vec3 v);
bool isFinite(Vec3 v);

}  // namespace hvscene
