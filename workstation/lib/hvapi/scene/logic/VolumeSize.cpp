#include "lib/hvapi/scene/logic/VolumeSize.h"

#include <limits>

namespace hvscene {

std::size_t VolumeSize::voxels() const
{
    return static_cast<std::size_t>(width) * static_cast<std::size_t>(height) *
           static_cast<std::size_t>(depth);
}

Vec3 VolumeSize::thickness() const
{
    return {lengths.x / width, lengths.y / height, lengths.z / depth};
}

Box VolumeSize::box() const
{
    Box box;
    box.add(lengths * -0.5);
    box.add(lengths * 0.5);
    return box;
}

std::optional<VolumeSize> volumeSize(unsigned int a, unsigned int b, unsigned int c, const float* extent,
                                     std::size_t maxVoxels)
{
    constexpr unsigned int maxCount = std::numeric_limits<int>::max();
    if (!extent || a == 0 || b == 0 || c == 0 || a > maxCount || b > maxCount || c > maxCount)
        return std::nullopt;
    if (a > maxVoxels / b || static_cast<std::size_t>(a) * b > maxVoxels / c) return std::nullopt;
    VolumeSize size{
        static_cast<int>(a), static_cast<int>(b), static_cast<int>(c), {extent[0], extent[2], extent[1]}};
    if (!isLength(size.lengths)) return std::nullopt;
    return size;
}

bool isFinite(Vec3 v)
{
    return std::isfinite(v.x) && std::isfinite(v.y) && std::isfinite(v.z);
}

bool isLength(Vec3 v)
{
    return isFinite(v) && v.x > 0.0 && v.y > 0.0 && v.z > 0.0;
}

}  // namespace hvscene
