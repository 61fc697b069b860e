#pragma once

#include "transfer/logic/ControlPoints.h"
#include "transfer/logic/HistogramBins.h"

/// Where air and noise end, as a histogram shows it.
struct AirEnd
{
    bool found = false;  ///< there is a valley behind the main peak
    int bin = 0;         ///< the valley; the peak where there is none
    double low = 0.0;    ///< ends of the step that parts air from the rest, in bins
    double high = 0.0;
};

/// The first bin behind the highest peak at which the histogram begins to rise again. The step goes from
/// there to the next bin. Where it never rises, the step goes from 10 to 20 bins behind the peak.
AirEnd endOfAir(const HistogramBins& histogram);

/// The value of the source that the end of air stands for: min + bin (max - min) / 255, single precision, the
/// product rounded by adding 0.5 and truncating.
double sourceValueOfBin(int bin, double min, double max);

/// A chain with a step from (low, height) to (high, 0), its points locked to the bottom and the top. Steps of
/// the old chain go, and free points nearer than a pixel to the new one; all others stay. The step stands in
/// front of the first of them that lies right of `low`, in the mean colour of its two neighbours; without
/// such a point there is no step. Bins are taken as pixels.
///
/// @param height  of the widget that the chain is edited on, in pixels
ControlPoints chainWithStep(const ControlPoints& chain, const AirEnd& air, double height);
