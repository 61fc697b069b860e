#include "slices/logic/ProjectionCamera.h"

#include "slices/logic/SliceOrientation.h"

#include <algorithm>
#include <cmath>

std::optional<ProjectionCamera> projectionCamera(int orientation, const SliceBox& box, double fieldOfView)
{
    const std::optional<int> axis = axisIndex(orientation);
    const std::optional<SliceCamera> slice = sliceCamera(orientation, box, box);
    if (!axis || !slice) return std::nullopt;

    const double low[3] = {box.min.x, box.min.y, box.min.z};
    const double high[3] = {box.max.x, box.max.y, box.max.z};
    const double u = (slice->window.left + slice->window.right) / 2.0;
    const double v = (slice->window.bottom + slice->window.top) / 2.0;
    const double half = fieldOfView / 2.0;

    ProjectionCamera camera;
    camera.window = {u - half, u + half, v - half, v + half};
    camera.nearEnd = low[*axis];
    camera.farEnd = high[*axis];
    std::copy_n(slice->normal, 3, camera.normal);
    std::copy_n(slice->rotation, 3, camera.rotation);
    const double depth = (camera.nearEnd + camera.farEnd) / 2.0 - camera.farEnd;
    camera.translation[0] = u;
    camera.translation[1] = v;
    camera.translation[2] = -3.0 * std::hypot(u - half, v - half, depth);
    return camera;
}
