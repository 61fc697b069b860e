#pragma once

#include "slices/logic/SliceCamera.h"

/// What the slice view and the projection draw alike, in native GL in a current context.
namespace SliceScene {

/// Position (0, 0, z, 0) of light 0, its greys, and a viewer at infinity.
void setLight(float z);

/// A black quad across the window, at depth 0. It leaves no depth behind: what is shown lies farther away and
/// must not fail against it.
void drawGround(const SliceWindow& window);

/// The four corners of the window, between `glBegin` and `glEnd`.
void outline(const SliceWindow& window);

}  // namespace SliceScene
