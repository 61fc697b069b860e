#pragma once

#include "hvimage/HVSDataTypes.h"
#include "hvimage/hvimage_global.h"

class CILImage;
class QImage;

// Makes `target` the grey values of `source`, 0 to 255, as samples of the given type. False for a null
// picture or a lack of memory.
HVIMAGE_EXPORT bool HV_ConvertQImageToCILImage(QImage& source, CILImage& target, HVSDataTypes type);
