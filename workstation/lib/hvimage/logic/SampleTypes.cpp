#include "logic/SampleTypes.h"

#include <cmath>
#include <limits>

namespace hvimage {

int bytesPerSample(HVSDataTypes type)
{
    int bytes = 0;
    withSampleType(type, [&](auto const* tag) { bytes = static_cast<int>(sizeof(*tag)); });
    return bytes;
}

bool requiredBytes(HVSDataTypes type, long width, long height, std::uint64_t& bytes)
{
    int const sample = bytesPerSample(type);
    if (sample == 0 || width < 1 || height < 1) return false;
    std::int64_t product = 0;
    if (__builtin_mul_overflow(static_cast<std::int64_t>(width), static_cast<std::int64_t>(height),
                               &product) ||
        __builtin_mul_overflow(product, static_cast<std::int64_t>(sample), &product))
        return false;
    if (product > std::numeric_limits<std::ptrdiff_t>::max()) return false;
    bytes = static_cast<std::uint64_t>(product);
    return true;
}

template <class T>
T toSample(double value)
{
    if constexpr (std::is_floating_point_v<T>) {
        return static_cast<T>(value);
    } else {
        if (std::isnan(value)) return 0;
        double const below = std::floor(value);
        double const nearest = value - below >= 0.5 ? below + 1.0 : below;
        if (nearest <= static_cast<double>(std::numeric_limits<T>::min()))
            return std::numeric_limits<T>::min();
        if (nearest >= static_cast<double>(std::numeric_limits<T>::max()))
            return std::numeric_limits<T>::max();
        return static_cast<T>(nearest);
    }
}

template std::uint8_t toSample(double);
template std::uint16_t toSample(double);
template std::uint32_t toSample(double);
template std::int8_t toSample(double);
template std::int16_t toSample(double);
template double toSample(double);
template <>
float toSample(double value)
{
    // A conversion out of float's range is undefined; infinity is what is meant.
    if (std::fabs(value) > static_cast<double>(std::numeric_limits<float>::max()))
        return value > 0 ? std::numeric_limits<float>::infinity() : -std::numeric_limits<float>::infinity();
    return static_cast<float>(value);
}

}  // namespace hvimage
