#include "hvimage/CILHistogram.h"

#include "CIL1DDataPrivate.h"

#include <algorithm>
#include <new>
#include <numeric>
#include <vector>

namespace {

constexpr unsigned long long mostBins = 1ULL << 24;

}  // namespace

CILHistogram::CILHistogram() = default;

CILHistogram::~CILHistogram() = default;

void CILHistogram::setImageMin(double value)
{
    d->imageMin = value;
}

void CILHistogram::setImageMax(double value)
{
    d->imageMax = value;
}

void CILHistogram::setMaxBins(unsigned long long count)
{
    d->bins = static_cast<std::size_t>(std::clamp(count, 1ULL, mostBins));
}

bool CILHistogram::integrate(CILHistogram* out) const
{
    if (!out || d->count == 0) return false;
    try {
        std::vector<double> sums(d->count);
        if (!getData(eTypeDouble, sums.data())) return false;
        std::partial_sum(sums.begin(), sums.end(), sums.begin());
        if (!out->initWithArray(sums.data(), static_cast<long>(sums.size()), eTypeDouble)) return false;
    } catch (std::bad_alloc const&) {
        return false;
    }
    out->d->imageMin = d->imageMin;
    out->d->imageMax = d->imageMax;
    out->d->bins = d->bins;
    return true;
}
