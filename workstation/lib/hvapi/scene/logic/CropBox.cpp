#include "lib/hvapi/scene/logic/CropBox.h"

#include <algorithm>

namespace hvscene {

namespace {

constexpr double leastShare = 0.01;

double& component(Vec3& v, int axis)
{
    return axis == 0 ? v.x : axis == 1 ? v.y : v.z;
}

double component(const Vec3& v, int axis)
{
    return axis == 0 ? v.x : axis == 1 ? v.y : v.z;
}

bool isUpper(int corner, int axis)
{
    if (axis == 0) return corner % 4 == 1 || corner % 4 == 2;
    if (axis == 1) return corner % 4 >= 2;
    return corner >= 4;
}

Vec3 fullCorner(const Box& box, int corner)
{
    return {isUpper(corner, 0) ? box.max.x : box.min.x, isUpper(corner, 1) ? box.max.y : box.min.y,
            isUpper(corner, 2) ? box.max.z : box.min.z};
}

}  // namespace

CropCorners cropCorners(const Box& box, const CropOffsets& offsets)
{
    CropCorners corners;
    for (int k = 0; k < 8; ++k) {
        const Vec3 c = fullCorner(box, k);
        const Vec3 r = c - box.center();
        const Vec3& o = offsets[static_cast<std::size_t>(k)];
        corners[static_cast<std::size_t>(k)] = c + Vec3{o.x * r.x, o.y * r.y, -o.z * r.z};
    }
    return corners;
}

CropOffsets cropOffsets(const Box& box, const CropCorners& corners)
{
    CropOffsets offsets;
    for (int k = 0; k < 8; ++k) {
        const Vec3 c = fullCorner(box, k);
        const Vec3 r = c - box.center();
        for (int axis = 0; axis < 3; ++axis) {
            const double way = component(r, axis);
            if (way == 0.0) continue;
            const auto n = static_cast<std::size_t>(k);
            const double share = (component(corners[n], axis) - component(c, axis)) / way;
            component(offsets[n], axis) = axis == 2 ? -share : share;
        }
    }
    return offsets;
}

std::array<int, 4> cornersOf(CropFace face)
{
    static constexpr int faces[3][2][4] = {
        {{0, 3, 7, 4}, {1, 2, 6, 5}}, {{0, 1, 5, 4}, {3, 2, 6, 7}}, {{0, 1, 2, 3}, {4, 5, 6, 7}}};
    const auto& f = faces[face.axis][face.upper ? 1 : 0];
    return {f[0], f[1], f[2], f[3]};
}

Vec3 faceMiddle(const CropCorners& corners, CropFace face)
{
    Vec3 sum;
    for (int k : cornersOf(face))
        sum = sum + corners[static_cast<std::size_t>(k)];
    return sum * 0.25;
}

CropCorners withFaceAt(const Box& box, CropCorners corners, CropFace face, double coordinate)
{
    const int axis = face.axis;
    const double low = component(box.min, axis);
    const double high = component(box.max, axis);
    const double opposite = component(faceMiddle(corners, {axis, !face.upper}), axis);
    const double gap = leastShare * (high - low);
    double wanted = face.upper ? std::max(coordinate, opposite + gap) : std::min(coordinate, opposite - gap);
    wanted = std::clamp(wanted, low, high);
    for (int k : cornersOf(face))
        component(corners[static_cast<std::size_t>(k)], axis) = wanted;
    return corners;
}

}  // namespace hvscene
