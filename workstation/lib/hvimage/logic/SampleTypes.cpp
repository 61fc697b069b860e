#include "logic/SampleTypes.h"

#include <cstddef>
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

}  // namespace hvimage
