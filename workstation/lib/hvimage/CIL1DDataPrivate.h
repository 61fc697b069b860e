#pragma once

#include "SampleBuffer.h"
#include "hvimage/CIL1DData.h"

#include <cstddef>

class CIL1DData::Private
{
public:
    HVSDataTypes type = eTypeNone;
    std::size_t count = 0;
    SampleBuffer values;

    // What the next count of a histogram goes by.
    double imageMin = 0.0;
    double imageMax = 255.0;
    std::size_t bins = 256;
};
