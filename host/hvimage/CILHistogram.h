#pragma once

#include "hvimage/CIL1DData.h"
#include "hvimage/hvimage_global.h"

// Counts of samples in bins of equal width; the bins are the values of the row. Filled by
// CILImage::Histogram.
class HVIMAGE_EXPORT CILHistogram : public CIL1DData
{
public:
    CILHistogram();
    ~CILHistogram() override;

    // Lower end of the first bin and upper end of the last; the last bin includes its upper end. 0 and 255 at
    // first. With both the same, the first bin takes what has that value.
    void setImageMin(double value);
    void setImageMax(double value);

    // Number of bins from the next count on, 256 at first; at least 1 and at most 2^24 are made.
    void setMaxBins(unsigned long long count);

    // Writes the running sums of the bins into `out`, which takes range and number of bins over as well; it
    // may be this histogram. False for null, before anything was counted, and for a lack of memory.
    bool integrate(CILHistogram* out) const;

private:
    friend class CILImage;
};
