#pragma once

#include "hvimage/HVSDataTypes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace hvimage {

// How many bytes of each value there are: exact for any number of bytes.
//
// Neighbouring voxels are often equal, and an addition to the counter that the last one changed waits for it;
// so the bytes take turns in eight tables. Large rows are shared among the processor's cores.
//   threads  cores to use at most; 0 for all
std::array<std::uint64_t, 256> countBytes(std::uint8_t const* bytes, std::size_t count, unsigned threads = 0);

// Counts samples in `bins` bins of equal width from `low` to `high`, which belongs to the last bin. A value v
// falls into the bin floor((v - low) / (high - low) * bins). With low = high the first bin takes the samples
// of that value. Samples outside and such that are no numbers are not counted.
//   low, high  finite, low <= high
//   bins       above 0
std::vector<double> countInBins(HVSDataTypes type, void const* samples, std::size_t count, double low,
                                double high, std::size_t bins);

}  // namespace hvimage
