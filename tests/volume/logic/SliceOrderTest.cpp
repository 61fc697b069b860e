#include "volume/logic/SliceOrder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SliceOrder, DirectionHasLengthOne)
{
    const viz::SeriesDirection series = viz::seriesDirection({1, 1, 1}, {1, 4, 5}, 9.0F);
    EXPECT_THAT(series.unit, ElementsAre(0.0F, 0.6F, 0.8F));
    EXPECT_EQ(series.distance, 5.0F);
    EXPECT_FALSE(series.synthetic);
}

TEST(SliceOrder, OnePlaceForBothSlicesTakesZFromTheSpacing)
{
    const viz::SeriesDirection series = viz::seriesDirection({0, 0, 0}, {0, 0, 0}, 2.5F);
    EXPECT_THAT(series.unit, ElementsAre(0.0F, 0.0F, 1.0F));
    EXPECT_EQ(series.distance, 0.0F);
    EXPECT_TRUE(series.synthetic);
}

// The spacing is the second slice's z, not its distance from the first.
TEST(SliceOrder, OnePlaceBeyondTheSpacingTurnsTheDirectionRound)
{
    EXPECT_THAT(viz::seriesDirection({0, 0, 10}, {0, 0, 10}, 2.0F).unit, ElementsAre(0.0F, 0.0F, -1.0F));
}

TEST(SliceOrder, NoDirectionAtAllIsZero)
{
    EXPECT_THAT(viz::seriesDirection({0, 0, 2}, {0, 0, 2}, 2.0F).unit, ElementsAre(0.0F, 0.0F, 0.0F));
}

TEST(SliceOrder, PositionIsTheDistanceAlongTheDirection)
{
    EXPECT_EQ(viz::slicePosition({0, 0, -1}, {0, 0, 1}, {7, 8, 4}), -3.0F);
    EXPECT_FLOAT_EQ(viz::slicePosition({0.0F, 0.6F, 0.8F}, {0, 0, 0}, {9, 5, 10}), 11.0F);
}

TEST(SliceOrder, Ascending)
{
    EXPECT_THAT(viz::sliceOrder({3, -1, 2, 0, 1}), ElementsAre(1, 3, 4, 2, 0));
    EXPECT_THAT(viz::sliceOrder({0, 1, 2}), ElementsAre(0, 1, 2));
    EXPECT_THAT(viz::sliceOrder({0, -1, -2}), ElementsAre(2, 1, 0));
    EXPECT_THAT(viz::sliceOrder({5}), ElementsAre(0));
    EXPECT_THAT(viz::sliceOrder({}), IsEmpty());
}

TEST(SliceOrder, EqualPositionsTurnRound)
{
    EXPECT_THAT(viz::sliceOrder({1, 1}), ElementsAre(1, 0));
    EXPECT_THAT(viz::sliceOrder({1, 1, 1, 1, 1}), ElementsAre(4, 3, 2, 1, 0));
    // halves (2 1) and (1 2): sorted to 1 0 | 2 3; of the equal ones the right half's goes first
    EXPECT_THAT(viz::sliceOrder({2, 1, 1, 2}), ElementsAre(2, 1, 3, 0));
}

TEST(SliceOrder, ManyEqualPositionsStayAPermutation)
{
    std::vector<float> positions;
    for (int i = 0; i < 1000; ++i)
        positions.push_back(static_cast<float>(i * 7 % 3));
    const std::vector<std::size_t> order = viz::sliceOrder(positions);
    std::vector<bool> seen(1000, false);
    for (std::size_t i = 0; i < order.size(); ++i) {
        seen[order[i]] = true;
        EXPECT_LE(positions[order[i > 0 ? i - 1 : 0]], positions[order[i]]);
    }
    EXPECT_THAT(seen, testing::Each(true));
}

TEST(SliceOrder, PositionsThatAreNoNumbersDoNoHarm)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_THAT(viz::sliceOrder({nan, 1, nan, 0}), testing::UnorderedElementsAre(0, 1, 2, 3));
}

TEST(SliceOrder, MeanSpacing)
{
    EXPECT_EQ(viz::meanSpacing(-2.0F, 4.0F, 4), 2.0F);
    EXPECT_EQ(viz::meanSpacing(4.0F, -2.0F, 4), 2.0F);
    EXPECT_TRUE(std::isnan(viz::meanSpacing(0.0F, 0.0F, 1)));
}

}  // namespace
