#pragma once

/// Kind of an image in a dataset.
enum tag_eimagetype : int
{
    IMAGETYPE_PHOTOGRAPH = 0,
    IMAGETYPE_LUMINESCENT = 1,
    IMAGETYPE_XRAY = 12
};
