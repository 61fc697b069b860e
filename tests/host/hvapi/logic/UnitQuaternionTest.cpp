#include "hvapi/values/unitquaternion.h"

#include "hvapi/values/Vec3f.h"

#include <Eigen/Geometry>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

constexpr double tolerance = 1e-12;
constexpr double quarter = 1.57079632679489661923;

void expectNear(matrix const& actual, Eigen::Matrix3d const& expected)
{
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c)
            EXPECT_NEAR(actual(r, c), expected(r, c), tolerance) << r << ", " << c;
        EXPECT_EQ(actual(r, 3), 0.0);
        EXPECT_EQ(actual(3, r), 0.0);
    }
    EXPECT_EQ(actual(3, 3), 1.0);
}

TEST(UnitQuaternion, StartsWithoutRotation)
{
    expectNear(unitquaternion().getRotMatrix(), Eigen::Matrix3d::Identity());
}

TEST(UnitQuaternion, QuarterTurnAboutZTakesXToY)
{
    Vec3f const turned = unitquaternion(quarter, Z_AXIS).getRotMatrix() * X_AXIS;
    EXPECT_NEAR(turned.x(), 0.0, tolerance);
    EXPECT_NEAR(turned.y(), 1.0, tolerance);
    EXPECT_NEAR(turned.z(), 0.0, tolerance);
}

TEST(UnitQuaternion, AgreesWithEigenForAxesOfAnyLength)
{
    std::mt19937 generator(7);
    std::uniform_real_distribution<double> u(-5.0, 5.0);
    for (int i = 0; i < 50; ++i) {
        double const angle = u(generator);
        Eigen::Vector3d const axis(u(generator), u(generator), u(generator));
        expectNear(unitquaternion(angle, Vec3f(axis.x(), axis.y(), axis.z())).getRotMatrix(),
                   Eigen::AngleAxisd(angle, axis.normalized()).toRotationMatrix());
    }
}

TEST(UnitQuaternion, ProductRotatesByTheRightOneFirst)
{
    unitquaternion zThenNothing(quarter, Z_AXIS);
    zThenNothing *= unitquaternion(quarter, X_AXIS);
    // About x first: y to z; then about z, which leaves z alone.
    Vec3f const turned = zThenNothing.getRotMatrix() * Y_AXIS;
    EXPECT_NEAR(turned.z(), 1.0, tolerance);
}

TEST(UnitQuaternion, ZTimesYTimesXAgreesWithEigen)
{
    unitquaternion q(0.3, Z_AXIS);
    q *= unitquaternion(-1.1, Y_AXIS);
    q *= unitquaternion(2.0, X_AXIS);
    Eigen::Quaterniond const expected = Eigen::AngleAxisd(0.3, Eigen::Vector3d::UnitZ()) *
                                        Eigen::AngleAxisd(-1.1, Eigen::Vector3d::UnitY()) *
                                        Eigen::AngleAxisd(2.0, Eigen::Vector3d::UnitX());
    expectNear(q.getRotMatrix(), expected.toRotationMatrix());
}

TEST(UnitQuaternion, MayBeMultipliedWithItself)
{
    unitquaternion q(0.4, Y_AXIS);
    q *= q;
    expectNear(q.getRotMatrix(), Eigen::AngleAxisd(0.8, Eigen::Vector3d::UnitY()).toRotationMatrix());
}

TEST(UnitQuaternion, ManyProductsDoNotScale)
{
    unitquaternion q;
    unitquaternion const step(0.01, Vec3f(1, 2, 3));
    for (int i = 0; i < 100000; ++i)
        q *= step;
    EXPECT_NEAR((q.getRotMatrix() * X_AXIS).length(), 1.0, tolerance);
}

TEST(UnitQuaternion, ImpossibleAxesAndAnglesGiveNoRotation)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    expectNear(unitquaternion(1.0, Vec3f()).getRotMatrix(), Eigen::Matrix3d::Identity());
    expectNear(unitquaternion(1.0, Vec3f(nan, 0, 0)).getRotMatrix(), Eigen::Matrix3d::Identity());
    expectNear(unitquaternion(nan, X_AXIS).getRotMatrix(), Eigen::Matrix3d::Identity());
}

}  // namespace
