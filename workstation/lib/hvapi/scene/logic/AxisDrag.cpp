#include "lib/hvapi/scene/logic/AxisDrag.h"

namespace hvscene {

namespace {

constexpr double pi = 3.14159265358979323846;
constexpr double edgeOnShare = 0.25;  // of the normal that points at the viewer

/// The point of the plane through `center` that is seen through `p`, from the centre.
Vec3 onPlane(const ViewProjection& view, Vec3 center, Vec3 normal, Pixel p)
{
    const Vec3 aside = view.vectorOf(p - view.toPixels(center));
    const Vec3 back = view.towardsViewer();
    return aside - back * (dot(aside, normal) / dot(back, normal));
}

}  // namespace

double shownShare(const ViewProjection& view, Vec3 axis)
{
    return length(view.vectorInPixels(axis)) * view.mmPerPixel();
}

double dragAlongAxis(const ViewProjection& view, Vec3 axis, Pixel from, Pixel to)
{
    const Pixel move = to - from;
    if (shownShare(view, axis) < endOnShare) {
        const double towards = dot(axis, view.towardsViewer()) < 0.0 ? -1.0 : 1.0;
        return towards * -move.y * view.mmPerPixel();
    }
    const Pixel shown = view.vectorInPixels(axis);
    return dot(move, shown) / dot(shown, shown);
}

double turnAboutAxis(const ViewProjection& view, Vec3 center, Vec3 normal, Vec3 grip, Pixel from, Pixel to)
{
    if (std::fabs(dot(normal, view.towardsViewer())) >= edgeOnShare) {
        const Vec3 a = onPlane(view, center, normal, from);
        const Vec3 b = onPlane(view, center, normal, to);
        return std::atan2(dot(cross(a, b), normal), dot(a, b));
    }
    const Vec3 tangent = cross(normal, grip - center);  // a radian's way
    const Pixel shown = view.vectorInPixels(tangent);
    const double square = dot(shown, shown);
    if (!(square > 1.0)) return 0.0;
    return std::remainder(dot(to - from, shown) / square, 2.0 * pi);
}

}  // namespace hvscene
