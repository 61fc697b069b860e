#pragma once

#include "volume/logic/Quantise.h"

#include <cstddef>
#include <cstdint>

// The linear way to 8 bits for samples that are unsigned numbers of up to 32 bits, as decoders of pictures
// give them. Differences are taken in unsigned integers, so that values on both sides of 2^31 map rightly.
namespace viz {

/// Lowest and highest source value of a volume, collected frame by frame.
struct UnsignedRange
{
    std::uint32_t lowest = 0;
    std::uint32_t highest = 0;

    /// The range of one frame, both ends truncated to integers; what is no number or below 0 counts as 0.
    static UnsignedRange ofFrame(double frameLowest, double frameHighest);

    /// Takes in the extremes of one more frame.
    void widen(const UnsignedRange& frame);

    /// Makes the two differ: equal values move the highest up by one, from the largest number to 0.
    void separate();
};

/// Voxel steps for each source step: 255 / (highest - lowest), in single precision. The two must differ.
float valueScale(const UnsignedRange& range);

/// (sample - lowest) * scale + 0.5 in single precision with the difference in unsigned 32 bits, truncated to
/// a 32-bit integer whose low byte is the voxel. A sample below `lowest` is not clamped; a result beyond 32
/// bits gives 0.
/// @param samples, voxels  count elements each; they may not overlap
void quantiseUnsigned(const std::uint8_t* samples, std::size_t count, std::uint32_t lowest, float scale,
                      std::uint8_t* voxels, Simd simd = widestSimd());
void quantiseUnsigned(const std::uint16_t* samples, std::size_t count, std::uint32_t lowest, float scale,
                      std::uint8_t* voxels, Simd simd = widestSimd());
void quantiseUnsigned(const std::uint32_t* samples, std::size_t count, std::uint32_t lowest, float scale,
                      std::uint8_t* voxels, Simd simd = widestSimd());

/// The same, where a result above 255 gives 255: for a range whose upper end lies below the highest sample.
/// @tparam Sample  unsigned number of 8, 16 or 32 bits
template <typename Sample>
void quantiseClamped(const Sample* samples, std::size_t count, std::uint32_t lowest, float scale,
                     std::uint8_t* voxels, Simd simd = widestSimd());

}  // namespace viz
