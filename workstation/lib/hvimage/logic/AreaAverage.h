#pragma once

#include "hvimage/HVSDataTypes.h"

namespace hvimage {

// Brings a picture to another size by area averages. New pixel (x, y) of w x h stands for the rectangle
// [x W / w, (x + 1) W / w) x [y H / h, (y + 1) H / h) of the old picture of W x H pixels and becomes the mean
// over it: the sum of the old pixels, each by the area that lies inside, over the area of the rectangle.
// Works in both directions, larger and smaller.
//
// In units of 1/(w h) of an old pixel all areas are integers, so that the sums of integer samples are exact
// as long as they stay below 2^53; integer results are rounded once, halves upwards.
//
// `target` has room for w x h samples of the same type. Sizes are 1 or more. False for an unknown type or a
// lack of memory for one row of sums.
bool areaAverage(HVSDataTypes type, void const* source, long sourceWidth, long sourceHeight, void* target,
                 long targetWidth, long targetHeight);

}  // namespace hvimage
