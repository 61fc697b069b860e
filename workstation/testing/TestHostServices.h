#pragma once

#include "lib/hvutils/HostServices.h"

#include <QList>
#include <QMutex>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <deque>

/// Services of the host for a test, in use as long as they live: program data and settings in a temporary
/// folder, the log recorded, message boxes answered from a script.
///
///     TestHostServices host;
///     host.answerNextBox(65536);            // No
///     palette.onClickLoadVolumeButton();
///     EXPECT_EQ(host.boxes().size(), 1);
///     EXPECT_TRUE(host.messages(2).contains("..."));
///
/// A box that the script does not know gets its safe answer and a Qt warning, which fails a test that has the
/// warning guard; so does an answer that was never asked for.
class TestHostServices : public HostServices
{
public:
    struct Box
    {
        HostQuestion question;
        int answer = 0;
    };

    TestHostServices();
    ~TestHostServices() override;

    /// One box more is expected and gets this answer, a button value of the question.
    void answerNextBox(int answer) { m_answers.push_back(answer); }

    /// The boxes that were asked, in order.
    const QList<Box>& boxes() const { return m_boxes; }

    /// The log, in order; empty entries, which clear the status line, among them.
    QList<HostLogEntry> entries() const;
    /// Texts of the entries of one severity.
    QStringList messages(long severity) const;
    void forgetEntries();

    /// What the machine's memory is to look like. At first there is enough.
    void setMemoryLoadLimit(bool reached) { m_memoryLoadLimit = reached; }

    /// Wait cursors and the like that were set and not restored yet.
    int cursorDepth() const { return m_cursorDepth; }

    void log(HostLogEntry const& entry) override;
    int ask(HostQuestion const& question) override;
    void setCursor(QCursor const& cursor) override;
    void restoreCursor() override;
    QString programDataPath() const override;
    QString settingsFilePath() const override;
    QString activeUserName() const override;
    bool memoryLoadLimit() const override;

private:
    QTemporaryDir m_folder;
    HostServices* m_former;
    std::deque<int> m_answers;
    QList<Box> m_boxes;
    mutable QMutex m_mutex;  ///< guards the entries
    QList<HostLogEntry> m_entries;
    bool m_memoryLoadLimit = false;
    int m_cursorDepth = 0;
};
