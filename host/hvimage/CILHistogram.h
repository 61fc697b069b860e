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

    // Lower end of the first bin and upper end of the last; the last bin includes its upper end.
    void setImageMin(double value);
    void setImageMax(double value);

    void setMaxBins(unsigned long long count);

    // Writes the running sums of the bins into `out`.
    bool integrate(CILHistogram* out) const;
};
