#include "support/SampleLoops.h"

#if defined(__x86_64__)
#define WIDE __attribute__((target_clones("default", "avx2", "arch=x86-64-v4"), optimize("O3")))
#else
#define WIDE
#endif

WIDE void range(const std::uint16_t* samples, std::size_t count, std::uint16_t* lowest,
                std::uint16_t* highest)
{
    std::uint16_t low = *lowest;
    std::uint16_t high = *highest;
    for (std::size_t i = 0; i < count; ++i) {
        low = samples[i] < low ? samples[i] : low;
        high = samples[i] > high ? samples[i] : high;
    }
    *lowest = low;
    *highest = high;
}

WIDE void map(const std::uint16_t* __restrict samples, std::size_t count, float lowest, float scale,
              std::uint8_t* __restrict voxels)
{
    for (std::size_t i = 0; i < count; ++i)
        voxels[i] = static_cast<std::uint8_t>(
            static_cast<std::int32_t>((static_cast<float>(samples[i]) - lowest) * scale + 0.5F));
}
