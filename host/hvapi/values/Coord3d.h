#pragma once

/// A point or a triple of extents, in doubles.
struct Coord3d
{
    constexpr Coord3d() = default;
    constexpr Coord3d(double x_, double y_, double z_)
        : x(x_)
        , y(y_)
        , z(z_)
    {}

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};
