#pragma once

namespace hvscene {

/// Voxels up to this value are clear in the default table.
constexpr int clearUpTo = 60;
/// Alpha of voxel 255 in the default table.
constexpr int densestAlpha = 217;

/// Writes 256 entries of R, G, B, A: a grey ramp with R = G = B = i; alpha 0 for i up to `clearUpTo`, and
/// above it `densestAlpha` * ((i - 60) / 195)^1.6, rounded to nearest. Air, noise and most of the soft tissue
/// of a CT that was mapped to 8 bits lie in the clear part; bone keeps most of its opacity.
void writeDefaultColorTable(unsigned char* table);

}  // namespace hvscene
