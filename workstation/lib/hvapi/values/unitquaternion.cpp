#include "hvapi/values/unitquaternion.h"

#include "hvapi/values/Vec3f.h"

#include <cmath>

unitquaternion::unitquaternion()
    : m_w(1.0)
    , m_x(0.0)
    , m_y(0.0)
    , m_z(0.0)
{}

unitquaternion::unitquaternion(double const& angle, Vec3f const& axis)
    : unitquaternion()
{
    double const length = axis.length();
    if (length == 0.0 || !std::isfinite(length) || !std::isfinite(angle)) return;
    double const s = std::sin(0.5 * angle) / length;
    m_w = std::cos(0.5 * angle);
    m_x = s * axis.x();
    m_y = s * axis.y();
    m_z = s * axis.z();
}

unitquaternion& unitquaternion::operator*=(unitquaternion const& right)
{
    unitquaternion const a = *this;
    unitquaternion const b = right;
    m_w = a.m_w * b.m_w - a.m_x * b.m_x - a.m_y * b.m_y - a.m_z * b.m_z;
    m_x = a.m_w * b.m_x + a.m_x * b.m_w + a.m_y * b.m_z - a.m_z * b.m_y;
    m_y = a.m_w * b.m_y - a.m_x * b.m_z + a.m_y * b.m_w + a.m_z * b.m_x;
    m_z = a.m_w * b.m_z + a.m_x * b.m_y - a.m_y * b.m_x + a.m_z * b.m_w;
    // Products of many rotations would drift from unit length and scale what they turn.
    double const length = std::sqrt(m_w * m_w + m_x * m_x + m_y * m_y + m_z * m_z);
    m_w /= length;
    m_x /= length;
    m_y /= length;
    m_z /= length;
    return *this;
}

matrix unitquaternion::getRotMatrix() const
{
    double const rows[16] = {1 - 2 * (m_y * m_y + m_z * m_z),
                             2 * (m_x * m_y - m_w * m_z),
                             2 * (m_x * m_z + m_w * m_y),
                             0,
                             2 * (m_x * m_y + m_w * m_z),
                             1 - 2 * (m_x * m_x + m_z * m_z),
                             2 * (m_y * m_z - m_w * m_x),
                             0,
                             2 * (m_x * m_z - m_w * m_y),
                             2 * (m_y * m_z + m_w * m_x),
                             1 - 2 * (m_x * m_x + m_y * m_y),
                             0,
                             0,
                             0,
                             0,
                             1};
    return {rows, matrix::ROW_MAJOR};
}
