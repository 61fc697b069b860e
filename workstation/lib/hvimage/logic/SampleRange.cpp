#include "logic/SampleRange.h"

#include "logic/SampleTypes.h"

#include <limits>

namespace hvimage {

namespace {

// Inlined into a function for each instruction set, so that the compiler vectorises it anew for each.
template <class T>
[[gnu::always_inline]] inline void minMax(T const* samples, std::size_t count, T& lowest, T& highest)
{
    T low = std::numeric_limits<T>::max();
    T high = std::numeric_limits<T>::lowest();
    for (std::size_t i = 0; i < count; ++i) {
        T const value = samples[i];
        low = value < low ? value : low;
        high = value > high ? value : high;
    }
    lowest = low;
    highest = high;
}

template <class T>
void minMaxPlain(T const* samples, std::size_t count, T& lowest, T& highest)
{
    minMax(samples, count, lowest, highest);
}

#if defined(__x86_64__)
template <class T>
[[gnu::target("avx2")]] void minMaxAvx2(T const* samples, std::size_t count, T& lowest, T& highest)
{
    minMax(samples, count, lowest, highest);
}

template <class T>
[[gnu::target("avx512f,avx512bw,prefer-vector-width=512")]] void
minMaxAvx512(T const* samples, std::size_t count, T& lowest, T& highest)
{
    minMax(samples, count, lowest, highest);
}
#endif

// Comparisons with what is no number are false, so that such samples never become the lowest or highest.
// Starting from infinities, a row of nothing else leaves low above high.
template <class T>
void minMaxReal(T const* samples, std::size_t count, T& lowest, T& highest)
{
    T low = std::numeric_limits<T>::infinity();
    T high = -std::numeric_limits<T>::infinity();
    for (std::size_t i = 0; i < count; ++i) {
        T const value = samples[i];
        low = value < low ? value : low;
        high = value > high ? value : high;
    }
    lowest = low;
    highest = high;
}

}  // namespace

Simd widestSimd()
{
#if defined(__x86_64__)
    static Simd const widest = [] {
        if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw")) return Simd::Avx512;
        return __builtin_cpu_supports("avx2") ? Simd::Avx2 : Simd::Plain;
    }();
    return widest;
#else
    return Simd::Plain;
#endif
}

SampleRange sampleRange(HVSDataTypes type, void const* samples, std::size_t count, Simd simd)
{
    SampleRange range;
    if (!samples || count == 0) return range;
    withSampleType(type, [&](auto const* tag) {
        using T = std::decay_t<decltype(*tag)>;
        T const* const values = static_cast<T const*>(samples);
        T low = 0;
        T high = 0;
        if constexpr (std::is_floating_point_v<T>) {
            minMaxReal(values, count, low, high);
        } else {
            switch (simd) {
#if defined(__x86_64__)
            case Simd::Avx512:
                minMaxAvx512(values, count, low, high);
                break;
            case Simd::Avx2:
                minMaxAvx2(values, count, low, high);
                break;
#endif
            default:
                minMaxPlain(values, count, low, high);
                break;
            }
        }
        if (low <= high) range = {static_cast<double>(low), static_cast<double>(high)};
    });
    return range;
}

}  // namespace hvimage
