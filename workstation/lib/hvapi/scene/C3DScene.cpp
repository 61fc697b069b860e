#include "hvapi/scene/C3DScene.h"

#include "hvapi/scene/C3DObject.h"
#include "lib/hvapi/scene/C3DSGManagerPrivate.h"
#include "lib/hvapi/scene/C3DScenePrivate.h"
#include "lib/hvapi/scene/C3DSlicePrivate.h"
#include "lib/hvapi/scene/C3DViewPrivate.h"
#include "lib/hvapi/scene/ViewControl.h"

#include <QCoreApplication>
#include <QEvent>

C3DScene::C3DScene(C3DSGManager* manager, QWidget* parent, Qt::WindowFlags flags)
    : C3DView(manager, parent, flags)
    , s(std::make_unique<SceneData>(*this))
{
    hostSide().followMouse = true;
    setMouseTracking(true);
    connect(&s->readout, &hvscene::CursorReadout::told, this, &C3DScene::voxelUnderMouse);
    for (int axis = 0; axis < 3; ++axis) {
        auto& slice = s->slices[static_cast<std::size_t>(axis)];
        slice.reset(new C3DSlice(axis));
        connect(slice.get(), &C3DSlice::sliceChanged, this, [this] {
            s->watchMouse();
            update();
        });
    }
}

C3DScene::~C3DScene() = default;

void C3DScene::addToScene(C3DObject* object)
{
    if (C3DSGManager* manager = hostSide().manager) manager->hostSide().addRenderable(object);
}

void C3DScene::refresh()
{
    // Who asks for a frame wants it whole, unless the mouse moves the view at this moment.
    if (hostSide().drag == Private::Drag::None && !s->drag) hostSide().endFastMode();
    update();
    if (hostSide().painting) return;
    // repaint() is put off by the toolkit when a frame was shown a moment ago; the request itself is not.
    if (isVisible())
        QCoreApplication::sendPostedEvents(window(), QEvent::UpdateRequest);
    else if (!ViewControl::hiddenFrameSize().isEmpty())
        ViewControl(*this).picture(ViewControl::hiddenFrameSize());
}

void C3DScene::updateScene()
{
    hostSide().takeScene(true);
    for (auto& slice : s->slices)
        slice->d->dirty = true;
    update();
}

void C3DScene::createSliceDisplayLists()
{
    const hvscene::Box scene = hostSide().currentSceneBox();
    for (auto& slice : s->slices)
        if (slice->d->dirty) slice->d->update(scene);
}

void C3DScene::refreshSliceViews()
{
    createSliceDisplayLists();
    for (auto& slice : s->slices)
        if (slice->isDisplayed()) update();
}

void C3DScene::setSliceDirty(C3DObject* object, C3DScene::slice_view view, bool bDirty)
{
    if (!object) return;
    for (std::size_t k = 0; k < s->slices.size(); ++k)
        if (view == ALL_VIEWS || k == static_cast<std::size_t>(view)) s->slices[k]->d->dirty = bDirty;
}

QPointer<C3DSlice> C3DScene::getYZslice()
{
    return s->slices[YZ_VIEW].get();
}

QPointer<C3DSlice> C3DScene::getXZslice()
{
    return s->slices[XZ_VIEW].get();
}

QPointer<C3DSlice> C3DScene::getXYslice()
{
    return s->slices[XY_VIEW].get();
}

QPointer<C3DSlice> C3DScene::get3DSliceView(C3DScene::slice_view view)
{
    if (view < YZ_VIEW || view > XY_VIEW) return nullptr;
    return s->slices[static_cast<std::size_t>(view)].get();
}

void C3DScene::renderDecorations()
{
    C3DSGManager* manager = hostSide().manager;
    if (!manager) return;
    s->readout.sceneChanged();
    // Frames follow whatever has moved in the scene.
    const hvscene::Box scene = hostSide().currentSceneBox();
    for (auto& slice : s->slices)
        if (slice->d->scene != scene) slice->d->dirty = true;
    createSliceDisplayLists();
    const float lineWidth = static_cast<float>(devicePixelRatioF());
    for (auto& slice : s->slices) {
        if (!slice->isDisplayed()) continue;
        GLdouble plane[4] = {0.0, 0.0, 0.0, slice->getPosition()};
        plane[slice->getAxis()] = 1.0;
        for (C3DObject* object : manager->hostSide().renderables())
            if (object->isDisplayed() && object->isValid()) {
                object->renderNode(GL_SELECT);  // draws nothing, and makes what the slices need as well
                object->renderSlice(plane, 0);
            }
    }
    // A little nearer than the planes whose borders they are: about what a slanted plane gains across a line.
    glDepthRange(0.0, 0.996);
    for (auto& slice : s->slices)
        if (slice->isDisplayed()) slice->d->drawOutline(lineWidth);
    glDepthRange(0.0, 1.0);
}
