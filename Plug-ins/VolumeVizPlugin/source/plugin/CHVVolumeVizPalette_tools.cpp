#include "plugin/CHVVolumeVizPalette.h"

#include "hvapi/results/CHVSResultsTabControl.h"
#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DSlice.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "plugin/PaletteTarget.h"
#include "plugin/PluginLog.h"
#include "plugin/SceneRefresh.h"
#include "plugin/WidgetSync.h"
#include "plugin/logic/SliceSync.h"
#include "render/CGLVolume.h"
#include "transfer/CTransferFunction1DWidget.h"

namespace {

const QString volumeName = QStringLiteral("GLVolume");
const QString cropName = QStringLiteral("Volume Crop");

bool canUseTools(const PaletteTarget& target)
{
    return target.scene && target.graph && target.node;
}

/// The mouse belongs to the palette's tool from now on.
void endHostTools(const PaletteTarget& target)
{
    target.scene->setCurrentCameraTool(C3DView::NoCameraTool);
    target.scene->doMeasureVoxels(false);
    S3DControls& controls = target.window->getWindowControls()->m_3DControls;
    controls.m_bMeasuring = false;
    target.window->apply3DControls(&controls);
}

double along(int axis, const Coord3d& point)
{
    return axis == 0 ? point.x : axis == 1 ? point.y : point.z;
}

C3DSlice* sliceAcross(C3DScene& scene, int axis)
{
    if (axis == 0) return scene.getYZslice();
    return axis == 1 ? scene.getXZslice() : scene.getXYslice();
}

}  // namespace

void CHVVolumeVizPalette::onVolumeButtonGroupToggled(bool shown)
{
    const PaletteTarget now = target();
    if (!now.record) return;
    now.record->bEnabled = m_pVolumeButtonGroup->isChecked();
    if (now.node) {
        now.node->show(shown);
        SceneRefresh::slicesChanged(now.scene, now.node);
        updateSliceView();
    }
    if (m_pTransferFunctionWidget) m_pTransferFunctionWidget->setEnabled(shown);
    if (now.sequence && !now.sequence->is3DSceneOnlySequence())
        enableControl(m_pExtract2DImageFromVolume, shown);
}

void CHVVolumeVizPalette::onReleaseLevelOfDetailSlider(int value)
{
    const PaletteTarget now = target();
    if (!now.record || !now.node) return;
    now.record->nLevelOfDetail = value;
    now.node->setLevelOfDetail(value);
    now.node->m_nLevelOfDetail = value;
    if (now.scene) now.scene->refresh();
}

void CHVVolumeVizPalette::onLevelOfDetailReset()
{
    quietly(m_pLODSlider, [](QSlider& slider) { slider.setValue(100); });
    onReleaseLevelOfDetailSlider(m_pLODSlider->value());
}

void CHVVolumeVizPalette::onToggleTransformTool(bool used)
{
    const bool byUser = qobject_cast<QToolButton*>(sender()) != nullptr;
    const PaletteTarget now = target();
    if (!now.record) return;
    now.record->bTransformTool = used;
    if (used) now.record->bCropTool = false;
    now.record->bModified = true;
    if (!canUseTools(now)) return;
    if (used) {
        now.graph->informTransformObjectChanged(volumeName);
        m_pCroptoolButton->setChecked(false);
        endHostTools(now);
        now.scene->showTransformTool(true, volumeName);
        if (byUser && !m_pResultsTabControl->getResultModifiedFlag()) showAsModified();
    } else {
        now.scene->showTransformTool(false, QString());
    }
    now.record->bTransformResetEnabled = true;
    quietly(m_pTransformResetBtn, [](QToolButton& button) { enableControl(&button, true); });
    now.scene->update();
}

void CHVVolumeVizPalette::onToggleCropTool(bool used)
{
    const PaletteTarget now = target();
    if (!now.record) return;
    now.record->bCropTool = used;
    now.record->bModified = true;
    if (used) now.record->bTransformTool = false;
    if (!canUseTools(now)) return;
    // The box must not change under the tool that shows it.
    enableControl(m_pCropResetBtn, !used);
    if (used) {
        now.graph->informTransformObjectChanged(cropName);
        endHostTools(now);
        now.scene->showCroppingTool(true, volumeName);
        showAsModified();
    } else {
        now.scene->showCroppingTool(false, QString());
    }
    now.scene->update();
}

void CHVVolumeVizPalette::showAsModified()
{
    m_pResultsTabControl->setResultModifiedFlag(true);
    m_pResultsTabControl->updateSavedResultsForSelSeqId(m_strSequenceID);
}

void CHVVolumeVizPalette::onTransformObjectChanged(const QString& object)
{
    if (m_pTransformToolBtn->isEnabled() && !object.contains(volumeName))
        m_pTransformToolBtn->setChecked(false);
    if (m_pCroptoolButton->isEnabled() && !object.contains(cropName)) m_pCroptoolButton->setChecked(false);
}

void CHVVolumeVizPalette::onToggleTransformReset()
{
    const PaletteTarget now = target();
    if (!now.node) return;
    if (now.record && now.record->bTransformResetEnabled) {
        now.node->setTransformation(matrix());
        now.record->bTransformResetEnabled = true;
        quietly(m_pTransformResetBtn, [](QToolButton& button) { enableControl(&button, true); });
        now.record->bFiducialEnabled = true;
        quietly(m_pFiducialRegistrationButton, [](QToolButton& button) { enableControl(&button, true); });
        m_pTransformToolBtn->setChecked(false);
    }
    SceneRefresh::transformationReset(now.scene);
    updateSliceView();
}

void CHVVolumeVizPalette::onCropReset()
{
    const PaletteTarget now = target();
    if (!now.node || !now.scene) return;
    Vec3f fullBox[8];
    now.scene->setCroppingBoxOffset(fullBox);
    SceneRefresh::cropReset(now.scene);
    onCroppingEquationChanged(false);
    updateSliceView();
}

void CHVVolumeVizPalette::syncSliceSliderToScene(int axis)
{
    const PaletteTarget now = target();
    if (!now.sequence) return;
    if (!now.window) {
        logMessage(CHVSLog::eError,
                   QStringLiteral("Invalid sequence window handle to proceed Slice Preview update."));
        return;
    }
    C3DSlice* slice = now.scene ? sliceAcross(*now.scene, axis) : nullptr;
    if (!slice || !now.node) return;
    Coord3d low;
    Coord3d high;
    now.node->getTransformedBBox(low, high);
    const SlicePlace place{axis,
                           slice->getPosition(),
                           along(axis, low),
                           along(axis, high),
                           m_pSliceViewerSlider->minimum(),
                           m_pSliceViewerSlider->maximum()};
    if (const std::optional<int> value = sliderValueOf(place)) m_pSliceViewerSlider->setValue(*value);
}
