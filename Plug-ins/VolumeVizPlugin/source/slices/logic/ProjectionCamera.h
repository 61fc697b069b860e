#pragma once

#include "slices/logic/SliceCamera.h"

/// Where the projection of the whole volume along an axis is looked at from. Lengths are millimetres of the
/// scene.
struct ProjectionCamera
{
    SliceWindow window;    ///< of the field of view, around the middle of the box
    double nearEnd = 0.0;  ///< the box along the axis
    double farEnd = 0.0;
    double normal[3] = {0.0, 0.0, 1.0};
    float rotation[3] = {0.0F, 0.0F, 0.0F};  ///< degrees about x, y, z, as a slice's
    double translation[3] = {0.0, 0.0, 0.0};
};

/// The camera for an orientation (1, 2 or 4) and a square field of view; nothing for a number that is none.
std::optional<ProjectionCamera> projectionCamera(int orientation, const SliceBox& box, double fieldOfView);

/// The window that every projection shows, whatever its field of view: whoever scales the picture counts on
/// these lengths.
constexpr SliceWindow kProjectionWindow{-75.0, 150.0, -100.0, 250.0};
