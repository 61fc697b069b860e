#include "lib/hvapi/scene/MeasureTool.h"

#include "hvapi/scene/C3DSlice.h"
#include "hvapi/scene/C3DVolumeData.h"
#include "lib/hvapi/scene/C3DSGManagerPrivate.h"
#include "lib/hvapi/scene/C3DViewPrivate.h"
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

MeasureTool::Point MeasureTool::pick(const ViewProjection& view, Pixel mouse) const
{
    C3DSGManager* manager = m_scene.hostSide().manager;
    if (!manager) return {};
    const Ray ray = view.rayThrough(mouse);
    const sCropBoxOffset crop = m_scene.getCroppingBoxOffset();
    Point nearest;
    double best = std::numeric_limits<double>::infinity();
    const auto offer = [&](C3DVolumeData* volume, const Ray& own, double distance) {
        if (!(distance < best)) return;
        best = distance;
        nearest = Point{volume, own.origin + own.direction * distance};
    };
    for (C3DObject* object : manager->hostSide().renderables()) {
        auto* volume = qobject_cast<C3DVolumeData*>(object);
        if (!volume || !volume->isDisplayed() || !volume->isValid()) continue;
        // The direction keeps its length in the scene, so distances of all objects compare.
        const Matrix16 inverse = toMatrix16(volume->getTransformation().inverse());
        const Ray own{transformedPoint(inverse, ray.origin), transformedVector(inverse, ray.direction)};
        const Box kept = keptBox(*volume, crop);
        if (const auto hit = firstSolidVoxel(fieldOf(*volume, kept), own)) offer(volume, own, hit->distance);
        const auto span = spanInBox(kept, own);
        if (!span) continue;
        const double origin[3] = {ray.origin.x, ray.origin.y, ray.origin.z};
        const double way[3] = {ray.direction.x, ray.direction.y, ray.direction.z};
        for (int axis = 0; axis < 3; ++axis) {
            C3DSlice* slice = m_scene.get3DSliceView(static_cast<C3DScene::slice_view>(axis));
            if (!slice || !slice->isDisplayed() || way[axis] == 0.0) continue;
            const double distance = (slice->getPosition() - origin[axis]) / way[axis];
            if (distance >= span->enter && distance <= span->leave) offer(volume, own, distance);
        }
    }
    return nearest;
}

std::optional<Vec3> MeasureTool::placeOf(const Point& point)
{
    if (!point.object) return std::nullopt;
    return transformedPoint(toMatrix16(point.object->getTransformation()), point.place);
}

std::optional<double> MeasureTool::click(const ViewProjection& view, Pixel mouse)
{
    const Point point = pick(view, mouse);
    if (!point.object) return std::nullopt;
    if (!m_first.object || m_second.object) {
        m_first = point;
        m_second = {};
    } else {
        m_second = point;
    }
    return distance();
}

bool MeasureTool::hover(const ViewProjection& view, Pixel mouse)
{
    const bool before = !m_hover.object.isNull();
    m_hover = pick(view, mouse);
    return before || m_hover.object;
}

bool MeasureTool::leave()
{
    const bool changed = !m_hover.object.isNull();
    m_hover = {};
    return changed;
}

void MeasureTool::clear()
{
    m_first = {};
    m_second = {};
}

bool MeasureTool::isHalfDone() const
{
    return m_first.object && !m_second.object;
}

std::optional<double> MeasureTool::distance() const
{
    const auto a = placeOf(m_first);
    const auto b = placeOf(m_second);
    if (!a || !b) return std::nullopt;
    return length(*b - *a);
}

void MeasureTool::paint(OverlayPainter& painter, const ViewProjection& view) const
{
    const QColor ink(255, 209, 102);
    const QColor rim(13, 16, 21, 170);
    const auto mark = [&](Pixel p) {
        painter.circle(p, 5.0, 3.4, rim);
        painter.circle(p, 5.0, 1.6, ink);
        painter.disc(p, 1.4, ink);
    };
    const auto first = placeOf(m_first);
    const auto second = placeOf(m_second);
    const auto hover = placeOf(m_hover);
    const auto end = second ? second : hover;
    if (first && end) {
        const Pixel a = view.toPixels(*first);
        const Pixel b = view.toPixels(*end);
        // From rim to rim of the two marks.
        const Pixel way = b - a;
        const double l = length(way);
        const double gap = 5.0 * painter.scale();
        QColor line = ink;
        if (!second) line.setAlphaF(0.6);
        if (l > 2.0 * gap) {
            const Pixel step = way * (gap / l);
            painter.line(a + step, b - step, 3.4, rim);
            painter.line(a + step, b - step, 1.6, line);
        }
        painter.label((a + b) * 0.5, millimetres(length(*end - *first)), line);
    }
    if (first) mark(view.toPixels(*first));
    if (second) mark(view.toPixels(*second));
    if (hover && !second) mark(view.toPixels(*hover));
    if (hover && second) painter.circle(view.toPixels(*hover), 5.0, 1.2, QColor(255, 209, 102, 140));
}

}  // namespace hvscene
