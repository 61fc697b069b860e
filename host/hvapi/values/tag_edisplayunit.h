#pragma once

/// Unit in which a sequence window shows optical images.
enum tag_edisplayunit : int
{
    DISPLAYUNIT_COUNTS = 0,
    DISPLAYUNIT_PHOTONS = 1,
    DISPLAYUNIT_EFFICIENCY = 2
};
