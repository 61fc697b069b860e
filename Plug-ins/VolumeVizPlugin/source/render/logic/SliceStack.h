#pragma once

#include "hvapi/values/Coord3d.h"
#include "render/logic/PlaneCut.h"

/// A stack never holds more slices than this; far above what any volume that fits a 3D texture asks for.
constexpr int kMaxSlices = 100000;

/// Distance between two slices in millimetres: the smallest of the three voxel thicknesses, divided by the
/// density. `density` is in percent; 50 puts the slices twice as far apart, 300 at a third of the distance.
double sliceInterval(const Coord3d& thickness, int density) noexcept;

/// How many slices of that interval a length takes, both in millimetres: 1 + length / interval, truncated.
/// 0 where that is no number of slices (an interval of 0 or below); at most kMaxSlices.
int sliceCount(double length, double interval) noexcept;

/// The viewing direction in the volume's own space, w = 0: the negated third row of a column-major modelview
/// matrix. It is as long as that row, not normalised.
VolumeVertex viewDirection(const double (&modelview)[16]) noexcept;

/// Polygons through the box that face the viewer, `interval` apart.
///
/// Built once per frame without allocating; each polygon is worked out when it is asked for. Slice 0 is the
/// nearest to the viewer, so drawing from count - 1 down to 0 goes from the far end towards the viewer.
///
///     const SliceStack stack(vertices, edges, viewDirection(modelview), interval);
///     VolumeVertex polygon[6];
///     for (int i = stack.count() - 1; i >= 0; --i)
///         if (stack.polygon(i, polygon)) draw(polygon);
class SliceStack
{
public:
    SliceStack(const VolumeVertex (&vertices)[8], const VolumeEdge (&edges)[12], const VolumeVertex& view,
               double interval) noexcept;

    int count() const noexcept { return m_count; }
    /// The corner of the box that is farthest from the viewer, the row of `s_edgeSequence` in use.
    int farthest() const noexcept { return m_farthest; }
    /// Distances of the first and the last possible plane along the view direction; they lie 1e-6 inside the
    /// box.
    double nearDistance() const noexcept { return m_near; }
    double farDistance() const noexcept { return m_far; }

    /// The corners of slice `index` as a fan of six. False when the slice is to be skipped.
    bool polygon(int index, VolumeVertex (&corners)[6]) const noexcept;

private:
    int m_farthest;
    PlaneCut m_cut;
    double m_near;
    double m_far;
    int m_count;
    float m_lambda[12];  ///< places of slice 0 on the edges
    float m_step[12];    ///< what each further slice adds
};
