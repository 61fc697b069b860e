#pragma once

#include "LogModel.h"

#include "lib/hvutils/HostServices.h"

#include <QFile>
#include <QMutex>
#include <QObject>

Q_DECLARE_METATYPE(LogEntry)

/// The services of the libraries as the application gives them: what they say goes to its window, what they
/// ask to its user. Unattended, nobody is there: questions get their safe answer and are logged with it.
class ApplicationServices : public QObject, public HostServices
{
    Q_OBJECT

public:
    enum class Mode
    {
        Attended,
        Unattended
    };

    explicit ApplicationServices(Mode mode);
    ~ApplicationServices() override;

    Mode mode() const { return m_mode; }

    /// Writes the log to this file as well, which is emptied first. False if it can't be opened.
    bool startLogFile(const QString& path);
    /// False when an entry could not be written to that file.
    bool isLogFileWhole() const;

    /// Keeps program data in this folder in place of the usual one.
    void setProgramDataPath(const QString& folder) { m_programData = folder; }

    /// The latest warning or error of the log, one line; empty when there was none.
    QString lastComplaint() const;

    void log(HostLogEntry const& entry) override;
    int ask(HostQuestion const& question) override;
    void processChanged(HostProcessState const& state) override;
    QString programDataPath() const override;

signals:
    /// From the thread of the entry.
    void logged(const LogEntry& entry);
    /// The text of the status line; empty to clear it. From the thread of the entry.
    void statusLine(const QString& text);
    void processStateChanged();
    /// An entry is to be shown in a box. From the thread of the entry.
    void boxWanted(const LogEntry& entry);

private:
    void logText(const QString& text, long severity);

    const Mode m_mode;
    QString m_programData;
    mutable QMutex m_mutex;  ///< guards what follows
    QFile m_logFile;
    bool m_isWhole = true;
    QString m_lastComplaint;
};
