#pragma once

#include "lib/hvapi/scene/logic/Vec3.h"

#include <array>

namespace hvscene {

/// 4 x 4, column-major, as GL takes it.
using Matrix16 = std::array<double, 16>;

enum class ViewPreset
{
    Front,  ///< looks along z: x to the right, y up
    Side,   ///< looks along x: z to the left, y up
    Top,    ///< looks along y, from above: x to the right, z down
    Iso     ///< from the right, above and in front; y up
};

/// An orthographic camera that orbits the middle of the scene. The projection is parallel so that lengths can
/// be compared anywhere in the picture.
///
/// Eye space: x to the right, y up, z towards the viewer, in millimetres. The camera stands off the middle of
/// the scene by twice the radius of the sphere around it, so everything lies in front of the eye whatever the
/// direction.
class Camera
{
public:
    Camera();

    /// Width and height of the window, in any one unit; not above 0 is ignored.
    void setWindow(double width, double height);
    /// The scene to look at; an empty box stands for one of 100 mm around the origin. The picture is fitted
    /// anew when the user has neither zoomed nor panned, or when `fitAnew` is set; else what is in the window
    /// stays where it is.
    void setScene(const Box& box, bool fitAnew);
    /// From now on the picture counts as the user's own choice, as after zooming.
    void keepPlace() { m_fitted = false; }

    void setPreset(ViewPreset preset);
    /// Takes the whole scene into the window and its middle to the middle; the direction stays.
    void fit();
    /// The front view, fitted.
    void reset();

    /// Turns the scene, in radians, as if it were held at its front: by `aboutUp` about the vertical of the
    /// window (the front goes right), then by `aboutRight` about its horizontal (the front goes down).
    void orbit(double aboutUp, double aboutRight);
    /// Shifts the scene by a share of the window's height: positive is right and up.
    void pan(double right, double up);
    /// Magnifies by `factor`. The point of the scene at (right, up), as shares of the window's height from
    /// its middle, stays where it is. Bounded, so that the scene can't be lost.
    void zoom(double factor, double right, double up);

    /// This camera for a full turn by orbit() about the vertical of the window, at one scale and with the
    /// axis at one place. What the user has zoomed or panned stays so; else it takes all that the whole turn
    /// shows into the window.
    Camera turntable() const;

    Matrix16 viewMatrix() const;
    /// For glOrtho.
    struct Frustum
    {
        double left, right, bottom, top, near, far;
    };
    Frustum frustum() const;

    Vec3 right() const { return m_right; }
    Vec3 up() const { return m_up; }
    /// From the scene to the viewer.
    Vec3 back() const { return m_back; }
    /// Half of the window's height in millimetres.
    double halfHeight() const { return m_halfHeight; }
    /// From scene to window, as shares of the window's height from its middle.
    std::array<double, 2> toWindow(Vec3 p) const;
    /// A point that lies nearer to the viewer than the whole scene.
    Vec3 pointInFront() const { return m_pivot + m_back * distance(); }

private:
    double distance() const { return 2.0 * m_radius; }
    void takeIn(double halfWidth, double halfHeight);

    Vec3 m_right{1, 0, 0};
    Vec3 m_up{0, 1, 0};
    Vec3 m_back{0, 0, 1};
    Box m_box;
    Vec3 m_pivot;
    double m_radius = 1.0;
    double m_aspect = 1.0;
    double m_halfHeight = 1.0;
    double m_panX = 0.0;  // millimetres in eye space
    double m_panY = 0.0;
    bool m_fitted = true;  // neither zoomed nor panned since the last fit
};

}  // namespace hvscene
