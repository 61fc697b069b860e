#pragma once

#include <array>

/// The bins of a volume's histogram, voxels in each.
using HistogramBins = std::array<double, 255>;

/// The decadic logarithm of each bin; 0 for a bin of 0 or less, and for what is no number.
HistogramBins logarithms(const HistogramBins& bins);
