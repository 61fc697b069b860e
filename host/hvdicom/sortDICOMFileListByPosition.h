#pragma once

#include "hvdicom/hvdicom_global.h"

#include <QStringList>

class QString;

// The file names sorted by slice position, from Image Position (Patient). `folder`, with "/" at its end, is
// put before each name to open the file. Files without a position keep their order and come last.
HVDICOM_EXPORT QStringList sortDICOMFileListByPosition(QStringList files, QString folder);
