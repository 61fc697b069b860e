#include "lib/hvapi/windows/logic/PalettePicture.h"

#include "hvimage/CILImage.h"

#include <algorithm>
#include <cstdint>
#include <type_traits>
#include <vector>

namespace hvwindows {

namespace {

QRgb colorOf(CILPalette const& palette, double value)
{
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    double alpha = 0.0;
    palette.GetRGBForImageValue(value, &red, &green, &blue, &alpha);
    return qRgb(static_cast<int>(red), static_cast<int>(green), static_cast<int>(blue));
}

template <class T, class F>
void fill(QImage& picture, CILImage const& image, long step, F&& color)
{
    auto const* samples = static_cast<T const*>(image.get_data());
    for (int y = 0; y < picture.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        T const* row = samples + static_cast<long>(y) * step * image.getWidth();
        for (int x = 0; x < picture.width(); ++x)
            line[x] = color(row[static_cast<long>(x) * step]);
    }
}

template <class T>
void fillByTable(QImage& picture, CILImage const& image, long step)
{
    constexpr int count = 1 << (8 * sizeof(T));
    constexpr int lowest = std::is_signed_v<T> ? -count / 2 : 0;
    CILPalette const palette = image.getPalette();
    std::vector<QRgb> table(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        table[static_cast<std::size_t>(i)] = colorOf(palette, lowest + i);
    fill<T>(picture, image, step,
            [&table](T value) { return table[static_cast<std::size_t>(static_cast<int>(value) - lowest)]; });
}

template <class T>
void fillOneByOne(QImage& picture, CILImage const& image, long step)
{
    CILPalette const palette = image.getPalette();
    fill<T>(picture, image, step,
            [&palette](T value) { return colorOf(palette, static_cast<double>(value)); });
}

}  // namespace

QImage palettePicture(CILImage const& image)
{
    if (!image.get_data() || image.getWidth() < 1 || image.getHeight() < 1) return {};
    long const longest = std::max(image.getWidth(), image.getHeight());
    long const step = (longest + longestPaletteSide - 1) / longestPaletteSide;
    QImage picture(static_cast<int>((image.getWidth() + step - 1) / step),
                   static_cast<int>((image.getHeight() + step - 1) / step), QImage::Format_RGB32);
    if (picture.isNull()) return {};
    switch (image.get_datatype()) {
    case eTypeUInt8:
        fillByTable<std::uint8_t>(picture, image, step);
        break;
    case eTypeUInt16:
        fillByTable<std::uint16_t>(picture, image, step);
        break;
    case eTypeInt8:
        fillByTable<std::int8_t>(picture, image, step);
        break;
    case eTypeInt16:
        fillByTable<std::int16_t>(picture, image, step);
        break;
    case eTypeUInt32:
        fillOneByOne<std::uint32_t>(picture, image, step);
        break;
    case eTypeFloat:
        fillOneByOne<float>(picture, image, step);
        break;
    case eTypeDouble:
        fillOneByOne<double>(picture, image, step);
        break;
    case eTypeNone:
        return {};
    }
    return picture;
}

}  // namespace hvwindows
