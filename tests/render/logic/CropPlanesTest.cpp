#include "render/logic/CropPlanes.h"

#include <gtest/gtest.h>

namespace {

double at(const double (&plane)[4], double x, double y, double z)
{
    return plane[0] * x + plane[1] * y + plane[2] * z + plane[3];
}

struct CropPlanesTest : ::testing::Test
{
    Coord3d min{-1, -2, -3};
    Coord3d max{3, 4, 5};  // centre (1, 1, 1), half sizes 2, 3, 4
    Vec3f offsets[8];
    double planes[6][4];
};

TEST_F(CropPlanesTest, ZeroOffsetsGiveTheFacesOfTheBoxKeepingItsInside)
{
    makeCropPlanes(min, max, offsets, planes);
    const double onFace[6][3] = {{0, 0, 5}, {0, 0, -3}, {-1, 0, 0}, {3, 0, 0}, {0, -2, 0}, {0, 4, 0}};
    const double outside[6][3] = {{0, 0, 6}, {0, 0, -4}, {-2, 0, 0}, {4, 0, 0}, {0, -3, 0}, {0, 5, 0}};
    for (int i = 0; i < 6; ++i) {
        EXPECT_NEAR(at(planes[i], onFace[i][0], onFace[i][1], onFace[i][2]), 0.0, 1e-9) << "plane " << i;
        EXPECT_LT(at(planes[i], outside[i][0], outside[i][1], outside[i][2]), 0.0) << "plane " << i;
        EXPECT_GT(at(planes[i], 1, 1, 1), 0.0) << "plane " << i;
    }
}

TEST_F(CropPlanesTest, AnOffsetMovesACornerByItsShareOfHalfTheBox)
{
    for (Vec3f& offset : offsets)
        offset.set(-0.5, -0.25, 0.0);
    makeCropPlanes(min, max, offsets, planes);
    EXPECT_NEAR(at(planes[2], 0, 1, 1), 0.0, 1e-9);      // low x: 1 - 2 * 0.5
    EXPECT_NEAR(at(planes[3], 2, 1, 1), 0.0, 1e-9);      // high x
    EXPECT_NEAR(at(planes[4], 1, -1.25, 1), 0.0, 1e-9);  // low y: 1 - 3 * 0.75
    EXPECT_NEAR(at(planes[5], 1, 3.25, 1), 0.0, 1e-9);
    EXPECT_NEAR(at(planes[0], 1, 1, 5), 0.0, 1e-9);  // z stays
}

TEST_F(CropPlanesTest, TheOffsetAlongZCountsWithTheOppositeSign)
{
    for (Vec3f& offset : offsets)
        offset.set(0.0, 0.0, 0.5);
    makeCropPlanes(min, max, offsets, planes);
    EXPECT_NEAR(at(planes[0], 1, 1, 3), 0.0, 1e-9);   // 1 + 4 * 0.5
    EXPECT_NEAR(at(planes[1], 1, 1, -1), 0.0, 1e-9);  // 1 - 4 * 0.5
}

TEST_F(CropPlanesTest, OnlyTheOffsetsOfAPlanesOwnCornersMoveIt)
{
    for (int corner : {1, 2, 5, 6})
        offsets[corner].set(-1.0, 0.0, 0.0);  // the corners of high x
    makeCropPlanes(min, max, offsets, planes);
    EXPECT_NEAR(at(planes[3], 1, 1, 1), 0.0, 1e-9);
    EXPECT_NEAR(at(planes[2], -1, 1, 1), 0.0, 1e-9);
}

}  // namespace
