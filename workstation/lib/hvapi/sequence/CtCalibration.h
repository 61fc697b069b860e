#pragma once

#include "hvapi/hvapi_global.h"
#include "lib/hvapi/scene/logic/Hounsfield.h"

#include <optional>

class CPLSequenceInfo;

/// What a sequence's description tells of the scale of its CT: the section "CT Acquisition Parameters" with
/// "Reconstructed Volume Min" and "Reconstructed Volume Max", "Hounsfield Calibration Air" and "Hounsfield
/// Calibration Water". Nothing unless all four are there and are numbers, and for null.
HVAPI_EXPORT std::optional<hvscene::CtCalibration> ctCalibration(CPLSequenceInfo* info);
