#pragma once

#include <cstdint>

// What a volume needs in memory beside its voxels, before anything of it is loaded.
namespace viz {

/// Room for voxels and for what drawing needs beside them: a x b x depth bytes times that factor.
constexpr float volumeMemoryFactor = 1.8F;

/// a * b * depth, or the largest value where that goes beyond 64 bits; 0 for a negative depth.
std::uint64_t volumeBytes(unsigned a, unsigned b, int depth);

/// Bytes to try for a volume of a x b x depth voxels of one byte: the product in 64 bits, then the factor in
/// single precision, truncated. A product or result beyond 64 bits gives the largest value; a depth or factor
/// of 0 or less gives 0.
std::uint64_t memoryToTry(unsigned a, unsigned b, int depth, float factor);

/// Depth in voxels of the texture that stands for a volume of that depth in the test.
int textureDepthToTry(int depth);

}  // namespace viz
