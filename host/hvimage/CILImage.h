#pragma once

#include "hvimage/CILImageBase.h"
#include "hvimage/CILPalette.h"
#include "hvimage/IL_RESAMPLEMODES.h"
#include "hvimage/hvimage_global.h"

#include <memory>

class CILHistogram;

// A picture with statistics, filters and files.
class HVIMAGE_EXPORT CILImage : public CILImageBase
{
public:
    CILImage();
    CILImage(CILImage const& other);
    CILImage& operator=(CILImage const& other);
    ~CILImage() override;

    // --- files ---

    // Not 0 when the file is a TIFF file with at least one picture, whatever the picture's samples are.
    // `path` in the file system's encoding.
    static int canInitFromFile(char const* path);

    // Reads the picture `frame` (from 0) of a TIFF file and measures it. Whole numbers of 1 to 32 bits, one a
    // pixel, come out as the narrowest of eTypeUInt8, eTypeUInt16 and eTypeUInt32 that has their bits; signed
    // ones are moved up by half of their range. False for any other picture and for what can't be read: the
    // image then has no samples and no type, and the log has the reason.
    bool LoadFromTIFFFile(char const* path, int frame);

    // Number of pictures in the file that was loaded last; 0 when it could not be read.
    int getImageCount() const;

    // Reads another picture of the file that was loaded last, as LoadFromTIFFFile does, and returns its
    // samples (owned by the image); null when it can't be read. Pictures may be asked for in any order.
    void const* getFrameData(int frame);

    // Of the picture that was read last, readable or not: resolutions as they stand in the file (0 when
    // absent) and their unit (1 none, 2 inch, 3 centimetre); size as stored, in pixels (0 when not known);
    // whether it has more than one sample a pixel.
    float getXResolution() const;
    float getYResolution() const;
    int getResolutionUnit() const;
    long getOriginalWidth() const;
    long getOriginalHeight() const;
    bool isRGBImageFormat() const;

    // Takes decoded pixels of a DICOM frame of `depth` bits: at most 8, 16 or 32 bits give one, two or four
    // bytes each. The pixels are copied; the palette stays. False as for initWithData, and for a depth of 0
    // or above 32.
    bool InitFromDICOMFile(char* pixels, unsigned height, unsigned width, unsigned depth);

    bool saveAsTIFF(char const* path);

    // --- samples ---

    // Makes the image from width x height samples. They are not copied until something writes to the image
    // (the get_data() that can be written through included): until then `data` stays the caller's and has to
    // outlive the image's use of it. Copies of the image have samples of their own. Samples that lie in this
    // image are copied at once. False as for InitWithType, and for null.
    bool initWithData(HVSDataTypes type, long width, long height, void* data);

    // Converts the samples to another type; values are rounded to the nearest value that the type can hold.
    bool ChangeType(HVSDataTypes type);

    // Swaps left and right; swaps top and bottom.
    void Mirror();
    void Flip();

    // Brings the image to another size by the filter that `mode` names, in x and y each smaller or larger.
    // Integer types are rounded to the nearest value. False as for InitWithType, for an empty image and for
    // an unknown mode.
    bool downSample(int width, int height, IL_RESAMPLEMODES mode);

    // Writes an 8-bit mask of the same size: 255 where the sample is above `level`, else 0.
    bool Threshold(float level, CILImage& mask);

    // Each pixel becomes the largest, or smallest, of the width x height pixels around it.
    bool Dilate(int width, int height);
    bool Erode(int width, int height);

    // --- statistics ---

    // Measures the samples. No other operation does so, except those that read a picture of a file: call it
    // after samples were written.
    void RefreshImageStats();

    // Lowest and highest sample as RefreshImageStats() found them; samples that are no numbers do not count.
    // Both are 0 before that, for an empty image, and where no sample is a number.
    double getMin() const;
    double getMax() const;

    // The same, measured anew.
    double Min();
    double Max();

    // Counts the samples into a histogram whose range and number of bins were set before. Samples outside the
    // range and such that are no numbers are not counted. False for an empty image, a range that is reversed
    // or not finite, and a lack of memory; the histogram then stays as it was.
    bool Histogram(CILHistogram& histogram);

    // --- display ---

    // The colour table through which a view shows the image, with the display range in its image range.
    // Copied out and in: a change of the copy changes nothing here.
    CILPalette getPalette() const;
    void setPalette(CILPalette const& palette);

private:
    bool readPage(int number);

    class ImagePrivate;
    std::unique_ptr<ImagePrivate> m_image;
};
