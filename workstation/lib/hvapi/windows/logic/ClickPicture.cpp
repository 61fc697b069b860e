#include "lib/hvapi/windows/logic/ClickPicture.h"

#include "hvimage/CILImage.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

namespace hvwindows {

namespace {

template <class T>
double sample(void const* data, std::size_t index)
{
    T value;
    std::memcpy(&value, static_cast<unsigned char const*>(data) + index * sizeof(T), sizeof(T));
    return static_cast<double>(value);
}

double valueAt(CILImage const& image, long x, long y)
{
    auto const index = static_cast<std::size_t>(y) * static_cast<std::size_t>(image.getWidth()) +
                       static_cast<std::size_t>(x);
    void const* data = image.get_data();
    switch (image.get_datatype()) {
    case eTypeUInt8:
        return sample<std::uint8_t>(data, index);
    case eTypeUInt16:
        return sample<std::uint16_t>(data, index);
    case eTypeUInt32:
        return sample<std::uint32_t>(data, index);
    case eTypeFloat:
        return sample<float>(data, index);
    case eTypeDouble:
        return sample<double>(data, index);
    case eTypeInt8:
        return sample<std::int8_t>(data, index);
    case eTypeInt16:
        return sample<std::int16_t>(data, index);
    case eTypeNone:
        break;
    }
    return 0.0;
}

bool isUsable(CILImage const* image)
{
    return image && image->get_data() && image->getWidth() > 0 && image->getHeight() > 0;
}

/// The pixel of an image that lies at pixel `i` of `count` in the picture.
long at(int i, int count, long size)
{
    return std::min(size - 1, static_cast<long>((i + 0.5) * static_cast<double>(size) / count));
}

int grayOf(double value, double low, double high)
{
    if (!(high > low) || std::isnan(value)) return 0;
    return static_cast<int>(std::lround(255.0 * std::clamp((value - low) / (high - low), 0.0, 1.0)));
}

std::vector<QRgb> tableOf(HVS_COLORTABLE_TYPES type)
{
    CILPalette palette(type);
    std::vector<QRgb> table;
    unsigned char const* entry = palette.getColorTableBuffer();
    for (int i = 0; entry && i < palette.getMaxIndex(); ++i, entry += 4)
        table.push_back(qRgb(entry[0], entry[1], entry[2]));
    return table;
}

}  // namespace

QImage clickPicture(CILImage const* photograph, CILImage const* luminescent, LuminescentColors const& colors)
{
    bool const hasPhotograph = isUsable(photograph);
    bool const hasLight = isUsable(luminescent);
    if (!hasPhotograph && !hasLight) return {};
    CILImage const& ground = hasPhotograph ? *photograph : *luminescent;
    double const shrink = std::max(1.0, static_cast<double>(std::max(ground.getWidth(), ground.getHeight())) /
                                            longestPictureSide);
    int const width = std::max(1, static_cast<int>(static_cast<double>(ground.getWidth()) / shrink));
    int const height = std::max(1, static_cast<int>(static_cast<double>(ground.getHeight()) / shrink));
    QImage picture(width, height, QImage::Format_RGB32);
    if (picture.isNull()) return {};
    auto const table = tableOf(colors.table);
    double const range = colors.high - colors.low;
    for (int y = 0; y < height; ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < width; ++x) {
            int const gray = hasPhotograph ? grayOf(valueAt(*photograph, at(x, width, photograph->getWidth()),
                                                            at(y, height, photograph->getHeight())),
                                                    photograph->getMin(), photograph->getMax())
                                           : 0;
            line[x] = qRgb(gray, gray, gray);
            if (!hasLight || table.empty()) continue;
            double const light = valueAt(*luminescent, at(x, width, luminescent->getWidth()),
                                         at(y, height, luminescent->getHeight()));
            if (!(light >= colors.low)) continue;
            double const place = range > 0.0 ? std::min(1.0, (light - colors.low) / range) : 1.0;
            line[x] =
                table[static_cast<std::size_t>(std::lround(place * static_cast<double>(table.size() - 1)))];
        }
    }
    return picture;
}

}  // namespace hvwindows
