#include "hvimage/CILImageBase.h"

#include "CILImageBasePrivate.h"
#include "logic/SampleTypes.h"

#include <algorithm>
#include <cstring>
#include <utility>

CILImageBase::CILImageBase()
    : d(std::make_unique<Private>())
{}

CILImageBase::CILImageBase(CILImageBase const& other)
    : CILImageBase()
{
    *this = other;
}

CILImageBase& CILImageBase::operator=(CILImageBase const& other)
{
    if (this == &other) return *this;
    if (other.d->isEmpty()) {
        *d = Private();
        return *this;
    }
    SampleBuffer samples;
    if (!samples.allocate(other.d->bytes())) return *this;
    std::memcpy(samples.data(), other.d->data(), other.d->bytes());
    Private copy;
    copy.take(std::move(samples));
    copy.type = other.d->type;
    copy.width = other.d->width;
    copy.height = other.d->height;
    *d = std::move(copy);
    return *this;
}

CILImageBase::~CILImageBase() = default;

HVSDataTypes CILImageBase::get_datatype() const
{
    return d->type;
}

long CILImageBase::getWidth() const
{
    return d->width;
}

long CILImageBase::getHeight() const
{
    return d->height;
}

long CILImageBase::get_width() const
{
    return d->width;
}

long CILImageBase::get_height() const
{
    return d->height;
}

void* CILImageBase::get_data()
{
    return d->writable();
}

void const* CILImageBase::get_data() const
{
    return d->data();
}

bool CILImageBase::InitWithType(HVSDataTypes type, long width, long height)
{
    std::uint64_t bytes = 0;
    if (!hvimage::requiredBytes(type, width, height, bytes)) return false;
    if (!d->isEmpty() && !d->isBorrowed() && d->bytes() == bytes) {
        std::memset(d->writable(), 0, bytes);
    } else {
        SampleBuffer samples;
        if (!samples.allocate(bytes)) return false;
        d->take(std::move(samples));
    }
    d->type = type;
    d->width = width;
    d->height = height;
    return true;
}

bool CILImageBase::setImageData(void const* data)
{
    if (!data || d->isEmpty()) return false;
    void* const samples = d->writable();
    if (!samples) return false;
    std::memmove(samples, data, d->bytes());
    return true;
}

bool CILImageBase::resize(long width, long height)
{
    return resize(width, height, 0.0);
}

bool CILImageBase::resize(long width, long height, double value)
{
    std::uint64_t bytes = 0;
    if (d->isEmpty() || !hvimage::requiredBytes(d->type, width, height, bytes)) return false;
    if (width == d->width && height == d->height) return true;
    SampleBuffer samples;
    if (!samples.allocate(bytes)) return false;
    hvimage::withSampleType(d->type, [&](auto const* tag) {
        using T = std::decay_t<decltype(*tag)>;
        T const fill = hvimage::toSample<T>(value);
        T* const target = static_cast<T*>(samples.data());
        T const* const source = static_cast<T const*>(d->data());
        long const keptColumns = std::min(width, d->width);
        long const keptRows = std::min(height, d->height);
        for (long y = 0; y < keptRows; ++y) {
            T* const row = std::copy_n(source + y * d->width, keptColumns, target + y * width);
            std::fill_n(row, width - keptColumns, fill);
        }
        std::fill(target + keptRows * width, target + height * width, fill);
    });
    d->take(std::move(samples));
    d->width = width;
    d->height = height;
    return true;
}

bool CILImageBase::resize(CILImageBase const& sizeOf, double value)
{
    return resize(sizeOf.getWidth(), sizeOf.getHeight(), value);
}

int CILImageBase::get_reqsizefortype(HVSDataTypes type)
{
    return hvimage::bytesPerSample(type);
}
