#include "Application.h"

#include "hvutils/CHVSLog.h"

#include <exception>

namespace {

void logFailure(const QString& reason)
{
    getLogObject()->log(
        QStringLiteral("Something went wrong inside the program (%1). Save your work.").arg(reason),
        QString(), 0, QString(), CHVSLog::eError, false);
}

}  // namespace

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& failure) {
        logFailure(QString::fromLocal8Bit(failure.what()));
    } catch (...) {
        logFailure(QStringLiteral("unknown failure"));
    }
    return true;
}
