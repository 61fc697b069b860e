#pragma once

/// From a place in the scene to a place in the window, as the fixed-function pipeline does it. Matrices hold
/// sixteen numbers column by column.

/// out = m * in, `out` being another array than `in`.
void transformSlicePoint(double out[4], const double m[16], const double in[4]);

/// @param viewport  x, y, width and height in pixels
/// @param window    out: x and y in pixels from the bottom left, and the depth from 0 (near) to 1 (far)
/// @return false, with `window` left as it was, for a point whose fourth coordinate becomes 0
bool projectSlicePoint(const double point[3], const double model[16], const double projection[16],
                       const int viewport[4], double window[3]);
