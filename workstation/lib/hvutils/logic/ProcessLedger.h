#pragma once

#include "lib/hvutils/HostServices.h"

#include <array>

namespace hvutils {

// Which long processes run and what they tell. Kinds nest: each begin needs its end.
class ProcessLedger
{
public:
    void begin(int totalSteps, tag_eLongProcessTypes types, bool abortable, QString const& abortText);

    // Without effect for kinds that do not run. With the last process its message goes.
    void end(tag_eLongProcessTypes types);

    void say(QString const& message, int step, int totalSteps);

    // True when this changed something: an abortable process runs and was not yet asked to stop.
    bool requestAbort();

    HostProcessState const& state() const { return m_state; }

private:
    HostProcessState m_state;
    std::array<int, 20> m_begun{};  // by bit of the kind
};

}  // namespace hvutils
