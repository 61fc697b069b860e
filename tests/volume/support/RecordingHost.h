#pragma once

#include "lib/hvutils/HostServices.h"

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

    void restoreCursor() override { ++cursorsRestored; }
};

}  // namespace viz_test
