#include "lib/hvapi/scene/TransformTool.h"

#include "hvapi/scene/C3DScene.h"
#include "lib/hvapi/scene/AxisColours.h"
#include "lib/hvapi/scene/C3DViewPrivate.h"
#include "lib/hvapi/scene/logic/AxisDrag.h"

#include <QMetaMethod>
#include <algorithm>

namespace hvscene {

namespace {

constexpr double pi = 3.14159265358979323846;

/// Lies around the lines, so that they stand out on bright matter.
const QColor rim(13, 16, 21, 130);

QColor faded(QColor colour, double alpha)
{
    colour.setAlphaF(alpha);
    return colour;
}

/// Nodes of plug-ins have a signal of their own for a move that the user made; the contract knows it by name.
void tellMoved(C3DObject* moved)
{
    const QPointer<C3DObject> object = moved;  // whoever hears of it may delete it
    if (object) object->setTransformationChanged(true, true);
    if (!object) return;
    const QMetaObject* meta = object->metaObject();
    const int signal = meta->indexOfSignal("onSignalTransformationChanged(bool)");
    if (signal >= 0) meta->method(signal).invoke(object, Qt::DirectConnection, Q_ARG(bool, true));
}

}  // namespace

Vec3 TransformTool::objectMiddle() const
{
    return transformedPoint(toMatrix16(object()->getTransformation()), toVec3(object()->getCenter()));
}

bool TransformTool::hover(const ViewProjection& view, Pixel mouse)
{
    if (!object()) return leave();
    const TransformHandle now = TransformHandles(view, objectMiddle(), 1.0).pick(mouse);
    const bool changed = now != m_over;
    m_over = now;
    return changed;
}

bool TransformTool::leave()
{
    const bool changed = isOver();
    m_over = {};
    return changed;
}

bool TransformTool::press(const ViewProjection& view, Pixel mouse)
{
    hover(view, mouse);
    if (!isOver()) return false;
    m_drag = m_over;
    m_start = toMatrix16(object()->getTransformation());
    m_middle = objectMiddle();
    m_grip = TransformHandles(view, m_middle, 1.0).grip(m_drag.axis, mouse);
    m_pressed = m_last = mouse;
    m_amount = 0.0;
    m_changed = false;
    return true;
}

void TransformTool::move(const ViewProjection& view, Pixel mouse)
{
    if (!object() || !isDragged()) return;
    // What moves changes the scene's box: the picture is to stay where it is.
    m_scene.hostSide().camera.keepPlace();
    const Vec3 axis = axisVector(m_drag.axis);
    if (m_drag.kind == TransformHandle::Move) {
        m_amount = dragAlongAxis(view, axis, m_pressed, mouse);
        object()->setTransformation(toMatrix(shifted(m_start, axis * m_amount)));
    } else {
        m_amount += turnAboutAxis(view, m_middle, axis, m_grip, m_last, mouse);
        object()->setTransformation(toMatrix(turned(m_start, m_middle, axis, m_amount)));
    }
    m_last = mouse;
    m_changed = true;
}

void TransformTool::release()
{
    const bool changed = m_changed;
    m_drag = {};
    m_changed = false;
    // Last: whoever hears of it may leave the tool.
    if (changed) tellMoved(object());
}

void TransformTool::cancel()
{
    if (object() && m_changed) object()->setTransformation(toMatrix(m_start));
    m_drag = {};
    m_changed = false;
}

QColor TransformTool::colourOf(const TransformHandle& handle) const
{
    const QColor colour = axisColour(handle.axis);
    if (isLit(handle)) return colour.lighter(122);
    return isDragged() ? faded(colour, 0.4) : colour;
}

void TransformTool::paintRing(OverlayPainter& painter, const ViewProjection& view,
                              const TransformHandles& handles, int axis)
{
    const TransformHandle handle{TransformHandle::Turn, axis};
    const QColor colour = colourOf(handle);
    const double width = isLit(handle) ? 3.0 : 1.7;
    constexpr int steps = TransformHandles::ringSteps;
    // Starts where the front begins, so that each of the two halves is one curve.
    int first = 0;
    for (int k = 0; k < steps; ++k)
        if (handles.isInFront(handles.ringPoint(axis, 2.0 * pi * k / steps)) &&
            !handles.isInFront(handles.ringPoint(axis, 2.0 * pi * (k - 1) / steps)))
            first = k;
    std::vector<Pixel> part;
    bool front = true;
    for (int k = 0; k <= steps; ++k) {
        const Vec3 p = handles.ringPoint(axis, 2.0 * pi * (first + k) / steps);
        part.push_back(view.toPixels(p));
        const bool now = handles.isInFront(p);
        if (now == front && k < steps) continue;
        if (front) painter.curve(part, width + 2.4, faded(rim, rim.alphaF() * colour.alphaF()));
        painter.curve(part, front ? width : 1.2, front ? colour : faded(colour, 0.3 * colour.alphaF()));
        part = {part.back()};
        front = now;
    }
}

void TransformTool::paintArrow(OverlayPainter& painter, const ViewProjection& view,
                               const TransformHandles& handles, int axis)
{
    if (!handles.isArrowShown(axis)) return;
    const TransformHandle handle{TransformHandle::Move, axis};
    const QColor colour = colourOf(handle);
    const Pixel from = view.toPixels(handles.arrowStart(axis));
    const Pixel to = view.toPixels(handles.arrowEnd(axis));
    const Pixel along = to - from;
    const double head = 15.0;
    const Pixel base = to - along * (head * painter.scale() / std::max(1.0, length(along)));
    const double width = isLit(handle) ? 3.2 : 2.0;
    const double headWidth = isLit(handle) ? 13.0 : 11.0;
    const QColor shade = faded(rim, rim.alphaF() * colour.alphaF());
    painter.line(from, base, width + 2.4, shade);
    painter.arrowHead(base, along, head + 3.0, headWidth + 3.0, shade);
    painter.line(from, base, width, colour);
    painter.arrowHead(base, along, head, headWidth, colour);
}

void TransformTool::paintDrag(OverlayPainter& painter, const ViewProjection& view,
                              const TransformHandles& handles)
{
    const QColor colour = axisColour(m_drag.axis);
    const Pixel middle = view.toPixels(handles.center());
    static const char* const letters[3] = {"X", "Y", "Z"};
    const QString letter = QString::fromLatin1(letters[m_drag.axis]);
    if (m_drag.kind == TransformHandle::Move) {
        const Pixel start = view.toPixels(m_middle);
        painter.line(start, middle, 1.3, faded(colour, 0.55));
        painter.circle(start, 4.0, 1.3, faded(colour, 0.8));
        painter.label(view.toPixels(handles.arrowEnd(m_drag.axis)),
                      letter + QLatin1Char(' ') + millimetres(m_amount, true), colour);
        return;
    }
    // The angle as a sector from the grip on, its rim on the ring.
    const Vec3 normal = axisVector(m_drag.axis);
    const Vec3 out = normalized(m_grip - m_middle) * handles.ringRadius();
    const Vec3 aside = cross(normal, out);
    const double shown = std::clamp(m_amount, -2.0 * pi, 2.0 * pi);
    const int steps = std::max(2, static_cast<int>(std::fabs(shown) * 24.0));
    Pixel last = view.toPixels(handles.center() + out);
    painter.line(middle, last, 1.2, faded(colour, 0.6));
    for (int k = 1; k <= steps; ++k) {
        const double angle = shown * k / steps;
        const Pixel next = view.toPixels(handles.center() + out * std::cos(angle) + aside * std::sin(angle));
        painter.sector(middle, last, next, faded(colour, 0.2));
        last = next;
    }
    painter.line(middle, last, 1.6, faded(colour, 0.9));
    const double degrees = m_amount * 180.0 / pi;
    const QString sign = degrees < -0.05 ? QStringLiteral("\u2212") : QStringLiteral("+");
    painter.label(last,
                  letter + QLatin1Char(' ') + sign + QString::number(std::fabs(degrees), 'f', 1) +
                      QStringLiteral("\u00b0"),
                  colour);
}

void TransformTool::paint(OverlayPainter& painter, const ViewProjection& view)
{
    if (!object()) return;
    const TransformHandles handles(view, objectMiddle(), painter.scale());
    for (int axis = 0; axis < 3; ++axis)
        paintRing(painter, view, handles, axis);
    // Arrows that come towards the viewer lie over those that go away.
    for (const bool towards : {false, true})
        for (int axis = 0; axis < 3; ++axis)
            if ((dot(axisVector(axis), view.towardsViewer()) > 0.0) == towards)
                paintArrow(painter, view, handles, axis);
    painter.disc(view.toPixels(handles.center()), 3.2, QColor(232, 238, 246));
    if (isDragged()) paintDrag(painter, view, handles);
}

}  // namespace hvscene
