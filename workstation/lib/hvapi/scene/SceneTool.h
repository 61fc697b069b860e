#pragma once

#include "hvapi/scene/C3DObject.h"
#include "hvapi/scene/C3DToolBase.h"
#include "lib/hvapi/scene/OverlayPainter.h"
#include "lib/hvapi/scene/logic/Placement.h"
#include "lib/hvapi/scene/logic/ViewProjection.h"

#include <QCursor>
#include <QPointer>

class C3DScene;

namespace hvscene {

/// Something in a 3D view that takes the mouse. Positions are in the view's own pixels, as its projection has
/// them. A press that is taken is followed by moves and then by one release or cancel.
class SceneTool
{
public:
    virtual ~SceneTool();

    /// The mouse is at a place with no button down; true when the picture has to change.
    virtual bool hover(const ViewProjection& view, Pixel mouse) = 0;
    /// The mouse has left the view, or is over something else; true as above.
    virtual bool leave() = 0;
    /// True while the mouse is over a part that a press would take.
    virtual bool isOver() const = 0;
    /// True when the press is taken.
    virtual bool press(const ViewProjection& view, Pixel mouse) = 0;
    virtual void move(const ViewProjection& view, Pixel mouse) = 0;
    virtual void release() = 0;
    /// Everything as it was before the press.
    virtual void cancel() = 0;
    /// Over the scene; pixels of the painter and of the projection are the same.
    virtual void paint(OverlayPainter& painter, const ViewProjection& view) = 0;
};

/// A tool of the transform and crop family: handles at one object.
class ObjectTool : public SceneTool, public C3DToolBase
{
public:
    ObjectTool(C3DScene& scene, C3DObject& object);

    ToolType getToolType() const override { return TransformTool; }
    void update() override;
    /// Null when the object has gone.
    C3DObject* object() const { return m_object; }

protected:
    C3DScene& m_scene;

private:
    QPointer<C3DObject> m_object;
};

Vec3 toVec3(const Vec3f& v);
Vec3 toVec3(const Coord3d& c);
Matrix16 toMatrix16(const matrix& m);
matrix toMatrix(const Matrix16& m);
/// The object's box in its own space.
Box ownBox(C3DObject& object);
/// "3.20 mm", the sign always written when `withSign` is set.
QString millimetres(double mm, bool withSign = false);

}  // namespace hvscene
