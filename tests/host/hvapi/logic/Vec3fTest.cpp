#include "hvapi/values/Vec3f.h"

#include "hvapi/values/Coord2d.h"
#include "hvapi/values/Coord3d.h"
#include "hvapi/values/_tagAxis_Orientation.h"
#include "hvapi/values/obtainEquationVariablesForPlane.h"
#include "hvapi/values/sCropBoxOffset.h"

#include <Eigen/Dense>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace {

Eigen::Vector3d eigen(Vec3f const& v)
{
    return {v.x(), v.y(), v.z()};
}

TEST(Vec3f, StartsAtZero)
{
    Vec3f const v;
    EXPECT_EQ(v.x(), 0.0);
    EXPECT_EQ(v.y(), 0.0);
    EXPECT_EQ(v.z(), 0.0);
}

TEST(Vec3f, NamesAndIndicesMeanTheSameNumbers)
{
    Vec3f v(1, 2, 3);
    v.x() = 10;
    v[1] = 20;
    EXPECT_EQ(v[0], 10.0);
    EXPECT_EQ(v.y(), 20.0);
    EXPECT_EQ(v[2], 3.0);
    v.set(7, 8, 9);
    EXPECT_EQ(v.z(), 9.0);
}

TEST(Vec3f, TakesIndicesOutsideForTheNearerEnd)
{
    Vec3f const v(1, 2, 3);
    EXPECT_EQ(v[-1], 1.0);
    EXPECT_EQ(v[3], 3.0);
}

TEST(Vec3f, KeepsDoublePrecision)
{
    Vec3f const v(1.0 + 1e-15, 0, 0);
    EXPECT_NE(v.x(), 1.0);
}

TEST(Vec3f, ArithmeticAgreesWithEigen)
{
    std::mt19937 generator(5);
    std::uniform_real_distribution<double> d(-100.0, 100.0);
    for (int i = 0; i < 50; ++i) {
        Vec3f const a(d(generator), d(generator), d(generator));
        Vec3f const b(d(generator), d(generator), d(generator));
        double const f = d(generator);
        EXPECT_NEAR(a * b, eigen(a).dot(eigen(b)), 1e-10);
        EXPECT_NEAR(a.length(), eigen(a).norm(), 1e-12);
        EXPECT_LT((eigen(a + b) - (eigen(a) + eigen(b))).norm(), 1e-12);
        EXPECT_LT((eigen(a - b) - (eigen(a) - eigen(b))).norm(), 1e-12);
        EXPECT_LT((eigen(a / f) - eigen(a) / f).norm(), 1e-12);
        Vec3f scaled = a;
        scaled *= f;
        EXPECT_LT((eigen(scaled) - eigen(a) * f).norm(), 1e-10);
    }
}

TEST(Vec3f, DivisionByZeroFollowsIeee)
{
    Vec3f const v = Vec3f(1, 0, -1) / 0.0;
    EXPECT_TRUE(std::isinf(v.x()));
    EXPECT_TRUE(std::isnan(v.y()));
}

TEST(Vec3f, AxesAreUnitVectors)
{
    EXPECT_EQ(eigen(X_AXIS), Eigen::Vector3d(1, 0, 0));
    EXPECT_EQ(eigen(Y_AXIS), Eigen::Vector3d(0, 1, 0));
    EXPECT_EQ(eigen(Z_AXIS), Eigen::Vector3d(0, 0, 1));
}

TEST(ValueTypes, StartAtTheirNeutralValues)
{
    Coord3d const p;
    EXPECT_EQ(p.x + p.y + p.z, 0.0);
    Coord2d const q;
    EXPECT_EQ(q.x + q.y, 0.0);
    _tagAxis_Orientation const o;
    EXPECT_EQ(o.x, 1);
    EXPECT_EQ(o.y, 1);
    EXPECT_EQ(o.z, 1);
    sCropBoxOffset const crop;
    for (auto const& corner : crop.m_offset)
        EXPECT_EQ(corner.length(), 0.0);
}

TEST(PlaneThroughPoints, NormalIsTheCrossProductNotNormalised)
{
    double a = 0, b = 0, c = 0, d = 0;
    // (2,0,0) x (0,3,0) = (0,0,6); the plane z = 5.
    obtainEquationVariablesForPlane({0, 0, 5}, {2, 0, 5}, {0, 3, 5}, a, b, c, d);
    EXPECT_EQ(a, 0.0);
    EXPECT_EQ(b, 0.0);
    EXPECT_EQ(c, 6.0);
    EXPECT_EQ(d, -30.0);
}

TEST(PlaneThroughPoints, OrderOfPointsTurnsTheNormal)
{
    double a = 0, b = 0, c = 0, d = 0;
    obtainEquationVariablesForPlane({0, 0, 5}, {0, 3, 5}, {2, 0, 5}, a, b, c, d);
    EXPECT_EQ(c, -6.0);
    EXPECT_EQ(d, 30.0);
}

TEST(PlaneThroughPoints, AllThreePointsLieOnIt)
{
    std::mt19937 generator(6);
    std::uniform_real_distribution<double> u(-10.0, 10.0);
    for (int i = 0; i < 50; ++i) {
        Vec3f p[3];
        for (auto& v : p)
            v.set(u(generator), u(generator), u(generator));
        double a = 0, b = 0, c = 0, d = 0;
        obtainEquationVariablesForPlane(p[0], p[1], p[2], a, b, c, d);
        Eigen::Vector3d const n = (eigen(p[1]) - eigen(p[0])).cross(eigen(p[2]) - eigen(p[0]));
        EXPECT_LT((Eigen::Vector3d(a, b, c) - n).norm(), 1e-11);
        for (auto const& v : p)
            EXPECT_NEAR(a * v.x() + b * v.y() + c * v.z() + d, 0.0, 1e-10);
    }
}

TEST(PlaneThroughPoints, PointsOnOneLineGiveNoPlane)
{
    double a = 1, b = 1, c = 1, d = 1;
    obtainEquationVariablesForPlane({0, 0, 0}, {1, 1, 1}, {2, 2, 2}, a, b, c, d);
    EXPECT_EQ(a, 0.0);
    EXPECT_EQ(b, 0.0);
    EXPECT_EQ(c, 0.0);
    EXPECT_EQ(d, 0.0);
}

}  // namespace
