#include "render/logic/VolumeBox.h"

#include <cmath>

namespace {

/// For each corner, which end of x, y and z it has: 0 low, 1 high.
constexpr int kCornerEnds[8][3] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0},
                                   {0, 0, 1}, {1, 0, 1}, {1, 1, 1}, {0, 1, 1}};

constexpr VolumeEdge kEdges[12] = {{0, 1}, {1, 2}, {2, 3}, {3, 0}, {0, 4}, {1, 5},
                                   {2, 6}, {3, 7}, {4, 5}, {5, 6}, {6, 7}, {7, 4}};

}  // namespace

const int s_edgeSequence[8][12] = {
    {0, 1, 5, 6, 4, 8, 11, 9, 3, 7, 2, 10},  //
    {0, 4, 3, 11, 1, 2, 6, 7, 5, 9, 8, 10},  //
    {1, 5, 0, 8, 2, 3, 7, 4, 6, 10, 9, 11},  //
    {7, 11, 10, 8, 2, 6, 1, 9, 3, 0, 4, 5},  //
    {8, 5, 9, 1, 11, 10, 7, 6, 4, 3, 0, 2},  //
    {9, 6, 10, 2, 8, 11, 4, 7, 5, 0, 1, 3},  //
    {9, 8, 5, 4, 6, 1, 2, 0, 10, 7, 11, 3},  //
    {10, 9, 6, 5, 7, 2, 3, 1, 11, 4, 8, 0},
};

void placeVolumeVertices(const Coord3d& min, const Coord3d& max, const _tagAxis_Orientation& orientation,
                         VolumeVertex (&vertices)[8]) noexcept
{
    const double ends[3][2] = {
        {-std::abs(min.x) * orientation.x, std::abs(max.x) * orientation.x},
        {-std::abs(min.y) * orientation.y, std::abs(max.y) * orientation.y},
        {-std::abs(min.z) * orientation.z, std::abs(max.z) * orientation.z},
    };
    for (int corner = 0; corner < 8; ++corner) {
        VolumeVertex vertex;
        for (int axis = 0; axis < 3; ++axis) {
            const int end = kCornerEnds[corner][axis];
            vertex.position[axis] = ends[axis][end];
            vertex.texture[axis] = end;
        }
        vertex.position[3] = 1.0;
        vertices[corner] = vertex;
    }
}

void listVolumeEdges(VolumeEdge (&edges)[12]) noexcept
{
    for (int i = 0; i < 12; ++i)
        edges[i] = kEdges[i];
}

std::array<Vec3f, 8> boxCorners(const Coord3d& min, const Coord3d& max)
{
    std::array<Vec3f, 8> corners;
    for (int corner = 0; corner < 8; ++corner) {
        const auto& ends = kCornerEnds[corner];
        corners[corner].set(ends[0] ? max.x : min.x, ends[1] ? max.y : min.y, ends[2] ? max.z : min.z);
    }
    return corners;
}
