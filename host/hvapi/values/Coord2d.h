#pragma once

/// A point in a plane, in doubles.
struct Coord2d
{
    constexpr Coord2d() = default;
    constexpr Coord2d(double x_, double y_)
        : x(x_)
        , y(y_)
    {}

    double x = 0.0;
    double y = 0.0;
};
