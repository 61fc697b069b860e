#pragma once

#include "hvimage/HVSDataTypes.h"

#include <cstddef>

namespace hvimage {

// What a picture needs to be well seen in grays.
struct GrayRange
{
    double low = 0.0;   // black
    double high = 0.0;  // white
    double mean = 0.0;  // of all samples
};

// The range that holds all samples but the darkest and the brightest thousandth, which are mostly faults of
// the detector; the whole range where nothing else is left. Samples that are not finite do not count; all is
// 0 where none counts. Samples of more than 16 bits are sorted into 65536 steps of their range.
GrayRange grayRange(HVSDataTypes type, void const* samples, std::size_t count);

}  // namespace hvimage
