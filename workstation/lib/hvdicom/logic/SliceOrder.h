#pragma once

#include <array>
#include <optional>
#include <vector>

namespace hvdicom {

using Vector = std::array<double, 3>;

// Where a slice lies: position of its first pixel, and the directions of its rows and columns.
struct SlicePlace
{
    std::optional<Vector> position;
    std::optional<std::array<Vector, 2>> orientation;
};

// Indices of the slices by their distance along the normal of the first slice that has an orientation (row
// times column); without any orientation along the axis on which they lie farthest apart, x before y before
// z. Equal distances keep their order; slices without a position come last, in their order.
std::vector<std::size_t> slicesByPosition(std::vector<SlicePlace> const& slices);

}  // namespace hvdicom
