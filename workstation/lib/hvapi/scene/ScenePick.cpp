#include "lib/hvapi/scene/ScenePick.h"

#include "hvapi/scene/C3DSlice.h"
#include "lib/hvapi/scene/C3DSGManagerPrivate.h"
#include "lib/hvapi/scene/C3DViewPrivate.h"
#include "lib/hvapi/scene/SceneTool.h"
#include "lib/hvapi/scene/logic/CropBox.h"
#include "lib/hvapi/scene/logic/VoxelPick.h"

#include <limits>

namespace hvscene {

namespace {

Box keptBox(C3DVolumeData& volume, const sCropBoxOffset& held)
{
    const Box full = ownBox(volume);
    if (!volume.isCropEnabled()) return full;
    CropOffsets offsets;
    for (std::size_t k = 0; k < 8; ++k)
        offsets[k] = toVec3(held.m_offset[k]);
    Box kept;
    for (const Vec3& corner : cropCorners(full, offsets))
        kept.add(corner);
    return kept;
}

VoxelField fieldOf(C3DVolumeData& volume, const Box& kept)
{
    VoxelField field;
    field.voxels = volume.getVolumeData();
    field.counts[0] = volume.getWidth();
    field.counts[1] = volume.getHeight();
    field.counts[2] = volume.getDepth();
    const Box box = ownBox(volume);
    const _tagAxis_Orientation o = volume.getAxisOrientation();
    // An axis that is turned round starts at the other end.
    field.first = {-std::fabs(box.min.x) * o.x, -std::fabs(box.min.y) * o.y, -std::fabs(box.min.z) * o.z};
    field.last = {std::fabs(box.max.x) * o.x, std::fabs(box.max.y) * o.y, std::fabs(box.max.z) * o.z};
    field.kept = kept;
    markSolid(volume.getVolumeColorTable(), volume.getVolumeRenderThreshold(), field.solid);
    return field;
}

}  // namespace

PickedPoint pickPoint(C3DScene& scene, const ViewProjection& view, Pixel mouse)
{
    C3DSGManager* manager = scene.hostSide().manager;
    if (!manager) return {};
    const Ray ray = view.rayThrough(mouse);
    const sCropBoxOffset crop = scene.getCroppingBoxOffset();
    PickedPoint nearest;
    double best = std::numeric_limits<double>::infinity();
    const auto offer = [&](C3DVolumeData* volume, const Ray& own, double distance, int value) {
        if (!(distance < best)) return;
        best = distance;
        nearest = PickedPoint{volume, own.origin + own.direction * distance,
                              ray.origin + ray.direction * distance, value};
    };
    for (C3DObject* object : manager->hostSide().renderables()) {
        auto* volume = qobject_cast<C3DVolumeData*>(object);
        if (!volume || !volume->isDisplayed() || !volume->isValid()) continue;
        // The direction keeps its length in the scene, so distances of all objects compare.
        const Matrix16 inverse = toMatrix16(volume->getTransformation().inverse());
        const Ray own{transformedPoint(inverse, ray.origin), transformedVector(inverse, ray.direction)};
        const Box kept = keptBox(*volume, crop);
        const VoxelField field = fieldOf(*volume, kept);
        if (const auto hit = firstSolidVoxel(field, own)) offer(volume, own, hit->distance, hit->value);
        const auto span = spanInBox(kept, own);
        if (!span) continue;
        const double origin[3] = {ray.origin.x, ray.origin.y, ray.origin.z};
        const double way[3] = {ray.direction.x, ray.direction.y, ray.direction.z};
        for (int axis = 0; axis < 3; ++axis) {
            C3DSlice* slice = scene.get3DSliceView(static_cast<C3DScene::slice_view>(axis));
            if (!slice || !slice->isDisplayed() || way[axis] == 0.0) continue;
            const double distance = (slice->getPosition() - origin[axis]) / way[axis];
            if (distance >= span->enter && distance <= span->leave)
                offer(volume, own, distance, valueAt(field, own.origin + own.direction * distance));
        }
    }
    return nearest;
}

}  // namespace hvscene
