#include "lib/hvapi/scene/logic/OpticalVoxels.h"

#include <algorithm>

namespace hvscene {

namespace {

constexpr double defaultShare = 0.25;

// Corner k takes the upper end along x, y, z for its bits 0, 1, 2.
constexpr std::array<std::array<unsigned int, 4>, 6> sideCorners{
    {{{0, 4, 6, 2}}, {{1, 3, 7, 5}}, {{0, 1, 5, 4}}, {{2, 6, 7, 3}}, {{0, 2, 3, 1}}, {{4, 5, 7, 6}}}};

}  // namespace

double OpticalVoxels::lowest() const
{
    if (voxels.empty()) return 0.0;
    float value = voxels.front().intensity;
    for (const OpticalVoxel& voxel : voxels)
        value = std::min(value, voxel.intensity);
    return static_cast<double>(value);
}

double OpticalVoxels::highest() const
{
    if (voxels.empty()) return 0.0;
    float value = voxels.front().intensity;
    for (const OpticalVoxel& voxel : voxels)
        value = std::max(value, voxel.intensity);
    return static_cast<double>(value);
}

double OpticalVoxels::defaultThreshold() const
{
    if (threshold) return *threshold;
    return lowest() * (1.0 - defaultShare) + highest() * defaultShare;
}

Box OpticalVoxels::box() const
{
    Box box;
    for (const OpticalVoxel& voxel : voxels) {
        box.add(voxel.center - voxel.size * 0.5);
        box.add(voxel.center + voxel.size * 0.5);
    }
    return box;
}

std::vector<std::size_t> drawnVoxels(const OpticalVoxels& optical, float threshold, double ratio)
{
    std::vector<std::size_t> shown;
    for (std::size_t k = 0; k < optical.voxels.size(); ++k)
        if (optical.voxels[k].intensity >= threshold) shown.push_back(k);
    const double share = std::clamp(ratio, 0.0, 1.0);
    if (share >= 1.0 || shown.empty()) return shown;
    if (!(share > 0.0)) return {};
    const auto wanted = static_cast<std::size_t>(std::ceil(share * static_cast<double>(shown.size())));
    std::vector<std::size_t> part;
    part.reserve(wanted);
    for (std::size_t k = 0; k < wanted; ++k)
        part.push_back(shown[k * shown.size() / wanted]);
    return part;
}

double colourPlace(double intensity, double lowest, double highest)
{
    if (!(highest > lowest)) return 1.0;
    return std::clamp((intensity - lowest) / (highest - lowest), 0.0, 1.0);
}

VoxelBoxes voxelBoxes(const OpticalVoxels& optical, const std::vector<std::size_t>& drawn,
                      const unsigned char* table)
{
    VoxelBoxes boxes;
    boxes.corners.reserve(24 * drawn.size());
    boxes.colours.reserve(32 * drawn.size());
    boxes.middles.reserve(drawn.size());
    for (auto& side : boxes.sides)
        side.reserve(4 * drawn.size());
    const double lowest = optical.lowest();
    const double highest = optical.highest();
    unsigned int first = 0;
    for (const std::size_t k : drawn) {
        const OpticalVoxel& voxel = optical.voxels[k];
        Box box;
        box.add(voxel.center - voxel.size * 0.5);
        box.add(voxel.center + voxel.size * 0.5);
        const double place = colourPlace(static_cast<double>(voxel.intensity), lowest, highest);
        const unsigned char* colour = table + 4 * static_cast<std::size_t>(place * 255.0 + 0.5);
        for (int corner = 0; corner < 8; ++corner) {
            const Vec3 p = box.corner(corner);
            for (const double c : {p.x, p.y, p.z})
                boxes.corners.push_back(static_cast<float>(c));
            boxes.colours.insert(boxes.colours.end(), {colour[0], colour[1], colour[2], 255});
        }
        for (std::size_t side = 0; side < 6; ++side)
            for (const unsigned int corner : sideCorners[side])
                boxes.sides[side].push_back(first + corner);
        boxes.middles.push_back(first);
        const double edge = std::min({voxel.size.x, voxel.size.y, voxel.size.z});
        boxes.smallest = first == 0 ? edge : std::min(boxes.smallest, edge);
        first += 8;
    }
    return boxes;
}

}  // namespace hvscene
