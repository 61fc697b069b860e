#include "hvimage/CILImage.h"

#include "CILImageBasePrivate.h"
#include "CILImagePrivate.h"
#include "logic/AreaAverage.h"
#include "logic/SampleTypes.h"

#include <cstring>
#include <limits>
#include <utility>

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
    if (!d->isEmpty() && d->samples.size() == bytes) {
        std::memmove(d->samples.data(), data, bytes);
    } else {
        // `data` may lie in the present samples: these go only after the copy.
        SampleBuffer samples;
        if (!samples.allocate(bytes)) return false;
        std::memcpy(samples.data(), data, bytes);
        d->samples = std::move(samples);
    }
    d->type = type;
    d->width = width;
    d->height = height;
    return true;
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
        !hvimage::areaAverage(d->type, d->samples.data(), d->width, d->height, samples.data(), width, height))
        return false;
    d->samples = std::move(samples);
    d->width = width;
    d->height = height;
    return true;
}

void CILImage::RefreshImageStats()
{
    std::size_t const count = static_cast<std::size_t>(d->width) * static_cast<std::size_t>(d->height);
    m_image->range = hvimage::sampleRange(d->type, d->samples.data(), count);
}

double CILImage::getMin() const
{
    return m_image->range.lowest;
}

double CILImage::getMax() const
{
    return m_image->range.highest;
}
