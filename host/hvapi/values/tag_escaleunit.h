#pragma once

/// Unit of the scale bar of an image view, see CHVSSimpleImageView.
enum tag_escaleunit : int
{
    SCALEUNIT_NONE = 0,
    SCALEUNIT_PIXELS = 1,
    SCALEUNIT_MM = 2,
    SCALEUNIT_CM = 3
};
