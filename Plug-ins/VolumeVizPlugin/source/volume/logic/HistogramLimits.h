#pragma once

#include <cstdint>

namespace viz {

/// Searches the bins between which nearly all samples of a histogram lie, then widens the interval on both
/// sides. Widths are unsigned numbers of 32 bits: where the lower limit lies above the upper one, as in an
/// empty histogram, the interval grows to all bins.
/// @param count        bins of `histogram`, at least 4
/// @param lowPercent   share of the samples, in percent up to 49, that may lie below the lower limit
/// @param highPercent  the same above the upper limit
/// @param spread       share of the result, in percent up to 99, by which it is wider than what was found
/// @param low, high    the limits, as numbers of bins; left alone where 1 is returned
/// @return 0, or 1 where one of the numbers is not in its range
int findHistogramLimits(unsigned count, const std::uint32_t* histogram, double lowPercent, double highPercent,
                        double spread, unsigned& low, unsigned& high);

/// The upper end of the values of a CT volume, so that a few very bright samples do not darken the rest.
/// @param histogramHigh   upper limit that findHistogramLimits() gave
/// @param tissueVoxel     source value of the densest tissue, 0 when unknown
/// @param calibration     calibration value for water, 0 when there is no calibration
/// @param maximum         highest source value
std::int64_t upperClip(std::int64_t histogramHigh, std::int64_t tissueVoxel, std::int64_t calibration,
                       std::int64_t maximum);

}  // namespace viz
