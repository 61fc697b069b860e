#pragma once

#include "hvapi/hvapi_global.h"
#include "hvapi/values/matrix.h"

class Vec3f;

/// A rotation.
class HVAPI_EXPORT unitquaternion
{
public:
    /// No rotation.
    unitquaternion();

    /// Rotation by `angle` in radians about `axis`, counter-clockwise when the axis points at the viewer. The
    /// axis may have any length; a null or non-finite one gives no rotation.
    unitquaternion(double const& angle, Vec3f const& axis);

    /// this = this * right: the rotation `right` comes first, as with matrices.
    unitquaternion& operator*=(unitquaternion const& right);

    /// The rotation as a matrix, for column vectors.
    matrix getRotMatrix() const;

private:
    double m_w;
    double m_x;
    double m_y;
    double m_z;
};
