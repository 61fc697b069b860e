#pragma once

#include "hvimage/hvimage_global.h"

// Ticks of an axis.
struct tagHVSDisplayRange
{
    int nMajorTicks = 0;           // major ticks within the axis
    double dMinorStep = 0.0;       // distance between minor ticks
    double dFirstMajorTick = 0.0;  // value of the first major tick above the axis' minimum
    double dMajorStep = 0.0;       // distance between major ticks
    // Place of the first major tick as a fraction of the whole axis; the share of dMajorStep where the first
    // tick is one step above the minimum, as on an axis that begins at a multiple of the step.
    double dMajorFraction = 0.0;
};

// Chooses ticks at round numbers (1, 2 or 5 times a power of ten) for an axis from `minimum` to `maximum`,
// with at most `maxTicks` major ticks, and as few as it takes that labels of six digits ("%1" in g format)
// differ from one another and have room side by side where the axis is as long as 2 maxTicks digits. A tick
// at the minimum itself is left out. dMajorStep / dMinorStep truncates to the number of parts of a step. An
// axis that is empty, reversed or not finite gets no ticks, all values 0. Nothing for null.
HVIMAGE_EXPORT void getNiceRangeForDisplay(double minimum, double maximum, int maxTicks,
                                           tagHVSDisplayRange* range);
