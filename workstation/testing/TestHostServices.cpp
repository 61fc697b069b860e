#include "TestHostServices.h"

#include <QtDebug>

#include <algorithm>

TestHostServices::TestHostServices()
    : m_former(install(this))
{}

TestHostServices::~TestHostServices()
{
    install(m_former);
    if (!m_answers.empty())
        qWarning("%d message box(es) of the script did not open", static_cast<int>(m_answers.size()));
}

QList<HostLogEntry> TestHostServices::entries() const
{
    const QMutexLocker lock(&m_mutex);
    return m_entries;
}

QStringList TestHostServices::messages(long severity) const
{
    QStringList texts;
    const QList<HostLogEntry> all = entries();
    for (const HostLogEntry& entry : all) {
        if (entry.severity == severity) texts << entry.message;
    }
    return texts;
}

void TestHostServices::forgetEntries()
{
    const QMutexLocker lock(&m_mutex);
    m_entries.clear();
}

void TestHostServices::log(HostLogEntry const& entry)
{
    const QMutexLocker lock(&m_mutex);
    m_entries.append(entry);
}

int TestHostServices::ask(HostQuestion const& question)
{
    int answer = safeAnswer(question);
    if (m_answers.empty()) {
        qWarning().noquote() << "unexpected message box:" << question.title << "-" << question.text;
    } else {
        answer = m_answers.front();
        m_answers.pop_front();
        const bool isOffered =
            std::any_of(question.buttons.begin(), question.buttons.end(),
                        [answer](const HostQuestion::Button& button) { return button.value == answer; });
        if (!isOffered) qWarning().noquote() << "the box has no button" << answer << "-" << question.text;
    }
    m_boxes.append({question, answer});
    m_boxes.last().question.parent = nullptr;  // may be gone when the test looks
    return answer;
}

void TestHostServices::setCursor(QCursor const& cursor)
{
    ++m_cursorDepth;
    HostServices::setCursor(cursor);
}

void TestHostServices::restoreCursor()
{
    --m_cursorDepth;
    HostServices::restoreCursor();
}

QString TestHostServices::programDataPath() const
{
    return m_folder.path() + QStringLiteral("/data");
}

QString TestHostServices::settingsFilePath() const
{
    return m_folder.path() + QStringLiteral("/settings.ini");
}

QString TestHostServices::activeUserName() const
{
    return QStringLiteral("tester");
}

bool TestHostServices::memoryLoadLimit() const
{
    return m_memoryLoadLimit;
}
