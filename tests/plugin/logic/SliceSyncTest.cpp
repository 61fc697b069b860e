#include "plugin/logic/SliceSync.h"

#include <gtest/gtest.h>
#include <limits>

TEST(SliceSync, TheThreeAxesDifferByAMillimetre)
{
    // A box of 50 mm on a slider of 100 steps: two steps a millimetre.
    SlicePlace place{0, 5.0, -25.0, 25.0, 0, 100};
    EXPECT_EQ(sliderValueOf(place), 62);
    place.axis = 1;
    EXPECT_EQ(sliderValueOf(place), 62);
    place.axis = 2;
    EXPECT_EQ(sliderValueOf(place), 60);
}

TEST(SliceSync, TheValueIsTruncated)
{
    EXPECT_EQ(sliderValueOf({2, 0.99, 0.0, 10.0, 0, 10}), 0);
    EXPECT_EQ(sliderValueOf({2, 9.99, 0.0, 10.0, 0, 10}), 9);
    EXPECT_EQ(sliderValueOf({2, -1.5, 0.0, 10.0, 0, 10}), -1) << "towards zero";
}

TEST(SliceSync, TheSlidersRangeCounts)
{
    EXPECT_EQ(sliderValueOf({2, 5.0, 0.0, 10.0, 20, 40}), 30);
    EXPECT_EQ(sliderValueOf({0, 0.0, 0.0, 10.0, 20, 40}), 22);
}

TEST(SliceSync, ABoxWithoutThicknessGivesNoValue)
{
    EXPECT_FALSE(sliderValueOf({2, 1.0, 3.0, 3.0, 0, 100}));
    EXPECT_FALSE(sliderValueOf({2, 3.0, 3.0, 3.0, 0, 100}));
    EXPECT_FALSE(sliderValueOf({2, std::numeric_limits<double>::quiet_NaN(), 0.0, 1.0, 0, 100}));
}
