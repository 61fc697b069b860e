#include "lib/hvapi/scene/SliceHandles.h"

#include "lib/hvapi/scene/AxisColours.h"
#include "lib/hvapi/scene/C3DSlicePrivate.h"
#include "lib/hvapi/scene/logic/AxisDrag.h"
#include "lib/hvapi/scene/logic/TransformHandles.h"

namespace hvscene {

namespace {

// Pixels of a line.
constexpr double knobReach = 10.0;
constexpr double frameReach = 5.0;

}  // namespace

C3DSlice* SliceHandles::shown(int axis) const
{
    C3DSlice* slice = m_scene.get3DSliceView(static_cast<C3DScene::slice_view>(axis));
    return slice && slice->isDisplayed() && !slice->hostSide().scene.empty ? slice : nullptr;
}

bool SliceHandles::isInUse() const
{
    return shown(0) || shown(1) || shown(2);
}

bool SliceHandles::hover(const ViewProjection& view, Pixel mouse)
{
    const int before = m_over;
    m_over = -1;
    double best = knobReach;
    for (int axis = 0; axis < 3; ++axis) {
        C3DSlice* slice = shown(axis);
        if (!slice) continue;
        const double distance = length(view.toPixels(slice->hostSide().knob()) - mouse);
        if (distance >= best) continue;
        best = distance;
        m_over = axis;
    }
    if (m_over < 0) {
        best = frameReach;
        for (int axis = 0; axis < 3; ++axis) {
            C3DSlice* slice = shown(axis);
            if (!slice) continue;
            const auto& outline = slice->hostSide().outline;
            for (std::size_t k = 0; k < 4; ++k) {
                const double distance =
                    distanceToSegment(mouse, view.toPixels(outline[k]), view.toPixels(outline[(k + 1) % 4]));
                if (distance >= best) continue;
                best = distance;
                m_over = axis;
            }
        }
    }
    return before != m_over;
}

bool SliceHandles::leave()
{
    const bool changed = isOver();
    m_over = -1;
    return changed;
}

bool SliceHandles::press(const ViewProjection& view, Pixel mouse)
{
    hover(view, mouse);
    if (m_over < 0) return false;
    m_drag = m_over;
    m_pressed = mouse;
    m_start = shown(m_drag)->getPosition();
    return true;
}

void SliceHandles::move(const ViewProjection& view, Pixel mouse)
{
    C3DSlice* slice = m_drag < 0 ? nullptr : shown(m_drag);
    if (!slice) return;
    const double wanted = m_start + dragAlongAxis(view, axisVector(m_drag), m_pressed, mouse);
    slice->setPosition(slice->hostSide().inScene(wanted));
}

void SliceHandles::cancel()
{
    if (C3DSlice* slice = m_drag < 0 ? nullptr : shown(m_drag)) slice->setPosition(m_start);
    m_drag = -1;
}

void SliceHandles::paint(OverlayPainter& painter, const ViewProjection& view)
{
    static const char* const letters[3] = {"X", "Y", "Z"};
    for (int axis = 0; axis < 3; ++axis) {
        C3DSlice* slice = shown(axis);
        if (!slice) continue;
        const auto& data = slice->hostSide();
        const QColor colour = axisColour(axis);
        const bool lit = axis == (m_drag >= 0 ? m_drag : m_over);
        if (lit) {
            std::vector<Pixel> frame;
            for (std::size_t k = 0; k <= 4; ++k)
                frame.push_back(view.toPixels(data.outline[k % 4]));
            painter.curve(frame, 2.0, colour);
        }
        const Pixel knob = view.toPixels(data.knob());
        const double radius = lit ? 7.0 : 5.0;
        painter.disc(knob, radius + 1.6, QColor(13, 16, 21, 190));
        painter.disc(knob, radius, lit ? colour.lighter(118) : colour);
        painter.label(
            knob, QString::fromLatin1(letters[axis]) + QLatin1Char(' ') + millimetres(slice->getPosition()),
            colour);
    }
}

}  // namespace hvscene
