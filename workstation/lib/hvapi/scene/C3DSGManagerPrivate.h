#pragma once

#include "hvapi/scene/C3DObject.h"
#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/values/sCropBoxOffset.h"
#include "lib/hvapi/scene/logic/Hounsfield.h"
#include "lib/hvapi/scene/logic/Vec3.h"

#include <QPointer>
#include <functional>
#include <optional>
#include <vector>

class C3DView;
class C3DVolumeData;

/// What the views of a graph share.
struct C3DSGManager::Private
{
    explicit Private(C3DSGManager* manager)
        : q(manager)
    {}

    void makeRoot();
    /// The object is drawn by every view of the graph.
    void addRenderable(C3DObject* object);
    /// Those that live, in the order in which they were added.
    std::vector<C3DObject*> renderables() const;
    /// Around the transformed boxes of all valid renderables, shown or hidden; millimetres of the scene.
    hvscene::Box sceneBox() const;
    void requestRepaint() const;
    /// The volume to which the crop box belongs: the first one of the renderables, or null.
    C3DVolumeData* volumeToCrop() const;

    C3DSGManager* q;
    QPointer<C3DSGNode> root;
    QString transformObject;
    sCropBoxOffset cropOffsets;
    /// Asks for the calibration of the system that took the sequence, if its description has one. Set by the
    /// owner of the graph.
    std::function<std::optional<hvscene::CtCalibration>()> calibration;
    std::vector<C3DView*> views;

private:
    std::vector<QPointer<C3DObject>> m_renderables;
};

namespace hvscene {

/// The graph that holds the node, or null.
C3DSGManager* graphOf(const C3DSGNode* node);
/// Repaints the views of the graph that holds the node, if there are any.
void repaintViewsOf(const C3DSGNode* node);

}  // namespace hvscene
