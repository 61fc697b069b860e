#include "volume/logic/SliceAxis.h"

#include <utility>

namespace viz {

std::optional<SliceAxis> axisOfOrientation(const SliceOrientation& orientation)
{
    std::optional<SliceAxis> axis;
    for (std::size_t i = 0; i < 3; ++i)
        if (orientation.alongRow[i] == orientation.alongColumn[i]) axis = static_cast<SliceAxis>(i);
    return axis;
}

std::optional<SliceAxis> axisOfImageType(const QString& imageType)
{
    const auto names = [&imageType](const char* plane) { return imageType.contains(QLatin1String(plane)); };
    if (names("SAGITTAL")) return SliceAxis::Sagittal;
    if (names("CORONAL")) return SliceAxis::Coronal;
    if (names("AXIAL") || names("TRANSVERSE")) return SliceAxis::Axial;
    return std::nullopt;
}

std::optional<SliceAxis> axisOfLocation(const std::array<float, 3>& position, float sliceLocation)
{
    for (std::size_t i = 0; i < 3; ++i)
        if (position[i] == sliceLocation) return static_cast<SliceAxis>(i);
    return std::nullopt;
}

std::array<float, 3> extentsAcross(SliceAxis axis, float columns, float rows, float slices)
{
    if (axis == SliceAxis::Sagittal) return {slices, rows, columns};
    if (axis == SliceAxis::Coronal) return {columns, slices, rows};
    return {columns, rows, slices};
}

std::size_t sliceExtentOf(SliceAxis axis)
{
    return static_cast<std::size_t>(axis);
}

BlockCounts countsAcross(SliceAxis axis, const BlockCounts& stack)
{
    BlockCounts counts = stack;
    if (axis == SliceAxis::Sagittal) std::swap(counts.columns, counts.frames);
    if (axis == SliceAxis::Axial) std::swap(counts.rows, counts.frames);
    return counts;
}

}  // namespace viz
