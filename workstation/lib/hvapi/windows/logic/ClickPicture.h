#pragma once

#include "hvapi/hvapi_global.h"
#include "hvimage/HVS_COLORTABLE_TYPES.h"

#include <QImage>

class CILImage;

namespace hvwindows {

/// The colours of a luminescent image: values from `low` to `high` run through the table, those below `low`
/// are clear, those above `high` get its last colour.
struct LuminescentColors
{
    double low = 0.0;
    double high = 0.0;
    HVS_COLORTABLE_TYPES table = eColorTableRainbow;
};

/// Longest side of a picture, in pixels; larger images are thinned out.
constexpr int longestPictureSide = 1024;

/// A photograph in grays from its lowest to its highest value, with the luminescent image stretched over it.
/// Either may be null; both null, or empty, give a null picture. Without a photograph the ground is black.
HVAPI_EXPORT QImage clickPicture(CILImage const* photograph, CILImage const* luminescent,
                                 LuminescentColors const& colors);

}  // namespace hvwindows
