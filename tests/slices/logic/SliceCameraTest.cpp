#include "slices/logic/SliceCamera.h"
#include "slices/logic/SliceOrientation.h"
#include "slices/logic/SliceProjection.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

const SliceBox kBox{{-10.0, -20.0, -30.0}, {10.0, 20.0, 30.0}};

void expectWindow(const SliceWindow& window, double left, double right, double bottom, double top)
{
    EXPECT_DOUBLE_EQ(window.left, left);
    EXPECT_DOUBLE_EQ(window.right, right);
    EXPECT_DOUBLE_EQ(window.bottom, bottom);
    EXPECT_DOUBLE_EQ(window.top, top);
}

TEST(SliceOrientationTest, NamesIgnoreCase)
{
    EXPECT_EQ(sliceOrientationOf("Sagittal"), AxisX);
    EXPECT_EQ(sliceOrientationOf("TRANSAXIAL"), AxisY);
    EXPECT_EQ(sliceOrientationOf("coronal"), AxisZ);
    EXPECT_EQ(sliceOrientationOf("Axial"), std::nullopt);
    EXPECT_EQ(sliceOrientationOf(""), std::nullopt);
}

TEST(SliceCameraTest, EachOrientationHasItsWindowAndPlane)
{
    const auto x = sliceCamera(AxisX, kBox, kBox);
    ASSERT_TRUE(x);
    expectWindow(x->window, -30, 30, -20, 20);
    EXPECT_EQ(x->normal[0], 1.0);
    EXPECT_EQ(x->normal[1], 0.0);
    EXPECT_EQ(x->normal[2], 0.0);
    EXPECT_EQ(x->rotation[0], 90.0F);
    EXPECT_EQ(x->rotation[1], -90.0F);
    EXPECT_EQ(x->rotation[2], -90.0F);

    const auto y = sliceCamera(AxisY, kBox, kBox);
    ASSERT_TRUE(y);
    expectWindow(y->window, -10, 10, -30, 30);
    EXPECT_EQ(y->normal[1], 1.0);
    EXPECT_EQ(y->rotation[0], 90.0F);
    EXPECT_EQ(y->rotation[1], 0.0F);
    EXPECT_EQ(y->rotation[2], 0.0F);

    const auto z = sliceCamera(AxisZ, kBox, kBox);
    ASSERT_TRUE(z);
    expectWindow(z->window, -10, 10, -20, 20);
    EXPECT_EQ(z->normal[2], 1.0);
    EXPECT_EQ(z->rotation[0], 0.0F);

    EXPECT_FALSE(sliceCamera(3, kBox, kBox));
    EXPECT_FALSE(sliceCamera(0, kBox, kBox));
}

TEST(SliceCameraTest, TheEyeStandsThreeHalfDiagonalsAway)
{
    const SliceBox box{{0.0, 0.0, 0.0}, {4.0, 8.0, 16.0}};  // half sides 2, 4, 8
    const auto camera = sliceCamera(AxisZ, box, box);
    ASSERT_TRUE(camera);
    EXPECT_DOUBLE_EQ(camera->translationZ, -3.0 * std::sqrt(84.0));
}

TEST(SliceCameraTest, TheCropNarrowsTheWindow)
{
    const SliceBox cropped{{-5.0, -20.0, -30.0}, {10.0, 20.0, 15.0}};
    expectWindow(sliceCamera(AxisX, kBox, cropped)->window, -30, 15, -20, 20);
    expectWindow(sliceCamera(AxisY, kBox, cropped)->window, -5, 10, -30, 15);
    expectWindow(sliceCamera(AxisZ, kBox, cropped)->window, -5, 10, -20, 20);
    EXPECT_EQ(sliceCamera(AxisZ, kBox, cropped)->translationZ, sliceCamera(AxisZ, kBox, kBox)->translationZ);
}

TEST(SliceCameraTest, AFlatCropFallsBackToTheBox)
{
    const SliceBox cropped{{3.0, -5.0, 7.0}, {3.0, 5.0, 7.0}};
    expectWindow(sliceCamera(AxisX, kBox, cropped)->window, -30, 30, -5, 5);
    expectWindow(sliceCamera(AxisY, kBox, cropped)->window, -10, 10, -30, 30);
    expectWindow(sliceCamera(AxisZ, kBox, cropped)->window, -10, 10, -5, 5);
}

TEST(CroppedSliceBoxTest, CornersMoveByTheirShareWithTheSignTurnedAlongZ)
{
    const SliceBox cropped = croppedSliceBox(kBox, Vec3f(-0.5, -0.25, 0.1), Vec3f(-0.1, 0.0, 0.5));
    EXPECT_DOUBLE_EQ(cropped.min.x, -5.0);
    EXPECT_DOUBLE_EQ(cropped.min.y, -15.0);
    EXPECT_DOUBLE_EQ(cropped.min.z, -27.0);
    EXPECT_DOUBLE_EQ(cropped.max.x, 9.0);
    EXPECT_DOUBLE_EQ(cropped.max.y, 20.0);
    EXPECT_DOUBLE_EQ(cropped.max.z, 15.0);
}

TEST(SliceViewFarTest, IsAThousandUnlessTheScanIsLarger)
{
    EXPECT_EQ(sliceViewFar(-3.0 * 50.0), 1000.0);
    EXPECT_EQ(sliceViewFar(-3.0 * 250.0), 1000.0);
    EXPECT_DOUBLE_EQ(sliceViewFar(-3.0 * 400.0), 1600.0);
    EXPECT_EQ(sliceViewFar(-std::numeric_limits<double>::infinity()), 1000.0);
}

TEST(SliceSceneRotationTest, BringsTheVolumesAxesToTheWindows)
{
    const auto seen = [](int axis, double x, double y, double z) {
        return sliceSceneRotation(sliceCamera(axis, kBox, kBox)->rotation) * Vec3f(x, y, z);
    };
    const auto expect = [](const Vec3f& v, double x, double y, double z) {
        EXPECT_NEAR(v.x(), x, 1e-9);
        EXPECT_NEAR(v.y(), y, 1e-9);
        EXPECT_NEAR(v.z(), z, 1e-9);
    };
    expect(seen(AxisX, 1, 2, 3), 3, 2, -1);
    expect(seen(AxisY, 1, 2, 3), 1, 3, -2);
    expect(seen(AxisZ, 1, 2, 3), 1, 2, 3);
}

TEST(SliceProjectionTest, FollowsTheFixedPipeline)
{
    // Moved by (1, 2, -3), then a parallel projection of 10 x 20 x 100.
    const double model[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 2, -3, 1};
    const double projection[16] = {0.2, 0, 0, 0, 0, 0.1, 0, 0, 0, 0, -0.02, 0, 0, 0, 0, 1};
    const int viewport[4] = {100, 50, 200, 400};
    const double point[3] = {1.0, 0.0, 3.0};
    double window[3];
    ASSERT_TRUE(projectSlicePoint(point, model, projection, viewport, window));
    EXPECT_DOUBLE_EQ(window[0], 100 + (1 + 0.4) * 100);
    EXPECT_DOUBLE_EQ(window[1], 50 + (1 + 0.2) * 200);
    EXPECT_DOUBLE_EQ(window[2], 0.5);
}

TEST(SliceProjectionTest, DividesByTheFourthCoordinateAndRefusesNone)
{
    const double identity[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    double projection[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 2, 0, 0, 0, 0};  // w = 2z
    const int viewport[4] = {0, 0, 100, 100};
    double window[3] = {7, 7, 7};
    const double point[3] = {1.0, -1.0, 1.0};
    ASSERT_TRUE(projectSlicePoint(point, identity, projection, viewport, window));
    EXPECT_DOUBLE_EQ(window[0], 75.0);
    EXPECT_DOUBLE_EQ(window[1], 25.0);
    EXPECT_DOUBLE_EQ(window[2], 0.75);
    const double flat[3] = {1.0, -1.0, 0.0};
    EXPECT_FALSE(projectSlicePoint(flat, identity, projection, viewport, window));
    EXPECT_DOUBLE_EQ(window[0], 75.0);
}

TEST(SliceProjectionTest, MatricesAreReadColumnByColumn)
{
    double m[16];
    for (int i = 0; i < 16; ++i)
        m[i] = i;
    const double in[4] = {1, 10, 100, 1000};
    double out[4];
    transformSlicePoint(out, m, in);
    EXPECT_EQ(out[0], 0 + 40 + 800 + 12000);
    EXPECT_EQ(out[3], 3 + 70 + 1100 + 15000);
}

}  // namespace
