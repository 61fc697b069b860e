#include "plugin/logic/RenderProfile.h"

namespace {

constexpr float performanceModeShare = 0.4F;

QString modeName(bool performance)
{
    return performance ? QStringLiteral("Performance Mode") : QStringLiteral("Quality Mode");
}

}  // namespace

double qualityTimeLimit(double nodeLimit, bool inPerformanceMode)
{
    return inPerformanceMode ? nodeLimit * performanceModeShare : nodeLimit;
}

int evaluationDensity(float voxelRatio, int largestDensity)
{
    return static_cast<int>(voxelRatio * static_cast<float>(largestDensity));
}

bool isWithinLimit(double frameTime, double limit)
{
    return !(frameTime > limit);
}

QString profileLine(const RenderProfile& profile)
{
    return QStringLiteral("GPU Rendering Profile (Frame Time): Partial Prerendering (%1) %2s, Quality Mode "
                          "Requirement <%3s,Full regular rendering (%4) %5s.")
        .arg(modeName(profile.wasInPerformanceMode))
        .arg(profile.partialTime, 0, 'g')
        .arg(profile.limit, 0, 'f', 4)
        .arg(modeName(profile.isInPerformanceMode))
        .arg(profile.fullTime, 0, 'g');
}

QString renderModeQuestionTitle()
{
    return QStringLiteral("Choose 3D Rendering Mode: Performance/Quality");
}

QString renderModeQuestionText()
{
    return QStringLiteral(
        "Current rendering speed of the Graphics Processing Unit is too low for 3D rendering in Quality "
        "Mode.\nChoose Performance Mode to reduce load on the GPU (image quality will decrease).\nSelect Yes "
        "to render in Quality Mode, select No to render in Performance Mode.\n");
}
