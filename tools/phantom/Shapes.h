#pragma once

#include "phantom/Vec3.h"

#include <variant>
#include <vector>

namespace phantom {

// Analytic shapes, described by their distance to a point. Only + - * / and sqrt are used, which IEEE 754
// rounds the same everywhere, so that a scan has the same bytes on every machine.

/// An ellipsoid with half axes `radii` (mm) along `u`, `v` and `w`, which are orthogonal unit vectors.
struct Ellipsoid
{
    Vec3 centre;
    Vec3 radii;
    Vec3 u{1, 0, 0}, v{0, 1, 0}, w{0, 0, 1};
};

/// A stick with round ends, of radius `ra` at `a` and `rb` at `b` (mm).
struct Capsule
{
    Vec3 a, b;
    double ra, rb;
};

/// The box between two corners, lowest and highest.
struct Box
{
    Vec3 low, high;
};

using Primitive = std::variant<Ellipsoid, Capsule, Box>;

/// An ellipsoid whose third half axis points along `normal` and whose first lies as near to `along` as it
/// can.
Ellipsoid plate(Vec3 centre, Vec3 radii, Vec3 along, Vec3 normal);

struct Bounds
{
    Vec3 low, high;
};

/// Signed distance from the surface in mm, below 0 inside. Exact for boxes (outside) and straight capsules, a
/// close estimate near the surface for the others.
double distance(const Primitive& shape, Vec3 p);

Bounds bounds(const Primitive& shape);

enum class Tissue
{
    Soft,
    Bone
};

/// One piece of the animal or of its surroundings: the union of `parts`, less `cuts`.
struct Solid
{
    Tissue tissue = Tissue::Soft;
    double density = 0;  ///< grey value 0..255
    std::vector<Primitive> parts;
    std::vector<Primitive> cuts;
    double blend = 0;  ///< mm over which neighbouring parts flow into each other, 0 for sharp joints
    double wall = 0;   ///< thickness in mm of a hollow solid, measured inwards; 0 for a full one
};

/// Signed distance from the surface of the solid in mm, below 0 in its material.
double distance(const Solid& solid, Vec3 p);

/// A box that holds the solid's material.
Bounds bounds(const Solid& solid);

}  // namespace phantom
