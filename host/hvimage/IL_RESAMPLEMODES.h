#pragma once

// Filters of CILImage::downSample.
enum IL_RESAMPLEMODES : int
{
    // Area average: each new pixel is the mean of the part of the old picture that it covers, old pixels on
    // its border counted by the fraction that lies inside.
    eResampleAreaAverage = 4
};
