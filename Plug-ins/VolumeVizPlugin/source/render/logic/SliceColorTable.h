#pragma once

#include <functional>

/// What the table of the slices needs of a palette.
struct PaletteView
{
    /// Four bytes for each colour, R, G, B, A as the palette keeps them; null when there is none.
    const unsigned char* entries = nullptr;
    /// How many colours there are.
    int maxIndex = 0;
    bool reversed = false;
    /// Writes red, green, blue and alpha, 0 to 255, of an image value from 0 to maxIndex.
    std::function<void(double value, double (&rgba)[4])> colorAt;
};

/// Fills the 256 RGBA entries of the slice colour table from a palette; nothing without entries.
///
/// Up to 256 colours are copied, in reverse order when the palette is reversed, the last colour repeated for
/// the entries above. A larger palette is sampled; there the place read advances by the sampling step twice
/// over, so that only the first 256 / step entries are filled and the others keep what they had. Kept on
/// purpose.
void fillSliceColorTable(const PaletteView& palette, unsigned char (&table)[256 * 4]);
