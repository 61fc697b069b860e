#include "lib/hvapi/scene/logic/VoxelPick.h"

#include <algorithm>
#include <cstddef>
#include <limits>

namespace hvscene {

namespace {

constexpr int visibleAlpha = 26;  // a tenth of 255, rounded up

unsigned char voxelOf(const VoxelField& field, const int (&voxel)[3])
{
    const std::size_t row = static_cast<std::size_t>(voxel[2]) * static_cast<std::size_t>(field.counts[1]) +
                            static_cast<std::size_t>(voxel[1]);
    return field.voxels[row * static_cast<std::size_t>(field.counts[0]) + static_cast<std::size_t>(voxel[0])];
}

}  // namespace

void markSolid(const unsigned char* table, unsigned char threshold, bool (&solid)[256])
{
    for (int value = 0; value < 256; ++value)
        solid[value] = value >= threshold && table[4 * value + 3] >= visibleAlpha;
}

std::optional<Span> spanInBox(const Box& box, const Ray& ray)
{
    if (box.empty) return std::nullopt;
    const double low[3] = {box.min.x, box.min.y, box.min.z};
    const double high[3] = {box.max.x, box.max.y, box.max.z};
    const double origin[3] = {ray.origin.x, ray.origin.y, ray.origin.z};
    const double way[3] = {ray.direction.x, ray.direction.y, ray.direction.z};
    Span span{0.0, std::numeric_limits<double>::infinity()};
    for (int axis = 0; axis < 3; ++axis) {
        if (way[axis] == 0.0) {
            if (origin[axis] < low[axis] || origin[axis] > high[axis]) return std::nullopt;
            continue;
        }
        double a = (low[axis] - origin[axis]) / way[axis];
        double b = (high[axis] - origin[axis]) / way[axis];
        if (a > b) std::swap(a, b);
        span.enter = std::max(span.enter, a);
        span.leave = std::min(span.leave, b);
    }
    if (!(span.enter <= span.leave) || !std::isfinite(span.leave)) return std::nullopt;
    return span;
}

std::optional<VoxelHit> firstSolidVoxel(const VoxelField& field, const Ray& ray)
{
    if (!field.voxels) return std::nullopt;
    const auto span = spanInBox(field.kept, ray);
    if (!span) return std::nullopt;

    // In counts of voxels from the first one's outer corner.
    const double first[3] = {field.first.x, field.first.y, field.first.z};
    const double lengths[3] = {field.last.x - field.first.x, field.last.y - field.first.y,
                               field.last.z - field.first.z};
    const double origin[3] = {ray.origin.x, ray.origin.y, ray.origin.z};
    const double way[3] = {ray.direction.x, ray.direction.y, ray.direction.z};
    int voxel[3];
    int step[3];
    double next[3];   // where the ray crosses into the next voxel of an axis
    double every[3];  // from one crossing to the next
    for (int axis = 0; axis < 3; ++axis) {
        if (field.counts[axis] <= 0 || lengths[axis] == 0.0) return std::nullopt;
        const double perUnit = field.counts[axis] / lengths[axis];
        const double start = (origin[axis] + span->enter * way[axis] - first[axis]) * perUnit;
        const double speed = way[axis] * perUnit;
        // A place on the border between two voxels belongs to the one that the ray goes into.
        double cell = std::floor(start);
        if (speed < 0.0 && cell == start) cell -= 1.0;
        if (!std::isfinite(start) || !std::isfinite(speed)) return std::nullopt;
        voxel[axis] = static_cast<int>(std::clamp(cell, 0.0, field.counts[axis] - 1.0));
        step[axis] = speed > 0.0 ? 1 : -1;
        every[axis] = speed == 0.0 ? std::numeric_limits<double>::infinity() : 1.0 / std::fabs(speed);
        const double border = speed > 0.0 ? voxel[axis] + 1.0 : voxel[axis];
        next[axis] = speed == 0.0 ? every[axis] : span->enter + (border - start) / speed;
    }

    double at = span->enter;
    while (at <= span->leave) {
        const unsigned char value = voxelOf(field, voxel);
        if (field.solid[value])
            return VoxelHit{{voxel[0], voxel[1], voxel[2]}, value, at, ray.origin + ray.direction * at};
        const int axis = next[0] <= next[1] ? (next[0] <= next[2] ? 0 : 2) : (next[1] <= next[2] ? 1 : 2);
        at = std::max(at, next[axis]);
        voxel[axis] += step[axis];
        if (voxel[axis] < 0 || voxel[axis] >= field.counts[axis]) break;
        next[axis] += every[axis];
    }
    return std::nullopt;
}

int valueAt(const VoxelField& field, Vec3 place)
{
    if (!field.voxels) return 0;
    const double first[3] = {field.first.x, field.first.y, field.first.z};
    const double lengths[3] = {field.last.x - field.first.x, field.last.y - field.first.y,
                               field.last.z - field.first.z};
    const double at[3] = {place.x, place.y, place.z};
    int voxel[3];
    for (int axis = 0; axis < 3; ++axis) {
        if (field.counts[axis] <= 0 || lengths[axis] == 0.0) return 0;
        const double cell = std::floor((at[axis] - first[axis]) * field.counts[axis] / lengths[axis]);
        if (!std::isfinite(cell)) return 0;
        voxel[axis] = static_cast<int>(std::clamp(cell, 0.0, field.counts[axis] - 1.0));
    }
    return voxelOf(field, voxel);
}

}  // namespace hvscene
