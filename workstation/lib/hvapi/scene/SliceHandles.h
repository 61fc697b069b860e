#pragma once

#include "hvapi/scene/C3DScene.h"
#include "lib/hvapi/scene/SceneTool.h"

namespace hvscene {

/// Lets the mouse drag the slice planes of a scene along their normals, by their frame or by the knob at its
/// corner, where their position stands.
class SliceHandles : public SceneTool
{
public:
    explicit SliceHandles(C3DScene& scene)
        : m_scene(scene)
    {}

    bool hover(const ViewProjection& view, Pixel mouse) override;
    bool leave() override;
    bool isOver() const override { return m_over >= 0; }
    bool press(const ViewProjection& view, Pixel mouse) override;
    void move(const ViewProjection& view, Pixel mouse) override;
    void release() override { m_drag = -1; }
    void cancel() override;
    void paint(OverlayPainter& painter, const ViewProjection& view) override;

    /// True when there is a plane that could be dragged.
    bool isInUse() const;

private:
    /// The plane of an axis when it is shown, else null.
    C3DSlice* shown(int axis) const;

    C3DScene& m_scene;
    int m_over = -1;  // axis, or none
    int m_drag = -1;
    Pixel m_pressed;
    double m_start = 0.0;
};

}  // namespace hvscene
