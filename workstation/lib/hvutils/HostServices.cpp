#include "HostServices.h"

#include "InteractionFilter.h"
#include "RotatingFile.h"
#include "logic/LogLine.h"
#include "logic/MemoryLoad.h"
#include "logic/ProcessLedger.h"

#include <QApplication>
#include <QCursor>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QMutex>
#include <QPushButton>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>

#include <atomic>
#include <pwd.h>
#include <unistd.h>

namespace {

std::atomic<HostServices*> installedServices{nullptr};

// Four files of a megabyte hold weeks of use.
constexpr qint64 logFileBytes = 1 << 20;
constexpr int oldLogFiles = 3;

// The folder that holds everything, when the environment names one.
QString homeFolder()
{
    QString const home = qEnvironmentVariable("HALVANE_HOME");
    return home.isEmpty() ? QString() : QDir(home).absolutePath();
}

QString systemUserName()
{
    if (passwd const* const entry = getpwuid(getuid())) return QString::fromLocal8Bit(entry->pw_name);
    return qEnvironmentVariable("USER");
}

QString fitForFileName(QString name)
{
    for (QChar& c : name) {
        if (!c.isLetterOrNumber() && c != QLatin1Char('-') && c != QLatin1Char('_')) c = QLatin1Char('_');
    }
    return name.isEmpty() ? QStringLiteral("user") : name;
}

QMessageBox::Icon iconOf(HostQuestion::Kind kind)
{
    switch (kind) {
    case HostQuestion::Warning:
        return QMessageBox::Warning;
    case HostQuestion::Error:
        return QMessageBox::Critical;
    case HostQuestion::Information:
        break;
    }
    return QMessageBox::Information;
}

}  // namespace

class HostServices::Private
{
public:
    QMutex mutex;  // guards what other threads than the GUI's may ask or write
    hvutils::RotatingFile logFile{logFileBytes, oldLogFiles};
    hvutils::ProcessLedger processes;
    std::unique_ptr<QSettings> settings;
    std::unique_ptr<hvutils::InteractionFilter> interactionFilter;
    QTimer messageTimer;  // takes the last message off
    bool canClose = true;
    std::atomic<bool> fastRendering{false};

    QSettings& openSettings(QString const& path)
    {
        if (!settings) settings = std::make_unique<QSettings>(path, QSettings::IniFormat);
        return *settings;
    }
};

HostServices::HostServices()
    : d(std::make_unique<Private>())
{
    // The first use may come from another thread, by an entry of the log.
    if (QCoreApplication::instance()) d->messageTimer.moveToThread(QCoreApplication::instance()->thread());
    d->messageTimer.setSingleShot(true);
    QObject::connect(&d->messageTimer, &QTimer::timeout, &d->messageTimer,
                     [this] { setProcessMessage({}, 0, 0); });
}

HostServices::~HostServices()
{
    HostServices* self = this;
    installedServices.compare_exchange_strong(self, nullptr);
}

HostServices& HostServices::instance()
{
    if (HostServices* const installed = installedServices.load()) return *installed;
    static HostServices standard;
    return standard;
}

HostServices* HostServices::install(HostServices* services)
{
    return installedServices.exchange(services);
}

void HostServices::log(HostLogEntry const& entry)
{
    if (entry.message.isEmpty()) return;  // it only empties the status line
    QString const line = hvutils::logLine(entry, QDateTime::currentDateTime());
    QString const path = logFilePath();
    QMutexLocker const lock(&d->mutex);
    d->logFile.append(path, line);
}

int HostServices::ask(HostQuestion const& question)
{
    QMessageBox box(question.parent ? question.parent : QApplication::activeWindow());
    box.setIcon(iconOf(question.kind));
    box.setWindowTitle(question.title);
    box.setTextFormat(Qt::PlainText);
    box.setText(question.text);
    QVector<QAbstractButton*> buttons;
    for (HostQuestion::Button const& button : question.buttons) {
        QPushButton* const added = button.text.isEmpty()
                                       ? box.addButton(static_cast<QMessageBox::StandardButton>(button.value))
                                       : box.addButton(button.text, QMessageBox::ActionRole);
        buttons.append(added);
        if (added && button.value == question.defaultValue) box.setDefaultButton(added);
        if (added && question.canEscape && button.value == question.escapeValue) box.setEscapeButton(added);
    }
    box.exec();
    int const pressed = box.clickedButton() ? buttons.indexOf(box.clickedButton()) : -1;
    return pressed < 0 ? safeAnswer(question) : question.buttons[pressed].value;
}

void HostServices::setCursor(QCursor const& cursor)
{
    QApplication::setOverrideCursor(cursor);
}

void HostServices::restoreCursor()
{
    QApplication::restoreOverrideCursor();
}

void HostServices::processChanged(HostProcessState const&) {}

void HostServices::setInteractionDisabled(bool disabled)
{
    if (!disabled)
        d->interactionFilter.reset();
    else if (!d->interactionFilter)
        d->interactionFilter = std::make_unique<hvutils::InteractionFilter>();
}

QString HostServices::programDataPath() const
{
    QString const home = homeFolder();
    return home.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/halvane"
                          : home;
}

QString HostServices::settingsFilePath() const
{
    QString const home = homeFolder();
    return (home.isEmpty()
                ? QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) + "/halvane"
                : home) +
           "/halvane.ini";
}

QString HostServices::logFilePath() const
{
    return programDataPath() + "/log/halvane.log";
}

QString HostServices::activeUserName() const
{
    QString const stored = d->openSettings(settingsFilePath()).value("user/name").toString();
    return fitForFileName(stored.isEmpty() ? systemUserName() : stored);
}

bool HostServices::memoryLoadLimit() const
{
    QFile meminfo(QStringLiteral("/proc/meminfo"));
    return meminfo.open(QIODevice::ReadOnly) && hvutils::memoryNearlyFull(meminfo.readAll());
}

QSettings& HostServices::settings()
{
    return d->openSettings(settingsFilePath());
}

void HostServices::setCanClose(bool canClose)
{
    d->canClose = canClose;
}

bool HostServices::canClose() const
{
    return d->canClose;
}

void HostServices::setFastRenderingMode(bool fast)
{
    d->fastRendering = fast;
}

bool HostServices::fastRenderingMode() const
{
    return d->fastRendering;
}

void HostServices::beginProcess(int totalSteps, tag_eLongProcessTypes types, bool abortable,
                                QString const& abortText)
{
    d->messageTimer.stop();
    {
        QMutexLocker const lock(&d->mutex);
        d->processes.begin(totalSteps, types, abortable, abortText);
    }
    processChanged(processState());
}

void HostServices::endProcess(tag_eLongProcessTypes types)
{
    {
        QMutexLocker const lock(&d->mutex);
        d->processes.end(types);
    }
    processChanged(processState());
}

void HostServices::endProcess(tag_eLongProcessTypes types, QString const& message, int delayMs)
{
    {
        QMutexLocker const lock(&d->mutex);
        d->processes.end(types);
        d->processes.say(message, 0, 0);
    }
    d->messageTimer.start(delayMs);
    processChanged(processState());
}

void HostServices::setProcessMessage(QString const& message, int step, int totalSteps)
{
    d->messageTimer.stop();
    {
        QMutexLocker const lock(&d->mutex);
        d->processes.say(message, step, totalSteps);
    }
    processChanged(processState());
}

void HostServices::requestAbort()
{
    {
        QMutexLocker const lock(&d->mutex);
        if (!d->processes.requestAbort()) return;
    }
    processChanged(processState());
}

bool HostServices::isProcessRunning(tag_eLongProcessTypes types) const
{
    QMutexLocker const lock(&d->mutex);
    return (d->processes.state().running & types) != 0;
}

bool HostServices::isAborted() const
{
    QMutexLocker const lock(&d->mutex);
    return d->processes.state().aborted;
}

HostProcessState HostServices::processState() const
{
    QMutexLocker const lock(&d->mutex);
    return d->processes.state();
}

int safeAnswer(HostQuestion const& question)
{
    if (question.canEscape || question.buttons.isEmpty()) return question.escapeValue;
    return question.buttons.last().value;
}
