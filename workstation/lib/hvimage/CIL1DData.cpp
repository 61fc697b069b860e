#include "hvimage/CIL1DData.h"

#include "SampleBuffer.h"
#include "logic/SampleRange.h"
#include "logic/SampleTypes.h"

#include <cstring>
#include <utility>

class CIL1DData::Private
{
public:
    HVSDataTypes type = eTypeNone;
    std::size_t count = 0;
    SampleBuffer values;
};

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
