#include "browse/logic/FrameRange.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(FrameRange, AtFirstItIsTheWholeDataSet)
{
    const FrameRange range = FrameRange::whole(20);
    EXPECT_EQ(range, (FrameRange{1, 20, 20}));
    EXPECT_EQ(range.firstMinimum(), 1);
    EXPECT_EQ(range.firstMaximum(), 19);
    EXPECT_EQ(range.lastMinimum(), 2);
    EXPECT_EQ(range.lastMaximum(), 20);
}

TEST(FrameRange, EachEndStopsBeforeTheOther)
{
    const FrameRange range = FrameRange::of(5, 9, 20);
    EXPECT_EQ(range.firstMaximum(), 8);
    EXPECT_EQ(range.lastMinimum(), 6);
    EXPECT_EQ(FrameRange::of(12, 9, 20), (FrameRange{8, 9, 20}));
    EXPECT_EQ(FrameRange::of(0, 99, 20), (FrameRange{1, 20, 20}));
    EXPECT_EQ(FrameRange::of(1, 1, 20), (FrameRange{1, 2, 20}));
}

TEST(FrameRange, ASingleFrameIsItsOwnRange)
{
    const FrameRange range = FrameRange::whole(1);
    EXPECT_EQ(range, (FrameRange{1, 1, 1}));
    EXPECT_EQ(range.firstMaximum(), 1);
    EXPECT_EQ(range.lastMinimum(), 1);
    EXPECT_EQ(FrameRange::whole(0), range);
    EXPECT_EQ(FrameRange::of(7, 3, -5), range);
}

TEST(FrameRange, TheHandleThatWasMovedDecides)
{
    const FrameRange range = FrameRange::of(5, 9, 20);
    EXPECT_EQ(range.movedTo(3, 9), (FrameRange{3, 9, 20}));
    EXPECT_EQ(range.movedTo(5, 15), (FrameRange{5, 15, 20}));
    EXPECT_EQ(range.movedTo(12, 12), (FrameRange{12, 13, 20})) << "the first pushed the last before it";
    EXPECT_EQ(range.movedTo(2, 2), (FrameRange{1, 2, 20})) << "the last pushed the first";
    EXPECT_EQ(range.movedTo(9, 9), (FrameRange{9, 10, 20}));
    EXPECT_EQ(range.movedTo(20, 20), (FrameRange{19, 20, 20}));
    EXPECT_EQ(range.movedTo(1, 1), (FrameRange{1, 2, 20}));
}

TEST(FrameRange, TheLargestCountDoesNotWrap)
{
    const int most = std::numeric_limits<int>::max();
    EXPECT_EQ(FrameRange::whole(most).movedTo(most, most), (FrameRange{most - 1, most, most}));
}

TEST(NextFrame, GoesRoundInsideTheRange)
{
    EXPECT_EQ(nextFrame(5, 5, 9), 6);
    EXPECT_EQ(nextFrame(8, 5, 9), 9);
    EXPECT_EQ(nextFrame(9, 5, 9), 5);
    EXPECT_EQ(nextFrame(12, 5, 9), 5);
    EXPECT_EQ(nextFrame(1, 1, 1), 1);
}

}  // namespace
