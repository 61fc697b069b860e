#include "render/logic/SliceStack.h"

#include "render/logic/VolumeBox.h"

#include <algorithm>
#include <cmath>

namespace {

/// Keeps the first and the last plane strictly inside the box.
constexpr double kInset = 1e-6;

}  // namespace

double sliceInterval(const Coord3d& thickness, int density) noexcept
{
    const double smallest = std::min(std::min(thickness.x, thickness.y), thickness.z);
    return smallest * (1.0 / (density / 100.0));
}

int sliceCount(double length, double interval) noexcept
{
    const double count = 1.0 + std::abs(length) / interval;
    if (!(interval > 0.0) || !(count >= 1.0)) return 0;
    return count < kMaxSlices ? static_cast<int>(count) : kMaxSlices;
}

VolumeVertex viewDirection(const double (&modelview)[16]) noexcept
{
    VolumeVertex view;
    view.position[0] = -modelview[2];
    view.position[1] = -modelview[6];
    view.position[2] = -modelview[10];
    view.position[3] = 0.0;
    return view;
}

SliceStack::SliceStack(const VolumeVertex (&vertices)[8], const VolumeEdge (&edges)[12],
                       const VolumeVertex& view, double interval) noexcept
    : m_farthest(farthestVertex(vertices, view))
    , m_cut(vertices, edges, s_edgeSequence[m_farthest])
    , m_near(dot(view, vertices[0]))
    , m_far(m_near)
{
    for (int k = 1; k < 8; ++k) {
        const double distance = dot(view, vertices[k]);
        m_near = std::min(m_near, distance);
        m_far = std::max(m_far, distance);
    }
    m_near += kInset;
    m_far -= kInset;
    m_count = sliceCount(m_far - m_near, interval);

    for (int e = 0; e < 12; ++e) {
        const double slope = dot(m_cut.direction[e], view);
        if (1.0 + slope == 1.0) {  // the planes run along this edge and never cut it
            m_lambda[e] = -1.0F;
            m_step[e] = 0.0F;
        } else {
            m_step[e] = static_cast<float>(interval / slope);
            m_lambda[e] = static_cast<float>((m_near - dot(m_cut.start[e], view)) / slope);
        }
    }
}

bool SliceStack::polygon(int index, VolumeVertex (&corners)[6]) const noexcept
{
    float lambda[12];
    for (int e = 0; e < 12; ++e)
        lambda[e] = m_lambda[e] + static_cast<float>(index) * m_step[e];
    return m_cut.corners(lambda, PlaneCut::Ends::FirstOnly, corners);
}
