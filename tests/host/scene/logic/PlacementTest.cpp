#include "lib/hvapi/scene/logic/Placement.h"

#include <gtest/gtest.h>

using namespace hvscene;

namespace {

constexpr double pi = 3.14159265358979323846;

void expectNear(Vec3 a, Vec3 b)
{
    EXPECT_NEAR(a.x, b.x, 1e-12);
    EXPECT_NEAR(a.y, b.y, 1e-12);
    EXPECT_NEAR(a.z, b.z, 1e-12);
}

TEST(PlacementTest, AShiftComesAfterThePlacementThatWasThere)
{
    const Matrix16 quarter = turned(identityPlacement(), {0, 0, 0}, {0, 0, 1}, pi / 2);
    expectNear(transformedPoint(shifted(quarter, {10, 0, 0}), {1, 0, 0}), {10, 1, 0});
    expectNear(transformedVector(shifted(quarter, {10, 0, 0}), {1, 0, 0}), {0, 1, 0});
}

TEST(PlacementTest, ATurnIsRightHandedAboutEachAxis)
{
    expectNear(transformedPoint(turned(identityPlacement(), {}, {1, 0, 0}, pi / 2), {0, 1, 0}), {0, 0, 1});
    expectNear(transformedPoint(turned(identityPlacement(), {}, {0, 1, 0}, pi / 2), {0, 0, 1}), {1, 0, 0});
    expectNear(transformedPoint(turned(identityPlacement(), {}, {0, 0, 1}, pi / 2), {1, 0, 0}), {0, 1, 0});
}

TEST(PlacementTest, TheCentreOfATurnStays)
{
    const Matrix16 there = shifted(identityPlacement(), {5, 6, 7});
    const Matrix16 turnedThere = turned(there, {5, 6, 7}, {0, 0, 1}, pi);
    expectNear(transformedPoint(turnedThere, {0, 0, 0}), {5, 6, 7});
    expectNear(transformedPoint(turnedThere, {1, 2, 3}), {4, 4, 10});
}

TEST(PlacementTest, ATurnAndItsReverseAreNone)
{
    const Vec3 axis = normalized({1, -2, 0.5});
    const Matrix16 start = shifted(turned(identityPlacement(), {}, {0, 1, 0}, 0.3), {1, 2, 3});
    const Matrix16 back = turned(turned(start, {4, 5, 6}, axis, 1.1), {4, 5, 6}, axis, -1.1);
    for (std::size_t k = 0; k < 16; ++k)
        EXPECT_NEAR(back[k], start[k], 1e-12);
}

}  // namespace
