#include "phantom/Curves.h"

#include <algorithm>

namespace phantom {
namespace {

/// The spline of Catmull and Rom through all points, at part t (0..1) of the stretch that begins at point i.
Vec3 onSpline(const Points& points, std::size_t i, double t)
{
    const std::size_t last = points.size() - 1;
    const Vec3 p0 = points[i == 0 ? 0 : i - 1], p1 = points[i], p2 = points[i + 1];
    const Vec3 p3 = points[std::min(i + 2, last)];
    return (p1 * 2.0 + (p2 - p0) * t + (p0 * 2.0 - p1 * 5.0 + p2 * 4.0 - p3) * (t * t) +
            (p1 * 3.0 - p0 - p2 * 3.0 + p3) * (t * t * t)) *
           0.5;
}

Points finelySampled(const Points& through)
{
    constexpr int steps = 32;
    Points fine{through.front()};
    for (std::size_t i = 0; i + 1 < through.size(); ++i)
        for (int k = 1; k <= steps; ++k)
            fine.push_back(onSpline(through, i, static_cast<double>(k) / steps));
    return fine;
}

}  // namespace

Points evenlySpaced(const Points& through, int count)
{
    const Points fine = finelySampled(through);
    std::vector<double> travelled{0.0};
    for (std::size_t i = 1; i < fine.size(); ++i)
        travelled.push_back(travelled.back() + length(fine[i] - fine[i - 1]));

    Points even{fine.front()};
    std::size_t at = 1;
    for (int k = 1; k + 1 < count; ++k) {
        const double target = travelled.back() * k / (count - 1);
        while (at + 1 < fine.size() && travelled[at] < target)
            ++at;
        const double step = travelled[at] - travelled[at - 1];
        even.push_back(mix(fine[at - 1], fine[at], step > 0 ? (target - travelled[at - 1]) / step : 0.0));
    }
    even.push_back(fine.back());
    return even;
}

Points directions(const Points& points)
{
    Points result;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Vec3 before = points[i == 0 ? 0 : i - 1], after = points[std::min(i + 1, points.size() - 1)];
        result.push_back(normalised(after - before));
    }
    return result;
}

Points mirrored(Points points)
{
    for (Vec3& point : points)
        point.x = -point.x;
    return points;
}

void addTube(std::vector<Solid>& solids, Tissue tissue, double density, const Points& points, double ra,
             double rb)
{
    const std::size_t pieces = points.size() - 1;
    for (std::size_t i = 0; i < pieces; ++i) {
        const double from = ra + (rb - ra) * static_cast<double>(i) / pieces;
        const double to = ra + (rb - ra) * static_cast<double>(i + 1) / pieces;
        solids.push_back({tissue, density, {Capsule{points[i], points[i + 1], from, to}}, {}, 0, 0});
    }
}

void addBone(std::vector<Solid>& solids, double density, Primitive shape)
{
    solids.push_back({Tissue::Bone, density, {shape}, {}, 0, 0});
}

}  // namespace phantom
