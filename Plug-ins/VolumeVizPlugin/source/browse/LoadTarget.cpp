#include "browse/LoadTarget.h"

#include "browse/logic/LoadTargetRule.h"
#include "hvapi/sequence/CHVSDataset.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"

#include <QMdiArea>
#include <QMdiSubWindow>

LoadTarget activeLoadTarget()
{
    CHVSChildWindow* const active = CHVSChildWindow::getActiveChildWnd();
    if (!active) return {};
    ActiveWindowFacts facts;
    facts.isThere = true;
    facts.isSequenceWindow = active->isSequenceWindow();
    CHVSSequenceDataset* sequence = nullptr;
    if (facts.isSequenceWindow) {
        sequence = active->getWindowSequence();
        auto* const window = qobject_cast<CHVSSequenceWindow*>(active);
        facts.is3DSceneOnly = window && window->is3DSceneOnlySequence();
    } else {
        CHVSDataset* const dataset = active->getActiveDataset();
        if (dataset && dataset->isPartOfSequence()) sequence = dataset->getSequenceDataset();
    }
    if (!sequence) return {};
    facts.hasSequence = true;
    facts.isSlaSequence = sequence->isSLASequence();
    facts.isCtSequence = sequence->isCTSequence(false);
    if (!isLoadTarget(facts)) return {};
    return {sequence, CHVSSequenceWindow::getSequenceWindow(sequence), !facts.isSequenceWindow};
}

void activateSequenceWindow(CHVSSequenceWindow* window)
{
    auto* const frame = window ? qobject_cast<QMdiSubWindow*>(window->parentWidget()) : nullptr;
    if (!frame) return;
    if (QMdiArea* const area = frame->mdiArea()) area->setActiveSubWindow(frame);
    window->setFocus();
}
