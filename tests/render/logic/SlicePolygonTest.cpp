#include "render/logic/SlicePolygon.h"

#include "Points.h"

namespace {

constexpr Coord3d kMin{-1, -1, -1};
constexpr Coord3d kMax{1, 1, 1};

TEST(SlicePolygon, AnAxisAlignedPlaneCutsASquare)
{
    const Cube cube;
    VolumeVertex p[6];
    ASSERT_TRUE(slicePolygon(cube.vertices, cube.edges, kMin, kMax, {0, 0, 1, 0.25}, p));
    // Corner 4 is the first of the farthest: edges 8 5 9 1 | 11 10 7 6 | 4 3 0 2.
    EXPECT_THAT(p[0], IsCubePoint(1, -1, 0.25, 1e-6));
    EXPECT_THAT(p[1], IsCubePoint(1, -1, 0.25, 1e-6));
    EXPECT_THAT(p[2], IsCubePoint(1, 1, 0.25, 1e-6));
    EXPECT_THAT(p[3], IsCubePoint(-1, 1, 0.25, 1e-6));
    EXPECT_THAT(p[4], IsCubePoint(-1, -1, 0.25, 1e-6));
    EXPECT_THAT(p[5], IsCubePoint(-1, -1, 0.25, 1e-6));
}

TEST(SlicePolygon, AnObliquePlaneThroughTheMiddleCutsAHexagon)
{
    const Cube cube;
    VolumeVertex p[6];
    ASSERT_TRUE(slicePolygon(cube.vertices, cube.edges, kMin, kMax, {1, 1, 1, 0}, p));
    EXPECT_THAT(p[0], IsCubePoint(0, -1, 1, 1e-6));
    EXPECT_THAT(p[1], IsCubePoint(1, -1, 0, 1e-6));
    EXPECT_THAT(p[2], IsCubePoint(1, 0, -1, 1e-6));
    EXPECT_THAT(p[3], IsCubePoint(0, 1, -1, 1e-6));
    EXPECT_THAT(p[4], IsCubePoint(-1, 1, 0, 1e-6));
    EXPECT_THAT(p[5], IsCubePoint(-1, 0, 1, 1e-6));
}

TEST(SlicePolygon, APlaneThatTouchesAFaceStillDraws)
{
    const Cube cube;
    VolumeVertex p[6];
    for (double d : {1.0, -1.0}) {
        ASSERT_TRUE(slicePolygon(cube.vertices, cube.edges, kMin, kMax, {0, 0, 1, d}, p)) << d;
        for (const VolumeVertex& corner : p)
            EXPECT_EQ(corner.position[2], d);
    }
}

TEST(SlicePolygon, APlaneThatMissesTheBoxDrawsNothing)
{
    const Cube cube;
    VolumeVertex p[6];
    EXPECT_FALSE(slicePolygon(cube.vertices, cube.edges, kMin, kMax, {0, 0, 1, 1.001}, p));
    EXPECT_FALSE(slicePolygon(cube.vertices, cube.edges, kMin, kMax, {1, 1, 1, -3.1}, p));
    EXPECT_FALSE(slicePolygon(cube.vertices, cube.edges, kMin, kMax, {0, 0, 0, 1}, p));
}

TEST(SlicePolygon, ABoxAwayFromTheOriginIsCutWhereItIsDrawn)
{
    Cube cube;
    for (VolumeVertex& v : cube.vertices)
        v.position[0] += 10.0;
    VolumeVertex p[6];
    ASSERT_TRUE(slicePolygon(cube.vertices, cube.edges, {9, -1, -1}, {11, 1, 1}, {1, 0, 0, 10.5}, p));
    for (const VolumeVertex& corner : p) {
        EXPECT_NEAR(corner.position[0], 10.5, 1e-6);
        EXPECT_NEAR(corner.texture[0], 0.75, 1e-6);
    }
    EXPECT_FALSE(slicePolygon(cube.vertices, cube.edges, {9, -1, -1}, {11, 1, 1}, {1, 0, 0, 0.5}, p));
}

TEST(SlicePolygon, TheLengthOfTheNormalDoesNotCount)
{
    const Cube cube;
    VolumeVertex p[6];
    ASSERT_TRUE(slicePolygon(cube.vertices, cube.edges, kMin, kMax, {0, -4, 0, 2}, p));
    for (const VolumeVertex& corner : p)
        EXPECT_NEAR(corner.position[1], -0.5, 1e-6);
}

}  // namespace
