#include "Run.h"

#include "Application.h"
#include "ApplicationServices.h"
#include "CommandLine.h"
#include "ExitCode.h"
#include "InstanceLock.h"
#include "MainWindow.h"
#include "PictureFile.h"
#include "Snapshot.h"
#include "StartUp.h"
#include "lib/hvdicom/DicomLibrary.h"

#include "hvutils/CHVSLog.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QTimer>
#include <QWindow>

#include <cstdio>

namespace {

void print(std::FILE* stream, const QString& text)
{
    const QByteArray bytes = text.toLocal8Bit();
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stream);
    std::fflush(stream);
}

int complain(ExitCode code, const QString& text)
{
    print(stderr, QStringLiteral("halvane: %1\n").arg(text));
    return code;
}

QStringList argumentList(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    return arguments;
}

/// A log that the user asked for is a file like the picture: failing to write it is a failure.
int withLogState(int code, const ApplicationServices& services)
{
    if (code != ExitOk || services.isLogFileWhole()) return code;
    return complain(ExitWriteFailed, QStringLiteral("the log could not be written"));
}

int snapshot(ApplicationServices& services, const CommandLine& line)
{
    InstanceLock folder;
    const QString data = folder.takeOwnFolder(services.programDataPath());
    if (data.isEmpty()) return complain(ExitCannotStart, folder.reason());
    services.setProgramDataPath(data);

    MainWindow window(services);
    window.startPlugins(PluginLoader::searchPath());
    const SnapshotResult result = takeSnapshot(window, services, line);
    window.shutDown();
    return result.code == ExitOk ? static_cast<int>(ExitOk) : complain(result.code, result.complaint);
}

/// Logs the moment from which the user can work: the window is on screen and events are handled.
void logWhenReady(MainWindow& window)
{
    auto* watch = new QTimer(&window);
    QObject::connect(watch, &QTimer::timeout, &window, [&window, watch] {
        if (!window.windowHandle() || !window.windowHandle()->isExposed()) return;
        getLogObject()->log(
            QStringLiteral("Halvane %1 is ready.").arg(QCoreApplication::applicationVersion()), QString(), 0,
            QString(), CHVSLog::eInformation, false);
        watch->deleteLater();
    });
    watch->start(1);
}

int workstation(ApplicationServices& services, const CommandLine& line)
{
    InstanceLock folder;
    if (!folder.take(services.programDataPath())) {
        const int code = complain(ExitCannotStart, folder.reason());
        QMessageBox::warning(nullptr, QStringLiteral("Halvane"),
                             QStringLiteral("Halvane can't start: %1.").arg(folder.reason()));
        return code;
    }
    MainWindow window(services);
    window.startPlugins(PluginLoader::searchPath());
    window.show();
    logWhenReady(window);
    if (!line.paths.isEmpty()) {
        // when the window is there, so that a question has something to stand on
        QTimer::singleShot(0, &window, [&window, &line] { window.open(line.paths); });
    }
    return QApplication::exec();
}

}  // namespace

int runWorkstation(int argc, char** argv)
{
    StartUp::beforeApplication();
    // Qt takes its own options (-platform, ...) out of the list when the application is made; until then a
    // copy serves.
    const QStringList given = argumentList(argc, argv);
    const QString program = QFileInfo(given.value(0)).fileName();
    const CommandLine::Wish early = parseCommandLine(given).wish;
    if (early == CommandLine::Wish::Help) {
        print(stdout, helpText(program));
        return ExitOk;
    }
    if (early == CommandLine::Wish::Version) {
        print(stdout, versionText());
        return ExitOk;
    }
    const QString noDisplay = StartUp::missingDisplay();
    if (!noDisplay.isEmpty() && early != CommandLine::Wish::Complain)
        return complain(ExitCannotStart, noDisplay);
    if (!noDisplay.isEmpty())
        return complain(ExitUsage, parseCommandLine(given).error + QStringLiteral(" (--help tells more)"));

    Application application(argc, argv);
    StartUp::afterApplication(application);
    const CommandLine line = parseCommandLine(QCoreApplication::arguments());
    if (line.wish == CommandLine::Wish::Complain)
        return complain(ExitUsage, line.error + QStringLiteral(" (--help tells more)"));
    const bool isSnapshot = line.wish == CommandLine::Wish::Snapshot;
    if (isSnapshot && !PictureFile::isWritable(line.snapshotFile))
        return complain(
            ExitUsage,
            QStringLiteral("'%1' has no ending of a picture format that can be written (--help tells more)")
                .arg(line.snapshotFile));

    ApplicationServices services(isSnapshot ? ApplicationServices::Mode::Unattended
                                            : ApplicationServices::Mode::Attended);
    if (!line.logFile.isEmpty() && !services.startLogFile(line.logFile))
        return complain(ExitWriteFailed, QStringLiteral("the log '%1' can't be written").arg(line.logFile));
    HostServices::install(&services);
    StartUp::routeQtMessages();
    hvdicom::startDicom();
    const int code = isSnapshot ? snapshot(services, line) : workstation(services, line);
    StartUp::stopRouting();
    HostServices::install(nullptr);
    return withLogState(code, services);
}
