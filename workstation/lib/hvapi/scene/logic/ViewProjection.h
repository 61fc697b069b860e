#pragma once

#include "lib/hvapi/scene/logic/Camera.h"

namespace hvscene {

/// A place in a window, in its pixels: x to the right and y down from the upper left corner, as the mouse has
/// it.
struct Pixel
{
    double x = 0.0;
    double y = 0.0;
};

inline Pixel operator+(Pixel a, Pixel b)
{
    return {a.x + b.x, a.y + b.y};
}

inline Pixel operator-(Pixel a, Pixel b)
{
    return {a.x - b.x, a.y - b.y};
}

inline Pixel operator*(Pixel a, double s)
{
    return {a.x * s, a.y * s};
}

inline double dot(Pixel a, Pixel b)
{
    return a.x * b.x + a.y * b.y;
}

inline double length(Pixel a)
{
    return std::sqrt(dot(a, a));
}

/// Pixels between a point and a line from `a` to `b`; the line may be a point.
double distanceToSegment(Pixel p, Pixel a, Pixel b);

/// A half line. The direction has the length 1.
struct Ray
{
    Vec3 origin;
    Vec3 direction;
};

/// How a camera maps the scene, in millimetres, to a window of so many pixels.
class ViewProjection
{
public:
    ViewProjection(const Camera& camera, double width, double height);

    Pixel toPixels(Vec3 p) const;
    /// A vector of the scene as it lies in the picture.
    Pixel vectorInPixels(Vec3 v) const;
    double mmPerPixel() const { return m_mmPerPixel; }
    double width() const { return m_width; }
    double height() const { return m_height; }
    /// Length 1.
    Vec3 towardsViewer() const { return m_camera.back(); }
    /// Sight through a pixel, from in front of the whole scene.
    Ray rayThrough(Pixel p) const;
    /// The vector of the scene, at right angles to the line of sight, that looks like `v` in the picture.
    Vec3 vectorOf(Pixel v) const;

private:
    Camera m_camera;
    double m_width;
    double m_height;
    double m_mmPerPixel;
};

}  // namespace hvscene
