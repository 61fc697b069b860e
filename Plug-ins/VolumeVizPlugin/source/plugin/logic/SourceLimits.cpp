#include "plugin/logic/SourceLimits.h"

#include <cmath>
#include <cstdint>
#include <limits>

SourceLimits sourceLimits(int minPattern, int maxPattern)
{
    if (maxPattern >= minPattern) return {double(minPattern), double(maxPattern)};
    return {double(static_cast<std::uint32_t>(minPattern)), double(static_cast<std::uint32_t>(maxPattern))};
}

double sourceValue(int pattern, const SourceLimits& limits)
{
    const bool isUnsigned = limits.max > std::numeric_limits<int>::max();
    return isUnsigned ? double(static_cast<std::uint32_t>(pattern)) : double(pattern);
}

int truncatedToInt(double value)
{
    if (std::isnan(value)) return 0;
    if (value >= std::numeric_limits<int>::max()) return std::numeric_limits<int>::max();
    if (value <= std::numeric_limits<int>::min()) return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

float stackLength(float length, unsigned slices, float sliceSpacing, float pixelSpacing)
{
    const auto isLength = [](float value) { return std::isfinite(value) && value > 0.0F; };
    if (isLength(length)) return length;
    return static_cast<float>(slices) * (isLength(sliceSpacing) ? sliceSpacing : pixelSpacing);
}
