#include "slices/logic/TileLayout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(TileGridTest, ThirteenTilesInAWideWidgetHaveMoreColumnsThanRows)
{
    // Aspects c * c / 13: 36 / 13 = 2.77 is nearest to 3.
    EXPECT_EQ(tileGrid(BestAspectGrid, 13, {}, 1200, 400), (TileGrid{6, 3}));
}

TEST(TileGridTest, AHighWidgetTakesOneColumn)
{
    EXPECT_EQ(tileGrid(BestAspectGrid, 5, {}, 100, 1000), (TileGrid{1, 5}));
}

TEST(TileGridTest, OfTwoEquallyNearGridsTheNarrowerWins)
{
    // Two tiles: aspects 0.5 and 2, the widget's is 1.25.
    EXPECT_EQ(tileGrid(BestAspectGrid, 2, {}, 500, 400), (TileGrid{1, 2}));
}

TEST(TileGridTest, TheShapeOfTheTilesCounts)
{
    // Tiles twice as wide as high: four of them in a square are one over the other or 2 x 2 with aspect 2;
    // one column has aspect 2 / 4 = 0.5, two have 2; 1 is nearer to 0.5.
    EXPECT_EQ(tileGrid(BestAspectGrid, 4, {2000, 1000}, 400, 400), (TileGrid{1, 4}));
    EXPECT_EQ(tileGrid(BestAspectGrid, 4, {1000, 1000}, 400, 400), (TileGrid{2, 2}));
}

TEST(TileGridTest, TheSquareStartGridCompetesWithItsFullRows)
{
    // Three tiles: the start grid 2 x 2 has aspect 1; the others have 1/3, 4/3 and 3.
    EXPECT_EQ(tileGrid(BestAspectGrid, 3, {}, 1000, 1000), (TileGrid{2, 2}));
}

TEST(TileGridTest, TheOtherModes)
{
    EXPECT_EQ(tileGrid(SquareGrid, 5, {}, 10, 1000), (TileGrid{3, 2}));
    EXPECT_EQ(tileGrid(SquareGrid, 9, {}, 10, 1000), (TileGrid{3, 3}));
    EXPECT_EQ(tileGrid(OneRow, 5, {}, 10, 1000), (TileGrid{5, 1}));
    EXPECT_EQ(tileGrid(OneRowToo, 5, {}, 10, 1000), (TileGrid{5, 1}));
    EXPECT_EQ(tileGrid(OneColumn, 5, {}, 1000, 10), (TileGrid{1, 5}));
}

TEST(TileGridTest, NothingToLayOutIsOneCell)
{
    EXPECT_EQ(tileGrid(BestAspectGrid, 0, {}, 300, 300), (TileGrid{1, 1}));
    EXPECT_EQ(tileGrid(BestAspectGrid, 4, {}, 300, 0), (TileGrid{2, 2}));
}

TEST(TileWeightsTest, GrowInThousandthsAndNeverShrink)
{
    TileWeights weights;
    weights.growTo({-10.0, 10.0, 0.0, 5.0005});
    EXPECT_EQ(weights.width, 20000);
    EXPECT_EQ(weights.height, 5000);
    weights.growTo({0.0, 1.0, 8.0, 0.0});
    EXPECT_EQ(weights.width, 20000);
    EXPECT_EQ(weights.height, 8000);
}

TEST(TileWeightsTest, ASideBeyondEveryCounterIsTheLargestOne)
{
    TileWeights weights;
    weights.growTo({0.0, 1e300, 0.0, std::numeric_limits<double>::quiet_NaN()});
    EXPECT_EQ(weights.width, std::numeric_limits<int>::max());
    EXPECT_EQ(weights.height, 1);
}

TEST(TileCellTest, OnePixelBetweenAndTwoAtTheBorderInWholeNumbers)
{
    const TileCell cell = tileCell({3, 2}, 300, 200);
    EXPECT_EQ(cell.width, 97);   // (300 - 8) / 3 = 97.3
    EXPECT_EQ(cell.height, 97);  // (200 - 6) / 2
}

TEST(TileCellTest, AWidgetTooSmallForItsGridHasNoRoom)
{
    const TileCell cell = tileCell({100000, 100000}, 300, 200);
    EXPECT_EQ(cell.width, 0);
    EXPECT_EQ(cell.height, 0);
}

MATCHER_P4(IsRect, x, y, w, h, "")
{
    *result_listener << arg.x << ' ' << arg.y << ' ' << arg.width << ' ' << arg.height;
    return arg.x == x && arg.y == y && arg.width == w && arg.height == h;
}

TEST(TileRectsTest, RunLeftToRightAndTopToBottomFromTheBottomLeftOrigin)
{
    const std::vector<TileRect> rects = tileRects(5, {3, 2}, 1.0, 300, 200);
    ASSERT_EQ(rects.size(), 5u);
    EXPECT_THAT(rects[0], IsRect(2, 101, 97, 97));
    EXPECT_THAT(rects[1], IsRect(100, 101, 97, 97));
    EXPECT_THAT(rects[2], IsRect(198, 101, 97, 97));
    EXPECT_THAT(rects[3], IsRect(2, 3, 97, 97));
    EXPECT_THAT(rects[4], IsRect(100, 3, 97, 97));
}

TEST(TileRectsTest, WideTilesFillTheWidthAndShareTheVerticalSurplus)
{
    // Cells of 97 x 97, aspect 2: 97 x 48. Surplus 200 - (2 * 50 + 2) = 98.
    const std::vector<TileRect> rects = tileRects(6, {3, 2}, 2.0, 300, 200);
    EXPECT_THAT(rects[0], IsRect(2, 49 + 48 + 2 + 2, 97, 48));
    EXPECT_THAT(rects[5], IsRect(198, 49 + 1 + 2, 97, 48));
}

TEST(TileRectsTest, HighTilesFillTheHeightAndShareTheHorizontalSurplus)
{
    // Aspect 0.5: 48 x 97. Surplus 300 - (3 * 50 + 2) = 148.
    const std::vector<TileRect> rects = tileRects(6, {3, 2}, 0.5, 300, 200);
    EXPECT_THAT(rects[0], IsRect(74 + 2, 101, 48, 97));
    EXPECT_THAT(rects[5], IsRect(74 + 96 + 2 + 2, 3, 48, 97));
}

TEST(TileRectsTest, NoWidgetNoAspectNoTilesNoRectangles)
{
    EXPECT_TRUE(tileRects(0, {1, 1}, 1.0, 300, 200).empty());
    EXPECT_TRUE(tileRects(3, {3, 1}, 0.0, 300, 200).empty());
    EXPECT_TRUE(tileRects(3, {3, 1}, 1.0, 0, 200).empty());
    EXPECT_TRUE(tileRects(3, {3, 1}, 1.0, 300, 0).empty());
    EXPECT_TRUE(tileRects(3, {3, 1}, std::numeric_limits<double>::quiet_NaN(), 300, 200).empty());
}

TEST(TileRectsTest, MoreTilesThanPixelsHaveNoSides)
{
    const std::vector<TileRect> rects = tileRects(1000, {1000, 1}, 1.0, 300, 200);
    ASSERT_EQ(rects.size(), 1000u);
    EXPECT_EQ(rects[0].width, 0.0F);
}

TEST(TileRectTest, EdgesAreInside)
{
    const TileRect rect{10, 20, 30, 40};
    EXPECT_TRUE(rect.contains(10, 20));
    EXPECT_TRUE(rect.contains(40, 60));
    EXPECT_FALSE(rect.contains(9, 20));
    EXPECT_FALSE(rect.contains(41, 60));
    EXPECT_FALSE(rect.contains(40, 61));
}

TEST(SingleRectTest, IsCentredAndAsLargeAsItsAspectAllows)
{
    EXPECT_THAT(singleRect(2.0, 300, 200), IsRect(0, 25, 300, 150));
    EXPECT_THAT(singleRect(0.5, 300, 200), IsRect(100, 0, 100, 200));
    EXPECT_THAT(singleRect(1.5, 300, 200), IsRect(0, 0, 300, 200));
    EXPECT_THAT(singleRect(7.0, 300, 200), IsRect(0, 79, 300, 42));  // 42.8 high, 158 left
    EXPECT_THAT(singleRect(0.0, 300, 200), IsRect(0, 0, 0, 0));
    EXPECT_THAT(singleRect(1.0, 0, 200), IsRect(0, 0, 0, 0));
}

}  // namespace
