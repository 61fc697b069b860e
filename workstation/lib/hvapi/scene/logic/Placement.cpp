#include "lib/hvapi/scene/logic/Placement.h"

namespace hvscene {

Matrix16 identityPlacement()
{
    return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
}

Matrix16 product(const Matrix16& a, const Matrix16& b)
{
    Matrix16 m{};
    for (std::size_t column = 0; column < 4; ++column)
        for (std::size_t row = 0; row < 4; ++row)
            for (std::size_t k = 0; k < 4; ++k)
                m[4 * column + row] += a[4 * k + row] * b[4 * column + k];
    return m;
}

Vec3 transformedVector(const Matrix16& m, Vec3 v)
{
    return {m[0] * v.x + m[4] * v.y + m[8] * v.z, m[1] * v.x + m[5] * v.y + m[9] * v.z,
            m[2] * v.x + m[6] * v.y + m[10] * v.z};
}

Vec3 transformedPoint(const Matrix16& m, Vec3 p)
{
    return transformedVector(m, p) + Vec3{m[12], m[13], m[14]};
}

Matrix16 shifted(const Matrix16& m, Vec3 v)
{
    Matrix16 shift = identityPlacement();
    shift[12] = v.x;
    shift[13] = v.y;
    shift[14] = v.z;
    return product(shift, m);
}

Matrix16 turned(const Matrix16& m, Vec3 center, Vec3 a, double angle)
{
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double t = 1.0 - c;
    const Matrix16 turn{t * a.x * a.x + c,
                        t * a.x * a.y + s * a.z,
                        t * a.x * a.z - s * a.y,
                        0.0,
                        t * a.x * a.y - s * a.z,
                        t * a.y * a.y + c,
                        t * a.y * a.z + s * a.x,
                        0.0,
                        t * a.x * a.z + s * a.y,
                        t * a.y * a.z - s * a.x,
                        t * a.z * a.z + c,
                        0.0,
                        0.0,
                        0.0,
                        0.0,
                        1.0};
    return shifted(product(turn, shifted(m, center * -1.0)), center);
}

}  // namespace hvscene
