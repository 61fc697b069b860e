#include "lib/hvapi/scene/logic/Camera.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace hvscene;

namespace {

constexpr double pi = 3.14159265358979323846;

Box boxOf(Vec3 min, Vec3 max)
{
    Box box;
    box.add(min);
    box.add(max);
    return box;
}

/// A box of 40 x 60 x 100 mm around (10, 20, 30).
Box testBox()
{
    return boxOf({-10, -10, -20}, {30, 50, 80});
}

void expectVec(Vec3 a, Vec3 b, double tolerance = 1e-12)
{
    EXPECT_NEAR(a.x, b.x, tolerance);
    EXPECT_NEAR(a.y, b.y, tolerance);
    EXPECT_NEAR(a.z, b.z, tolerance);
}

Vec3 toEye(const Camera& camera, Vec3 p)
{
    const Matrix16 m = camera.viewMatrix();
    return {m[0] * p.x + m[4] * p.y + m[8] * p.z + m[12], m[1] * p.x + m[5] * p.y + m[9] * p.z + m[13],
            m[2] * p.x + m[6] * p.y + m[10] * p.z + m[14]};
}

void expectRightAngles(const Camera& camera)
{
    EXPECT_NEAR(length(camera.right()), 1.0, 1e-12);
    EXPECT_NEAR(length(camera.up()), 1.0, 1e-12);
    EXPECT_NEAR(length(camera.back()), 1.0, 1e-12);
    EXPECT_NEAR(dot(camera.right(), camera.up()), 0.0, 1e-12);
    EXPECT_NEAR(dot(camera.up(), camera.back()), 0.0, 1e-12);
    expectVec(cross(camera.right(), camera.up()), camera.back());
}

TEST(CameraTest, FrontLooksAlongZWithYUp)
{
    Camera camera;
    camera.setPreset(ViewPreset::Front);
    expectVec(camera.right(), {1, 0, 0});
    expectVec(camera.up(), {0, 1, 0});
    expectVec(camera.back(), {0, 0, 1});
}

TEST(CameraTest, SideLooksAlongXWithYUp)
{
    Camera camera;
    camera.setPreset(ViewPreset::Side);
    expectVec(camera.right(), {0, 0, -1});
    expectVec(camera.up(), {0, 1, 0});
    expectVec(camera.back(), {1, 0, 0});
}

TEST(CameraTest, TopLooksAlongYFromAbove)
{
    Camera camera;
    camera.setPreset(ViewPreset::Top);
    expectVec(camera.right(), {1, 0, 0});
    expectVec(camera.up(), {0, 0, -1});
    expectVec(camera.back(), {0, 1, 0});
}

TEST(CameraTest, IsoLooksFromRightAboveAndInFrontWithYUp)
{
    Camera camera;
    camera.setPreset(ViewPreset::Iso);
    EXPECT_GT(camera.back().x, 0.0);
    EXPECT_GT(camera.back().y, 0.0);
    EXPECT_GT(camera.back().z, 0.0);
    EXPECT_NEAR(camera.right().y, 0.0, 1e-12);
    EXPECT_GT(camera.up().y, 0.0);
    expectRightAngles(camera);
}

TEST(CameraTest, StartsWithTheFrontView)
{
    const Camera camera;
    expectVec(camera.back(), {0, 0, 1});
    expectVec(camera.up(), {0, 1, 0});
}

TEST(CameraTest, ViewMatrixPutsTheMiddleOfTheSceneOnTheAxisInFrontOfTheEye)
{
    Camera camera;
    camera.setScene(testBox(), true);
    for (ViewPreset preset : {ViewPreset::Front, ViewPreset::Side, ViewPreset::Top, ViewPreset::Iso}) {
        camera.setPreset(preset);
        const Vec3 eye = toEye(camera, {10, 20, 30});
        EXPECT_NEAR(eye.x, 0.0, 1e-9);
        EXPECT_NEAR(eye.y, 0.0, 1e-9);
        EXPECT_NEAR(eye.z, -2.0 * testBox().radius(), 1e-9);
    }
}

TEST(CameraTest, ViewMatrixIsColumnMajorAndRigid)
{
    Camera camera;
    camera.setPreset(ViewPreset::Side);
    const Matrix16 m = camera.viewMatrix();
    EXPECT_EQ(m[3], 0.0);
    EXPECT_EQ(m[7], 0.0);
    EXPECT_EQ(m[11], 0.0);
    EXPECT_EQ(m[15], 1.0);
    // Third row: the direction to the viewer, x in this view.
    EXPECT_NEAR(m[2], 1.0, 1e-12);
    EXPECT_NEAR(m[6], 0.0, 1e-12);
    EXPECT_NEAR(m[10], 0.0, 1e-12);
}

TEST(CameraTest, EveryCornerOfTheSceneLiesBetweenNearAndFarFromAnyDirection)
{
    Camera camera;
    camera.setScene(testBox(), true);
    for (int step = 0; step < 50; ++step) {
        camera.orbit(0.37, 0.23);
        const Camera::Frustum f = camera.frustum();
        EXPECT_GT(f.near, 0.0);
        for (int k = 0; k < 8; ++k) {
            const double depth = -toEye(camera, testBox().corner(k)).z;
            EXPECT_GT(depth, f.near);
            EXPECT_LT(depth, f.far);
        }
    }
}

TEST(CameraTest, FitTakesTheWholeBoxWithAMarginOfTwelvePercent)
{
    Camera camera;
    camera.setWindow(400, 400);
    camera.setScene(testBox(), true);
    camera.setPreset(ViewPreset::Front);  // 40 wide, 60 high
    EXPECT_NEAR(camera.halfHeight(), 30 * 1.12, 1e-9);
    camera.setPreset(ViewPreset::Side);  // 100 wide, 60 high
    EXPECT_NEAR(camera.halfHeight(), 50 * 1.12, 1e-9);
}

TEST(CameraTest, AWindowHigherThanWideFitsTheWidth)
{
    Camera camera;
    camera.setScene(testBox(), true);
    camera.setWindow(100, 400);
    // Half width 20 * 1.12 at an aspect of 1/4.
    EXPECT_NEAR(camera.halfHeight(), 20 * 1.12 * 4, 1e-9);
    const Camera::Frustum f = camera.frustum();
    EXPECT_NEAR(f.right, 20 * 1.12, 1e-9);
    EXPECT_NEAR(f.left, -20 * 1.12, 1e-9);
    EXPECT_NEAR(f.top, camera.halfHeight(), 1e-12);
    EXPECT_NEAR(f.bottom, -camera.halfHeight(), 1e-12);
}

TEST(CameraTest, AResizeFitsAgainOnlyBeforeTheUserHasZoomedOrPanned)
{
    Camera camera;
    camera.setScene(testBox(), true);
    camera.setWindow(100, 100);
    camera.zoom(2.0, 0, 0);
    const double zoomed = camera.halfHeight();
    camera.setWindow(50, 100);
    EXPECT_EQ(camera.halfHeight(), zoomed);
    camera.fit();
    EXPECT_NE(camera.halfHeight(), zoomed);
}

TEST(CameraTest, AWindowWithoutAreaIsIgnored)
{
    Camera camera;
    camera.setWindow(200, 100);
    const double before = camera.halfHeight();
    camera.setWindow(0, 100);
    camera.setWindow(100, -1);
    camera.setWindow(std::numeric_limits<double>::quiet_NaN(), 100);
    EXPECT_EQ(camera.halfHeight(), before);
    EXPECT_NEAR(camera.frustum().right / camera.frustum().top, 2.0, 1e-12);
}

TEST(CameraTest, AnEmptySceneStandsForABoxOfAHundredMillimetres)
{
    const Camera camera;
    EXPECT_NEAR(camera.halfHeight(), 50 * 1.12, 1e-9);
}

TEST(CameraTest, ASceneOfOnePointGetsABoxAroundIt)
{
    Camera camera;
    camera.setScene(boxOf({7, 8, 9}, {7, 8, 9}), true);
    const auto place = camera.toWindow({7, 8, 9});
    EXPECT_NEAR(place[0], 0.0, 1e-12);
    EXPECT_NEAR(place[1], 0.0, 1e-12);
    EXPECT_NEAR(camera.halfHeight(), 50 * 1.12, 1e-9);
}

TEST(CameraTest, OrbitToTheRightBringsTheFrontToTheRight)
{
    Camera camera;
    camera.orbit(pi / 2, 0);
    // What faced the viewer, +z, is now at the right; the viewer sees the left side, -x.
    expectVec(camera.right(), {0, 0, 1});
    expectVec(camera.up(), {0, 1, 0});
    expectVec(camera.back(), {-1, 0, 0});
}

TEST(CameraTest, OrbitDownBringsTheFrontDown)
{
    Camera camera;
    camera.orbit(0, pi / 2);
    // What faced the viewer, +z, is now below; the viewer sees the top, +y.
    expectVec(camera.up(), {0, 0, -1});
    expectVec(camera.back(), {0, 1, 0});
    expectVec(camera.right(), {1, 0, 0});
}

TEST(CameraTest, OrbitKeepsRightAnglesOverManySteps)
{
    Camera camera;
    for (int i = 0; i < 20000; ++i)
        camera.orbit(0.013, -0.007);
    expectRightAngles(camera);
}

TEST(CameraTest, OrbitKeepsTheScaleAndTheMiddle)
{
    Camera camera;
    camera.setScene(testBox(), true);
    const double before = camera.halfHeight();
    camera.orbit(0.5, 0.4);
    EXPECT_EQ(camera.halfHeight(), before);
    EXPECT_NEAR(camera.toWindow({10, 20, 30})[0], 0.0, 1e-12);
    EXPECT_NEAR(camera.toWindow({10, 20, 30})[1], 0.0, 1e-12);
}

TEST(CameraTest, PanMovesTheSceneByAShareOfTheWindowHeight)
{
    Camera camera;
    camera.setScene(testBox(), true);
    camera.pan(0.25, -0.125);
    EXPECT_NEAR(camera.toWindow({10, 20, 30})[0], 0.25, 1e-12);
    EXPECT_NEAR(camera.toWindow({10, 20, 30})[1], -0.125, 1e-12);
    const Vec3 eye = toEye(camera, {10, 20, 30});
    EXPECT_NEAR(eye.x, 0.25 * 2 * camera.halfHeight(), 1e-9);
}

TEST(CameraTest, ZoomMagnifiesByItsFactor)
{
    Camera camera;
    const double before = camera.halfHeight();
    camera.zoom(2.0, 0, 0);
    EXPECT_NEAR(camera.halfHeight(), before / 2, 1e-12);
}

TEST(CameraTest, ZoomKeepsThePointUnderTheMouse)
{
    Camera camera;
    camera.setScene(testBox(), true);
    camera.orbit(0.3, 0.2);
    camera.pan(0.1, 0.05);
    const Vec3 point = Vec3{10, 20, 30} + camera.right() * 12.0 + camera.up() * -7.0;
    const auto before = camera.toWindow(point);
    camera.zoom(1.7, before[0], before[1]);
    EXPECT_NEAR(camera.toWindow(point)[0], before[0], 1e-12);
    EXPECT_NEAR(camera.toWindow(point)[1], before[1], 1e-12);
    camera.zoom(0.3, before[0], before[1]);
    EXPECT_NEAR(camera.toWindow(point)[0], before[0], 1e-12);
}

TEST(CameraTest, ZoomAndPanAreBounded)
{
    Camera camera;
    camera.setScene(testBox(), true);
    const double radius = testBox().radius();
    for (int i = 0; i < 200; ++i)
        camera.zoom(2.0, 0, 0);
    EXPECT_NEAR(camera.halfHeight(), 0.005 * radius, 1e-9);
    for (int i = 0; i < 200; ++i)
        camera.zoom(0.5, 0.5, 0.5);
    EXPECT_NEAR(camera.halfHeight(), 20 * radius, 1e-9);
    for (int i = 0; i < 200; ++i)
        camera.pan(1, 1);
    EXPECT_LE(toEye(camera, {10, 20, 30}).x, 20 * radius + 1e-6);
    camera.zoom(0.0, 0, 0);
    camera.zoom(-1.0, 0, 0);
    camera.zoom(std::numeric_limits<double>::quiet_NaN(), 0, 0);
    EXPECT_NEAR(camera.halfHeight(), 20 * radius, 1e-9);
}

TEST(CameraTest, ResetIsTheFittedFrontView)
{
    Camera camera;
    camera.setScene(testBox(), true);
    const Matrix16 start = camera.viewMatrix();
    const double height = camera.halfHeight();
    camera.orbit(1, 1);
    camera.pan(0.2, 0.2);
    camera.zoom(3, 0.1, 0.1);
    camera.reset();
    EXPECT_EQ(camera.viewMatrix(), start);
    EXPECT_EQ(camera.halfHeight(), height);
}

TEST(CameraTest, ANewSceneIsFittedUnlessTheUserHasChosenAPlace)
{
    Camera camera;
    camera.setScene(testBox(), false);
    EXPECT_NEAR(camera.halfHeight(), 30 * 1.12, 1e-9);
    camera.zoom(2, 0, 0);
    const double zoomed = camera.halfHeight();
    camera.setScene(boxOf({-1, -1, -1}, {1, 1, 1}), false);
    EXPECT_EQ(camera.halfHeight(), zoomed);
    camera.setScene(boxOf({-2, -2, -2}, {2, 2, 2}), true);
    EXPECT_NEAR(camera.halfHeight(), 2 * 1.12, 1e-9);
}

TEST(CameraTest, WhatTheUserLooksAtStaysWhenTheSceneGrowsOrMoves)
{
    Camera camera;
    camera.setScene(testBox(), false);
    camera.orbit(0.4, 0.3);
    camera.keepPlace();
    const auto before = camera.toWindow({1, 2, 3});
    camera.setScene(boxOf({50, -1, -1}, {90, 70, 1}), false);
    const auto after = camera.toWindow({1, 2, 3});
    EXPECT_NEAR(after[0], before[0], 1e-12);
    EXPECT_NEAR(after[1], before[1], 1e-12);
    const auto p = camera.viewMatrix();
    const Vec3 far = boxOf({50, -1, -1}, {90, 70, 1}).corner(7);
    const double depth = -(p[2] * far.x + p[6] * far.y + p[10] * far.z + p[14]);
    EXPECT_GT(depth, camera.frustum().near);
    EXPECT_LT(depth, camera.frustum().far);
    // Back to the first scene is back to the first picture.
    camera.setScene(testBox(), false);
    EXPECT_NEAR(camera.toWindow({1, 2, 3})[0], before[0], 1e-12);
    EXPECT_NEAR(camera.toWindow({1, 2, 3})[1], before[1], 1e-12);
}

TEST(CameraTest, ThePointInFrontIsNearerThanTheWholeScene)
{
    Camera camera;
    camera.setScene(testBox(), true);
    camera.setPreset(ViewPreset::Iso);
    for (int k = 0; k < 8; ++k)
        EXPECT_LT(dot(testBox().corner(k) - camera.pointInFront(), camera.back()), 0.0);
}

TEST(Camera, ATurntableTakesTheWholeTurnIntoTheWindow)
{
    Camera camera;
    camera.setWindow(100, 100);
    camera.setScene(boxOf({-30, -10, -40}, {30, 10, 40}), true);
    // Corners run round at sqrt(30^2 + 40^2) = 50 mm.
    const Camera turned = camera.turntable();
    EXPECT_NEAR(turned.halfHeight(), 50 * 1.12, 1e-9);
    EXPECT_NEAR(camera.halfHeight(), 30 * 1.12, 1e-9) << "the camera itself stays";
    Camera wide = turned;
    wide.orbit(pi / 2, 0.0);
    EXPECT_NEAR(wide.halfHeight(), 50 * 1.12, 1e-9) << "at one scale";
    // A low and wide window has room for 50 mm to the side; then the height decides.
    camera.setWindow(1000, 100);
    EXPECT_NEAR(camera.turntable().halfHeight(), 10 * 1.12, 1e-9);
}

TEST(Camera, ATurntableKeepsWhatTheUserHasZoomed)
{
    Camera camera;
    camera.setWindow(100, 100);
    camera.setScene(testBox(), true);
    camera.zoom(2.0, 0.0, 0.0);
    EXPECT_DOUBLE_EQ(camera.turntable().halfHeight(), camera.halfHeight());
    EXPECT_EQ(camera.turntable().viewMatrix(), camera.viewMatrix());
}

}  // namespace
