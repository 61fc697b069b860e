#include "StartUp.h"

#include "Icons.h"
#include "Theme.h"

#include "hvutils/CHVSLog.h"

#include <QApplication>
#include <QSurfaceFormat>

#include <clocale>

namespace {

QtMessageHandler g_terminal = nullptr;

void toLog(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    // a warning that comes out of the log itself must not go round in circles
    thread_local bool busy = false;
    if (type == QtFatalMsg || busy) {
        if (g_terminal) g_terminal(type, context, message);
        return;
    }
    busy = true;
    const bool isGrave = type == QtCriticalMsg;
    const long severity = isGrave                ? CHVSLog::eError
                          : type == QtWarningMsg ? CHVSLog::eWarning
                                                 : CHVSLog::eInformation;
    getLogObject()->log(message, QString::fromLatin1(context.category), 0, QString(), severity, false);
    busy = false;
}

}  // namespace

namespace StartUp {

void beforeApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("halvane"));
    QCoreApplication::setApplicationVersion(QStringLiteral(HALVANE_VERSION));

    // Every view shows the same textures, programs and display lists.
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    // No version is asked for: with one, the driver may answer with a core profile.
    QSurfaceFormat format;
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setDepthBufferSize(24);
    format.setStencilBufferSize(8);
    format.setAlphaBufferSize(8);
    QSurfaceFormat::setDefaultFormat(format);

    // The GL loader asks for GLX, which only X11 has.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "xcb");
}

void afterApplication(QApplication& application)
{
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setApplicationDisplayName(QStringLiteral("Halvane"));
    QApplication::setWindowIcon(Icons::make(Icons::Shape::Program));
    Theme::apply(application);
}

void routeQtMessages()
{
    g_terminal = qInstallMessageHandler(toLog);
}

void stopRouting()
{
    qInstallMessageHandler(g_terminal);
}

QString missingDisplay()
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (platform.startsWith("xcb") && qgetenv("DISPLAY").isEmpty())
        return QStringLiteral("there is no X display (DISPLAY is not set)");
    return {};
}

}  // namespace StartUp
