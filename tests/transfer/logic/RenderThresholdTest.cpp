#include "transfer/logic/RenderThreshold.h"

#include "transfer/Polygon.h"

#include <gtest/gtest.h>

namespace {

int ofStepAt(double x)
{
    return renderThreshold(polygon({{0, 185}, {x - 1, 185}, {x, 0}, {300, 0}}));
}

}  // namespace

TEST(RenderThreshold, IsTheStepsPlaceOn233Pixels)
{
    EXPECT_EQ(ofStepAt(100), 109);  // 109.44
    EXPECT_EQ(ofStepAt(233), 255);
    EXPECT_EQ(ofStepAt(116.5), 127);  // 127.5
    EXPECT_EQ(ofStepAt(290), 317) << "wider widgets go beyond a byte";
}

TEST(RenderThreshold, ProductThenQuotient)
{
    // Every multiple of 233 / 255 that is a whole number: the product comes first, so none is one short.
    EXPECT_EQ(ofStepAt(233), 255);
    EXPECT_EQ(renderThreshold(polygon({{465, 200}, {466, 0}})), 510);
}

TEST(RenderThreshold, DistancesAreTruncated)
{
    EXPECT_EQ(renderThreshold(polygon({{10, 185}, {12.9, 0}})), 14);
    EXPECT_EQ(renderThreshold(polygon({{10, 185}, {13, 0}})), -1);
    EXPECT_EQ(renderThreshold(polygon({{10, 151}, {11, 0}})), 12);
    EXPECT_EQ(renderThreshold(polygon({{10, 150.9}, {11, 0}})), -1);
}

TEST(RenderThreshold, FallsCountAsRisesDo)
{
    EXPECT_EQ(renderThreshold(polygon({{10, 0}, {11, 185}})), 12);
}

TEST(RenderThreshold, TheFirstSteepEdgeCounts)
{
    EXPECT_EQ(renderThreshold(polygon({{0, 185}, {40, 185}, {41, 0}, {90, 185}, {91, 0}})), 44);
}

TEST(RenderThreshold, AStepAtTheLeftEdgeGivesZero)
{
    EXPECT_EQ(renderThreshold(polygon({{0, 185}, {0.9, 0}, {233, 0}})), 0);
}

TEST(RenderThreshold, WithoutASteepEdgeThereIsNone)
{
    EXPECT_EQ(renderThreshold(QPolygonF()), -1);
    EXPECT_EQ(renderThreshold(polygon({{5, 5}})), -1);
    EXPECT_EQ(renderThreshold(polygon({{0, 185}, {290, 0}})), -1);
}
