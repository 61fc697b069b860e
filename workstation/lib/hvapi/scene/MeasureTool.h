#pragma once

#include "hvapi/scene/C3DScene.h"
#include "lib/hvapi/scene/SceneTool.h"

#include <optional>

namespace hvscene {

/// Measures the distance between two points that the user clicks at in a scene. A point lies where the line
/// of sight meets the first visible voxel of a volume, or a slice plane within one. Points stay with their
/// volume when that is moved.
class MeasureTool
{
public:
    explicit MeasureTool(C3DScene& scene)
        : m_scene(scene)
    {}

    /// Takes a point; the third one starts anew. A click beside everything changes nothing. The distance in
    /// millimetres when it is complete.
    std::optional<double> click(const ViewProjection& view, Pixel mouse);
    /// Shows where a click would take its point. True when the picture has to change.
    bool hover(const ViewProjection& view, Pixel mouse);
    bool leave();
    /// Forgets the points.
    void clear();
    /// A first point waits for its second.
    bool isHalfDone() const;
    /// Of the two points; nothing when there are not two.
    std::optional<double> distance() const;
    void paint(OverlayPainter& painter, const ViewProjection& view) const;

private:
    /// None as long as it has no object, and again when that has gone.
    struct Point
    {
        QPointer<C3DObject> object;
        Vec3 place;  // in the object's own space
    };
    Point pick(const ViewProjection& view, Pixel mouse) const;
    /// In the scene.
    static std::optional<Vec3> placeOf(const Point& point);

    C3DScene& m_scene;
    Point m_first;
    Point m_second;
    Point m_hover;
};

}  // namespace hvscene
