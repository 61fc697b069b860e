#pragma once

#include "hvutils/CHVSLog.h"

#include <QString>

/// Writes one entry into the host's log; `severity` is one of CHVSLog's. `context` tells one build of the
/// plug-in from another.
inline void logMessage(long severity, const QString& message, const char* context = __DATE__ " " __TIME__)
{
    getLogObject()->log(message, QString(), 0, QLatin1String(context), severity, false);
}
