#pragma once

#include "phantom/Shapes.h"

#include <vector>

namespace phantom {

// A mouse that lies prone on the bed of a scanner: the nose towards +y, the back towards +z, its right side
// at +x, the tail laid around to the right. Seen along z it shows its back, along x its side, along y its
// head.
//
// Grey values: air 0, lungs 9, bed and soft tissue 34 to 48, bone 170 to 250. With the noise on top
// everything but bone stays below 55, so that a threshold of 60 cuts out the skeleton.

/// The trough that the mouse lies in.
std::vector<Solid> scannerBed();

/// Height (z, mm) of the bed's upper face at x.
double bedHeight(double x);

/// Skin, muscle and organs; each solid paints over the ones before it.
std::vector<Solid> softTissue();

/// Skull with jaws and teeth.
std::vector<Solid> skull();

/// Spine, ribs, breastbone, shoulder and pelvic girdle, limbs and tail.
std::vector<Solid> skeletonBelowTheHead();

/// All of it, in the order of painting.
std::vector<Solid> mouseOnBed();

/// Course of the tail from the sacrum to its tip.
std::vector<Vec3> tailCourse();

}  // namespace phantom
