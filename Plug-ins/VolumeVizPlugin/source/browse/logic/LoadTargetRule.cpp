#include "browse/logic/LoadTargetRule.h"

bool isLoadTarget(const ActiveWindowFacts& window)
{
    if (!window.isThere) return false;
    const bool isOfItsKind = window.hasSequence && (window.isSlaSequence || window.isCtSequence);
    return isOfItsKind || (window.isSequenceWindow && window.is3DSceneOnly);
}

QString statusMessage(const StatusFacts& facts)
{
    if (facts.loadsInNewWindow || !facts.hasFiles || facts.isCtData) return {};
    if (facts.targetId.isEmpty())
        return QStringLiteral("No valid 3D Scene. Data will be loaded in a new window.");
    return QStringLiteral("Data will be loaded in %1.").arg(facts.targetId);
}
