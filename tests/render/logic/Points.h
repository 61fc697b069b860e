#pragma once

#include "render/logic/VolumeBox.h"
#include "render/logic/VolumeVertex.h"

#include <gmock/gmock.h>

/// The cube from -1 to 1 with its edges: texture coordinates are (position + 1) / 2.
struct Cube
{
    Cube()
    {
        placeVolumeVertices({-1, -1, -1}, {1, 1, 1}, {}, vertices);
        listVolumeEdges(edges);
    }
    VolumeVertex vertices[8];
    VolumeEdge edges[12];
};

/// Position and texture coordinate of a polygon's corner, in the cube.
MATCHER_P4(IsCubePoint, x, y, z, tolerance, "")
{
    const double expected[3] = {double(x), double(y), double(z)};
    for (int i = 0; i < 3; ++i) {
        *result_listener << "position " << arg.position[i] << " texture " << arg.texture[i] << "; ";
        if (std::abs(arg.position[i] - expected[i]) > tolerance) return false;
        if (std::abs(arg.texture[i] - (expected[i] + 1.0) / 2.0) > tolerance) return false;
    }
    return arg.position[3] == 1.0;
}
