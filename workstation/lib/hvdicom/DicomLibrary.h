#pragma once

#include "hvdicom/hvdicom_global.h"

namespace hvdicom {

// Makes the DICOM library ready for the whole process, for the plug-ins' own calls too: decoders of JPEG,
// JPEG-LS, RLE and JPEG 2000, its messages into the program's log, and a log entry when its dictionary is
// missing, without which no file can be read. Every class of this library calls it first; the application
// does so at its start, so that a missing dictionary is told early. Only the first call does anything. Not
// before main(). The decoders are taken out again at the end of the program.
HVDICOM_EXPORT void startDicom();

}  // namespace hvdicom
