#pragma once

#include "hvapi/values/Coord3d.h"
#include "hvapi/values/Vec3f.h"

/// The six clip planes of a crop box, each as a, b, c, d with ax + by + cz + d >= 0 on the kept side, in the
/// volume's own space.
///
/// `offsets` holds eight corner offsets as fractions of half the box, in the order of boxCorners(): a corner
/// moves by its offset times its distance from the centre, along x and y with the offset's sign and along z
/// against it. Zero offsets give the faces of the box. Order of the planes: high z, low z, low x, high x, low
/// y, high y.
void makeCropPlanes(const Coord3d& min, const Coord3d& max, const Vec3f (&offsets)[8],
                    double (&planes)[6][4]);
