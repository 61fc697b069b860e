#include "logic/GrayRange.h"

#include "logic/SampleTypes.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <vector>

namespace hvimage {

namespace {

constexpr std::size_t steps = 65536;
constexpr std::uint64_t tail = 1000;  // one sample of so many may be cut off at each end

// How samples fall into steps, the first of which is `lowest` and the last `highest`.
struct Steps
{
    double lowest = 0.0;
    double highest = 0.0;
    std::uint64_t total = 0;
    double mean = 0.0;
    std::vector<std::uint32_t> counts = std::vector<std::uint32_t>(steps);

    // Weighted, since the difference of two doubles may have no double.
    double valueOf(std::size_t step) const
    {
        auto const place = static_cast<double>(step);
        auto const last = static_cast<double>(steps - 1);
        if (highest - lowest == last) return lowest + place;
        return lowest * ((last - place) / last) + highest * (place / last);
    }
};

template <class T>
Steps countSmall(T const* samples, std::size_t count)
{
    constexpr int origin = std::is_signed_v<T> ? -(1 << (8 * sizeof(T) - 1)) : 0;
    Steps result;
    result.lowest = static_cast<double>(origin);
    result.highest = static_cast<double>(origin) + static_cast<double>(steps - 1);
    for (std::size_t i = 0; i < count; ++i)
        ++result.counts[static_cast<std::size_t>(static_cast<int>(samples[i]) - origin)];
    double sum = 0.0;
    for (std::size_t i = 0; i < steps; ++i)
        sum += (result.lowest + static_cast<double>(i)) * static_cast<double>(result.counts[i]);
    result.total = count;
    result.mean = sum / static_cast<double>(count);
    return result;
}

template <class T>
bool isCounted(T value)
{
    if constexpr (std::is_floating_point_v<T>)
        return std::isfinite(value);
    else
        return true;
}

template <class T>
Steps countLarge(T const* samples, std::size_t count)
{
    Steps result;
    double lowest = std::numeric_limits<double>::infinity();
    double highest = -lowest;
    for (std::size_t i = 0; i < count; ++i) {
        if (!isCounted(samples[i])) continue;
        auto const value = static_cast<double>(samples[i]);
        lowest = std::min(lowest, value);
        highest = std::max(highest, value);
        ++result.total;
    }
    if (result.total == 0) return result;
    result.lowest = lowest;
    result.highest = highest;
    double const halfRange = highest / 2.0 - lowest / 2.0;
    auto const lastStep = static_cast<double>(steps - 1);
    for (std::size_t i = 0; i < count; ++i) {
        if (!isCounted(samples[i])) continue;
        auto const value = static_cast<double>(samples[i]);
        result.mean += value / static_cast<double>(result.total);
        double const share = halfRange > 0.0 ? (value / 2.0 - lowest / 2.0) / halfRange : 0.0;
        ++result.counts[static_cast<std::size_t>(std::clamp(share * lastStep + 0.5, 0.0, lastStep))];
    }
    return result;
}

GrayRange rangeOf(Steps const& found)
{
    if (found.total == 0) return {};
    std::uint64_t const mayGo = found.total / tail;
    std::size_t first = 0;
    while (found.counts[first] == 0)
        ++first;
    std::size_t last = steps - 1;
    while (found.counts[last] == 0)
        --last;
    std::size_t low = first;
    for (std::uint64_t cut = found.counts[low]; cut <= mayGo && low < last; cut += found.counts[++low]) {
    }
    std::size_t high = last;
    for (std::uint64_t cut = found.counts[high]; cut <= mayGo && high > first; cut += found.counts[--high]) {
    }
    if (low >= high) {
        low = first;
        high = last;
    }
    return {found.valueOf(low), found.valueOf(high), found.mean};
}

}  // namespace

GrayRange grayRange(HVSDataTypes type, void const* samples, std::size_t count)
{
    GrayRange result;
    if (!samples || count == 0) return result;
    withSampleType(type, [&](auto const* tag) {
        using T = std::decay_t<decltype(*tag)>;
        auto const* values = static_cast<T const*>(samples);
        if constexpr (sizeof(T) <= 2)
            result = rangeOf(countSmall(values, count));
        else
            result = rangeOf(countLarge(values, count));
    });
    return result;
}

}  // namespace hvimage
