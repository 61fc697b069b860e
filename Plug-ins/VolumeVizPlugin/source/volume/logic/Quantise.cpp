#include "volume/logic/Quantise.h"

#include <algorithm>

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

// One loop each, compiled once for every level of instructions.

template <typename Sample>
VIZ_INLINE void quantiseLoop(const Sample* __restrict samples, std::size_t count, float lowest, float scale,
                             std::uint8_t* __restrict voxels)
{
    for (std::size_t i = 0; i < count; ++i) {
        const float level = (static_cast<float>(samples[i]) - lowest) * scale + 0.5F;
        voxels[i] = static_cast<std::uint8_t>(static_cast<std::int32_t>(level));
    }
}

template <typename Sample, typename Pixel>
VIZ_INLINE void stretchLoop(const Sample* __restrict samples, std::size_t count, std::int32_t lowest,
                            double scale, Pixel* __restrict pixels)
{
    for (std::size_t i = 0; i < count; ++i) {
        const std::int32_t difference = samples[i] - lowest;
        pixels[i] = static_cast<Pixel>(static_cast<std::int32_t>(difference * scale));
    }
}

#ifdef VIZ_HAS_WIDE_LOOPS
template <typename Sample>
VIZ_AVX2 void quantiseAvx2(const Sample* samples, std::size_t count, float lowest, float scale,
                           std::uint8_t* voxels)
{
    quantiseLoop(samples, count, lowest, scale, voxels);
}

template <typename Sample>
VIZ_AVX512 void quantiseAvx512(const Sample* samples, std::size_t count, float lowest, float scale,
                               std::uint8_t* voxels)
{
    quantiseLoop(samples, count, lowest, scale, voxels);
}

template <typename Sample, typename Pixel>
VIZ_AVX2 void stretchAvx2(const Sample* samples, std::size_t count, std::int32_t lowest, double scale,
                          Pixel* pixels)
{
    stretchLoop(samples, count, lowest, scale, pixels);
}

template <typename Sample, typename Pixel>
VIZ_AVX512 void stretchAvx512(const Sample* samples, std::size_t count, std::int32_t lowest, double scale,
                              Pixel* pixels)
{
    stretchLoop(samples, count, lowest, scale, pixels);
}
#endif

template <typename Sample>
void quantiseAt(Simd simd, const Sample* samples, std::size_t count, std::int32_t lowest, float scale,
                std::uint8_t* voxels)
{
    const float from = static_cast<float>(lowest);
#ifdef VIZ_HAS_WIDE_LOOPS
    if (simd == Simd::Avx512) return quantiseAvx512(samples, count, from, scale, voxels);
    if (simd == Simd::Avx2) return quantiseAvx2(samples, count, from, scale, voxels);
#endif
    static_cast<void>(simd);
    quantiseLoop(samples, count, from, scale, voxels);
}

template <typename Sample, typename Pixel>
void stretchAt(Simd simd, const Sample* samples, std::size_t count, int lowest, int highest, double whole,
               Pixel* pixels)
{
    if (highest == lowest) {
        std::fill_n(pixels, count, Pixel{0});
        return;
    }
    const double scale = whole / (highest - lowest);
#ifdef VIZ_HAS_WIDE_LOOPS
    if (simd == Simd::Avx512) return stretchAvx512(samples, count, lowest, scale, pixels);
    if (simd == Simd::Avx2) return stretchAvx2(samples, count, lowest, scale, pixels);
#endif
    static_cast<void>(simd);
    stretchLoop(samples, count, lowest, scale, pixels);
}

Simd detectSimd()
{
#ifdef VIZ_HAS_WIDE_LOOPS
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
        __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512dq"))
        return Simd::Avx512;
    if (__builtin_cpu_supports("avx2")) return Simd::Avx2;
#endif
    return Simd::Plain;
}

}  // namespace

Simd widestSimd()
{
    static const Simd widest = detectSimd();
    return widest;
}

void ValueRange::widen(double frameLowest, double frameHighest)
{
    lowest = std::min(lowest, static_cast<std::int32_t>(frameLowest));
    highest = std::max(highest, static_cast<std::int32_t>(frameHighest));
}

void ValueRange::separate()
{
    if (highest == lowest) ++highest;
}

float valueScale(const ValueRange& range)
{
    return 255.0F / static_cast<float>(range.highest - range.lowest);
}

void quantise(const std::uint8_t* samples, std::size_t count, std::int32_t lowest, float scale,
              std::uint8_t* voxels, Simd simd)
{
    quantiseAt(simd, samples, count, lowest, scale, voxels);
}

void quantise(const std::uint16_t* samples, std::size_t count, std::int32_t lowest, float scale,
              std::uint8_t* voxels, Simd simd)
{
    quantiseAt(simd, samples, count, lowest, scale, voxels);
}

void stretchSigned(const std::int8_t* samples, std::size_t count, int lowest, int highest,
                   std::uint8_t* pixels, Simd simd)
{
    stretchAt(simd, samples, count, lowest, highest, 255.0, pixels);
}

void stretchSigned(const std::int16_t* samples, std::size_t count, int lowest, int highest,
                   std::uint16_t* pixels, Simd simd)
{
    stretchAt(simd, samples, count, lowest, highest, 65535.0, pixels);
}

}  // namespace viz
