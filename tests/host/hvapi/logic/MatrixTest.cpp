#include "hvapi/values/matrix.h"

#include "hvapi/values/Vec3f.h"

#include <Eigen/Dense>
#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace {

using RowMatrix = Eigen::Matrix<double, 4, 4, Eigen::RowMajor>;

constexpr double tolerance = 1e-12;

RowMatrix randomRows(std::mt19937& generator)
{
    std::uniform_real_distribution<double> distribution(-2.0, 2.0);
    RowMatrix rows;
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c)
            rows(r, c) = distribution(generator);
        rows(r, r) += 4.0;  // well conditioned
    }
    return rows;
}

matrix fromEigen(RowMatrix const& rows)
{
    return {rows.data(), matrix::ROW_MAJOR};
}

void expectNear(matrix const& actual, RowMatrix const& expected)
{
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 4; ++c)
            EXPECT_NEAR(actual(r, c), expected(r, c), tolerance) << r << ", " << c;
    }
}

constexpr double counting[16] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};

TEST(Matrix, StartsAsIdentity)
{
    expectNear(matrix(), RowMatrix::Identity());
}

TEST(Matrix, ReadsSixteenNumbersInBothOrders)
{
    matrix const byRows(counting, matrix::ROW_MAJOR);
    EXPECT_EQ(byRows(0, 1), 2.0);
    EXPECT_EQ(byRows(1, 0), 5.0);
    EXPECT_EQ(byRows(3, 3), 16.0);
    matrix const byColumns(counting, matrix::COLUMN_MAJOR);
    EXPECT_EQ(byColumns(0, 1), 5.0);
    EXPECT_EQ(byColumns(1, 0), 2.0);
}

TEST(Matrix, NullPointerGivesIdentity)
{
    expectNear(matrix(nullptr, matrix::ROW_MAJOR), RowMatrix::Identity());
}

TEST(Matrix, ConvertsToColumnsAsGlTakesThem)
{
    matrix m(counting, matrix::ROW_MAJOR);
    double* columns = m;
    EXPECT_EQ(columns[1], 5.0);
    EXPECT_EQ(columns[4], 2.0);
    EXPECT_EQ(columns[12], 4.0);  // the translation along x
    columns[12] = 40.0;
    EXPECT_EQ(m(0, 3), 40.0);
    matrix const& fixed = m;
    double const* same = fixed;
    EXPECT_EQ(same, columns);
}

TEST(Matrix, TakesIndicesOutsideForTheNearerEnd)
{
    matrix m(counting, matrix::ROW_MAJOR);
    EXPECT_EQ(m(-1, 0), 1.0);
    EXPECT_EQ(m(4, 9), 16.0);
    EXPECT_EQ(m(0, -7), 1.0);
}

TEST(Matrix, ProductAgreesWithEigen)
{
    std::mt19937 generator(1);
    for (int i = 0; i < 50; ++i) {
        RowMatrix const a = randomRows(generator);
        RowMatrix const b = randomRows(generator);
        expectNear(fromEigen(a) * fromEigen(b), a * b);
        matrix left = fromEigen(a);
        left *= fromEigen(b);
        expectNear(left, a * b);
    }
}

TEST(Matrix, MayBeMultipliedWithItself)
{
    std::mt19937 generator(2);
    RowMatrix const a = randomRows(generator);
    matrix m = fromEigen(a);
    m *= m;
    expectNear(m, a * a);
}

TEST(Matrix, InverseAgreesWithEigen)
{
    std::mt19937 generator(3);
    for (int i = 0; i < 50; ++i) {
        RowMatrix const a = randomRows(generator);
        expectNear(fromEigen(a).inverse(), a.inverse());
    }
}

TEST(Matrix, InverseFindsAPivotBelowAZero)
{
    double const rows[16] = {0, 2, 0, 0, 4, 0, 0, 0, 0, 0, 0, 1, 0, 0, 1, 0};
    matrix const inverse = matrix(rows, matrix::ROW_MAJOR).inverse();
    EXPECT_NEAR(inverse(0, 1), 0.25, tolerance);
    EXPECT_NEAR(inverse(1, 0), 0.5, tolerance);
    EXPECT_NEAR(inverse(2, 3), 1.0, tolerance);
    EXPECT_NEAR(inverse(3, 2), 1.0, tolerance);
}

TEST(Matrix, InverseOfSmallScalesIsNoIdentity)
{
    matrix m;
    for (int i = 0; i < 3; ++i)
        m(i, i) = 1e-9;
    EXPECT_NEAR(m.inverse()(1, 1), 1e9, 1e-3);
}

TEST(Matrix, InverseOfASingularMatrixIsIdentity)
{
    matrix flat;
    flat(2, 2) = 0.0;
    expectNear(flat.inverse(), RowMatrix::Identity());
    double const twiceTheSame[16] = {1, 2, 3, 4, 1, 2, 3, 4, 0, 0, 1, 0, 0, 0, 0, 1};
    expectNear(matrix(twiceTheSame, matrix::ROW_MAJOR).inverse(), RowMatrix::Identity());
}

TEST(Matrix, InverseOfNumbersThatAreNotFiniteIsIdentity)
{
    for (double bad : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        for (int column = 0; column < 4; ++column) {
            matrix m;
            m(1, column) = bad;
            expectNear(m.inverse(), RowMatrix::Identity());
        }
    }
}

TEST(Matrix, LoadIdentityForgetsEverything)
{
    matrix m(counting, matrix::ROW_MAJOR);
    m.loadIdentity();
    expectNear(m, RowMatrix::Identity());
}

TEST(Matrix, MovesPointsAsEigenDoes)
{
    std::mt19937 generator(4);
    for (int i = 0; i < 50; ++i) {
        RowMatrix const a = randomRows(generator);
        Eigen::Vector4d const point(0.5, -1.25, 3.0, 1.0);
        Eigen::Vector4d const expected = a * point;
        Vec3f const actual = fromEigen(a) * Vec3f(0.5, -1.25, 3.0);
        for (int k = 0; k < 3; ++k)
            EXPECT_NEAR(actual[k], expected[k] / expected[3], 1e-10);
    }
}

TEST(Matrix, MovesPointsByItsTranslation)
{
    matrix m;
    m(0, 3) = 1.0;
    m(1, 3) = 2.0;
    m(2, 3) = 3.0;
    Vec3f const moved = m * Vec3f(10, 20, 30);
    EXPECT_EQ(moved.x(), 11.0);
    EXPECT_EQ(moved.y(), 22.0);
    EXPECT_EQ(moved.z(), 33.0);
}

TEST(Matrix, PointWithoutFourthCoordinateIsNotDivided)
{
    matrix m;
    m(3, 3) = 0.0;
    Vec3f const moved = m * Vec3f(1, 2, 3);
    EXPECT_EQ(moved.x(), 1.0);
    EXPECT_EQ(moved.z(), 3.0);
}

}  // namespace
