#include "render/logic/SliceStack.h"

#include "Points.h"

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// A view of the given direction, as a modelview matrix makes it.
VolumeVertex viewAlong(double x, double y, double z)
{
    double modelview[16] = {};
    modelview[2] = -x;
    modelview[6] = -y;
    modelview[10] = -z;
    return viewDirection(modelview);
}

TEST(SliceInterval, IsTheSmallestThicknessWhateverItsAxis)
{
    EXPECT_DOUBLE_EQ(sliceInterval({0.2, 0.1, 0.1}, 100), 0.1);
    EXPECT_DOUBLE_EQ(sliceInterval({0.1, 0.2, 0.3}, 100), 0.1);
    EXPECT_DOUBLE_EQ(sliceInterval({0.3, 0.2, 0.1}, 100), 0.1);
}

TEST(SliceInterval, FallsAsTheDensityRises)
{
    EXPECT_DOUBLE_EQ(sliceInterval({1, 1, 1}, 50), 2.0);
    EXPECT_DOUBLE_EQ(sliceInterval({1, 1, 1}, 300), 1.0 / 3.0);
}

TEST(SliceCount, TruncatesOneMoreThanTheIntervals)
{
    EXPECT_EQ(sliceCount(3.9, 1.0), 4);
    EXPECT_EQ(sliceCount(4.0, 1.0), 5);
    EXPECT_EQ(sliceCount(-4.0, 1.0), 5);
    EXPECT_EQ(sliceCount(0.0, 1.0), 1);
}

TEST(SliceCount, AnIntervalThatIsNoLengthGivesNoSlices)
{
    EXPECT_EQ(sliceCount(1.0, 0.0), 0);
    EXPECT_EQ(sliceCount(1.0, -1.0), 0);
    EXPECT_EQ(sliceCount(1.0, std::nan("")), 0);
    EXPECT_EQ(sliceCount(std::nan(""), 1.0), 0);
    EXPECT_EQ(sliceCount(1e300, 1e-300), kMaxSlices);
    EXPECT_EQ(sliceCount(1.0, kInfinity), 1);
}

TEST(ViewDirection, IsTheNegatedThirdRowOfTheMatrix)
{
    double modelview[16];
    for (int i = 0; i < 16; ++i)
        modelview[i] = i + 1;
    const VolumeVertex view = viewDirection(modelview);
    EXPECT_EQ(view.position[0], -3.0);
    EXPECT_EQ(view.position[1], -7.0);
    EXPECT_EQ(view.position[2], -11.0);
    EXPECT_EQ(view.position[3], 0.0);
}

TEST(SliceStack, AlongZTheSlicesAreTheSquaresOfTheCube)
{
    const Cube cube;
    // The identity looks along -z: corner 0 is the first of the four farthest.
    const SliceStack stack(cube.vertices, cube.edges, viewAlong(0, 0, -1), 0.5);
    EXPECT_EQ(stack.farthest(), 0);
    EXPECT_DOUBLE_EQ(stack.nearDistance(), -1.0 + 1e-6);
    EXPECT_DOUBLE_EQ(stack.farDistance(), 1.0 - 1e-6);
    ASSERT_EQ(stack.count(), 4);  // 1 + 1.999998 / 0.5 = 4.999996
    for (int i = 0; i < 4; ++i) {
        const double z = 1.0 - 1e-6 - 0.5 * i;
        VolumeVertex p[6];
        ASSERT_TRUE(stack.polygon(i, p));
        EXPECT_THAT(p[0], IsCubePoint(1, 1, z, 1e-6));
        EXPECT_THAT(p[1], IsCubePoint(1, -1, z, 1e-6));
        EXPECT_THAT(p[2], IsCubePoint(-1, -1, z, 1e-6));
        EXPECT_THAT(p[3], IsCubePoint(-1, -1, z, 1e-6));
        EXPECT_THAT(p[4], IsCubePoint(-1, 1, z, 1e-6));
        EXPECT_THAT(p[5], IsCubePoint(-1, 1, z, 1e-6));
    }
}

TEST(SliceStack, AlongADiagonalTheMiddleSliceIsAHexagon)
{
    const Cube cube;
    const SliceStack stack(cube.vertices, cube.edges, viewAlong(1, 1, 1), 3.0);
    EXPECT_EQ(stack.farthest(), 6);
    ASSERT_EQ(stack.count(), 2);  // 1 + 5.999998 / 3
    VolumeVertex p[6];
    ASSERT_TRUE(stack.polygon(1, p));
    EXPECT_THAT(p[0], IsCubePoint(0, -1, 1, 1e-5));
    EXPECT_THAT(p[1], IsCubePoint(1, -1, 0, 1e-5));
    EXPECT_THAT(p[2], IsCubePoint(1, 0, -1, 1e-5));
    EXPECT_THAT(p[3], IsCubePoint(0, 1, -1, 1e-5));
    EXPECT_THAT(p[4], IsCubePoint(-1, 1, 0, 1e-5));
    EXPECT_THAT(p[5], IsCubePoint(-1, 0, 1, 1e-5));
    ASSERT_TRUE(stack.polygon(0, p));
    for (const VolumeVertex& corner : p)
        EXPECT_THAT(corner, IsCubePoint(-1, -1, -1, 1e-5));
}

TEST(SliceStack, AlongAFaceDiagonalTheEdgesAcrossItNeverCount)
{
    const Cube cube;
    // Edges along z have no slope against (1, 1, 0): slices are rectangles between z = -1 and z = 1.
    const SliceStack stack(cube.vertices, cube.edges, viewAlong(1, 1, 0), 1.0);
    EXPECT_EQ(stack.farthest(), 2);
    ASSERT_EQ(stack.count(), 4);
    VolumeVertex p[6];
    ASSERT_TRUE(stack.polygon(1, p));  // x + y = -1 + 1e-6
    int atLow = 0;
    for (const VolumeVertex& corner : p) {
        EXPECT_NEAR(corner.position[0] + corner.position[1], -1.0, 1e-5);
        EXPECT_EQ(std::abs(corner.position[2]), 1.0);
        EXPECT_NEAR(std::min(corner.position[0], corner.position[1]), -1.0, 1e-5);
        atLow += corner.position[2] < 0;
    }
    EXPECT_GE(atLow, 2);
    EXPECT_LE(atLow, 4);
}

TEST(SliceStack, ABoxWithAFlippedAxisKeepsTheTextureOnItsMovedCorners)
{
    VolumeVertex vertices[8];
    VolumeEdge edges[12];
    placeVolumeVertices({-1, -1, -1}, {1, 1, 1}, {-1, 1, 1}, vertices);
    listVolumeEdges(edges);
    const SliceStack stack(vertices, edges, viewAlong(0, 0, -1), 0.5);
    VolumeVertex p[6];
    ASSERT_TRUE(stack.polygon(1, p));
    for (const VolumeVertex& corner : p) {
        EXPECT_EQ(corner.texture[0], corner.position[0] < 0 ? 1.0 : 0.0);
        EXPECT_EQ(corner.texture[1], corner.position[1] < 0 ? 0.0 : 1.0);
    }
}

TEST(SliceStack, SlicesOfAnyViewLieInTheirPlaneAndInTheBox)
{
    const Cube cube;
    std::mt19937 random(7);
    std::normal_distribution<double> normal;
    int skipped = 0;
    int drawn = 0;
    for (int round = 0; round < 2000; ++round) {
        double v[3] = {normal(random), normal(random), normal(random)};
        if (round % 3 == 0) v[round % 2] = 0.0;
        if (round % 5 == 0) v[2] *= 1e-7;
        const SliceStack stack(cube.vertices, cube.edges, viewAlong(v[0], v[1], v[2]), 0.05);
        for (int i = 0; i < stack.count(); ++i) {
            VolumeVertex p[6];
            if (!stack.polygon(i, p)) {
                ++skipped;
                continue;
            }
            ++drawn;
            const double plane = stack.nearDistance() + 0.05 * i;
            for (const VolumeVertex& corner : p) {
                for (int axis = 0; axis < 3; ++axis) {
                    ASSERT_LE(std::abs(corner.position[axis]), 1.0 + 1e-12);
                    ASSERT_GE(corner.texture[axis], -1e-12);
                    ASSERT_LE(corner.texture[axis], 1.0 + 1e-12);
                }
                const double at =
                    v[0] * corner.position[0] + v[1] * corner.position[1] + v[2] * corner.position[2];
                ASSERT_NEAR(at, plane, 2e-5) << "round " << round << " slice " << i;
            }
        }
    }
    EXPECT_LT(skipped, drawn / 1000);
}

TEST(SliceStack, AnIntervalOfZeroDrawsNothing)
{
    const Cube cube;
    EXPECT_EQ(SliceStack(cube.vertices, cube.edges, viewAlong(0, 0, 1), 0.0).count(), 0);
}

TEST(SliceStack, AMatrixThatIsNoneDrawsNothing)
{
    const Cube cube;
    EXPECT_EQ(SliceStack(cube.vertices, cube.edges, viewAlong(std::nan(""), 0, 1), 0.1).count(), 0);
}

struct PlaneCutTest : ::testing::Test
{
    Cube cube;
    PlaneCut cut{cube.vertices, cube.edges, s_edgeSequence[0]};
    // Places on edges 0 1 5 6 | 4 8 11 9 | 3 7 2 10 of the cube.
    float lambda[12] = {0.5F, -1, -1, -1, 0.5F, -1, -1, -1, 0.5F, -1, -1, -1};
    VolumeVertex p[6];
};

TEST_F(PlaneCutTest, TheFirstEdgeOfTheListThatIsCutGivesTheCorner)
{
    lambda[2] = 0.25F;  // edge 5, from (1, -1, -1) to (1, -1, 1)
    ASSERT_TRUE(cut.corners(lambda, PlaneCut::Ends::FirstOnly, p));
    EXPECT_THAT(p[0], IsCubePoint(0, -1, -1, 1e-12));
    EXPECT_THAT(p[1], IsCubePoint(1, -1, -0.5, 1e-12));
    EXPECT_THAT(p[2], IsCubePoint(-1, -1, 0, 1e-12));
    EXPECT_THAT(p[3], IsCubePoint(-1, -1, 0, 1e-12));
    EXPECT_THAT(p[4], IsCubePoint(-1, 0, -1, 1e-12));  // edge 3 runs from corner 3 to corner 0
    EXPECT_THAT(p[5], IsCubePoint(-1, 0, -1, 1e-12));
}

TEST_F(PlaneCutTest, WithoutAFirstCornerThereIsNoPolygon)
{
    lambda[0] = -0.5F;
    EXPECT_FALSE(cut.corners(lambda, PlaneCut::Ends::FirstOnly, p));
}

TEST_F(PlaneCutTest, TheEndOfAnEdgeCountsOnlyWhereBothEndsDo)
{
    lambda[0] = 1.0F;
    EXPECT_FALSE(cut.corners(lambda, PlaneCut::Ends::FirstOnly, p));
    EXPECT_TRUE(cut.corners(lambda, PlaneCut::Ends::Both, p));
    lambda[0] = 0.0F;
    EXPECT_TRUE(cut.corners(lambda, PlaneCut::Ends::FirstOnly, p));
}

TEST_F(PlaneCutTest, APlaneJustBetweenTwoEdgesTakesTheirJoint)
{
    lambda[4] = 1.0F;    // edge 4 ends at corner 4 ...
    lambda[5] = -1e-8F;  // ... where edge 8 begins
    lambda[7] = -3.0F;   // edge 9, the last of the list, is cut far outside the box
    ASSERT_TRUE(cut.corners(lambda, PlaneCut::Ends::FirstOnly, p));
    EXPECT_THAT(p[2], IsCubePoint(-1, -1, 1, 1e-6));
    EXPECT_THAT(p[3], IsCubePoint(-1, -1, 1, 1e-6));
}

}  // namespace
