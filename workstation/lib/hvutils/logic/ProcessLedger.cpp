#include "lib/hvutils/logic/ProcessLedger.h"

namespace hvutils {

void ProcessLedger::begin(int totalSteps, tag_eLongProcessTypes types, bool abortable,
                          QString const& abortText)
{
    bool const first = m_state.running == 0;
    if (first) m_state = HostProcessState();
    for (int bit = 0; bit < static_cast<int>(m_begun.size()); ++bit) {
        if (types & (1 << bit)) {
            ++m_begun[bit];
            m_state.running |= 1 << bit;
        }
    }
    m_state.totalSteps = totalSteps;
    m_state.step = 0;
    m_state.abortable = m_state.abortable || abortable;
    if (abortable) m_state.abortText = abortText;
}

void ProcessLedger::end(tag_eLongProcessTypes types)
{
    for (int bit = 0; bit < static_cast<int>(m_begun.size()); ++bit) {
        if ((types & (1 << bit)) && m_begun[bit] > 0 && --m_begun[bit] == 0) m_state.running &= ~(1 << bit);
    }
    if (m_state.running == 0) {
        m_state.message.clear();
        m_state.step = 0;
        m_state.totalSteps = 0;
        m_state.abortable = false;
    }
}

void ProcessLedger::say(QString const& message, int step, int totalSteps)
{
    m_state.message = message;
    m_state.step = step;
    m_state.totalSteps = totalSteps;
}

bool ProcessLedger::requestAbort()
{
    if (!m_state.abortable || m_state.aborted) return false;
    m_state.aborted = true;
    return true;
}

}  // namespace hvutils
