#include "hvapi/values/matrix.h"

#include "hvapi/values/Vec3f.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace {

constexpr double identity[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};

int position(int row, int column)
{
    return std::clamp(column, 0, 3) * 4 + std::clamp(row, 0, 3);
}

}  // namespace

matrix::matrix()
{
    loadIdentity();
}

matrix::matrix(double const* const values, ordermode order)
{
    loadIdentity();
    if (!values) return;
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row) {
            m_e[column * 4 + row] = order == ROW_MAJOR ? values[row * 4 + column] : values[column * 4 + row];
        }
    }
}

void matrix::loadIdentity()
{
    std::copy(std::begin(identity), std::end(identity), m_e);
}

// Gauss-Jordan with row pivoting. Only an exact zero or a non-finite pivot counts as singular: a scene in
// micrometres has small but good pivots.
matrix matrix::inverse() const
{
    double left[4][4];
    double right[4][4];
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            left[row][column] = m_e[column * 4 + row];
            right[row][column] = row == column ? 1.0 : 0.0;
        }
    }
    for (int step = 0; step < 4; ++step) {
        int best = step;
        for (int row = step + 1; row < 4; ++row) {
            if (std::fabs(left[row][step]) > std::fabs(left[best][step])) best = row;
        }
        double const pivot = left[best][step];
        if (pivot == 0.0 || !std::isfinite(pivot)) return {};
        for (int column = 0; column < 4; ++column) {
            std::swap(left[best][column], left[step][column]);
            std::swap(right[best][column], right[step][column]);
        }
        for (int column = 0; column < 4; ++column) {
            left[step][column] /= pivot;
            right[step][column] /= pivot;
        }
        for (int row = 0; row < 4; ++row) {
            if (row == step) continue;
            double const factor = left[row][step];
            for (int column = 0; column < 4; ++column) {
                left[row][column] -= factor * left[step][column];
                right[row][column] -= factor * right[step][column];
            }
        }
    }
    for (auto const& row : right) {
        if (!std::all_of(std::begin(row), std::end(row), [](double v) { return std::isfinite(v); }))
            return {};
    }
    return {&right[0][0], ROW_MAJOR};
}

double& matrix::operator()(int const& row, int const& column)
{
    return m_e[position(row, column)];
}

double const& matrix::operator()(int const& row, int const& column) const
{
    return m_e[position(row, column)];
}

matrix& matrix::operator*=(matrix const& right)
{
    *this = *this * right;
    return *this;
}

matrix::operator double*()
{
    return m_e;
}

matrix::operator double const*() const
{
    return m_e;
}

matrix operator*(matrix const& a, matrix const& b)
{
    matrix product;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k)
                sum += a(row, k) * b(k, column);
            product(row, column) = sum;
        }
    }
    return product;
}

Vec3f operator*(matrix const& m, Vec3f const& v)
{
    auto const row = [&](int r) { return m(r, 0) * v.x() + m(r, 1) * v.y() + m(r, 2) * v.z() + m(r, 3); };
    Vec3f const point(row(0), row(1), row(2));
    double const w = row(3);
    return w == 0.0 || w == 1.0 ? point : point / w;
}
