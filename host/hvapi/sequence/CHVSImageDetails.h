#pragma once

#include "hvapi/hvapi_global.h"

#include <memory>

class CHVSImageWindow;
class CILImage;

/// One image of a dataset. Owned by the dataset.
class HVAPI_EXPORT CHVSImageDetails
{
public:
    ~CHVSImageDetails();

    /// The pixels; never null.
    CILImage* getCoreImage();
    /// The window that shows the image, or null.
    CHVSImageWindow* getImageWindow();

private:
    CHVSImageDetails();

    struct Private;
    std::unique_ptr<Private> d;
};
