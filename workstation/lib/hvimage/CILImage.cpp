#include "hvimage/CILImage.h"

#include "CIL1DDataPrivate.h"
#include "CILImageBasePrivate.h"
#include "CILImagePrivate.h"
#include "hvimage/CILHistogram.h"
#include "logic/AreaAverage.h"
#include "logic/SampleCounts.h"
#include "logic/SampleTypes.h"

#include <cmath>
#include <cstring>
#include <limits>
#include <new>
#include <utility>
#include <vector>

CILImage::CILImage()
    : m_image(std::make_unique<ImagePrivate>())
{}

CILImage::CILImage(CILImage const& other)
    : CILImageBase(other)
    , m_image(std::make_unique<ImagePrivate>(*other.m_image))
{}

CILImage& CILImage::operator=(CILImage const& other)
{
    CILImageBase::operator=(other);
    *m_image = *other.m_image;
    return *this;
}

CILImage::~CILImage() = default;

bool CILImage::initWithData(HVSDataTypes type, long width, long height, void* data)
{
    std::uint64_t bytes = 0;
    if (!data || !hvimage::requiredBytes(type, width, height, bytes)) return false;
    // Part of the image's own samples cannot be borrowed: they go with what holds them.
    if (d->owns(data)) {
        SampleBuffer samples;
        if (!samples.allocate(bytes)) return false;
        std::memcpy(samples.data(), data, bytes);
        d->take(std::move(samples));
    } else {
        d->borrow(data, bytes);
    }
    d->type = type;
    d->width = width;
    d->height = height;
    return true;
}

bool CILImage::InitFromDICOMFile(char* pixels, unsigned height, unsigned width, unsigned depth)
{
    if (!pixels || depth == 0 || depth > 32) return false;
    HVSDataTypes const type = depth > 16 ? eTypeUInt32 : depth > 8 ? eTypeUInt16 : eTypeUInt8;
    auto const columns = static_cast<long>(width);
    auto const rows = static_cast<long>(height);
    if (d->owns(pixels)) return initWithData(type, columns, rows, pixels);
    // The pixels are their reader's, which shows the next frame in the same place.
    return InitWithType(type, columns, rows) && setImageData(pixels);
}

CILPalette CILImage::getPalette() const
{
    return m_image->palette;
}

void CILImage::setPalette(CILPalette const& palette)
{
    m_image->palette = palette;
}

bool CILImage::downSample(int width, int height, IL_RESAMPLEMODES mode)
{
    // The filter multiplies old by new sizes in 64 bits.
    if (d->width > std::numeric_limits<int>::max() || d->height > std::numeric_limits<int>::max())
        return false;
    std::uint64_t bytes = 0;
    if (mode != eResampleAreaAverage || d->isEmpty() ||
        !hvimage::requiredBytes(d->type, width, height, bytes))
        return false;
    if (width == d->width && height == d->height) return true;
    SampleBuffer samples;
    if (!samples.allocate(bytes) ||
        !hvimage::areaAverage(d->type, d->data(), d->width, d->height, samples.data(), width, height))
        return false;
    d->take(std::move(samples));
    d->width = width;
    d->height = height;
    return true;
}

void CILImage::RefreshImageStats()
{
    std::size_t const count = static_cast<std::size_t>(d->width) * static_cast<std::size_t>(d->height);
    m_image->range = hvimage::sampleRange(d->type, d->data(), count);
}

double CILImage::getMin() const
{
    return m_image->range.lowest;
}

double CILImage::getMax() const
{
    return m_image->range.highest;
}

bool CILImage::Histogram(CILHistogram& histogram)
{
    auto const& wanted = *histogram.d;
    if (d->isEmpty() || !std::isfinite(wanted.imageMin) || !std::isfinite(wanted.imageMax) ||
        wanted.imageMin > wanted.imageMax)
        return false;
    std::size_t const count = static_cast<std::size_t>(d->width) * static_cast<std::size_t>(d->height);
    try {
        std::vector<double> const bins =
            hvimage::countInBins(d->type, d->data(), count, wanted.imageMin, wanted.imageMax, wanted.bins);
        return histogram.initWithArray(bins.data(), static_cast<long>(bins.size()), eTypeDouble);
    } catch (std::bad_alloc const&) {
        return false;
    }
}
