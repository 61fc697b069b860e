#pragma once

#include "lib/hvutils/HostServices.h"

class QDateTime;

namespace hvutils {

// "INFO", "WARNING", "ERROR" or "STATUS".
QString severityName(long severity);

// One line of the log file, without its end: time, severity, source and line if told, message, context if
// told. Line breaks and other control characters of the texts become blanks, so that an entry is always one
// line.
QString logLine(HostLogEntry const& entry, QDateTime const& time);

}  // namespace hvutils
