#pragma once

#include "hvapi/values/Vec3f.h"

/// Offsets of the eight corners of the crop box, each as a fraction of the way r from the box's centre to
/// that corner: an offset o moves its corner by (o.x r.x, o.y r.y, -o.z r.z), so that the sign turns along z.
/// Order of corners: (x0,y0,z0), (x1,y0,z0), (x1,y1,z0), (x0,y1,z0), then the same four at z1. All zero is
/// the full box.
struct sCropBoxOffset
{
    Vec3f m_offset[8];
};
