#pragma once

/// Unit of the rulers around an image, see CHVSSimpleImageView.
enum tag_escaleunit : int
{
    SCALEUNIT_PIXELS = 0,
    SCALEUNIT_MM = 1,
    SCALEUNIT_CM = 2
};
