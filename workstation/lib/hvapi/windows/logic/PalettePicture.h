#pragma once

#include "hvapi/hvapi_global.h"

#include <QImage>

class CILImage;

namespace hvwindows {

/// Longest side of such a picture, in pixels; of larger images every second, third, ... sample is taken.
constexpr long longestPaletteSide = 4096;

/// An image in the colours that its palette gives its values. A null picture for an image without samples, or
/// when memory does not suffice.
HVAPI_EXPORT QImage palettePicture(CILImage const& image);

}  // namespace hvwindows
