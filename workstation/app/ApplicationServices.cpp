#include "ApplicationServices.h"

namespace {

constexpr long information = 1;
constexpr long warning = 2;
constexpr long error = 3;
constexpr long statusLineSeverity = 16;

QString oneLine(QString text)
{
    return text.simplified();
}

/// The usual text of a button, for the log.
QString buttonText(const HostQuestion& question, int value)
{
    for (const HostQuestion::Button& button : question.buttons) {
        if (button.value == value && !button.text.isEmpty())
            return QString(button.text).remove(QLatin1Char('&'));
    }
    switch (value) {
    case 1024:
        return QStringLiteral("OK");
    case 16384:
        return QStringLiteral("Yes");
    case 65536:
        return QStringLiteral("No");
    case 131072:
        return QStringLiteral("No to All");
    case 4194304:
        return QStringLiteral("Cancel");
    default:
        return QString::number(value);
    }
}

}  // namespace

ApplicationServices::ApplicationServices(Mode mode)
    : m_mode(mode)
{
    qRegisterMetaType<LogEntry>();
}

ApplicationServices::~ApplicationServices() = default;

bool ApplicationServices::startLogFile(const QString& path)
{
    const QMutexLocker lock(&m_mutex);
    m_logFile.setFileName(path);
    m_isWhole = m_logFile.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text);
    return m_isWhole;
}

bool ApplicationServices::isLogFileWhole() const
{
    const QMutexLocker lock(&m_mutex);
    return m_isWhole;
}

QString ApplicationServices::lastComplaint() const
{
    const QMutexLocker lock(&m_mutex);
    return m_lastComplaint;
}

void ApplicationServices::log(HostLogEntry const& entry)
{
    HostServices::log(entry);
    if (entry.severity == statusLineSeverity) emit statusLine(entry.message);
    if (entry.message.isEmpty()) return;
    const LogEntry shown{QDateTime::currentDateTime(), entry.severity, entry.message};
    {
        const QMutexLocker lock(&m_mutex);
        if (shown.severity == warning || shown.severity == error) m_lastComplaint = oneLine(shown.message);
        if (m_logFile.isOpen()) {
            const QByteArray line = formatLogLine(shown).toUtf8() + '\n';
            // flushed line by line: the file is wanted most when the program ends badly
            m_isWhole = m_logFile.write(line) == line.size() && m_logFile.flush() && m_isWhole;
        }
    }
    emit logged(shown);
    if (entry.showBox) emit boxWanted(shown);
}

int ApplicationServices::ask(HostQuestion const& question)
{
    const long kind = question.kind == HostQuestion::Error     ? error
                      : question.kind == HostQuestion::Warning ? warning
                                                               : information;
    const bool isQuestion = question.buttons.size() > 1;
    // A box that only tells something tells it the log as well: always when nobody sees it, and when it is an
    // error, which the user may want to read again. Often the log was told just before.
    if (!isQuestion && (m_mode == Mode::Unattended || kind == error) &&
        oneLine(question.text) != lastComplaint())
        logText(question.text, kind);
    if (m_mode == Mode::Attended) return HostServices::ask(question);
    const int answer = safeAnswer(question);
    if (isQuestion) {
        logText(QStringLiteral("Nobody to ask: \"%1\" Answered: %2.")
                    .arg(oneLine(question.text), buttonText(question, answer)),
                qMax(kind, warning));
    }
    return answer;
}

void ApplicationServices::logText(const QString& text, long severity)
{
    HostLogEntry entry;
    entry.message = text;
    entry.severity = severity;
    log(entry);
}

void ApplicationServices::processChanged(HostProcessState const&)
{
    emit processStateChanged();
}

QString ApplicationServices::programDataPath() const
{
    return m_programData.isEmpty() ? HostServices::programDataPath() : m_programData;
}
