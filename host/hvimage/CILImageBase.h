#pragma once

#include "hvimage/HVSDataTypes.h"
#include "hvimage/hvimage_global.h"

#include <memory>

// A picture of one sample a pixel: rows from top to bottom without gaps, x fastest. Copies are deep. Nothing
// throws: what cannot be allocated is reported by false and leaves the image as it was.
class HVIMAGE_EXPORT CILImageBase
{
public:
    CILImageBase();                           // empty: no type, 0 x 0
    CILImageBase(CILImageBase const& other);  // empty when memory does not suffice
    CILImageBase& operator=(CILImageBase const& other);
    virtual ~CILImageBase();

    HVSDataTypes get_datatype() const;

    // Pixels of a row, and rows. The two names mean the same.
    long getWidth() const;
    long getHeight() const;
    long get_width() const;
    long get_height() const;

    // The samples, width x height of get_datatype(), on a 64-byte boundary unless they are the caller's own
    // (CILImage::initWithData); null for an empty image. Valid until the next operation that changes size,
    // type or contents as a whole. The first form makes samples of the caller the image's own, and is null
    // when memory does not suffice for that.
    void* get_data();
    void const* get_data() const;

    // Makes an image of zeros. False for an unknown type, a size below 1, more bytes than can be addressed,
    // or a lack of memory. Memory of the same size is used again.
    bool InitWithType(HVSDataTypes type, long width, long height);

    // Replaces the samples by width x height samples of the image's own type from `data`. False for null and
    // for an empty image.
    bool setImageData(void const* data);

    // Changes the size. The picture keeps its place at the top left and is cut at the new borders; new area
    // gets `value`, brought to the nearest value that the type can hold, or 0. The third form takes the size
    // of another image. False as for InitWithType, and for an empty image.
    bool resize(long width, long height);
    bool resize(long width, long height, double value);
    bool resize(CILImageBase const& sizeOf, double value);

    // Bytes of one sample of a type; 0 for an unknown type.
    static int get_reqsizefortype(HVSDataTypes type);

protected:
    class Private;
    std::unique_ptr<Private> d;
};
