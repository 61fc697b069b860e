#include "hvutils/CHVProcess.h"

#include "lib/hvutils/HostServices.h"

namespace {

void say(QString const& message, int step, int totalSteps, bool* aborted)
{
    HostServices& services = HostServices::instance();
    services.setProcessMessage(message, step, totalSteps);
    if (aborted) *aborted = services.isAborted();
}

}  // namespace

bool CHVProcess::isProcessInProgress(tag_eLongProcessTypes types)
{
    return HostServices::instance().isProcessRunning(types);
}

void CHVProcess::startLongProcess(int totalSteps, tag_eLongProcessTypes types, bool abortable,
                                  QString abortText)
{
    HostServices::instance().beginProcess(totalSteps, types, abortable, abortText);
}

void CHVProcess::endLongProcess(tag_eLongProcessTypes types)
{
    HostServices::instance().endProcess(types);
}

void CHVProcess::endLongProcess(QString const& message, int delayMs, tag_eLongProcessTypes types)
{
    HostServices::instance().endProcess(types, message, delayMs);
}

void CHVProcess::setProcessMessage(QString const& message, bool* aborted)
{
    HostProcessState const state = HostServices::instance().processState();
    say(message, state.step, state.totalSteps, aborted);
}

void CHVProcess::setProcessMessage(QString const& message, int step, bool* aborted)
{
    say(message, step, HostServices::instance().processState().totalSteps, aborted);
}

void CHVProcess::setProcessMessage(QString const& message, int step, int total, bool* aborted)
{
    say(message, step, total, aborted);
}

bool CHVProcess::isProcessAborted()
{
    return HostServices::instance().isAborted();
}

void CHVProcess::disableUserInteraction(bool disable)
{
    HostServices::instance().setInteractionDisabled(disable);
}

bool CHVProcess::isFast3DRenderingMode()
{
    return HostServices::instance().fastRenderingMode();
}
