#pragma once

#include <cstddef>
#include <cstdint>

/// The two loops that every load has to make, as fast as the machine makes them: what the yardsticks of the
/// loads are built from.

/// Widens the range from `lowest` to `highest` by `count` samples.
void range(const std::uint16_t* samples, std::size_t count, std::uint16_t* lowest, std::uint16_t* highest);

/// voxel = (sample - lowest) * scale + 0.5 in single precision, truncated.
void map(const std::uint16_t* samples, std::size_t count, float lowest, float scale, std::uint8_t* voxels);
