#pragma once

#include "hvimage/HVS_COLORTABLE_TYPES.h"
#include "hvimage/hvimage_global.h"

#include <memory>

// A colour table of 256 entries, and how values of an image find their colours in it.
class HVIMAGE_EXPORT CILPalette
{
public:
    CILPalette();  // grays, image range 0 to 255, not reversed, linear
    explicit CILPalette(HVS_COLORTABLE_TYPES type);
    CILPalette(CILPalette const& other);
    CILPalette& operator=(CILPalette const& other);
    ~CILPalette();

    // Takes a table: its entries 0 to 255 run from the fraction `low` to the fraction `high` of the full
    // table, 0 to 1 each. An unknown type leaves the palette without a table.
    void setColorTableType(HVS_COLORTABLE_TYPES type, float low, float high);

    // Not 0: the image's lowest value gets the last colour. The buffer keeps its order; who reads it asks
    // reversed().
    void setReversed(int reversed);
    int reversed() const;

    // Not 0: the entries follow the logarithm, so that low values get more of the colours. Entry i is the
    // entry 255 log(1 + i) / log(256) of the linear table.
    void setLogScale(int logScale);

    // The image values that get the first and the last entry.
    void SetImageMinMax(double minimum, double maximum);

    // The entries, four bytes each: R, G, B, A, in the order of the table; A is 255. Null without a table.
    // Owned by the palette, valid until its next change.
    unsigned char* getColorTableBuffer();

    // Number of entries: 256, or 0 without a table.
    int getMaxIndex() const;

    // Colour of an image value, 0 to 255 each, with the reversal applied. Values outside the image range get
    // the nearer end; so does everything when the range is empty. Without a table: opaque black.
    void GetRGBForImageValue(double value, double* red, double* green, double* blue, double* alpha) const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
