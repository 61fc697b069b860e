#pragma once

#include "SampleBuffer.h"
#include "hvimage/CILImageBase.h"

class CILImageBase::Private
{
public:
    HVSDataTypes type = eTypeNone;
    long width = 0;
    long height = 0;
    SampleBuffer samples;

    bool isEmpty() const { return samples.data() == nullptr; }
};
