#include "hvimage/CIL1DData.h"

#include "CIL1DDataPrivate.h"
#include "logic/SampleRange.h"
#include "logic/SampleTypes.h"

#include <cstring>
#include <type_traits>
#include <utility>

CIL1DData::CIL1DData()
    : d(std::make_unique<Private>())
{}

CIL1DData::~CIL1DData() = default;

bool CIL1DData::initWithArray(void const* values, long count, HVSDataTypes type)
{
    std::uint64_t bytes = 0;
    if (!values || !hvimage::requiredBytes(type, count, 1, bytes)) return false;
    if (d->values.size() != bytes) {
        SampleBuffer copy;
        if (!copy.allocate(bytes)) return false;
        d->values = std::move(copy);
    }
    std::memcpy(d->values.data(), values, bytes);
    d->type = type;
    d->count = static_cast<std::size_t>(count);
    return true;
}

double CIL1DData::Min() const
{
    return hvimage::sampleRange(d->type, d->values.data(), d->count).lowest;
}

double CIL1DData::Max() const
{
    return hvimage::sampleRange(d->type, d->values.data(), d->count).highest;
}

bool CIL1DData::getData(HVSDataTypes type, void* out) const
{
    if (!out || d->count == 0) return false;
    if (type == d->type) {
        std::memcpy(out, d->values.data(), d->values.size());
        return true;
    }
    return hvimage::withSampleType(type, [&](auto const* to) {
        using To = std::decay_t<decltype(*to)>;
        hvimage::withSampleType(d->type, [&](auto const* from) {
            using From = std::decay_t<decltype(*from)>;
            auto const* const values = static_cast<From const*>(d->values.data());
            for (std::size_t i = 0; i < d->count; ++i)
                static_cast<To*>(out)[i] = hvimage::toSample<To>(static_cast<double>(values[i]));
        });
    });
}
