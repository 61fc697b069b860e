#pragma once

#include "hvparser/hvparser_global.h"

class QString;

// Pixels along one side of a camera's sensor, from the entries "Camera CCD Type", "System Configuration" and
// "Camera System Info" of a click. 0 when the sensor is not known.
HVPARSER_EXPORT int getCCDPixels(QString& ccdType, QString systemConfiguration, QString cameraSystemInfo);
