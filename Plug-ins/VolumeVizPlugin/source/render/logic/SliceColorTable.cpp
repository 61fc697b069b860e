#include "render/logic/SliceColorTable.h"

#include <algorithm>

namespace {

/// Truncates; a value that is no byte at all gives its nearest one.
unsigned char toByte(double value) noexcept
{
    if (!(value > 0.0)) return 0;
    return value < 255.0 ? static_cast<unsigned char>(value) : 255;
}

void copyEntries(const PaletteView& palette, unsigned char (&table)[256 * 4])
{
    for (int place = 0; place < 256; ++place) {
        const int entry = std::min(palette.reversed ? 255 - place : place, palette.maxIndex - 1);
        std::copy_n(palette.entries + 4 * entry, 4, table + 4 * place);
    }
}

void sampleEntries(const PaletteView& palette, unsigned char (&table)[256 * 4])
{
    const double step = palette.maxIndex / 255.0;
    unsigned char* out = table;
    for (int i = 0; i < 256; i = static_cast<int>(i + step)) {
        double rgba[4] = {0.0, 0.0, 0.0, 0.0};
        palette.colorAt(static_cast<int>(i * step + 0.5), rgba);
        out = std::transform(rgba, rgba + 4, out, toByte);
    }
}

}  // namespace

void fillSliceColorTable(const PaletteView& palette, unsigned char (&table)[256 * 4])
{
    if (!palette.entries || palette.maxIndex < 1) return;
    if (palette.maxIndex <= 256)
        copyEntries(palette, table);
    else
        sampleEntries(palette, table);
}
