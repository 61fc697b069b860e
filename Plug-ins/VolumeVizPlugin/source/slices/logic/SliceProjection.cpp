#include "slices/logic/SliceProjection.h"

void transformSlicePoint(double out[4], const double m[16], const double in[4])
{
    for (int row = 0; row < 4; ++row)
        out[row] = m[row] * in[0] + m[row + 4] * in[1] + m[row + 8] * in[2] + m[row + 12] * in[3];
}

bool projectSlicePoint(const double point[3], const double model[16], const double projection[16],
                       const int viewport[4], double window[3])
{
    const double place[4] = {point[0], point[1], point[2], 1.0};
    double seen[4];
    double clip[4];
    transformSlicePoint(seen, model, place);
    transformSlicePoint(clip, projection, seen);
    if (clip[3] == 0.0) return false;
    for (int i = 0; i < 3; ++i)
        clip[i] /= clip[3];
    window[0] = viewport[0] + (1.0 + clip[0]) * viewport[2] / 2.0;
    window[1] = viewport[1] + (1.0 + clip[1]) * viewport[3] / 2.0;
    window[2] = (1.0 + clip[2]) / 2.0;
    return true;
}
