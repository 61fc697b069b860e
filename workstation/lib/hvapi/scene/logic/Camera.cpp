#include "lib/hvapi/scene/logic/Camera.h"

#include <algorithm>

namespace hvscene {

namespace {

constexpr double marginAroundScene = 1.12;
constexpr double emptySceneHalfEdge = 50.0;
constexpr double nearestView = 0.005;  // half height over radius
constexpr double farthestView = 20.0;
constexpr double pi = 3.14159265358979323846;

void rotate(Vec3& a, Vec3& b, double angle)
{
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const Vec3 turned = a * c + b * s;
    b = b * c - a * s;
    a = turned;
}

}  // namespace

Camera::Camera()
{
    setScene(Box(), true);
}

void Camera::setWindow(double width, double height)
{
    if (!(width > 0.0) || !(height > 0.0)) return;
    const double aspect = width / height;
    if (aspect == m_aspect) return;
    m_aspect = aspect;
    if (m_fitted) fit();
}

void Camera::setScene(const Box& box, bool fitAnew)
{
    m_box = box;
    if (m_box.empty || !(m_box.radius() > 0.0)) {
        const Vec3 middle = m_box.empty ? Vec3() : m_box.center();
        const Vec3 half{emptySceneHalfEdge, emptySceneHalfEdge, emptySceneHalfEdge};
        m_box = Box();
        m_box.add(middle - half);
        m_box.add(middle + half);
    }
    m_radius = m_box.radius();
    const Vec3 moved = m_box.center() - m_pivot;
    m_pivot = m_box.center();
    if (fitAnew || m_fitted) {
        fit();
    } else {
        m_panX += dot(moved, m_right);
        m_panY += dot(moved, m_up);
    }
}

void Camera::setPreset(ViewPreset preset)
{
    switch (preset) {
    case ViewPreset::Front:
        m_back = {0, 0, 1};
        m_up = {0, 1, 0};
        break;
    case ViewPreset::Side:
        m_back = {1, 0, 0};
        m_up = {0, 1, 0};
        break;
    case ViewPreset::Top:
        m_back = {0, 1, 0};
        m_up = {0, 0, -1};
        break;
    case ViewPreset::Iso: {
        const double azimuth = 35.0 * pi / 180.0;
        const double elevation = 25.0 * pi / 180.0;
        m_back = {std::sin(azimuth) * std::cos(elevation), std::sin(elevation),
                  std::cos(azimuth) * std::cos(elevation)};
        m_up = normalized(Vec3{0, 1, 0} - m_back * m_back.y);
        break;
    }
    }
    m_right = cross(m_up, m_back);
    fit();
}

void Camera::fit()
{
    double halfWidth = 0.0;
    double halfHeight = 0.0;
    for (int k = 0; k < 8; ++k) {
        const Vec3 p = m_box.corner(k) - m_pivot;
        halfWidth = std::max(halfWidth, std::fabs(dot(p, m_right)));
        halfHeight = std::max(halfHeight, std::fabs(dot(p, m_up)));
    }
    takeIn(halfWidth, halfHeight);
    m_panX = m_panY = 0.0;
    m_fitted = true;
}

void Camera::takeIn(double halfWidth, double halfHeight)
{
    m_halfHeight =
        std::max(std::max(halfHeight, halfWidth / m_aspect) * marginAroundScene, nearestView * m_radius);
}

Camera Camera::turntable() const
{
    Camera camera = *this;
    if (m_fitted) {
        double halfWidth = 0.0;  // of the cylinder that the corners run round on
        double halfHeight = 0.0;
        for (int k = 0; k < 8; ++k) {
            const Vec3 p = m_box.corner(k) - m_pivot;
            halfWidth = std::max(halfWidth, std::hypot(dot(p, m_right), dot(p, m_back)));
            halfHeight = std::max(halfHeight, std::fabs(dot(p, m_up)));
        }
        camera.takeIn(halfWidth, halfHeight);
    }
    camera.keepPlace();
    return camera;
}

void Camera::reset()
{
    setPreset(ViewPreset::Front);
}

void Camera::orbit(double aboutUp, double aboutRight)
{
    rotate(m_right, m_back, aboutUp);
    rotate(m_back, m_up, aboutRight);
    // Keep the three at right angles through any number of small steps.
    m_back = normalized(m_back);
    m_up = normalized(m_up - m_back * dot(m_up, m_back));
    m_right = cross(m_up, m_back);
}

void Camera::pan(double right, double up)
{
    const double bound = farthestView * m_radius;
    m_panX = std::clamp(m_panX + right * 2.0 * m_halfHeight, -bound, bound);
    m_panY = std::clamp(m_panY + up * 2.0 * m_halfHeight, -bound, bound);
    m_fitted = false;
}

void Camera::zoom(double factor, double right, double up)
{
    if (!(factor > 0.0)) return;
    const double former = m_halfHeight;
    m_halfHeight = std::clamp(former / factor, nearestView * m_radius, farthestView * m_radius);
    // A point at the share c of the window has the eye position 2 h c, so the pan grows by 2 c (h' - h).
    pan(right * (1.0 - former / m_halfHeight), up * (1.0 - former / m_halfHeight));
}

Matrix16 Camera::viewMatrix() const
{
    return {m_right.x,
            m_up.x,
            m_back.x,
            0.0,
            m_right.y,
            m_up.y,
            m_back.y,
            0.0,
            m_right.z,
            m_up.z,
            m_back.z,
            0.0,
            m_panX - dot(m_right, m_pivot),
            m_panY - dot(m_up, m_pivot),
            -distance() - dot(m_back, m_pivot),
            1.0};
}

Camera::Frustum Camera::frustum() const
{
    const double halfWidth = m_halfHeight * m_aspect;
    const double reach = 1.05 * m_radius;
    return {-halfWidth, halfWidth, -m_halfHeight, m_halfHeight, distance() - reach, distance() + reach};
}

std::array<double, 2> Camera::toWindow(Vec3 p) const
{
    const Vec3 q = p - m_pivot;
    return {(dot(q, m_right) + m_panX) / (2.0 * m_halfHeight),
            (dot(q, m_up) + m_panY) / (2.0 * m_halfHeight)};
}

}  // namespace hvscene
