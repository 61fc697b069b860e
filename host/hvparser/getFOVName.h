#pragma once

#include "hvparser/hvparser_global.h"
#include "hvutils/tag_estatus.h"

class CPLClickInfo;
class QByteArray;

// Letter of the field of view `fov` (centimetres) in the camera configuration of a click. 0 on success.
HVPARSER_EXPORT tag_estatus getFOVName(CPLClickInfo* clickInfo, double fov, QByteArray& name);
