#pragma once

#include "hvutils/CHVSLog.h"
#include "lib/hvutils/HostServices.h"

#include <QCursor>

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace viz_test {

/// The host of a reader or its dialog: keeps the log, says how full the machine's memory is, and fails the
/// test on every message box, since readers open none.
class RecordingHost : public HostServices
{
public:
    using Entry = std::pair<long, std::string>;  // severity and message

    RecordingHost() { install(this); }
    ~RecordingHost() override { install(nullptr); }

    std::vector<Entry> entries;
    std::vector<HostLogEntry> fullEntries;
    bool memoryIsFull = false;
    mutable int memoryChecks = 0;
    int cursorsRestored = 0;
    std::vector<Qt::CursorShape> cursorsSet;

    /// Entries of the reader itself; the image library tells of files with lower severities.
    std::vector<Entry> failures() const
    {
        std::vector<Entry> some;
        for (const Entry& entry : entries)
            if (entry.first >= CHVSLog::eError) some.push_back(entry);
        return some;
    }

    void log(HostLogEntry const& entry) override
    {
        entries.emplace_back(entry.severity, entry.message.toStdString());
        fullEntries.push_back(entry);
    }

    int ask(HostQuestion const& question) override
    {
        ADD_FAILURE() << "unexpected message box: " << question.text.toStdString();
        return safeAnswer(question);
    }

    bool memoryLoadLimit() const override
    {
        ++memoryChecks;
        return memoryIsFull;
    }

    void setCursor(QCursor const& cursor) override { cursorsSet.push_back(cursor.shape()); }
    void restoreCursor() override { ++cursorsRestored; }
};

}  // namespace viz_test
