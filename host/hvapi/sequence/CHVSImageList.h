#pragma once

#include "hvapi/hvapi_global.h"
#include "hvapi/values/tag_eimagetype.h"

#include <memory>

class CHVSImageDetails;

/// Images of a dataset by kind. Owned by the dataset.
class HVAPI_EXPORT CHVSImageList
{
public:
    ~CHVSImageList();

    /// The image of that kind, or null.
    CHVSImageDetails* getImage(tag_eimagetype type);

private:
    CHVSImageList();

    struct Private;
    std::unique_ptr<Private> d;
};
