#pragma once

#include "phantom/Shapes.h"

#include <vector>

namespace phantom {

using Points = std::vector<Vec3>;

/// `count` points (at least 2) at equal distances along a smooth curve through `through` (at least 2), from
/// its first to its last.
Points evenlySpaced(const Points& through, int count);

/// Unit directions of a polyline at its points, from the neighbours on both sides.
Points directions(const Points& points);

/// The same points on the other side of the animal (x negated).
Points mirrored(Points points);

/// Appends a tube along a polyline: a chain of capsules whose radius goes from `ra` to `rb` mm.
void addTube(std::vector<Solid>& solids, Tissue tissue, double density, const Points& points, double ra,
             double rb);

/// Appends one piece of bone.
void addBone(std::vector<Solid>& solids, double density, Primitive shape);

}  // namespace phantom
