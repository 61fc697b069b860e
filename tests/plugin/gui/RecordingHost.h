#pragma once

#include "lib/hvutils/HostServices.h"

#include <gtest/gtest.h>

#include <QList>
#include <QString>
#include <QStringList>

/// A host without a screen: records what the plug-in tells the user, and answers questions from a list. A
/// question without an answer in the list fails the test.
class RecordingHost : public HostServices
{
public:
    struct Entry
    {
        long severity;
        QString message;
        QString context;
    };

    RecordingHost() { install(this); }
    ~RecordingHost() override
    {
        install(nullptr);
        EXPECT_TRUE(answers.isEmpty()) << "a question that was expected did not come";
    }

    void log(HostLogEntry const& entry) override
    {
        // A library of the host or below it, not the plug-in.
        if (entry.source.startsWith(QLatin1String("hv")) || entry.source.startsWith(QLatin1String("dcmtk")))
            return;
        entries.append({entry.severity, entry.message, entry.context});
        EXPECT_EQ(entry.source, QString());
        EXPECT_EQ(entry.line, 0);
        EXPECT_FALSE(entry.showBox);
    }

    int ask(HostQuestion const& question) override
    {
        asked.append(question);
        if (answers.isEmpty()) {
            ADD_FAILURE() << "unexpected question: " << question.text.toStdString();
            return safeAnswer(question);
        }
        return answers.takeFirst();
    }

    /// Other programs on the machine must not decide on a test.
    bool memoryLoadLimit() const override { return false; }

    void setCursor(QCursor const&) override { cursorDepth += 1; }
    void restoreCursor() override { cursorDepth = std::max(0, cursorDepth - 1); }

    /// Messages of that severity, in order.
    QStringList logged(long severity) const
    {
        QStringList messages;
        for (const Entry& entry : entries)
            if (entry.severity == severity) messages.append(entry.message);
        return messages;
    }

    QList<Entry> entries;
    QList<HostQuestion> asked;
    QList<int> answers;
    int cursorDepth = 0;
};
