#pragma once

#include "hvapi/values/Coord3d.h"
#include "hvapi/values/_tagAxis_Orientation.h"
#include "render/logic/VolumeVertex.h"

/// Axis codes of thick slices.
enum SliceAxis : int
{
    SLICE_AXIS_X = 1,
    SLICE_AXIS_Y = 2,
    SLICE_AXIS_Z = 4
};

/// The two clip planes (a, b, c, d, kept side positive) that cut the slab position - thickness / 2 to
/// position + thickness / 2 out of the box, lengths in millimetres. False for an unknown axis code.
bool makeSlabPlanes(const Coord3d& min, const Coord3d& max, int axis, double position, double thickness,
                    double (&planes)[2][4]);

/// Quads across the whole box, perpendicular to an axis. The stack does not depend on the slab or the viewer.
///
/// Quad i lies at -|min| + step * i along the axis and shows texture coordinate i / count there, both in
/// single precision; draw from count() - 1 down to 0.
class ThickStack
{
public:
    /// `interval` in millimetres, see sliceInterval(). No quads for an unknown axis code.
    ThickStack(const Coord3d& min, const Coord3d& max, const _tagAxis_Orientation& orientation, int axis,
               double interval) noexcept;

    int count() const noexcept { return m_count; }
    void quad(int index, VolumeVertex (&corners)[4]) const noexcept;

private:
    int m_axis = 0;  ///< 0, 1, 2 for x, y, z
    int m_count = 0;
    float m_step = 0.0F;
    float m_textureStep = 0.0F;
    double m_start = 0.0;      ///< -|min| along the axis
    double m_sign = 1.0;       ///< orientation of the axis
    double m_ends[3][2] = {};  ///< low and high end of each axis, orientation applied
};
