#pragma once

#include <cstdint>

namespace phantom {

/// A well mixed 64-bit hash of a seed and a voxel's number: equal on every machine and in every thread.
std::uint64_t voxelHash(std::uint64_t seed, std::uint64_t voxel);

/// Scanner noise at a voxel: bell-shaped with mean 0 and standard deviation 1, never more than 3.5 either
/// way.
double noise(std::uint64_t seed, std::uint64_t voxel);

}  // namespace phantom
