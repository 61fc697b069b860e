#include "render/logic/ThickSlab.h"

#include <gtest/gtest.h>

namespace {

constexpr Coord3d kMin{-1, -2, -4};
constexpr Coord3d kMax{1, 3, 4};

double at(const double (&plane)[4], const double (&p)[3])
{
    return plane[0] * p[0] + plane[1] * p[1] + plane[2] * p[2] + plane[3];
}

struct Axis
{
    int code;
    int index;
};

struct ThickSlabAxes : ::testing::TestWithParam<Axis>
{};
INSTANTIATE_TEST_SUITE_P(XYZ, ThickSlabAxes, ::testing::Values(Axis{1, 0}, Axis{2, 1}, Axis{4, 2}));

TEST_P(ThickSlabAxes, TheTwoPlanesKeepTheSlabOnly)
{
    double planes[2][4];
    ASSERT_TRUE(makeSlabPlanes(kMin, kMax, GetParam().code, 0.5, 0.2, planes));
    const auto kept = [&](double along) {
        double p[3] = {0, 0, 0};
        p[GetParam().index] = along;
        return at(planes[0], p) > 0.0 && at(planes[1], p) > 0.0;
    };
    EXPECT_FALSE(kept(0.399));
    EXPECT_TRUE(kept(0.401));
    EXPECT_TRUE(kept(0.5));
    EXPECT_TRUE(kept(0.599));
    EXPECT_FALSE(kept(0.601));
}

TEST_P(ThickSlabAxes, AThicknessOfZeroKeepsNothingBetweenThePlanes)
{
    double planes[2][4];
    ASSERT_TRUE(makeSlabPlanes(kMin, kMax, GetParam().code, 0.5, 0.0, planes));
    for (double along : {0.49, 0.51}) {
        double p[3] = {0, 0, 0};
        p[GetParam().index] = along;
        EXPECT_LT(std::min(at(planes[0], p), at(planes[1], p)), 0.0);
    }
}

TEST(ThickSlab, TheOrderOfThePlanesFollowsTheAxis)
{
    double planes[2][4];
    const double low[3] = {-0.5, -0.5, -0.5};
    ASSERT_TRUE(makeSlabPlanes(kMin, kMax, 1, 0, 1, planes));
    EXPECT_NEAR(at(planes[0], low), 0.0, 1e-9);
    ASSERT_TRUE(makeSlabPlanes(kMin, kMax, 2, 0, 1, planes));
    EXPECT_NEAR(at(planes[0], low), 0.0, 1e-9);
    ASSERT_TRUE(makeSlabPlanes(kMin, kMax, 4, 0, 1, planes));
    EXPECT_NEAR(at(planes[1], low), 0.0, 1e-9);
}

TEST(ThickSlab, AnUnknownAxisHasNoSlabAndNoStack)
{
    double planes[2][4];
    EXPECT_FALSE(makeSlabPlanes(kMin, kMax, 3, 0, 1, planes));
    EXPECT_EQ(ThickStack(kMin, kMax, {}, 0, 1.0).count(), 0);
}

TEST(ThickStack, SpreadsItsQuadsOverTheBoxInSinglePrecision)
{
    const ThickStack stack(kMin, kMax, {}, 4, 2.0);
    ASSERT_EQ(stack.count(), 5);  // 1 + 8 / 2
    VolumeVertex q[4];
    stack.quad(4, q);
    const float step = 8.0F / 5.0F;
    const double expected[4][2] = {{-1, -2}, {-1, 3}, {1, 3}, {1, -2}};
    for (int k = 0; k < 4; ++k) {
        EXPECT_EQ(q[k].position[0], expected[k][0]);
        EXPECT_EQ(q[k].position[1], expected[k][1]);
        EXPECT_EQ(q[k].position[2], -4.0 + double(step * 4.0F));
        EXPECT_EQ(q[k].position[3], 1.0);
        EXPECT_EQ(q[k].texture[0], expected[k][0] < 0 ? 0.0 : 1.0);
        EXPECT_EQ(q[k].texture[1], expected[k][1] < 0 ? 0.0 : 1.0);
        EXPECT_EQ(q[k].texture[2], double((1.0F / 5.0F) * 4.0F));
    }
    stack.quad(0, q);
    EXPECT_EQ(q[0].position[2], -4.0);
    EXPECT_EQ(q[0].texture[2], 0.0);
}

TEST(ThickStack, QuadsOfXAndYGoAroundInTheirOwnOrder)
{
    VolumeVertex q[4];
    ThickStack(kMin, kMax, {}, 1, 1.0).quad(0, q);
    const double yz[4][2] = {{-2, -4}, {-2, 4}, {3, 4}, {3, -4}};
    for (int k = 0; k < 4; ++k) {
        EXPECT_EQ(q[k].position[0], -1.0);
        EXPECT_EQ(q[k].position[1], yz[k][0]);
        EXPECT_EQ(q[k].position[2], yz[k][1]);
    }
    ThickStack(kMin, kMax, {}, 2, 1.0).quad(0, q);
    const double xz[4][2] = {{-1, -4}, {-1, 4}, {1, 4}, {1, -4}};
    for (int k = 0; k < 4; ++k) {
        EXPECT_EQ(q[k].position[0], xz[k][0]);
        EXPECT_EQ(q[k].position[1], -2.0);
        EXPECT_EQ(q[k].position[2], xz[k][1]);
    }
}

TEST(ThickStack, AFlippedAxisMirrorsPositionsAndLeavesTextureCoordinates)
{
    VolumeVertex q[4];
    const ThickStack stack(kMin, kMax, {-1, 1, -1}, 4, 2.0);
    stack.quad(1, q);
    EXPECT_FLOAT_EQ(float(q[0].position[2]), 2.4F);  // -(-4 + 1.6)
    EXPECT_FLOAT_EQ(float(q[0].texture[2]), 0.2F);
    EXPECT_EQ(q[0].position[0], 1.0);
    EXPECT_EQ(q[0].texture[0], 0.0);
}

}  // namespace
