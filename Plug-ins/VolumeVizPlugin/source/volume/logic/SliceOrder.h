#pragma once

#include <array>
#include <cstddef>
#include <vector>

// In which order the slices of a series stand, and how far apart. Single precision, step by step.
namespace viz {

/// A point or a direction in patient coordinates, in mm.
using SlicePoint = std::array<float, 3>;

SlicePoint difference(const SlicePoint& to, const SlicePoint& from);
float length(const SlicePoint& vector);

/// A vector of length 1; one of length 0 gives back itself.
SlicePoint unit(const SlicePoint& vector);

/// Where the series runs, from its first two slices.
struct SeriesDirection
{
    SlicePoint unit{};       ///< of length 1, or zeros where both slices and the spacing leave none
    float distance = 0.0F;   ///< of the two slices as they stand in the files, in mm
    bool synthetic = false;  ///< both slices stand in one place: the files' positions say nothing
};

/// @param sliceSpacing  in mm; the z of the second slice where both stand in one place
SeriesDirection seriesDirection(const SlicePoint& first, SlicePoint second, float sliceSpacing);

/// Distance of a slice from the first one along the series.
float slicePosition(const SlicePoint& direction, const SlicePoint& first, const SlicePoint& slice);

/// Indices of the slices in ascending order of their positions. Slices of equal position, and whatever does
/// not compare, come in the reverse order of the list, as far as one merge after the other turns them
/// around.
std::vector<std::size_t> sliceOrder(const std::vector<float>& positions);

/// Mean distance of neighbouring slices; not finite for a single one.
float meanSpacing(float firstPosition, float lastPosition, std::size_t slices);

}  // namespace viz
