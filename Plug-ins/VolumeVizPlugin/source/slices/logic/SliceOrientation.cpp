#include "slices/logic/SliceOrientation.h"

std::optional<SliceOrientation> sliceOrientationOf(const QString& name)
{
    if (name.compare(QLatin1String("Sagittal"), Qt::CaseInsensitive) == 0) return AxisX;
    if (name.compare(QLatin1String("Transaxial"), Qt::CaseInsensitive) == 0) return AxisY;
    if (name.compare(QLatin1String("Coronal"), Qt::CaseInsensitive) == 0) return AxisZ;
    return std::nullopt;
}

std::optional<int> axisIndex(int orientation)
{
    switch (orientation) {
    case AxisX:
        return 0;
    case AxisY:
        return 1;
    case AxisZ:
        return 2;
    default:
        return std::nullopt;
    }
}
