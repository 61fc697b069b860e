#include "volume/logic/HistogramLimits.h"

#include <algorithm>
#include <numeric>

namespace viz {

namespace {

constexpr unsigned fewestBins = 4;
constexpr double mostPercent = 49.0;
constexpr double mostSpread = 99.0;

}  // namespace

int findHistogramLimits(unsigned count, const std::uint32_t* histogram, double lowPercent, double highPercent,
                        double spread, unsigned& low, unsigned& high)
{
    if (count < fewestBins || lowPercent > mostPercent || highPercent > mostPercent || spread > mostSpread)
        return 1;
    const std::uint64_t total = std::accumulate(histogram, histogram + count, std::uint64_t{0});
    const auto share = [total](double percent) { return static_cast<double>(total) * percent / 100.0; };

    unsigned lower = 0;
    std::uint64_t sum = 0;
    for (unsigned i = 0; i < count && share(lowPercent) >= static_cast<double>(sum); ++i) {
        sum += histogram[i];
        lower = i;
    }
    unsigned upper = count - 1;
    sum = 0;
    for (unsigned i = count - 1; i > 0 && share(highPercent) >= static_cast<double>(sum); --i) {
        sum += histogram[i];
        upper = i;
    }

    const std::uint32_t width = upper - lower + 1;
    const auto margin =
        static_cast<std::uint64_t>(1.0 + static_cast<double>(width) * spread / (2.0 * (100.0 - spread)));
    high = static_cast<unsigned>(std::min<std::uint64_t>(upper + margin, count - 1));
    low = margin < lower ? static_cast<unsigned>(lower - margin) : 0;
    return 0;
}

std::int64_t upperClip(std::int64_t histogramHigh, std::int64_t tissueVoxel, std::int64_t calibration,
                       std::int64_t maximum)
{
    if (calibration < 2 || tissueVoxel < 1 || tissueVoxel <= histogramHigh) return histogramHigh;
    return std::min(tissueVoxel, maximum);
}

}  // namespace viz
