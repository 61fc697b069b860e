#include "hvapi/values/Vec3f.h"

#include <cmath>

// Constant-initialised, so that other static objects may use them in their own construction.
constexpr Vec3f axisX(1.0, 0.0, 0.0);
constexpr Vec3f axisY(0.0, 1.0, 0.0);
constexpr Vec3f axisZ(0.0, 0.0, 1.0);
const Vec3f X_AXIS = axisX;
const Vec3f Y_AXIS = axisY;
const Vec3f Z_AXIS = axisZ;

void Vec3f::set(double x, double y, double z)
{
    m_v[0] = x;
    m_v[1] = y;
    m_v[2] = z;
}

double Vec3f::length() const
{
    return std::sqrt(m_v[0] * m_v[0] + m_v[1] * m_v[1] + m_v[2] * m_v[2]);
}

double operator*(Vec3f const& a, Vec3f const& b)
{
    return a.x() * b.x() + a.y() * b.y() + a.z() * b.z();
}

Vec3f operator+(Vec3f const& a, Vec3f const& b)
{
    return {a.x() + b.x(), a.y() + b.y(), a.z() + b.z()};
}

Vec3f operator-(Vec3f const& a, Vec3f const& b)
{
    return {a.x() - b.x(), a.y() - b.y(), a.z() - b.z()};
}

Vec3f operator/(Vec3f const& v, double divisor)
{
    return {v.x() / divisor, v.y() / divisor, v.z() / divisor};
}

Vec3f& operator*=(Vec3f& v, double factor)
{
    v.set(v.x() * factor, v.y() * factor, v.z() * factor);
    return v;
}
