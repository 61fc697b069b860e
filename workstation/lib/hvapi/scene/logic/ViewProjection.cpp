#include "lib/hvapi/scene/logic/ViewProjection.h"

#include <algorithm>

namespace hvscene {

double distanceToSegment(Pixel p, Pixel a, Pixel b)
{
    const Pixel along = b - a;
    const double square = dot(along, along);
    const double share = square > 0.0 ? std::clamp(dot(p - a, along) / square, 0.0, 1.0) : 0.0;
    return length(p - (a + along * share));
}

ViewProjection::ViewProjection(const Camera& camera, double width, double height)
    : m_camera(camera)
    , m_width(std::max(1.0, width))
    , m_height(std::max(1.0, height))
    , m_mmPerPixel(2.0 * camera.halfHeight() / m_height)
{}

Pixel ViewProjection::toPixels(Vec3 p) const
{
    const auto share = m_camera.toWindow(p);
    return {m_width / 2.0 + share[0] * m_height, m_height / 2.0 - share[1] * m_height};
}

Pixel ViewProjection::vectorInPixels(Vec3 v) const
{
    return {dot(v, m_camera.right()) / m_mmPerPixel, -dot(v, m_camera.up()) / m_mmPerPixel};
}

Vec3 ViewProjection::vectorOf(Pixel v) const
{
    return m_camera.right() * (v.x * m_mmPerPixel) - m_camera.up() * (v.y * m_mmPerPixel);
}

Ray ViewProjection::rayThrough(Pixel p) const
{
    const Vec3 front = m_camera.pointInFront();
    return {front + vectorOf(p - toPixels(front)), m_camera.back() * -1.0};
}

}  // namespace hvscene
