#include "plugin/logic/SequenceValidity.h"

bool isValidSequence(const SequenceFacts& facts)
{
    if (!facts.exists || facts.loadedAsGroup || !facts.hasWindow) return false;
    return facts.isSla || facts.windowIsSceneOnly || facts.isCt;
}
