#include "slices/logic/SliceZoom.h"

#include <gtest/gtest.h>

namespace {

/// Four square tiles in a square view of 400 pixels: 2 x 2.
SliceZoom squareMontage()
{
    SliceZoom zoom;
    zoom.width = 400;
    zoom.height = 400;
    zoom.tiles = 4;
    zoom.grid = {2, 2};
    zoom.aspect = 1.0;
    zoom.maxTextureSize = 16384;
    return zoom;
}

SliceZoom singleSlice(double aspect)
{
    SliceZoom zoom = squareMontage();
    zoom.height = 300;
    zoom.singleView = true;
    zoom.aspect = aspect;
    return zoom;
}

TEST(SliceZoomTest, ASingleSliceGrowsByATwentieth)
{
    EXPECT_EQ(singleSlice(0.5).in(), 315);
    EXPECT_EQ(singleSlice(0.5).out(), 285);
}

TEST(SliceZoomTest, ASingleSliceThatFillsTheWidthDoesNotGrow)
{
    EXPECT_EQ(singleSlice(4.0 / 3.0).in(), std::nullopt);
    EXPECT_EQ(singleSlice(2.0).in(), std::nullopt);
}

TEST(SliceZoomTest, OneColumnGrowsUntilItsTilesFillTheWidth)
{
    SliceZoom zoom = squareMontage();
    zoom.grid = {1, 4};
    EXPECT_EQ(zoom.in(), 420);  // cells of 396 x 97
    zoom.height = 1600;         // cells of 396 x 397
    EXPECT_EQ(zoom.in(), std::nullopt);
}

TEST(SliceZoomTest, SeveralColumnsGrowUntilOneLessIsNeeded)
{
    // Tiles fill the width all the while. One column (aspect 1/4) is as near as two (aspect 1) where the view
    // has 5/8, at 640 pixels; steps of a hundredth from 420 pass it at 642.
    EXPECT_EQ(squareMontage().in(), 642);
}

TEST(SliceZoomTest, SeveralColumnsWithHighTilesGrowByOneStep)
{
    SliceZoom zoom = squareMontage();
    zoom.aspect = 0.5;  // cells of 197 x 207 at 420 pixels
    EXPECT_EQ(zoom.in(), 420);
}

TEST(SliceZoomTest, SeveralColumnsShrinkUntilTheTilesDo)
{
    EXPECT_EQ(squareMontage().out(), 380);  // cells of 197 x 187
    SliceZoom wide = squareMontage();
    wide.height = 500;  // 475: cells of 197 x 234; in steps of a hundredth to 400: 197 x 197
    EXPECT_EQ(wide.out(), 400);
}

TEST(SliceZoomTest, StopsAtTheHeightThatACardCanDraw)
{
    SliceZoom zoom = singleSlice(0.1);
    zoom.maxTextureSize = 1000;
    zoom.height = 800;
    EXPECT_EQ(zoom.in(), std::nullopt);
    zoom.height = 799;
    EXPECT_EQ(zoom.in(), 838);
}

TEST(SliceZoomTest, StopsAtTheAreaThatACardCanDraw)
{
    SliceZoom zoom = singleSlice(0.1);
    zoom.maxTextureSize = 1000;
    zoom.width = 1600;
    zoom.height = 499;
    EXPECT_EQ(zoom.in(), 523);
    zoom.height = 500;
    EXPECT_EQ(zoom.in(), std::nullopt);
}

TEST(SliceZoomTest, AlwaysEnds)
{
    SliceZoom zoom = squareMontage();
    for (const int height : {0, 1, 5, 20, 100}) {
        zoom.height = height;
        EXPECT_GE(zoom.out(), 0);
        zoom.in();
    }
    zoom.aspect = 0.0;
    EXPECT_GE(zoom.out(), 0);
    zoom.width = 0;
    EXPECT_EQ(zoom.in(), std::nullopt);
    zoom = squareMontage();
    zoom.aspect = 1e9;
    zoom.tiles = 1000;
    zoom.grid = tileGrid(BestAspectGrid, 1000, {}, 400, 400);
    EXPECT_TRUE(zoom.in().has_value());
}

}  // namespace
