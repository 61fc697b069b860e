#pragma once

#include <QString>

namespace hvdicom {

// Sends the messages of the DICOM library into the program's log: warnings as information, errors as warnings
// (whether a failure is one for the user is said by whoever opened the file). Values from files, such as
// patients' names, are left out, and a message that has just been logged is not logged again.
void routeDcmtkLog();

// Silence, for the end of the program.
void endDcmtkLog();

// An entry of this library about a file; `path` and `reason` in plain words.
void logFileFault(QString const& path, QString const& reason);

}  // namespace hvdicom
