#include "StartUp.h"

#include "Icons.h"
#include "Theme.h"

#include "hvutils/CHVSLog.h"

#include <QApplication>
#include <QSurfaceFormat>

#include <clocale>
#include <vector>

namespace {

QtMessageHandler g_terminal = nullptr;

struct Early
{
    QtMsgType type;
    QString category;
    QString message;
};

/// What Qt said before there was a log, from one thread.
std::vector<Early>& earlyMessages()
{
    static std::vector<Early> messages;
    return messages;
}

void log(QtMsgType type, const QString& category, const QString& message)
{
    const long severity = type == QtCriticalMsg  ? CHVSLog::eError
                          : type == QtWarningMsg ? CHVSLog::eWarning
                                                 : CHVSLog::eInformation;
    getLogObject()->log(message, category, 0, QString(), severity, false);
}

void keep(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type != QtFatalMsg) {
        earlyMessages().push_back({type, QString::fromLatin1(context.category), message});
        return;
    }
    // the program ends here: what led to it is wanted
    for (const Early& early : earlyMessages())
        g_terminal(early.type, QMessageLogContext(), early.message);
    g_terminal(type, context, message);
}

void toLog(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    // a warning that comes out of the log itself must not go round in circles
    thread_local bool busy = false;
    if (type == QtFatalMsg || busy) {
        g_terminal(type, context, message);
        return;
    }
    busy = true;
    log(type, QString::fromLatin1(context.category), message);
    busy = false;
}

}  // namespace

namespace StartUp {

void beforeApplication()
{
    g_terminal = qInstallMessageHandler(keep);
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
    QApplication::setWindowIcon(Icons::make(Icons::Shape::Program));
    Theme::apply(application);
}

void routeQtMessages()
{
    qInstallMessageHandler(toLog);
    for (const Early& early : earlyMessages())
        log(early.type, early.category, early.message);
    earlyMessages().clear();
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
