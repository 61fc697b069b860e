#pragma once

#include "hvimage/hvimage_global.h"

class CILImage;

// A range of values under which a picture is well seen: `minimum` and `maximum` for display, and the
// picture's mean value. The darkest and the brightest thousandth of the samples may lie outside. All are 0
// for null and for an empty image. A pointer to a result may be null.
HVIMAGE_EXPORT void HV_GrayMinMax(CILImage* image, double* minimum, double* maximum, double* mean);
