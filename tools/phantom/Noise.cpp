#include "phantom/Noise.h"

namespace phantom {
namespace {

// Finaliser of the splitmix64 generator.
std::uint64_t mixed(std::uint64_t x)
{
    x ^= x >> 30;
    x *= 0xbf58476d1ce4e5b9ULL;
    x ^= x >> 27;
    x *= 0x94d049bb133111ebULL;
    return x ^ (x >> 31);
}

}  // namespace

std::uint64_t voxelHash(std::uint64_t seed, std::uint64_t voxel)
{
    return mixed(mixed(seed + 0x9e3779b97f4a7c15ULL) + voxel * 0x9e3779b97f4a7c15ULL);
}

double noise(std::uint64_t seed, std::uint64_t voxel)
{
    // The sum of four uniform 16-bit numbers is close to normal: mean 4 * 32767.5, variance 4 * (65536^2 - 1)
    // / 12.
    const std::uint64_t h = voxelHash(seed, voxel);
    const auto sum =
        static_cast<std::int64_t>((h & 0xffff) + ((h >> 16) & 0xffff) + ((h >> 32) & 0xffff) + (h >> 48));
    constexpr double deviation = 37837.22677;
    return (static_cast<double>(sum) - 131070.0) / deviation;
}

}  // namespace phantom
