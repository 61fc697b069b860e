#include "volume/TissueLimit.h"

#include "hvapi/scene/C3DScene.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVPreference.h"
#include "hvutils/S3DViewSettings.h"

namespace {

constexpr int denserThanBone = 3001;  // Hounsfield units

}  // namespace

TissueLimit activeTissueLimit()
{
    TissueLimit limit;
    CHVSChildWindow* const window = CHVSChildWindow::getActiveChildWnd();
    if (window == nullptr || !window->isSequenceWindow()) return limit;
    auto* const sequenceWindow = qobject_cast<CHVSSequenceWindow*>(window);
    C3DScene* const scene = sequenceWindow == nullptr ? nullptr : sequenceWindow->get3DScene();
    if (scene == nullptr) return limit;
    float value = 0.0F;
    scene->CTHUValueReverseToVoxelsConverter(denserThanBone, &value, &limit.voxel, &limit.a, &limit.b);
    return limit;
}

bool prefersMetal()
{
    S3DViewSettings settings;
    CHVPreference::get3DViewPreferences(settings);
    return settings.strTissueRange == QLatin1String("Metal");
}
