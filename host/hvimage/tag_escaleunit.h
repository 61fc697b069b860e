#pragma once

// Units of an image view's scale.
enum tag_escaleunit : int
{
    eScaleUnitPixel = 0,
    eScaleUnitMillimetre = 1,
    eScaleUnitCentimetre = 2
};
