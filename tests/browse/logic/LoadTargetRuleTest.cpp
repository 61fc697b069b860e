#include "browse/logic/LoadTargetRule.h"

#include <gtest/gtest.h>

namespace {

ActiveWindowFacts sequenceWindow(bool sla, bool ct, bool scene)
{
    ActiveWindowFacts facts;
    facts.isThere = true;
    facts.isSequenceWindow = true;
    facts.hasSequence = true;
    facts.isSlaSequence = sla;
    facts.isCtSequence = ct;
    facts.is3DSceneOnly = scene;
    return facts;
}

TEST(LoadTarget, SequencesForLightSourcesCtAndScenesCount)
{
    EXPECT_TRUE(isLoadTarget(sequenceWindow(true, false, false)));
    EXPECT_TRUE(isLoadTarget(sequenceWindow(false, true, false)));
    EXPECT_TRUE(isLoadTarget(sequenceWindow(false, false, true)));
    EXPECT_FALSE(isLoadTarget(sequenceWindow(false, false, false)));
}

TEST(LoadTarget, AnImageCountsByItsSequence)
{
    ActiveWindowFacts image = sequenceWindow(true, false, false);
    image.isSequenceWindow = false;
    EXPECT_TRUE(isLoadTarget(image));
    image.isSlaSequence = false;
    image.isCtSequence = true;
    EXPECT_TRUE(isLoadTarget(image));
    image.isCtSequence = false;
    image.is3DSceneOnly = true;
    EXPECT_FALSE(isLoadTarget(image));
    image.isSlaSequence = true;
    image.hasSequence = false;
    EXPECT_FALSE(isLoadTarget(image));
}

TEST(LoadTarget, WithoutAWindowThereIsNone)
{
    EXPECT_FALSE(isLoadTarget({}));
}

TEST(LoadStatus, NamesTheTargetOrTheNewWindow)
{
    StatusFacts facts;
    facts.hasFiles = true;
    facts.targetId = "MOUSE 7";
    EXPECT_EQ(statusMessage(facts), QString("Data will be loaded in MOUSE 7."));
    facts.targetId.clear();
    EXPECT_EQ(statusMessage(facts), QString("No valid 3D Scene. Data will be loaded in a new window."));
}

TEST(LoadStatus, IsEmptyWhereNothingHasToBeSaid)
{
    StatusFacts facts;
    facts.targetId = "S";
    EXPECT_EQ(statusMessage(facts), QString()) << "no files";
    facts.hasFiles = true;
    facts.isCtData = true;
    EXPECT_EQ(statusMessage(facts), QString());
    facts.isCtData = false;
    facts.loadsInNewWindow = true;
    EXPECT_EQ(statusMessage(facts), QString());
}

}  // namespace
