#pragma once

#include <cstddef>
#include <cstdint>

// The lossy, linear way from source samples to the 8-bit voxels of the block. Single precision, step by step
// as written down here: the voxels of a file must not depend on the machine that loads it.
namespace viz {

/// Which instructions the loops below may use. Every level gives the same voxels.
enum class Simd
{
    Plain,
    Avx2,
    Avx512
};

/// The widest level of this machine.
Simd widestSimd();

/// Lowest and highest source value of a volume, collected frame by frame.
struct ValueRange
{
    /// A file all of whose values lie above this keeps it as its lowest value.
    static constexpr int startOfLowest = 64000;

    std::int32_t lowest = startOfLowest;
    std::int32_t highest = 0;

    /// Takes in the extremes of one more frame, each truncated to an integer.
    void widen(double frameLowest, double frameHighest);

    /// Makes the two differ: equal values move the highest up by one.
    void separate();
};

/// Voxel steps for each source step: 255 / (highest - lowest), in single precision. The two must differ.
float valueScale(const ValueRange& range);

/// (sample - lowest) * scale + 0.5 in single precision, truncated to an integer whose low byte is the voxel.
/// A sample below `lowest` is not clamped. `lowest` and `scale` must come from a range of 16-bit values.
/// @param samples, voxels  count elements each; they may not overlap
void quantise(const std::uint8_t* samples, std::size_t count, std::int32_t lowest, float scale,
              std::uint8_t* voxels, Simd simd = widestSimd());
void quantise(const std::uint16_t* samples, std::size_t count, std::int32_t lowest, float scale,
              std::uint8_t* voxels, Simd simd = widestSimd());

/// Spreads a frame of signed samples over the whole range of the unsigned type: the integer difference to the
/// frame's lowest value times 255 (65535) / (highest - lowest) in double precision, truncated. A frame of one
/// value becomes 0.
/// @param lowest, highest  extremes of this very frame
/// @param pixels           count elements
void stretchSigned(const std::int8_t* samples, std::size_t count, int lowest, int highest,
                   std::uint8_t* pixels, Simd simd = widestSimd());
void stretchSigned(const std::int16_t* samples, std::size_t count, int lowest, int highest,
                   std::uint16_t* pixels, Simd simd = widestSimd());

}  // namespace viz
