#include "volume/logic/MemoryEstimate.h"

#include <limits>

namespace viz {

namespace {

constexpr std::uint64_t mostBytes = std::numeric_limits<std::uint64_t>::max();

}  // namespace

std::uint64_t volumeBytes(unsigned a, unsigned b, int depth)
{
    if (depth <= 0) return 0;
    const std::uint64_t area = std::uint64_t{a} * b;
    const auto slices = static_cast<std::uint64_t>(depth);
    return area != 0 && slices > mostBytes / area ? mostBytes : area * slices;
}

std::uint64_t memoryToTry(unsigned a, unsigned b, int depth, float factor)
{
    if (!(factor > 0.0F)) return 0;
    const float bytes = static_cast<float>(volumeBytes(a, b, depth)) * factor;
    constexpr float beyond = 18446744073709551616.0F;  // 2 to the power of 64
    return bytes < beyond ? static_cast<std::uint64_t>(bytes) : mostBytes;
}

int textureDepthToTry(int depth)
{
    if (depth <= 0) return 0;
    const double tried = depth * 1.8;
    constexpr double most = std::numeric_limits<int>::max();
    return tried < most ? static_cast<int>(tried) : std::numeric_limits<int>::max();
}

}  // namespace viz
