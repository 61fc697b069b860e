#include "render/logic/CropPlanes.h"

#include "hvapi/values/obtainEquationVariablesForPlane.h"
#include "render/logic/VolumeBox.h"

namespace {

/// Three corners for each plane, turned so that the normal points into the kept region.
constexpr int kPlaneCorners[6][3] = {{6, 5, 4}, {0, 1, 2}, {0, 3, 7}, {2, 1, 5}, {5, 1, 0}, {7, 3, 2}};

}  // namespace

void makeCropPlanes(const Coord3d& min, const Coord3d& max, const Vec3f (&offsets)[8], double (&planes)[6][4])
{
    std::array<Vec3f, 8> corners = boxCorners(min, max);
    Vec3f centre = (corners[0] + corners[6]) / 2.0;
    for (int k = 0; k < 8; ++k) {
        Vec3f offset = offsets[k];
        Vec3f& corner = corners[k];
        const double fromCentre[3] = {corner.x() - centre.x(), corner.y() - centre.y(),
                                      corner.z() - centre.z()};
        corner.x() += offset.x() * fromCentre[0];
        corner.y() += offset.y() * fromCentre[1];
        corner.z() -= offset.z() * fromCentre[2];  // against the offset, as the slice view mirrors it
    }
    for (int i = 0; i < 6; ++i) {
        const auto& of = kPlaneCorners[i];
        obtainEquationVariablesForPlane(corners[of[0]], corners[of[1]], corners[of[2]], planes[i][0],
                                        planes[i][1], planes[i][2], planes[i][3]);
    }
}
