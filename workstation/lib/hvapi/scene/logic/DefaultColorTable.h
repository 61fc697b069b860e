#pragma once

namespace hvscene {

/// Voxels up to this value are clear in the default table.
constexpr int clearUpTo = 60;
/// Voxels from here on are opaque in the default table.
constexpr int opaqueFrom = 180;

/// Writes 256 entries of R, G, B, A: a grey ramp with R = G = B = i, and the alpha 255 * (3 s^2 - 2 s^3),
/// rounded to nearest, with s = (i - 60) / 120 held between 0 and 1. Air, noise and most of the soft tissue
/// of a CT that was mapped to 8 bits lie in the clear part; bone, thin bone that fills its voxels only in
/// part included, stands out.
void writeDefaultColorTable(unsigned char* table);

}  // namespace hvscene
