#pragma once

#include <optional>

/// Where a slice lies in the box of a volume, and the range of the slider that shows it.
struct SlicePlace
{
    int axis = 0;           ///< the slice's normal: 0 x, 1 y, 2 z
    double position = 0.0;  ///< where the slice meets its axis, in mm
    double low = 0.0;       ///< the box on that axis, in mm
    double high = 0.0;
    int sliderMin = 0;
    int sliderMax = 100;
};

/// The slider's value for the slice, in its range or beyond; nothing for a box without thickness. On x and y
/// a millimetre is added to the position.
std::optional<int> sliderValueOf(const SlicePlace& place);
