#pragma once

#include <QString>

#include <optional>

/// The axis that a slice is perpendicular to, in the volume's own space. The values are those of
/// `CGLVolume::renderThickSlice`.
enum SliceOrientation : int
{
    AxisX = 1,  ///< "Sagittal"
    AxisY = 2,  ///< "Transaxial"
    AxisZ = 4   ///< "Coronal"
};

/// The orientation that a text names, whatever its case; nothing for any other text.
std::optional<SliceOrientation> sliceOrientationOf(const QString& name);

/// 0, 1, 2 for x, y, z; nothing for a number that is no orientation.
std::optional<int> axisIndex(int orientation);
