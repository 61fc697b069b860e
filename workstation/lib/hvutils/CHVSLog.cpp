#include "hvutils/CHVSLog.h"

#include "lib/hvutils/HostServices.h"

void CHVSLog::log(QString message, QString source, int line, QString context, long severity, bool showBox)
{
    HostLogEntry entry;
    entry.message = message;
    entry.source = source;
    entry.line = line;
    entry.context = context;
    entry.severity =
        severity == eWarning || severity == eError || severity == eStatusLine ? severity : eInformation;
    entry.showBox = showBox;
    HostServices::instance().log(entry);
}

CHVSLog* getLogObject()
{
    static CHVSLog log;
    return &log;
}
