#include "slices/logic/SliceRange.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(SlicePositionsTest, RunToTheEndInclusive)
{
    EXPECT_THAT(slicePositions(-1.0F, 1.0F, 0.5), ElementsAre(-1.0, -0.5, 0.0, 0.5, 1.0));
    EXPECT_THAT(slicePositions(0.0F, 0.9F, 0.5), ElementsAre(0.0, 0.5));
    EXPECT_THAT(slicePositions(2.0F, 2.0F, 0.5), ElementsAre(2.0));
}

TEST(SlicePositionsTest, TheRunningPositionIsSingle)
{
    const std::vector<double> positions = slicePositions(0.0F, 1.0F, 0.1);
    ASSERT_GE(positions.size(), 3u);
    EXPECT_EQ(positions[1], static_cast<double>(0.1F));
    EXPECT_EQ(positions[2], static_cast<double>(static_cast<float>(0.1F + 0.1)));
}

TEST(SlicePositionsTest, SpacingLargerThanTheRangeGivesItsStart)
{
    EXPECT_THAT(slicePositions(0.0F, 1.0F, 5.0), ElementsAre(0.0));
}

TEST(SlicePositionsTest, NothingForWhatIsNoRange)
{
    EXPECT_THAT(slicePositions(0.0F, 1.0F, 0.0), IsEmpty());
    EXPECT_THAT(slicePositions(0.0F, 1.0F, -1.0), IsEmpty());
    EXPECT_THAT(slicePositions(0.0F, 1.0F, kNaN), IsEmpty());
    EXPECT_THAT(slicePositions(0.0F, static_cast<float>(kInfinity), 1.0), IsEmpty());
    EXPECT_THAT(slicePositions(static_cast<float>(kNaN), 1.0F, 1.0), IsEmpty());
    EXPECT_THAT(slicePositions(2.0F, 1.0F, 1.0), IsEmpty());
}

TEST(SlicePositionsTest, EndWhereSinglePrecisionStandsStillAndAtTheMost)
{
    EXPECT_THAT(slicePositions(1e9F, 2e9F, 0.01), ElementsAre(1e9));
    EXPECT_EQ(slicePositions(0.0F, 1e6F, 0.5).size(), static_cast<std::size_t>(kMostSlices));
}

TEST(TotalSlicesTest, ABoxOfTenMillimetresStartsWithTwentyOne)
{
    EXPECT_EQ(startSpacing(0.0, 10.0), 0.5F);
    EXPECT_EQ(totalSlices(0.0, 10.0, 0.5), 21);
}

TEST(TotalSlicesTest, IsTruncated)
{
    EXPECT_EQ(totalSlices(0.0, 9.0, 1.0), 10);
    EXPECT_EQ(totalSlices(0.0, 9.9, 1.0), 10);
    EXPECT_EQ(totalSlices(0.0, 1.0, 5.0), 1);
    EXPECT_EQ(totalSlices(0.0, 1.0, 0.0), 0);
    EXPECT_EQ(totalSlices(0.0, 1e9, 0.01), kMostSlices);
}

TEST(SliderTest, PositionIsTruncatedWithinTheRange)
{
    EXPECT_EQ(sliderPosition(2.5, 0.0, 10.0, {0, 99}), 24);  // 24.75
    EXPECT_EQ(sliderPosition(10.0, 0.0, 10.0, {0, 99}), 99);
    EXPECT_EQ(sliderPosition(-5.0, -5.0, 5.0, {0, 10000}), 0);
    EXPECT_EQ(sliderPosition(3.0, 3.0, 3.0, {7, 99}), 7);
}

TEST(SliderTest, ValueIsTheReverse)
{
    EXPECT_EQ(sliderValue(0, -5.0, 5.0, {0, 10000}), -5.0F);
    EXPECT_EQ(sliderValue(2500, -5.0, 5.0, {0, 10000}), -2.5F);
    EXPECT_EQ(sliderValue(10000, -5.0, 5.0, {0, 10000}), 5.0F);
    EXPECT_EQ(sliderValue(12, -5.0, 5.0, {12, 12}), -5.0F);
}

}  // namespace
