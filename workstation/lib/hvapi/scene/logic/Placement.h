#pragma once

#include "lib/hvapi/scene/logic/Camera.h"

namespace hvscene {

// Affine placements, column-major as GL takes them, applied from the left.

Matrix16 identityPlacement();
Matrix16 product(const Matrix16& a, const Matrix16& b);
Vec3 transformedPoint(const Matrix16& m, Vec3 p);
/// Without the translation.
Vec3 transformedVector(const Matrix16& m, Vec3 v);

/// `m`, and then a shift by `v` in the scene.
Matrix16 shifted(const Matrix16& m, Vec3 v);
/// `m`, and then a right-handed turn by `angle` (radians) about the line through `center` with the direction
/// `axis` (length 1), both of the scene.
Matrix16 turned(const Matrix16& m, Vec3 center, Vec3 axis, double angle);

}  // namespace hvscene
