#pragma once

#include <QString>

/// Whether the volume can be drawn in Quality Mode, decided from the time of one frame of few slices with
/// every filter on. Times are seconds, densities percent.

/// Limit of the frame time: the node's own, and 0.4 (single precision) of it for who comes from Performance
/// Mode.
double qualityTimeLimit(double nodeLimit, bool inPerformanceMode);

/// Density of the frame that is measured: `voxelRatio` of the largest one, cut to a whole number.
int evaluationDensity(float voxelRatio, int largestDensity);

/// A time at the limit still passes.
bool isWithinLimit(double frameTime, double limit);

/// What was measured on the way to Quality Mode.
struct RenderProfile
{
    bool wasInPerformanceMode = false;  ///< before the measurement
    double partialTime = 0.0;           ///< frame of the measurement
    double limit = 0.0;
    bool isInPerformanceMode = false;  ///< now
    double fullTime = 0.0;             ///< the first whole frame
};

/// The line of the log.
QString profileLine(const RenderProfile& profile);

/// The question to the user whose frame took too long.
QString renderModeQuestionTitle();
QString renderModeQuestionText();
