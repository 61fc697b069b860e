#pragma once

#include "lib/hvapi/scene/logic/OpticalVoxels.h"

#include <QByteArray>
#include <QStringList>

namespace hvscene {

/// Longest text of voxels that is taken, in bytes, and most voxels in one.
constexpr qint64 longestVoxelText = 16 << 20;
constexpr int mostOpticalVoxels = 250000;
/// No voxel lies farther from the origin, or is larger, mm.
constexpr double farthestVoxel = 10000.0;

/// What a text of voxels holds; see docs/formats/optical-voxels.md.
struct OpticalVoxelText
{
    std::optional<OpticalVoxels> optical;  ///< nothing when the text is refused
    QString refusal;                       ///< why, in words for the user
    QStringList complaints;                ///< lines that were left out, the first few only
    int leftOut = 0;                       ///< number of voxels that were left out
};

OpticalVoxelText parseOpticalVoxels(const QByteArray& bytes);

}  // namespace hvscene
