#include "plugin/logic/SequenceValidity.h"

#include <gtest/gtest.h>

namespace {

SequenceFacts shownSequence()
{
    SequenceFacts facts;
    facts.exists = true;
    facts.hasWindow = true;
    return facts;
}

}  // namespace

TEST(SequenceValidity, OneFittingKindIsEnough)
{
    SequenceFacts sla = shownSequence();
    sla.isSla = true;
    EXPECT_TRUE(isValidSequence(sla));

    SequenceFacts scene = shownSequence();
    scene.windowIsSceneOnly = true;
    EXPECT_TRUE(isValidSequence(scene));

    SequenceFacts ct = shownSequence();
    ct.isCt = true;
    EXPECT_TRUE(isValidSequence(ct));
}

TEST(SequenceValidity, AnyOtherKindIsRefused)
{
    EXPECT_FALSE(isValidSequence(shownSequence()));
}

// All 64 combinations against the rule written out as one expression.
TEST(SequenceValidity, HoldsOverEveryCombination)
{
    for (int bits = 0; bits < 64; ++bits) {
        SequenceFacts facts;
        facts.exists = bits & 1;
        facts.loadedAsGroup = bits & 2;
        facts.hasWindow = bits & 4;
        facts.isSla = bits & 8;
        facts.windowIsSceneOnly = bits & 16;
        facts.isCt = bits & 32;
        const bool expected = (bits & 1) && !(bits & 2) && (bits & 4) && (bits & (8 | 16 | 32));
        EXPECT_EQ(isValidSequence(facts), expected) << bits;
    }
}
