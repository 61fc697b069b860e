#include "phantom/Mouse.h"

#include "phantom/Curves.h"

namespace phantom {
namespace {

// The bed's upper face is part of a cylinder along y.
constexpr double bedRadius = 60.0;
constexpr double bedLowest = -13.6;
constexpr double bedWall = 2.0;
constexpr double bedRim = -3.0;

void append(std::vector<Solid>& all, const std::vector<Solid>& more)
{
    all.insert(all.end(), more.begin(), more.end());
}

}  // namespace

double bedHeight(double x)
{
    return bedLowest + bedRadius - std::sqrt(bedRadius * bedRadius - x * x);
}

std::vector<Solid> scannerBed()
{
    const double axis = bedLowest + bedRadius;
    const double outer = bedRadius + bedWall;
    Solid bed;
    bed.density = 34;
    bed.parts = {Capsule{{0, -100, axis}, {0, 100, axis}, outer, outer}};
    bed.wall = bedWall;
    bed.cuts = {Box{{-200, -200, bedRim}, {200, 200, 200}}};
    return {bed};
}

std::vector<Vec3> tailCourse()
{
    const auto onBed = [](double x, double y) { return Vec3{x, y, bedHeight(x) + 1.6}; };
    return {{0, -31, 4.2},     {0.2, -34, 0.5},  {3, -36.6, -6},   onBed(10.5, -37.6),
            onBed(20, -36.6),  onBed(27.5, -32), onBed(31.3, -24), onBed(31.5, -15),
            onBed(29.3, -6.5), onBed(29.2, 1),   onBed(31.2, 7.5)};
}

std::vector<Solid> mouseOnBed()
{
    std::vector<Solid> all = scannerBed();
    append(all, softTissue());
    append(all, skull());
    append(all, skeletonBelowTheHead());
    return all;
}

}  // namespace phantom
