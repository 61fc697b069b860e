#include "render/logic/ThickSlab.h"

#include "hvapi/values/obtainEquationVariablesForPlane.h"
#include "render/logic/SliceStack.h"
#include "render/logic/VolumeBox.h"

#include <cmath>

namespace {

/// Place of an axis code in x, y, z; -1 for an unknown one.
int axisIndex(int axis) noexcept
{
    switch (axis) {
    case SLICE_AXIS_X:
        return 0;
    case SLICE_AXIS_Y:
        return 1;
    case SLICE_AXIS_Z:
        return 2;
    default:
        return -1;
    }
}

struct SlabPlane
{
    int corners[3];
    bool high;  ///< the corners are moved to the high side of the slab
};

/// Turned so that the normals point into the slab.
constexpr SlabPlane kSlabPlanes[3][2] = {
    {{{0, 3, 7}, false}, {{2, 1, 5}, true}},
    {{{5, 1, 0}, false}, {{7, 3, 2}, true}},
    {{{6, 5, 4}, true}, {{0, 1, 2}, false}},
};

}  // namespace

bool makeSlabPlanes(const Coord3d& min, const Coord3d& max, int axis, double position, double thickness,
                    double (&planes)[2][4])
{
    int along = axisIndex(axis);
    if (along < 0) return false;
    const double low = position - thickness / 2.0;
    const double high = position + thickness / 2.0;
    for (int i = 0; i < 2; ++i) {
        std::array<Vec3f, 8> corners = boxCorners(min, max);
        const SlabPlane& plane = kSlabPlanes[along][i];
        for (int corner : plane.corners)
            corners[corner][along] = plane.high ? high : low;
        obtainEquationVariablesForPlane(corners[plane.corners[0]], corners[plane.corners[1]],
                                        corners[plane.corners[2]], planes[i][0], planes[i][1], planes[i][2],
                                        planes[i][3]);
    }
    return true;
}

ThickStack::ThickStack(const Coord3d& min, const Coord3d& max, const _tagAxis_Orientation& orientation,
                       int axis, double interval) noexcept
{
    const int along = axisIndex(axis);
    if (along < 0) return;
    const double low[3] = {min.x, min.y, min.z};
    const double high[3] = {max.x, max.y, max.z};
    const double sign[3] = {double(orientation.x), double(orientation.y), double(orientation.z)};
    for (int i = 0; i < 3; ++i) {
        m_ends[i][0] = -std::abs(low[i]) * sign[i];
        m_ends[i][1] = std::abs(high[i]) * sign[i];
    }
    m_axis = along;
    m_start = -std::abs(low[along]);
    m_sign = sign[along];
    const double length = high[along] - low[along];
    m_count = sliceCount(length, interval);
    if (m_count == 0) return;
    m_step = static_cast<float>(length) / static_cast<float>(m_count);
    m_textureStep = 1.0F / static_cast<float>(m_count);
}

void ThickStack::quad(int index, VolumeVertex (&corners)[4]) const noexcept
{
    static constexpr int kAround[4][2] = {{0, 0}, {0, 1}, {1, 1}, {1, 0}};
    const int first = m_axis == 0 ? 1 : 0;
    const int second = m_axis == 2 ? 1 : 2;
    const double along = (m_start + m_step * static_cast<float>(index)) * m_sign;
    const double texture = m_textureStep * static_cast<float>(index);
    for (int k = 0; k < 4; ++k) {
        VolumeVertex& corner = corners[k];
        corner = VolumeVertex();
        corner.position[m_axis] = along;
        corner.texture[m_axis] = texture;
        corner.position[first] = m_ends[first][kAround[k][0]];
        corner.texture[first] = kAround[k][0];
        corner.position[second] = m_ends[second][kAround[k][1]];
        corner.texture[second] = kAround[k][1];
        corner.position[3] = 1.0;
    }
}
