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
    std::array<hvscene::Vec3, 4> outline;  ///< where the plane meets the scene's box

    /// Brings the plane into the box and takes the outline anew.
    void update(const hvscene::Box& scene);
    /// Needs a current context and the scene's matrices.
    void drawOutline() const;
};
