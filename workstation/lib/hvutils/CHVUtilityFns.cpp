#include "hvutils/CHVUtilityFns.h"

#include "lib/hvutils/HostServices.h"

#include <QCoreApplication>
#include <QCursor>
#include <QThread>

namespace {

// Cursors belong to the GUI thread: calls of other threads wait in its event queue, which keeps their order.
template <class F>
void inGuiThread(F&& call)
{
    QCoreApplication* const application = QCoreApplication::instance();
    if (!application) return;
    if (QThread::currentThread() == application->thread())
        call();
    else
        QMetaObject::invokeMethod(application, std::forward<F>(call), Qt::QueuedConnection);
}

}  // namespace

void CHVUtilityFns::setCursor(QCursor const& cursor)
{
    inGuiThread([cursor] { HostServices::instance().setCursor(cursor); });
}

void CHVUtilityFns::restoreCursor()
{
    inGuiThread([] { HostServices::instance().restoreCursor(); });
}

QString CHVUtilityFns::getAppName()
{
    return QStringLiteral("Halvane");
}

void CHVUtilityFns::setCanClose(bool canClose)
{
    HostServices::instance().setCanClose(canClose);
}

bool CHVUtilityFns::isMemoryLoadLimit()
{
    return HostServices::instance().memoryLoadLimit();
}
