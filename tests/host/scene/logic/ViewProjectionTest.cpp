#include "lib/hvapi/scene/logic/ViewProjection.h"

#include <gtest/gtest.h>

using namespace hvscene;

namespace {

Box cube(double half)
{
    Box box;
    box.add({-half, -half, -half});
    box.add({half, half, half});
    return box;
}

/// Front view of a cube of 20 mm: the window is 22.4 mm high.
Camera frontCamera()
{
    Camera camera;
    camera.setWindow(400, 224);
    camera.setScene(cube(10), true);
    return camera;
}

TEST(ViewProjectionTest, TheMiddleOfTheSceneIsTheMiddleOfTheWindowAndYGoesDown)
{
    const Camera camera = frontCamera();
    const ViewProjection view(camera, 400, 224);
    EXPECT_NEAR(view.mmPerPixel(), 0.1, 1e-12);
    const Pixel middle = view.toPixels({0, 0, 0});
    EXPECT_NEAR(middle.x, 200, 1e-9);
    EXPECT_NEAR(middle.y, 112, 1e-9);
    const Pixel p = view.toPixels({3, 2, 7});
    EXPECT_NEAR(p.x, 230, 1e-9);
    EXPECT_NEAR(p.y, 92, 1e-9);
}

TEST(ViewProjectionTest, VectorsAndPixelsGoBothWays)
{
    Camera camera = frontCamera();
    camera.setPreset(ViewPreset::Iso);
    const ViewProjection view(camera, 400, 224);
    const Pixel across = view.vectorInPixels(camera.right());
    EXPECT_NEAR(across.x, 1.0 / view.mmPerPixel(), 1e-9);
    EXPECT_NEAR(across.y, 0.0, 1e-9);
    const Vec3 v = view.vectorOf({12, -5});
    EXPECT_NEAR(dot(v, view.towardsViewer()), 0.0, 1e-9);
    const Pixel back = view.vectorInPixels(v);
    EXPECT_NEAR(back.x, 12, 1e-9);
    EXPECT_NEAR(back.y, -5, 1e-9);
}

TEST(ViewProjectionTest, TheRayStartsInFrontOfTheSceneAndIsSeenAsItsPixel)
{
    Camera camera = frontCamera();
    camera.setPreset(ViewPreset::Iso);
    camera.zoom(2.0, 0.2, -0.1);
    const ViewProjection view(camera, 400, 224);
    const Ray ray = view.rayThrough({57, 201});
    for (const double way : {0.0, 10.0, 50.0}) {
        const Pixel p = view.toPixels(ray.origin + ray.direction * way);
        EXPECT_NEAR(p.x, 57, 1e-9);
        EXPECT_NEAR(p.y, 201, 1e-9);
    }
    EXPECT_NEAR(length(ray.direction), 1.0, 1e-12);
    EXPECT_NEAR(dot(ray.direction, camera.back()), -1.0, 1e-12);
    for (int k = 0; k < 8; ++k)
        EXPECT_GT(dot(cube(10).corner(k) - ray.origin, ray.direction), 0.0);
}

TEST(ViewProjectionTest, DistanceToASegmentIsThatToItsNearestPoint)
{
    EXPECT_DOUBLE_EQ(distanceToSegment({5, 3}, {0, 0}, {10, 0}), 3.0);
    EXPECT_DOUBLE_EQ(distanceToSegment({-3, 4}, {0, 0}, {10, 0}), 5.0);
    EXPECT_DOUBLE_EQ(distanceToSegment({13, -4}, {0, 0}, {10, 0}), 5.0);
    EXPECT_DOUBLE_EQ(distanceToSegment({3, 4}, {0, 0}, {0, 0}), 5.0);
}

}  // namespace
