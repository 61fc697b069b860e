#include "lib/hvapi/scene/logic/CropBox.h"

#include <gtest/gtest.h>

using namespace hvscene;

namespace {

/// From (-10, -20, -30) to (10, 20, 50): half lengths 10, 20, 40 about (0, 0, 10).
Box testBox()
{
    Box box;
    box.add({-10, -20, -30});
    box.add({10, 20, 50});
    return box;
}

void expectNear(Vec3 a, Vec3 b)
{
    EXPECT_NEAR(a.x, b.x, 1e-12);
    EXPECT_NEAR(a.y, b.y, 1e-12);
    EXPECT_NEAR(a.z, b.z, 1e-12);
}

TEST(CropBoxTest, ZeroOffsetsAreTheCornersInTheirOrder)
{
    const CropCorners c = cropCorners(testBox(), {});
    expectNear(c[0], {-10, -20, -30});
    expectNear(c[1], {10, -20, -30});
    expectNear(c[2], {10, 20, -30});
    expectNear(c[3], {-10, 20, -30});
    expectNear(c[4], {-10, -20, 50});
    expectNear(c[5], {10, -20, 50});
    expectNear(c[6], {10, 20, 50});
    expectNear(c[7], {-10, 20, 50});
}

TEST(CropBoxTest, OffsetsAreSharesOfTheWayFromTheCentreAndTheSignTurnsAlongZ)
{
    CropOffsets offsets{};
    offsets[6] = {-0.1, -0.2, 0.3};
    offsets[0] = {0.5, -0.5, -0.25};
    const CropCorners c = cropCorners(testBox(), offsets);
    // 10 - 0.1 * 10, 20 - 0.2 * 20, 50 - 0.3 * 40.
    expectNear(c[6], {9, 16, 38});
    // -10 + 0.5 * -10, -20 - 0.5 * -20, -30 + 0.25 * -40.
    expectNear(c[0], {-15, -10, -40});
}

TEST(CropBoxTest, OffsetsOfCornersAreTheReverse)
{
    CropOffsets offsets{};
    for (std::size_t k = 0; k < 8; ++k)
        offsets[k] = {0.01 * static_cast<double>(k), -0.02 * static_cast<double>(k), 0.3};
    const CropOffsets back = cropOffsets(testBox(), cropCorners(testBox(), offsets));
    for (std::size_t k = 0; k < 8; ++k)
        expectNear(back[k], offsets[k]);
}

TEST(CropBoxTest, ABoxWithoutLengthHasNoOffsets)
{
    Box flat;
    flat.add({-1, -1, 5});
    flat.add({1, 1, 5});
    CropCorners corners = cropCorners(flat, {});
    corners[0].z = 7;
    EXPECT_EQ(cropOffsets(flat, corners)[0].z, 0.0);
}

TEST(CropBoxTest, AMovedFaceTakesItsFourCornersAndLeavesTheOthers)
{
    for (int axis = 0; axis < 3; ++axis) {
        for (const bool upper : {false, true}) {
            const CropFace face{axis, upper};
            const CropCorners full = cropCorners(testBox(), {});
            const CropCorners c = withFaceAt(testBox(), full, face, 4.0);
            const auto part = [axis](Vec3 v) { return axis == 0 ? v.x : axis == 1 ? v.y : v.z; };
            int moved = 0;
            for (std::size_t k = 0; k < 8; ++k) {
                if (part(c[k]) == 4.0)
                    ++moved;
                else
                    expectNear(c[k], full[k]);
            }
            EXPECT_EQ(moved, 4);
            EXPECT_EQ(part(faceMiddle(c, face)), 4.0);
            EXPECT_EQ(part(faceMiddle(c, {axis, !upper})), part(faceMiddle(full, {axis, !upper})));
        }
    }
}

TEST(CropBoxTest, FacesOfOneAxisHaveTheSignsThatTheNodeExpects)
{
    const CropCorners full = cropCorners(testBox(), {});
    const CropOffsets x = cropOffsets(testBox(), withFaceAt(testBox(), full, {0, true}, 5.0));
    for (std::size_t k : {1U, 2U, 5U, 6U})
        expectNear(x[k], {-0.5, 0, 0});
    const CropOffsets low = cropOffsets(testBox(), withFaceAt(testBox(), full, {2, false}, -20.0));
    for (std::size_t k : {0U, 1U, 2U, 3U})
        expectNear(low[k], {0, 0, 0.25});
    const CropOffsets high = cropOffsets(testBox(), withFaceAt(testBox(), full, {2, true}, 40.0));
    for (std::size_t k : {4U, 5U, 6U, 7U})
        expectNear(high[k], {0, 0, 0.25});
}

TEST(CropBoxTest, FacesStayInTheBoxAndApart)
{
    const CropCorners full = cropCorners(testBox(), {});
    EXPECT_EQ(faceMiddle(withFaceAt(testBox(), full, {1, true}, 99), {1, true}).y, 20.0);
    EXPECT_EQ(faceMiddle(withFaceAt(testBox(), full, {1, false}, -99), {1, false}).y, -20.0);
    // A hundredth of 40 mm from the other face.
    EXPECT_NEAR(faceMiddle(withFaceAt(testBox(), full, {1, true}, -99), {1, true}).y, -19.6, 1e-12);
    EXPECT_NEAR(faceMiddle(withFaceAt(testBox(), full, {1, false}, 99), {1, false}).y, 19.6, 1e-12);
}

TEST(CropBoxTest, FacesKnowTheirCornersInTurn)
{
    // Neighbours in the list share an edge of the box: they differ on one axis only.
    const CropCorners c = cropCorners(testBox(), {});
    for (int axis = 0; axis < 3; ++axis) {
        for (const bool upper : {false, true}) {
            const auto corners = cornersOf({axis, upper});
            for (std::size_t k = 0; k < 4; ++k) {
                const Vec3 d = c[static_cast<std::size_t>(corners[k])] -
                               c[static_cast<std::size_t>(corners[(k + 1) % 4])];
                EXPECT_EQ((d.x != 0) + (d.y != 0) + (d.z != 0), 1);
            }
        }
    }
}

}  // namespace
