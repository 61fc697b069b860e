#pragma once

#include "hvapi/hvapi_global.h"

class Vec3f;

/// The plane a x + b y + c z + d = 0 through three points, with (a, b, c) = (p2 - p1) x (p3 - p1), not
/// normalised. Points on one line give four zeros or an a, b, c of rounding size.
HVAPI_EXPORT void obtainEquationVariablesForPlane(Vec3f p1, Vec3f p2, Vec3f p3, double& a, double& b,
                                                  double& c, double& d);
