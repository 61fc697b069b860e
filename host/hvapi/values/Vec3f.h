#pragma once

#include "hvapi/hvapi_global.h"

/// A vector or point of three doubles (in spite of its name). Units are the user's affair; the scene's are
/// mm.
class HVAPI_EXPORT Vec3f
{
public:
    /// The null vector.
    constexpr Vec3f() = default;
    constexpr Vec3f(double x, double y, double z)
        : m_v{x, y, z}
    {}

    double& x() { return m_v[0]; }
    double& y() { return m_v[1]; }
    double& z() { return m_v[2]; }
    constexpr double const& x() const { return m_v[0]; }
    constexpr double const& y() const { return m_v[1]; }
    constexpr double const& z() const { return m_v[2]; }

    /// 0, 1, 2 for x, y, z. A number outside is taken for the nearer end.
    double& operator[](int const& index) { return m_v[clamped(index)]; }
    constexpr double const& operator[](int const& index) const { return m_v[clamped(index)]; }

    void set(double x, double y, double z);

    /// Euclidean length.
    double length() const;

private:
    static constexpr int clamped(int index) { return index < 0 ? 0 : (index > 2 ? 2 : index); }

    double m_v[3] = {0.0, 0.0, 0.0};
};

/// Dot product.
HVAPI_EXPORT double operator*(Vec3f const& a, Vec3f const& b);
HVAPI_EXPORT Vec3f operator+(Vec3f const& a, Vec3f const& b);
HVAPI_EXPORT Vec3f operator-(Vec3f const& a, Vec3f const& b);
/// Component by component; a divisor of 0 gives what IEEE arithmetic gives.
HVAPI_EXPORT Vec3f operator/(Vec3f const& v, double divisor);
HVAPI_EXPORT Vec3f& operator*=(Vec3f& v, double factor);

/// Unit vectors of the axes.
HVAPI_EXPORT extern const Vec3f X_AXIS;
HVAPI_EXPORT extern const Vec3f Y_AXIS;
HVAPI_EXPORT extern const Vec3f Z_AXIS;
