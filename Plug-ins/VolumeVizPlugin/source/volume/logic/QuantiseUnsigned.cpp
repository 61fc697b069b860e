#include "volume/logic/QuantiseUnsigned.h"

#include <algorithm>
#include <limits>

#if defined(__x86_64__) && defined(__GNUC__)
#define VIZ_HAS_WIDE_LOOPS
#define VIZ_AVX2 __attribute__((target("avx2,prefer-vector-width=256")))
#define VIZ_AVX512 __attribute__((target("avx512f,avx512bw,avx512vl,avx512dq,prefer-vector-width=512")))
#define VIZ_INLINE inline __attribute__((always_inline))
#else
#define VIZ_INLINE inline
#endif

namespace viz {

namespace {

constexpr float twoTo31 = 2147483648.0F;
constexpr float twoTo32 = 4294967296.0F;
constexpr float brightest = 255.0F;

// A difference of 32-bit unsigned numbers, rounded once to single precision.
VIZ_INLINE float difference(std::uint32_t sample, std::uint32_t lowest)
{
    return static_cast<float>(sample - lowest);
}

// The same for narrow samples with lowest <= 65535, where the difference fits into a signed number, exactly
// even as a float. One below 0 stands for 2^32 more, and adding that rounds once, as above.
VIZ_INLINE float narrowDifference(std::int32_t sample, std::int32_t lowest)
{
    const auto exact = static_cast<float>(sample - lowest);
    return exact < 0.0F ? exact + twoTo32 : exact;
}

// What becomes of a level above 255.
enum class Above
{
    Wraps,
    Stops
};

template <Above above>
VIZ_INLINE std::uint8_t voxel(float distance, float scale)
{
    const float level = distance * scale + 0.5F;
    if constexpr (above == Above::Stops) {
        const float stopped = level < brightest ? level : brightest;
        return static_cast<std::uint8_t>(static_cast<std::int32_t>(stopped));
    } else {
        const float inRange = level < twoTo31 ? level : 0.0F;
        return static_cast<std::uint8_t>(static_cast<std::int32_t>(inRange));
    }
}

// One loop, compiled once for every level of instructions.
template <Above above, typename Sample>
VIZ_INLINE void quantiseLoop(const Sample* __restrict samples, std::size_t count, std::uint32_t lowest,
                             float scale, std::uint8_t* __restrict voxels)
{
    if constexpr (sizeof(Sample) < 4) {
        if (lowest <= std::numeric_limits<std::uint16_t>::max()) {
            const auto from = static_cast<std::int32_t>(lowest);
            for (std::size_t i = 0; i < count; ++i)
                voxels[i] = voxel<above>(narrowDifference(samples[i], from), scale);
            return;
        }
    }
    for (std::size_t i = 0; i < count; ++i)
        voxels[i] = voxel<above>(difference(samples[i], lowest), scale);
}

#ifdef VIZ_HAS_WIDE_LOOPS
template <Above above, typename Sample>
VIZ_AVX2 void quantiseAvx2(const Sample* samples, std::size_t count, std::uint32_t lowest, float scale,
                           std::uint8_t* voxels)
{
    quantiseLoop<above>(samples, count, lowest, scale, voxels);
}

template <Above above, typename Sample>
VIZ_AVX512 void quantiseAvx512(const Sample* samples, std::size_t count, std::uint32_t lowest, float scale,
                               std::uint8_t* voxels)
{
    quantiseLoop<above>(samples, count, lowest, scale, voxels);
}
#endif

template <Above above = Above::Wraps, typename Sample>
void quantiseAt(Simd simd, const Sample* samples, std::size_t count, std::uint32_t lowest, float scale,
                std::uint8_t* voxels)
{
#ifdef VIZ_HAS_WIDE_LOOPS
    if (simd == Simd::Avx512) return quantiseAvx512<above>(samples, count, lowest, scale, voxels);
    if (simd == Simd::Avx2) return quantiseAvx2<above>(samples, count, lowest, scale, voxels);
#endif
    static_cast<void>(simd);
    quantiseLoop<above>(samples, count, lowest, scale, voxels);
}

std::uint32_t truncated(double value)
{
    constexpr double largest = std::numeric_limits<std::uint32_t>::max();
    if (!(value > 0.0)) return 0;
    return value < largest ? static_cast<std::uint32_t>(value) : std::numeric_limits<std::uint32_t>::max();
}

}  // namespace

UnsignedRange UnsignedRange::ofFrame(double frameLowest, double frameHighest)
{
    return {truncated(frameLowest), truncated(frameHighest)};
}

void UnsignedRange::widen(const UnsignedRange& frame)
{
    lowest = std::min(lowest, frame.lowest);
    highest = std::max(highest, frame.highest);
}

void UnsignedRange::separate()
{
    if (highest == lowest) ++highest;
}

float valueScale(const UnsignedRange& range)
{
    return 255.0F / static_cast<float>(range.highest - range.lowest);
}

void quantiseUnsigned(const std::uint8_t* samples, std::size_t count, std::uint32_t lowest, float scale,
                      std::uint8_t* voxels, Simd simd)
{
    quantiseAt(simd, samples, count, lowest, scale, voxels);
}

void quantiseUnsigned(const std::uint16_t* samples, std::size_t count, std::uint32_t lowest, float scale,
                      std::uint8_t* voxels, Simd simd)
{
    quantiseAt(simd, samples, count, lowest, scale, voxels);
}

void quantiseUnsigned(const std::uint32_t* samples, std::size_t count, std::uint32_t lowest, float scale,
                      std::uint8_t* voxels, Simd simd)
{
    quantiseAt(simd, samples, count, lowest, scale, voxels);
}

template <typename Sample>
void quantiseClamped(const Sample* samples, std::size_t count, std::uint32_t lowest, float scale,
                     std::uint8_t* voxels, Simd simd)
{
    quantiseAt<Above::Stops>(simd, samples, count, lowest, scale, voxels);
}

template void quantiseClamped(const std::uint8_t*, std::size_t, std::uint32_t, float, std::uint8_t*, Simd);
template void quantiseClamped(const std::uint16_t*, std::size_t, std::uint32_t, float, std::uint8_t*, Simd);
template void quantiseClamped(const std::uint32_t*, std::size_t, std::uint32_t, float, std::uint8_t*, Simd);

}  // namespace viz
