#pragma once

#include "hvutils/hvutils_global.h"
#include "hvutils/tag_eLongProcessTypes.h"

#include <QString>

// Long processes: which kinds run, what they tell the user, and whether the user asked to stop. The queries
// may be called from any thread, everything else from the GUI thread.
class HVUTILS_EXPORT CHVProcess
{
public:
    CHVProcess() = delete;

    // True while a process of any of the given kinds runs.
    static bool isProcessInProgress(tag_eLongProcessTypes types);

    // Begins a process.
    //   totalSteps   steps that setProcessMessage counts; 0 when their number is not known
    //   types        its kind or kinds, the same as for endLongProcess
    //   abortable    true offers the user a way to ask for the end
    //   abortText    shown from that request until the process has ended
    // Processes of one kind nest: each begin needs its end. The request to abort is forgotten when the first
    // process begins.
    static void startLongProcess(int totalSteps, tag_eLongProcessTypes types, bool abortable,
                                 QString abortText);

    // Ends a process. The second form leaves `message` on show for `delayMs` milliseconds, unless another
    // process speaks before. Ending what does not run has no effect.
    static void endLongProcess(tag_eLongProcessTypes types);
    static void endLongProcess(QString const& message, int delayMs, tag_eLongProcessTypes types);

    // Tells the user what is being done, and at which step (from 1) of how many: of the number given at the
    // start where `total` is missing. `aborted`, if not null, receives isProcessAborted().
    static void setProcessMessage(QString const& message, bool* aborted);
    static void setProcessMessage(QString const& message, int step, bool* aborted);
    static void setProcessMessage(QString const& message, int step, int total, bool* aborted);

    // True from the user's request to abort until the next first process begins.
    static bool isProcessAborted();

    // True keeps mouse and keyboard from all windows but the one that offers the abort; false lets them
    // through again.
    static void disableUserInteraction(bool disable);

    // True while the user drags in a 3D view: scenes should then be drawn with less detail.
    static bool isFast3DRenderingMode();
};
