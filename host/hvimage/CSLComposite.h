#pragma once

#include "hvimage/hvimage_global.h"

class CILImage;

// Measures that combine several operations on images.
class HVIMAGE_EXPORT CSLComposite
{
public:
    CSLComposite() = delete;

    // The threshold that best parts the image's values into two classes (N. Otsu, "A threshold selection
    // method from gray-level histograms", 1979), in percent of the image's range. 0 for an image of one
    // value.
    static double AutomaticThresholdOtsuNoLog(CILImage& image);
};
