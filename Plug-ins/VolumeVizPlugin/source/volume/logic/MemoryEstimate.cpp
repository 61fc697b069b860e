#include "volume/logic/MemoryEstimate.h"

#include <limits>

namespace viz {

std::uint64_t memoryToTry(unsigned a, unsigned b, int depth, float factor)
{
    constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    if (depth <= 0 || !(factor > 0.0F)) return 0;
    const std::uint64_t area = std::uint64_t{a} * b;
    if (area != 0 && static_cast<std::uint64_t>(depth) > most / area) return most;
    const float bytes = static_cast<float>(area * static_cast<std::uint64_t>(depth)) * factor;
    constexpr float beyond = 18446744073709551616.0F;  // 2 to the power of 64
    return bytes < beyond ? static_cast<std::uint64_t>(bytes) : most;
}

int textureDepthToTry(int depth)
{
    if (depth <= 0) return 0;
    const double tried = depth * 1.8;
    constexpr double most = std::numeric_limits<int>::max();
    return tried < most ? static_cast<int>(tried) : std::numeric_limits<int>::max();
}

}  // namespace viz
