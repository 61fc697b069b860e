#pragma once

#include "hvapi/hvapi_global.h"

class Vec3f;

/// A 4 by 4 matrix of doubles, applied from the left to column vectors. Stored column by column, so that its
/// double* can be handed to glMultMatrixd and glLoadMatrixd as it is.
class HVAPI_EXPORT matrix
{
public:
    /// Order of sixteen numbers in memory.
    enum ordermode
    {
        COLUMN_MAJOR = 0,  ///< four columns one after the other, as OpenGL has it
        ROW_MAJOR = 1      ///< four rows one after the other, as one reads it
    };

    /// The identity.
    matrix();
    /// From sixteen numbers; a null pointer gives the identity.
    matrix(double const* const values, ordermode order);
    matrix(matrix const&) = default;
    matrix& operator=(matrix const&) = default;

    void loadIdentity();

    /// The inverse; the identity where there is none (singular or not finite).
    matrix inverse() const;

    /// Element (row, column), each 0 to 3; a number outside is taken for the nearer end.
    double& operator()(int const& row, int const& column);
    double const& operator()(int const& row, int const& column) const;

    /// this = this * right: `right` is applied first.
    matrix& operator*=(matrix const& right);

    /// Sixteen numbers, column by column; valid as long as the matrix.
    operator double*();
    operator double const*() const;

private:
    double m_e[16];
};

/// The product: b is applied first.
HVAPI_EXPORT matrix operator*(matrix const& a, matrix const& b);

/// The point v under m: translation included, divided by the fourth coordinate unless that is 0 or 1.
HVAPI_EXPORT Vec3f operator*(matrix const& m, Vec3f const& v);
