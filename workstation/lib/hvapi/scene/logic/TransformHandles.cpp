#include "lib/hvapi/scene/logic/TransformHandles.h"

#include "lib/hvapi/scene/logic/AxisDrag.h"

#include <limits>

namespace hvscene {

namespace {

// Pixels of a line.
constexpr double arrowFrom = 14.0;
constexpr double arrowTo = 104.0;
constexpr double radius = 78.0;
constexpr double reach = 7.0;

constexpr double pi = 3.14159265358979323846;

}  // namespace

Vec3 axisVector(int axis)
{
    return {axis == 0 ? 1.0 : 0.0, axis == 1 ? 1.0 : 0.0, axis == 2 ? 1.0 : 0.0};
}

TransformHandles::TransformHandles(const ViewProjection& view, Vec3 center, double scale)
    : m_view(view)
    , m_center(center)
    , m_scale(scale)
{}

double TransformHandles::ringRadius() const
{
    return radius * m_scale * m_view.mmPerPixel();
}

Vec3 TransformHandles::arrowStart(int axis) const
{
    return m_center + axisVector(axis) * (arrowFrom * m_scale * m_view.mmPerPixel());
}

Vec3 TransformHandles::arrowEnd(int axis) const
{
    return m_center + axisVector(axis) * (arrowTo * m_scale * m_view.mmPerPixel());
}

bool TransformHandles::isArrowShown(int axis) const
{
    return shownShare(m_view, axisVector(axis)) >= endOnShare;
}

Vec3 TransformHandles::ringPoint(int axis, double angle) const
{
    const Vec3 u = axisVector((axis + 1) % 3);
    const Vec3 v = axisVector((axis + 2) % 3);
    return m_center + (u * std::cos(angle) + v * std::sin(angle)) * ringRadius();
}

bool TransformHandles::isInFront(Vec3 ringPoint) const
{
    return dot(ringPoint - m_center, m_view.towardsViewer()) >= -0.02 * ringRadius();
}

double TransformHandles::ringDistance(int axis, Pixel mouse, Vec3* nearest) const
{
    double best = std::numeric_limits<double>::infinity();
    for (int k = 0; k < ringSteps; ++k) {
        const Vec3 a = ringPoint(axis, 2.0 * pi * k / ringSteps);
        const Vec3 b = ringPoint(axis, 2.0 * pi * (k + 1) / ringSteps);
        if (!isInFront(a) || !isInFront(b)) continue;
        const double distance = distanceToSegment(mouse, m_view.toPixels(a), m_view.toPixels(b));
        if (distance >= best) continue;
        best = distance;
        if (nearest) *nearest = a;
    }
    return best;
}

TransformHandle TransformHandles::pick(Pixel mouse) const
{
    TransformHandle found;
    double best = reach * m_scale;
    for (int axis = 0; axis < 3; ++axis) {
        if (!isArrowShown(axis)) continue;
        const double distance =
            distanceToSegment(mouse, m_view.toPixels(arrowStart(axis)), m_view.toPixels(arrowEnd(axis)));
        if (distance >= best) continue;
        best = distance;
        found = {TransformHandle::Move, axis};
    }
    if (found.kind != TransformHandle::None) return found;
    for (int axis = 0; axis < 3; ++axis) {
        const double distance = ringDistance(axis, mouse, nullptr);
        if (distance >= best) continue;
        best = distance;
        found = {TransformHandle::Turn, axis};
    }
    return found;
}

Vec3 TransformHandles::grip(int axis, Pixel mouse) const
{
    Vec3 nearest = ringPoint(axis, 0.0);
    ringDistance(axis, mouse, &nearest);
    return nearest;
}

}  // namespace hvscene
