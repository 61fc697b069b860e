#pragma once

#include "hvapi/scene/C3DSlice.h"
#include "lib/hvapi/scene/logic/Vec3.h"

#include <array>

struct C3DSlice::Private
{
    int axis = 0;
    double position = 0.0;
    bool displayed = false;
    bool dirty = true;
    hvscene::Box scene;                    ///< as the plane was last brought into it
    std::array<hvscene::Vec3, 4> outline;  ///< where the plane meets the scene's box

    /// Brings the plane into the box and takes the outline anew.
    void update(const hvscene::Box& box);
    /// The position nearest to `wanted` that is in the box.
    double inScene(double wanted) const;
    /// Where the plane's knob is: the corner of the outline at the upper ends of the other two axes.
    hvscene::Vec3 knob() const { return outline[2]; }
    /// Needs a current context and the scene's matrices.
    void drawOutline(float lineWidth) const;
};
