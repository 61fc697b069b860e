#include "plugin/logic/SceneName.h"

QString sceneName(const QString& user, const QDateTime& time)
{
    const QDate day = time.date();
    const QTime clock = time.time();
    const QString digits = QString::asprintf("%02d%02d%02d%02d%02d%02d", day.year(), day.month(), day.day(),
                                             clock.hour(), clock.minute(), clock.second());
    return user + digits + QStringLiteral("_3DS");
}
