#pragma once

#include "hvutils/hvutils_global.h"

#include <QString>

// The session's log. What the user sees of an entry is the application's affair: its log panel lists every
// entry, and entries of severity 16 also stand in the status line.
class HVUTILS_EXPORT CHVSLog
{
public:
    // Severities of log().
    enum Severity : long
    {
        eInformation = 1,
        eWarning = 2,
        eError = 3,
        eStatusLine = 16
    };

    // Adds an entry. May be called from any thread; the entry is visible to the application in the order of
    // the calls of one thread.
    //   message    for the user, in plain words. Never the name or birth date of a patient. Empty with
    //              severity 16: the status line becomes empty.
    //   source     module that speaks; may be empty
    //   line       line in the source; 0 when not told
    //   context    free text; plug-ins pass the compile time of the file
    //   severity   one of Severity; any other value counts as information
    //   showBox    true asks the application to show the entry in a message box as well
    void log(QString message, QString source, int line, QString context, long severity, bool showBox);

private:
    CHVSLog() = default;
    ~CHVSLog() = default;
    Q_DISABLE_COPY(CHVSLog)
    friend HVUTILS_EXPORT CHVSLog* getLogObject();
};

// The one log of the program. Never null; owned by the library.
HVUTILS_EXPORT CHVSLog* getLogObject();
