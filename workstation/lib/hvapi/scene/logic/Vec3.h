#pragma once

#include <cmath>

namespace hvscene {

/// Three doubles: a point in millimetres or a direction.
struct Vec3
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

inline Vec3 operator+(Vec3 a, Vec3 b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

inline Vec3 operator-(Vec3 a, Vec3 b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

inline Vec3 operator*(Vec3 a, double s)
{
    return {a.x * s, a.y * s, a.z * s};
}

inline double dot(Vec3 a, Vec3 b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

inline Vec3 cross(Vec3 a, Vec3 b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

inline double length(Vec3 a)
{
    return std::sqrt(dot(a, a));
}

inline Vec3 normalized(Vec3 a)
{
    return a * (1.0 / length(a));
}

/// An axis-aligned box. Empty until something is added to it.
struct Box
{
    Vec3 min;
    Vec3 max;
    bool empty = true;

    void add(Vec3 p)
    {
        if (empty) {
            min = max = p;
            empty = false;
            return;
        }
        min = {std::fmin(min.x, p.x), std::fmin(min.y, p.y), std::fmin(min.z, p.z)};
        max = {std::fmax(max.x, p.x), std::fmax(max.y, p.y), std::fmax(max.z, p.z)};
    }
    Vec3 center() const { return (min + max) * 0.5; }
    /// Half the space diagonal.
    double radius() const { return length(max - min) * 0.5; }
    /// 0 to 7: bit 0 takes max.x, bit 1 max.y, bit 2 max.z.
    Vec3 corner(int k) const
    {
        return {(k & 1) ? max.x : min.x, (k & 2) ? max.y : min.y, (k & 4) ? max.z : min.z};
    }
    bool operator==(const Box& o) const
    {
        return empty == o.empty && min.x == o.min.x && min.y == o.min.y && min.z == o.min.z &&
               max.x == o.max.x && max.y == o.max.y && max.z == o.max.z;
    }
    bool operator!=(const Box& o) const { return !(*this == o); }
};

}  // namespace hvscene
