#pragma once

#include "hvapi/values/Vec3f.h"

/// Offsets of the eight corners of the crop box, each as a fraction of the way from the box's centre to that
/// corner. Order of corners: (x0,y0,z0), (x1,y0,z0), (x1,y1,z0), (x0,y1,z0), then the same four at z1. All
/// zero is the full box.
struct sCropBoxOffset
{
    Vec3f m_offset[8];
};
