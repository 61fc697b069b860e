#include "render/logic/SlicePolygon.h"

#include "render/logic/VolumeBox.h"

bool slicePolygon(const VolumeVertex (&vertices)[8], const VolumeEdge (&edges)[12], const Coord3d& min,
                  const Coord3d& max, const double (&plane)[4], VolumeVertex (&polygon)[6]) noexcept
{
    const double atMin = plane[0] * min.x + plane[1] * min.y + plane[2] * min.z;
    const double atMax = plane[0] * max.x + plane[1] * max.y + plane[2] * max.z;
    const double middle = (atMin + atMax) / 2.0;

    // With w = 1, the dot product with this measures from the middle of the box.
    VolumeVertex normal;
    normal.position[0] = plane[0];
    normal.position[1] = plane[1];
    normal.position[2] = plane[2];
    normal.position[3] = -middle;
    const double target = plane[3] - middle;

    const PlaneCut cut(vertices, edges, s_edgeSequence[farthestVertex(vertices, normal)]);
    float lambda[12];
    for (int e = 0; e < 12; ++e) {
        const double slope = dot(cut.direction[e], normal);
        lambda[e] = slope == 0.0 ? -1.0F : static_cast<float>((target - dot(cut.start[e], normal)) / slope);
    }
    return cut.corners(lambda, PlaneCut::Ends::Both, polygon);
}
