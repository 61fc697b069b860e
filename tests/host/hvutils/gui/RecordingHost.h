#pragma once

#include "lib/hvutils/HostServices.h"

#include <QCursor>
#include <QTemporaryDir>

#include <vector>

// A host that shows nothing: it records what it is told, answers with the next scripted value, and keeps its
// files in a temporary folder.
class RecordingHost : public HostServices
{
public:
    RecordingHost() { m_former = install(this); }
    ~RecordingHost() override { install(m_former); }

    void log(HostLogEntry const& entry) override { entries.push_back(entry); }

    int ask(HostQuestion const& question) override
    {
        questions.push_back(question);
        return answer;
    }

    void setCursor(QCursor const& cursor) override { cursors.push_back(cursor.shape()); }
    void restoreCursor() override { cursors.push_back(-1); }
    void processChanged(HostProcessState const& state) override { states.push_back(state); }
    QString programDataPath() const override { return folder.path() + QStringLiteral("/data"); }
    QString settingsFilePath() const override { return folder.path() + QStringLiteral("/settings.ini"); }
    bool memoryLoadLimit() const override { return memoryFull; }

    QTemporaryDir folder;
    std::vector<HostLogEntry> entries;
    std::vector<HostQuestion> questions;
    std::vector<int> cursors;  // shapes; -1: one taken off
    std::vector<HostProcessState> states;
    int answer = 0;
    bool memoryFull = false;

private:
    HostServices* m_former = nullptr;
};
