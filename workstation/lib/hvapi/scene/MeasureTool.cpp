#include "lib/hvapi/scene/MeasureTool.h"

#include "lib/hvapi/scene/ScenePick.h"

namespace hvscene {

MeasureTool::Point MeasureTool::pick(const ViewProjection& view, Pixel mouse) const
{
    const PickedPoint picked = pickPoint(m_scene, view, mouse);
    return picked.volume ? Point{picked.volume.data(), picked.ownPlace} : Point{};
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
