#include "slices/logic/ProjectionCamera.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

const SliceBox kBox{{0.0, 10.0, 20.0}, {10.0, 30.0, 60.0}};  // centre 5, 20, 40

void expectCamera(int axis, double u, double v, double nearEnd, double farEnd, double length)
{
    const auto camera = projectionCamera(axis, kBox, 100.0);
    ASSERT_TRUE(camera);
    EXPECT_DOUBLE_EQ(camera->window.left, u - 50.0);
    EXPECT_DOUBLE_EQ(camera->window.right, u + 50.0);
    EXPECT_DOUBLE_EQ(camera->window.bottom, v - 50.0);
    EXPECT_DOUBLE_EQ(camera->window.top, v + 50.0);
    EXPECT_DOUBLE_EQ(camera->nearEnd, nearEnd);
    EXPECT_DOUBLE_EQ(camera->farEnd, farEnd);
    EXPECT_DOUBLE_EQ(camera->translation[0], u);
    EXPECT_DOUBLE_EQ(camera->translation[1], v);
    EXPECT_DOUBLE_EQ(camera->translation[2], -3.0 * length);
}

TEST(ProjectionCameraTest, EachAxisHasItsPairOfCentresAndItsRange)
{
    expectCamera(1, 40.0, 20.0, 0.0, 10.0, std::sqrt(10.0 * 10.0 + 30.0 * 30.0 + 5.0 * 5.0));
    expectCamera(2, 5.0, 40.0, 10.0, 30.0, std::sqrt(45.0 * 45.0 + 10.0 * 10.0 + 10.0 * 10.0));
    expectCamera(4, 5.0, 20.0, 20.0, 60.0, std::sqrt(45.0 * 45.0 + 30.0 * 30.0 + 20.0 * 20.0));
}

TEST(ProjectionCameraTest, NormalAndRotationAreASlices)
{
    const auto camera = projectionCamera(1, kBox, 100.0);
    EXPECT_EQ(camera->normal[0], 1.0);
    EXPECT_EQ(camera->normal[2], 0.0);
    EXPECT_EQ(camera->rotation[0], 90.0F);
    EXPECT_EQ(camera->rotation[1], -90.0F);
    EXPECT_EQ(camera->rotation[2], -90.0F);
    EXPECT_FALSE(projectionCamera(3, kBox, 100.0));
}

}  // namespace
