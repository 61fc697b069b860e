#include "app/Turntable.h"

#include <gtest/gtest.h>

namespace {

TEST(Turntable, FramesStandAtEvenAnglesOfOneTurn)
{
    const Turntable turn{8, 30};
    EXPECT_DOUBLE_EQ(turn.angle(0), 0.0);
    EXPECT_DOUBLE_EQ(turn.angle(1), 0.78539816339744831);
    EXPECT_DOUBLE_EQ(turn.angle(4), 3.14159265358979324);
}

TEST(Turntable, TheLastFrameStandsOneStepBeforeTheFirst)
{
    const Turntable turn{4, 30};
    EXPECT_DOUBLE_EQ(turn.angle(3), 4.71238898038468986);
}

TEST(Turntable, AStandardTurnHasAFrameForEachDegreeAndTakesTwelveSeconds)
{
    EXPECT_DOUBLE_EQ(Turntable().angle(90), 1.57079632679489662);
    EXPECT_EQ(Turntable().durationMs(), 12000);
    EXPECT_EQ((Turntable{1, 30}.durationMs()), 33);
}

TEST(Turntable, WithoutFramesOrTimeThereIsNoDivision)
{
    EXPECT_DOUBLE_EQ((Turntable{0, 30}.angle(5)), 0.0);
    EXPECT_EQ((Turntable{0, 30}.durationMs()), 0);
    EXPECT_EQ((Turntable{5, 0}.durationMs()), 0);
}

TEST(Turntable, TellsTheFirstThingThatIsMissing)
{
    EXPECT_TRUE(whyNoTurntable(true, true, true).isEmpty());
    EXPECT_TRUE(whyNoTurntable(false, false, false).contains("no 3D view"));
    EXPECT_TRUE(whyNoTurntable(true, false, false).contains("empty"));
    EXPECT_TRUE(whyNoTurntable(true, true, false).contains("encoder"));
}

}  // namespace
