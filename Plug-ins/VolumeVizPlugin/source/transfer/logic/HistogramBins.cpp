#include "transfer/logic/HistogramBins.h"

#include <algorithm>
#include <cmath>

HistogramBins logarithms(const HistogramBins& bins)
{
    HistogramBins values{};
    std::transform(bins.begin(), bins.end(), values.begin(),
                   [](double bin) { return bin > 0.0 ? std::log10(bin) : 0.0; });
    return values;
}
