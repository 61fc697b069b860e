#include "hvimage/HV_GrayMinMax.h"

#include "hvimage/CILImage.h"
#include "logic/GrayRange.h"

void HV_GrayMinMax(CILImage* image, double* minimum, double* maximum, double* mean)
{
    hvimage::GrayRange range;
    if (image)
        range = hvimage::grayRange(image->get_datatype(), image->get_data(),
                                   static_cast<std::size_t>(image->getWidth()) *
                                       static_cast<std::size_t>(image->getHeight()));
    if (minimum) *minimum = range.low;
    if (maximum) *maximum = range.high;
    if (mean) *mean = range.mean;
}
