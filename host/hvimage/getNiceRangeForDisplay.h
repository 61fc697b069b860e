#pragma once

#include "hvimage/hvimage_global.h"

// Ticks of an axis.
struct tagHVSDisplayRange
{
    int nMajorTicks = 0;           // major ticks within the axis
    double dMinorStep = 0.0;       // distance between minor ticks
    double dFirstMajorTick = 0.0;  // value of the first major tick at or above the axis' minimum
    double dMajorStep = 0.0;       // distance between major ticks
    double dMajorFraction = 0.0;   // dMajorStep as a fraction of the whole axis
};

// Chooses ticks at round numbers (1, 2 or 5 times a power of ten) for an axis from `minimum` to `maximum`,
// with at most `maxTicks` major ticks. An empty or reversed axis gets no ticks.
HVIMAGE_EXPORT void getNiceRangeForDisplay(double minimum, double maximum, int maxTicks,
                                           tagHVSDisplayRange* range);
