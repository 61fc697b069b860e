#pragma once

#include "lib/hvapi/scene/SceneTool.h"
#include "lib/hvapi/scene/logic/TransformHandles.h"

namespace hvscene {

/// Arrows that move an object along the axes of the scene, and rings that turn it about them, around the
/// middle of the object. What it changes is the object's transformation, which it keeps nothing of.
class TransformTool : public ObjectTool
{
public:
    using ObjectTool::ObjectTool;

    bool hover(const ViewProjection& view, Pixel mouse) override;
    bool leave() override;
    bool isOver() const override { return m_over.kind != TransformHandle::None; }
    bool press(const ViewProjection& view, Pixel mouse) override;
    void move(const ViewProjection& view, Pixel mouse) override;
    void release() override;
    void cancel() override;
    void paint(OverlayPainter& painter, const ViewProjection& view) override;

private:
    Vec3 objectMiddle() const;
    void paintRing(OverlayPainter& painter, const ViewProjection& view, const TransformHandles& handles,
                   int axis);
    void paintArrow(OverlayPainter& painter, const ViewProjection& view, const TransformHandles& handles,
                    int axis);
    void paintDrag(OverlayPainter& painter, const ViewProjection& view, const TransformHandles& handles);
    QColor colourOf(const TransformHandle& handle) const;
    bool isLit(const TransformHandle& handle) const { return handle == (isDragged() ? m_drag : m_over); }
    bool isDragged() const { return m_drag.kind != TransformHandle::None; }

    TransformHandle m_over;
    TransformHandle m_drag;
    Matrix16 m_start{};  // the object's placement before the drag
    Vec3 m_middle;       // of the object, before the drag
    Vec3 m_grip;
    Pixel m_pressed;
    Pixel m_last;
    double m_amount = 0.0;  // millimetres or radians
    bool m_changed = false;
};

}  // namespace hvscene
