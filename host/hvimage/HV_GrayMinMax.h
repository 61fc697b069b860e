#pragma once

#include "hvimage/hvimage_global.h"

class CILImage;

// A range of values under which a picture of this kind is well seen: `minimum` and `maximum` for display, and
// the picture's mean value. A pointer may be null.
HVIMAGE_EXPORT void HV_GrayMinMax(CILImage* image, double* minimum, double* maximum, double* mean);
