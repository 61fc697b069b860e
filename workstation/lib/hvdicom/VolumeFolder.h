#pragma once

#include "hvdicom/hvdicom_global.h"

#include <QStringList>

class QString;

namespace hvdicom {

/// Absolute paths of the files in `folder` in the order in which they make a volume: by name (digits by their
/// codes, so that "2" comes after "10"), hidden ones and sub-folders left out. Where one of them is a DICOM
/// file, those with a position come first, along the normal of their plane: a scan so stands upright
/// whichever way its files are numbered, and what lies beside it, a DICOMDIR or a letter, is not taken for
/// its first slice.
HVDICOM_EXPORT QStringList filesOfVolume(QString const& folder);

}  // namespace hvdicom
