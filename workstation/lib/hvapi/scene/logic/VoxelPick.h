#pragma once

#include "lib/hvapi/scene/logic/ViewProjection.h"

#include <optional>

namespace hvscene {

/// The voxels of a volume and what of them is seen.
struct VoxelField
{
    const unsigned char* voxels = nullptr;  ///< width fastest, then height, then depth
    int counts[3] = {0, 0, 0};
    Vec3 first;  ///< where the outer corner of the first voxel lies, in the volume's own space
    Vec3 last;   ///< the opposite one of the last voxel; less than `first` along an axis that is turned round
    Box kept;    ///< what the crop box leaves
    bool solid[256] = {};  ///< voxel values that stop the sight
};

/// Which voxel values can be picked: those from the threshold on whose colour is at least a tenth opaque,
/// which is also from where on the picture counts matter as a surface. `table` has 256 entries of R, G, B, A.
void markSolid(const unsigned char* table, unsigned char threshold, bool (&solid)[256]);

/// A voxel that stopped the sight.
struct VoxelHit
{
    int voxel[3] = {0, 0, 0};
    int value = 0;          ///< of the voxel
    double distance = 0.0;  ///< millimetres from the ray's origin to where it enters the voxel
    Vec3 point;             ///< that place, in the volume's own space
};

/// The first solid voxel along `ray`, which is given in the volume's own space (its direction need not have
/// the length 1: `distance` counts in its lengths). Voxels behind the origin don't count.
std::optional<VoxelHit> firstSolidVoxel(const VoxelField& field, const Ray& ray);

/// The value of the voxel at a place in the volume's own space; places outside take the nearest voxel. 0
/// without voxels.
int valueAt(const VoxelField& field, Vec3 place);

/// Where a ray enters and leaves a box, as counts of the direction; nothing when it misses it.
struct Span
{
    double enter;
    double leave;
};
std::optional<Span> spanInBox(const Box& box, const Ray& ray);

}  // namespace hvscene
