#pragma once

#include "hvutils/CHVSLog.h"

#include <QString>

/// One entry in the host's log.
/// @param compileTime  of the source file that speaks: __TIME__
inline void logReader(const QString& message, CHVSLog::Severity severity, const char* compileTime)
{
    getLogObject()->log(message, QString(), 0, QString::fromLatin1(compileTime), severity, false);
}
