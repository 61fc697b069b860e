#include "volume/HostImage.h"

#include "hvimage/CILImage.h"
#include "hvimage/CILMathFns.h"

double roundToNearest(double value)
{
    return static_cast<double>(CILMathFns::round(value, eRoundNearest));
}

bool fitFrame(CILImage& frame, const viz::LoadSize& size)
{
    if (size.factor != 1.0F && !frame.downSample(static_cast<int>(size.reducedColumns),
                                                 static_cast<int>(size.reducedRows), eResampleAreaAverage))
        return false;
    const auto columns = static_cast<long>(size.columns);
    const auto rows = static_cast<long>(size.rows);
    const bool padded = size.columns != size.reducedColumns || size.rows != size.reducedRows;
    if (padded && !frame.resize(columns, rows, 0.0)) return false;
    return frame.get_width() == columns && frame.get_height() == rows;
}
