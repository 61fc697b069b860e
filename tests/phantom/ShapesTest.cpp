#include "phantom/Shapes.h"

#include <gtest/gtest.h>

using namespace phantom;

TEST(Shapes, capsuleDistanceCountsFromTheTaperedSurface)
{
    const Primitive stick = Capsule{{0, 0, 0}, {10, 0, 0}, 2, 1};
    EXPECT_DOUBLE_EQ(distance(stick, {-5, 0, 0}), 3.0);
    EXPECT_DOUBLE_EQ(distance(stick, {5, 4, 0}), 2.5);
    EXPECT_DOUBLE_EQ(distance(stick, {13, 0, 0}), 2.0);
    EXPECT_DOUBLE_EQ(distance(stick, {5, 0, 0}), -1.5);
}

TEST(Shapes, capsuleOfNoLengthIsABall)
{
    EXPECT_DOUBLE_EQ(distance(Primitive(Capsule{{1, 1, 1}, {1, 1, 1}, 2, 2}), {1, 1, 6}), 3.0);
}

TEST(Shapes, ellipsoidIsZeroOnItsSurfaceAndFiniteAtItsCentre)
{
    const Primitive egg = Ellipsoid{{1, 2, 3}, {4, 2, 1}};
    EXPECT_NEAR(distance(egg, {5, 2, 3}), 0.0, 1e-12);
    EXPECT_NEAR(distance(egg, {1, 4, 3}), 0.0, 1e-12);
    EXPECT_NEAR(distance(egg, {1, 2, 2}), 0.0, 1e-12);
    EXPECT_DOUBLE_EQ(distance(egg, {1, 2, 3}), -1.0);
}

TEST(Shapes, plateIsThinAlongItsNormal)
{
    const Primitive blade = plate({0, 0, 0}, {5, 3, 1}, {1, 1, 0}, {0, 0, 2});
    EXPECT_NEAR(distance(blade, {0, 0, 1}), 0.0, 1e-12);
    const double r = 5 / std::sqrt(2.0);
    EXPECT_NEAR(distance(blade, {r, r, 0}), 0.0, 1e-12);
}

TEST(Shapes, boxDistanceIsExactOutside)
{
    const Primitive box = Box{{0, 0, 0}, {2, 2, 2}};
    EXPECT_DOUBLE_EQ(distance(box, {5, 6, 1}), 5.0);
    EXPECT_DOUBLE_EQ(distance(box, {1, 1, 0.5}), -0.5);
}

TEST(Shapes, boundsHoldTurnedEllipsoidsAndTaperedSticks)
{
    const Bounds e = bounds(Primitive(plate({0, 0, 0}, {5, 3, 1}, {0, 1, 0}, {0, 0, 1})));
    EXPECT_NEAR(e.high.x, 3.0, 1e-12);
    EXPECT_NEAR(e.high.y, 5.0, 1e-12);
    const Bounds c = bounds(Primitive(Capsule{{0, 0, 0}, {10, 0, 0}, 2, 1}));
    EXPECT_DOUBLE_EQ(c.low.x, -2.0);
    EXPECT_DOUBLE_EQ(c.high.x, 11.0);
    EXPECT_DOUBLE_EQ(c.high.y, 2.0);
}

TEST(Shapes, hollowSolidHasAWallInwardsOfItsSurface)
{
    Solid shell;
    shell.parts = {Capsule{{0, 0, 0}, {0, 0, 0}, 5, 5}};
    shell.wall = 1;
    EXPECT_DOUBLE_EQ(distance(shell, {5, 0, 0}), 0.0);
    EXPECT_DOUBLE_EQ(distance(shell, {4.5, 0, 0}), -0.5);
    EXPECT_DOUBLE_EQ(distance(shell, {3, 0, 0}), 1.0);
}

TEST(Shapes, cutTakesMaterialAway)
{
    Solid solid;
    solid.parts = {Box{{0, 0, 0}, {10, 10, 10}}};
    solid.cuts = {Box{{5, -1, -1}, {20, 20, 20}}};
    EXPECT_LT(distance(solid, {4, 5, 5}), 0.0);
    EXPECT_GT(distance(solid, {6, 5, 5}), 0.0);
}

TEST(Shapes, blendFillsTheCornerBetweenParts)
{
    Solid solid;
    solid.parts = {Capsule{{-2, 0, 0}, {-2, 0, 0}, 1.9, 1.9}, Capsule{{2, 0, 0}, {2, 0, 0}, 1.9, 1.9}};
    EXPECT_GT(distance(solid, {0, 0, 0}), 0.0);
    solid.blend = 2;
    EXPECT_DOUBLE_EQ(distance(solid, {0, 0, 0}), 0.1 - 0.5);
    EXPECT_LE(bounds(solid).low.x, -3.9);
}
