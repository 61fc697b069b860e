#include "slices/logic/SliceCamera.h"

#include "hvapi/values/unitquaternion.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kDegree = 0.01745329251994;
constexpr double kHalfDiagonals = 3.0;
constexpr double kUsualFar = 1000.0;

SliceExtent croppedExtent(const SliceBox& box, const SliceBox& cropped, SliceOrientation orientation)
{
    const SliceExtent range = cropped.along(orientation);
    return range.low == range.high ? box.along(orientation) : range;
}

}  // namespace

SliceExtent SliceBox::along(SliceOrientation orientation) const
{
    switch (orientation) {
    case AxisX:
        return {min.x, max.x};
    case AxisY:
        return {min.y, max.y};
    default:
        return {min.z, max.z};
    }
}

double SliceWindow::width() const
{
    return std::abs(right - left);
}

double SliceWindow::height() const
{
    return std::abs(top - bottom);
}

double SliceWindow::aspect() const
{
    const double quotient = height() > 0.0 ? width() / height() : 0.0;
    return std::isfinite(quotient) ? quotient : 0.0;
}

SliceBox croppedSliceBox(const SliceBox& box, const Vec3f& lowest, const Vec3f& highest)
{
    const auto moved = [](double corner, double opposite, double offset) {
        return corner + offset * (corner - (corner + opposite) / 2.0);
    };
    const Coord3d& a = box.min;
    const Coord3d& b = box.max;
    return {
        Coord3d(moved(a.x, b.x, lowest.x()), moved(a.y, b.y, lowest.y()), moved(a.z, b.z, -lowest.z())),
        Coord3d(moved(b.x, a.x, highest.x()), moved(b.y, a.y, highest.y()), moved(b.z, a.z, -highest.z()))};
}

std::optional<SliceCamera> sliceCamera(int orientation, const SliceBox& box, const SliceBox& cropped)
{
    constexpr SliceOrientation kAcross[3] = {AxisZ, AxisX, AxisX};
    constexpr SliceOrientation kUp[3] = {AxisY, AxisZ, AxisY};
    constexpr float kTurn[3][3] = {{90.0F, -90.0F, -90.0F}, {90.0F, 0.0F, 0.0F}, {0.0F, 0.0F, 0.0F}};

    const std::optional<int> axis = axisIndex(orientation);
    if (!axis) return std::nullopt;

    SliceCamera camera;
    const SliceExtent across = croppedExtent(box, cropped, kAcross[*axis]);
    const SliceExtent up = croppedExtent(box, cropped, kUp[*axis]);
    camera.window = {across.low, across.high, up.low, up.high};
    std::fill(std::begin(camera.normal), std::end(camera.normal), 0.0);
    camera.normal[*axis] = 1.0;
    std::copy_n(kTurn[*axis], 3, camera.rotation);
    const double halfDiagonal =
        std::hypot(box.max.x - box.min.x, box.max.y - box.min.y, box.max.z - box.min.z) / 2.0;
    camera.translationZ = -kHalfDiagonals * halfDiagonal;
    return camera;
}

double sliceViewFar(double translationZ)
{
    // Three half diagonals to the centre, and one more to the farthest corner.
    const double needed = -translationZ * (kHalfDiagonals + 1.0) / kHalfDiagonals;
    return std::isfinite(needed) ? std::max(kUsualFar, needed) : kUsualFar;
}

matrix sliceSceneRotation(const float (&degrees)[3])
{
    unitquaternion eye(degrees[2] * kDegree, Z_AXIS);
    eye *= unitquaternion(degrees[1] * kDegree, Y_AXIS);
    eye *= unitquaternion(degrees[0] * kDegree, X_AXIS);
    const matrix turn = eye.getRotMatrix();
    const double* columns = turn;
    return {columns, matrix::ROW_MAJOR};  // read the other way: transposed, which is the inverse
}
