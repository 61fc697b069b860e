#include "phantom/Shapes.h"

#include <algorithm>
#include <limits>

namespace phantom {
namespace {

double distanceTo(const Ellipsoid& e, Vec3 p)
{
    const Vec3 d = p - e.centre;
    const Vec3 local{dot(d, e.u) / e.radii.x, dot(d, e.v) / e.radii.y, dot(d, e.w) / e.radii.z};
    const double k = length(local);
    const double gradient = length({local.x / e.radii.x, local.y / e.radii.y, local.z / e.radii.z});
    if (gradient == 0) return -std::min({e.radii.x, e.radii.y, e.radii.z});
    return k * (k - 1.0) / gradient;
}

double distanceTo(const Capsule& c, Vec3 p)
{
    const Vec3 axis = c.b - c.a;
    const double square = dot(axis, axis);
    const double t = square > 0 ? std::clamp(dot(p - c.a, axis) / square, 0.0, 1.0) : 0.0;
    return length(p - mix(c.a, c.b, t)) - (c.ra + (c.rb - c.ra) * t);
}

double distanceTo(const Box& b, Vec3 p)
{
    const Vec3 d{std::max(b.low.x - p.x, p.x - b.high.x), std::max(b.low.y - p.y, p.y - b.high.y),
                 std::max(b.low.z - p.z, p.z - b.high.z)};
    const double inside = std::min(std::max({d.x, d.y, d.z}), 0.0);
    return inside + length({std::max(d.x, 0.0), std::max(d.y, 0.0), std::max(d.z, 0.0)});
}

Bounds boundsOf(const Ellipsoid& e)
{
    const Vec3 a = e.u * e.radii.x, b = e.v * e.radii.y, c = e.w * e.radii.z;
    const Vec3 half{length({a.x, b.x, c.x}), length({a.y, b.y, c.y}), length({a.z, b.z, c.z})};
    return {e.centre - half, e.centre + half};
}

Bounds boundsOf(const Capsule& c)
{
    return {{std::min(c.a.x - c.ra, c.b.x - c.rb), std::min(c.a.y - c.ra, c.b.y - c.rb),
             std::min(c.a.z - c.ra, c.b.z - c.rb)},
            {std::max(c.a.x + c.ra, c.b.x + c.rb), std::max(c.a.y + c.ra, c.b.y + c.rb),
             std::max(c.a.z + c.ra, c.b.z + c.rb)}};
}

Bounds boundsOf(const Box& b)
{
    return {b.low, b.high};
}

/// The smaller of two distances, rounded off where they are within `blend` of each other.
double smoothMin(double a, double b, double blend)
{
    if (blend <= 0) return std::min(a, b);
    const double h = std::max(blend - std::fabs(a - b), 0.0) / blend;
    return std::min(a, b) - h * h * blend * 0.25;
}

}  // namespace

Ellipsoid plate(Vec3 centre, Vec3 radii, Vec3 along, Vec3 normal)
{
    const Vec3 w = normalised(normal);
    const Vec3 u = normalised(along - w * dot(along, w));
    return {centre, radii, u, cross(w, u), w};
}

double distance(const Primitive& shape, Vec3 p)
{
    return std::visit([p](const auto& s) { return distanceTo(s, p); }, shape);
}

Bounds bounds(const Primitive& shape)
{
    return std::visit([](const auto& s) { return boundsOf(s); }, shape);
}

double distance(const Solid& solid, Vec3 p)
{
    double d = std::numeric_limits<double>::max();
    for (const Primitive& part : solid.parts)
        d = smoothMin(d, distance(part, p), solid.blend);
    if (solid.wall > 0) d = std::fabs(d + solid.wall * 0.5) - solid.wall * 0.5;
    for (const Primitive& cut : solid.cuts)
        d = std::max(d, -distance(cut, p));
    return d;
}

Bounds bounds(const Solid& solid)
{
    constexpr double far = std::numeric_limits<double>::max();
    Bounds all{{far, far, far}, {-far, -far, -far}};
    for (const Primitive& part : solid.parts) {
        const Bounds b = bounds(part);
        all.low = {std::min(all.low.x, b.low.x), std::min(all.low.y, b.low.y), std::min(all.low.z, b.low.z)};
        all.high = {std::max(all.high.x, b.high.x), std::max(all.high.y, b.high.y),
                    std::max(all.high.z, b.high.z)};
    }
    // A blended joint bulges by a quarter of the blend for a pair of parts, by more where several meet.
    const Vec3 bulge{solid.blend, solid.blend, solid.blend};
    return {all.low - bulge, all.high + bulge};
}

}  // namespace phantom
