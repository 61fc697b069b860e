#include "plugin/SceneRefresh.h"

#include "hvapi/scene/C3DScene.h"
#include "hvapi/windows/CHVSSequenceWindow.h"

void SceneRefresh::volumeArrived(CHVSSequenceWindow* window)
{
    if (!window) return;
    window->onSignal3DViewChanged(false);
    window->init3DMeasurementValues();
}

void SceneRefresh::volumeLoaded(CHVSSequenceWindow* window)
{
    if (!window) return;
    window->prepare3DView();
    window->onSignalUpdatePreference();
    C3DScene* scene = window->get3DScene();
    if (!scene) return;
    scene->updateScene();
    scene->createSliceDisplayLists();
    scene->refreshSliceViews();
    window->update3DLayout();
    scene->updateTransformTool();
    scene->updateCroppingTool();
    scene->activateWindow();
    scene->setFocus();
}

void SceneRefresh::geometryChanged(C3DScene* scene)
{
    if (!scene) return;
    scene->updateTransformTool();
    scene->updateCroppingTool();
    scene->updateScene();
    scene->refresh();
    scene->createSliceDisplayLists();
    scene->refreshSliceViews();
}

void SceneRefresh::slicesChanged(C3DScene* scene, C3DObject* volume)
{
    if (!scene || !volume) return;
    scene->refresh();
    scene->setSliceDirty(volume, C3DScene::ALL_VIEWS, true);
    scene->refreshSliceViews();
}

void SceneRefresh::slicesRecoloured(C3DScene* scene, C3DObject* volume)
{
    if (!scene || !volume) return;
    scene->setSliceDirty(volume, C3DScene::ALL_VIEWS, true);
    scene->refreshSliceViews();
}

void SceneRefresh::voxelsChanged(C3DScene* scene, C3DObject* volume)
{
    if (!scene || !volume) return;
    scene->update();
    slicesChanged(scene, volume);
}

void SceneRefresh::cropReset(C3DScene* scene)
{
    if (!scene) return;
    scene->updateTransformTool();
    scene->updateCroppingTool();
    scene->refresh();
    scene->createSliceDisplayLists();
    scene->refreshSliceViews();
}

void SceneRefresh::transformationReset(C3DScene* scene)
{
    if (!scene) return;
    cropReset(scene);
    scene->updateScene();
}
