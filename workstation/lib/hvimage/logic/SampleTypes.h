#pragma once

#include "hvimage/HVSDataTypes.h"

#include <cstdint>
#include <limits>
#include <type_traits>

namespace hvimage {

// Calls f with a null pointer to the C++ type of the samples, so that one generic lambda serves all types:
//   withSampleType(type, [&](auto const* tag) { using T = std::decay_t<decltype(*tag)>; ... });
// False without a call for an unknown type.
template <class F>
bool withSampleType(HVSDataTypes type, F&& f)
{
    switch (type) {
    case eTypeUInt8:
        f(static_cast<std::uint8_t const*>(nullptr));
        return true;
    case eTypeUInt16:
        f(static_cast<std::uint16_t const*>(nullptr));
        return true;
    case eTypeUInt32:
        f(static_cast<std::uint32_t const*>(nullptr));
        return true;
    case eTypeFloat:
        f(static_cast<float const*>(nullptr));
        return true;
    case eTypeDouble:
        f(static_cast<double const*>(nullptr));
        return true;
    case eTypeInt8:
        f(static_cast<std::int8_t const*>(nullptr));
        return true;
    case eTypeInt16:
        f(static_cast<std::int16_t const*>(nullptr));
        return true;
    case eTypeNone:
        break;
    }
    return false;
}

// Bytes of one sample; 0 for an unknown type.
int bytesPerSample(HVSDataTypes type);

// Bytes of width x height samples. False for an unknown type, a size below 1 and more bytes than can be
// addressed.
bool requiredBytes(HVSDataTypes type, long width, long height, std::uint64_t& bytes);

// A number as a sample: integer types take the nearest value that they can hold, halves upwards, and 0 for no
// number.
template <class T>
T toSample(double value)
{
    using Limits = std::numeric_limits<T>;
    if constexpr (std::is_same_v<T, double>) {
        return value;
    } else if constexpr (std::is_same_v<T, float>) {
        // A conversion out of float's range is undefined; infinity is what is meant.
        if (value > static_cast<double>(Limits::max())) return Limits::infinity();
        return value < static_cast<double>(Limits::lowest()) ? -Limits::infinity() : static_cast<T>(value);
    } else {
        if (value <= static_cast<double>(Limits::min())) return Limits::min();
        if (value >= static_cast<double>(Limits::max())) return Limits::max();
        if (!(value == value)) return 0;
        auto below = static_cast<std::int64_t>(value);
        if (static_cast<double>(below) > value) --below;
        return static_cast<T>(value - static_cast<double>(below) >= 0.5 ? below + 1 : below);
    }
}

}  // namespace hvimage
