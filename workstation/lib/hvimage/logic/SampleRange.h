#pragma once

#include "hvimage/HVSDataTypes.h"

#include <cstddef>

namespace hvimage {

// Instructions that the loop over integer samples uses. The result is the same with each.
enum class Simd
{
    Plain,
    Avx2,
    Avx512
};

// The widest that this processor has.
Simd widestSimd();

struct SampleRange
{
    double lowest = 0.0;
    double highest = 0.0;
};

// Lowest and highest of `count` samples; samples that are no numbers do not count. 0 and 0 when none does,
// and for an unknown type. `simd` must be one that the processor has.
SampleRange sampleRange(HVSDataTypes type, void const* samples, std::size_t count, Simd simd = widestSimd());

}  // namespace hvimage
