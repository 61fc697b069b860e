#include "lib/hvutils/logic/LogLine.h"

#include "hvutils/CHVSLog.h"

#include <QDateTime>

namespace hvutils {

namespace {

QString onOneLine(QString text)
{
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator)
            c = QLatin1Char(' ');
    }
    return text;
}

}  // namespace

QString severityName(long severity)
{
    switch (severity) {
    case CHVSLog::eWarning:
        return QStringLiteral("WARNING");
    case CHVSLog::eError:
        return QStringLiteral("ERROR");
    case CHVSLog::eStatusLine:
        return QStringLiteral("STATUS");
    default:
        return QStringLiteral("INFO");
    }
}

QString logLine(HostLogEntry const& entry, QDateTime const& time)
{
    QString line = time.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")) + QLatin1Char(' ') +
                   severityName(entry.severity).leftJustified(7) + QLatin1Char(' ');
    if (!entry.source.isEmpty()) {
        line += entry.source;
        if (entry.line > 0) line += QLatin1Char(':') + QString::number(entry.line);
        line += QStringLiteral(": ");
    }
    line += entry.message;
    if (!entry.context.isEmpty()) line += QStringLiteral(" [") + entry.context + QLatin1Char(']');
    return onOneLine(line);
}

}  // namespace hvutils
