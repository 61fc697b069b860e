#include "lib/hvapi/scene/CropTool.h"

#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DVolumeData.h"
#include "lib/hvapi/scene/AxisColours.h"
#include "lib/hvapi/scene/logic/AxisDrag.h"
#include "lib/hvapi/scene/logic/TransformHandles.h"

namespace hvscene {

namespace {

constexpr double reach = 10.0;  // pixels
constexpr CropFace faces[6] = {{0, false}, {0, true}, {1, false}, {1, true}, {2, false}, {2, true}};

int numberOf(CropFace face)
{
    return 2 * face.axis + (face.upper ? 1 : 0);
}

double coordinate(Vec3 v, int axis)
{
    return axis == 0 ? v.x : axis == 1 ? v.y : v.z;
}

QColor faded(QColor colour, double alpha)
{
    colour.setAlphaF(alpha);
    return colour;
}

}  // namespace

/// The box as the scene and the picture have it.
struct CropTool::Layout
{
    Box box;              // full, own space
    CropCorners corners;  // cropped, own space
    Matrix16 placement;
    Pixel points[8];
    Pixel handles[6];
    bool towardsViewer[6];
};

CropTool::Layout CropTool::layout(const ViewProjection& view) const
{
    Layout l;
    l.box = ownBox(*object());
    l.corners = cropCorners(l.box, offsets());
    l.placement = toMatrix16(object()->getTransformation());
    CropCorners placed;
    for (std::size_t k = 0; k < 8; ++k) {
        placed[k] = transformedPoint(l.placement, l.corners[k]);
        l.points[k] = view.toPixels(placed[k]);
    }
    for (const CropFace face : faces) {
        const auto c = cornersOf(face);
        const auto at = [&](int n) {
            return placed[static_cast<std::size_t>(c[static_cast<std::size_t>(n)])];
        };
        const Vec3 middle = faceMiddle(placed, face);
        const Vec3 outward = middle - faceMiddle(placed, {face.axis, !face.upper});
        Vec3 normal = cross(at(1) - at(0), at(3) - at(0));
        if (dot(normal, outward) < 0.0) normal = normal * -1.0;
        const int n = numberOf(face);
        l.handles[n] = view.toPixels(middle);
        // A face seen edge on bounds the outline: it counts as seen.
        l.towardsViewer[n] = dot(normal, view.towardsViewer()) > -0.02 * length(normal);
    }
    return l;
}

CropOffsets CropTool::offsets() const
{
    CropOffsets out;
    const sCropBoxOffset held = m_scene.getCroppingBoxOffset();
    for (std::size_t k = 0; k < 8; ++k)
        out[k] = toVec3(held.m_offset[k]);
    return out;
}

void CropTool::setOffsets(const CropOffsets& offsets)
{
    Vec3f out[8];
    for (std::size_t k = 0; k < 8; ++k)
        out[k].set(offsets[k].x, offsets[k].y, offsets[k].z);
    m_scene.setCroppingBoxOffset(out);
}

bool CropTool::isLit(CropFace face) const
{
    return m_drag ? *m_drag == face : m_over && *m_over == face;
}

bool CropTool::hover(const ViewProjection& view, Pixel mouse)
{
    const auto before = m_over;
    m_over.reset();
    if (object()) {
        const Layout l = layout(view);
        // The faces in front first: end on, the two handles of an axis lie on one another.
        double best = reach;
        for (const bool front : {true, false}) {
            for (const CropFace face : faces) {
                const int n = numberOf(face);
                const double distance = length(l.handles[n] - mouse);
                if (l.towardsViewer[n] != front || distance >= best) continue;
                best = distance;
                m_over = face;
            }
            if (m_over) break;
        }
    }
    return before.has_value() != m_over.has_value() || (before && !(*before == *m_over));
}

bool CropTool::leave()
{
    const bool changed = isOver();
    m_over.reset();
    return changed;
}

bool CropTool::press(const ViewProjection& view, Pixel mouse)
{
    hover(view, mouse);
    if (!m_over) return false;
    m_drag = m_over;
    m_start = offsets();
    m_pressed = mouse;
    m_changed = false;
    return true;
}

void CropTool::move(const ViewProjection& view, Pixel mouse)
{
    if (!object() || !m_drag) return;
    const Box box = ownBox(*object());
    const Vec3 axis = transformedVector(toMatrix16(object()->getTransformation()), axisVector(m_drag->axis));
    const double size = length(axis);  // millimetres of the scene for one of the object
    if (!(size > 0.0)) return;
    const CropCorners start = cropCorners(box, m_start);
    const double way = dragAlongAxis(view, axis * (1.0 / size), m_pressed, mouse) / size;
    const double from = coordinate(faceMiddle(start, *m_drag), m_drag->axis);
    setOffsets(cropOffsets(box, withFaceAt(box, start, *m_drag, from + way)));
    m_changed = true;
}

void CropTool::release()
{
    const bool changed = m_changed;
    m_drag.reset();
    m_changed = false;
    // Last: whoever hears of it may leave the tool.
    if (auto* volume = qobject_cast<C3DVolumeData*>(object()); volume && changed)
        volume->notifyCropEquationsChanged(true);
}

void CropTool::cancel()
{
    if (m_changed) setOffsets(m_start);
    m_drag.reset();
    m_changed = false;
}

void CropTool::paint(OverlayPainter& painter, const ViewProjection& view)
{
    if (!object()) return;
    const Layout l = layout(view);
    const QColor ink(226, 234, 244);

    for (const CropFace face : faces) {
        if (!isLit(face)) continue;
        std::vector<Pixel> outline;
        for (int k : cornersOf(face))
            outline.push_back(l.points[k]);
        painter.area(outline, faded(axisColour(face.axis), 0.14));
    }
    // Each edge once: it runs along one axis and bounds a face of each of the two others.
    for (const bool front : {false, true}) {
        for (int axis = 0; axis < 3; ++axis) {
            for (int side = 0; side < 4; ++side) {
                const CropFace a{(axis + 1) % 3, (side & 1) != 0};
                const CropFace b{(axis + 2) % 3, (side & 2) != 0};
                const bool shown = l.towardsViewer[numberOf(a)] || l.towardsViewer[numberOf(b)];
                if (shown != front) continue;
                int ends[2];
                int found = 0;
                for (int k : cornersOf(a))
                    for (int m : cornersOf(b))
                        if (k == m && found < 2) ends[found++] = k;
                const bool lit = isLit(a) || isLit(b);
                const QColor colour = lit ? axisColour(isLit(a) ? a.axis : b.axis) : ink;
                painter.line(l.points[ends[0]], l.points[ends[1]], lit && front ? 2.2 : 1.4,
                             faded(colour, front ? 0.95 : 0.3));
            }
        }
    }
    for (const bool front : {false, true}) {
        for (const CropFace face : faces) {
            const int n = numberOf(face);
            if (l.towardsViewer[n] != front) continue;
            const QColor colour = axisColour(face.axis);
            const bool lit = isLit(face);
            const double radius = lit ? 7.5 : 5.5;
            painter.disc(l.handles[n], radius + 1.6, QColor(13, 16, 21, front || lit ? 190 : 90));
            painter.disc(l.handles[n], radius,
                         front || lit ? (lit ? colour.lighter(118) : colour) : faded(colour, 0.4));
        }
    }
    if (m_drag) {
        static const char* const letters[3] = {"X", "Y", "Z"};
        const double at = coordinate(faceMiddle(l.corners, *m_drag), m_drag->axis);
        painter.label(l.handles[numberOf(*m_drag)],
                      QString::fromLatin1(letters[m_drag->axis]) + QLatin1Char(' ') + millimetres(at),
                      axisColour(m_drag->axis));
    }
}

}  // namespace hvscene
