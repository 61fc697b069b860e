#include "lib/hvapi/sequence/CtCalibration.h"

#include "hvparser/CPLSection.h"
#include "hvparser/CPLSequenceInfo.h"

std::optional<hvscene::CtCalibration> ctCalibration(CPLSequenceInfo* info)
{
    CPLSection* section = info ? (*info)[QStringLiteral("CT Acquisition Parameters")] : nullptr;
    if (!section) return std::nullopt;
    hvscene::CtCalibration c;
    bool const complete =
        section->getValue(QStringLiteral("Reconstructed Volume Min"), &c.volumeMin) == eStatusSuccess &&
        section->getValue(QStringLiteral("Reconstructed Volume Max"), &c.volumeMax) == eStatusSuccess &&
        section->getValue(QStringLiteral("Hounsfield Calibration Air"), &c.air) == eStatusSuccess &&
        section->getValue(QStringLiteral("Hounsfield Calibration Water"), &c.water) == eStatusSuccess;
    return complete ? std::make_optional(c) : std::nullopt;
}
