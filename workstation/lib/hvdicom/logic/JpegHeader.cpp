#include "JpegHeader.h"

namespace hvdicom {

namespace {

unsigned word(std::uint8_t const* at)
{
    return static_cast<unsigned>(at[0]) << 8 | at[1];
}

bool isFrameHeader(unsigned marker)
{
    return (marker >= 0xC0 && marker <= 0xC3) || marker == 0xF7;
}

// Tables, restart interval, parameters of JPEG-LS, application data, comments.
bool mayStandBeforeIt(unsigned marker)
{
    return marker == 0xC4 || marker == 0xCC || marker == 0xDB || marker == 0xDD || marker == 0xF8 ||
           marker == 0xFE || (marker >= 0xE0 && marker <= 0xEF);
}

}  // namespace

bool beginsJpeg(std::uint8_t const* data, std::size_t size)
{
    return size >= 2 && data[0] == 0xFF && data[1] == 0xD8;
}

std::optional<JpegHeader> readJpegHeader(std::uint8_t const* data, std::size_t size)
{
    if (!beginsJpeg(data, size)) return std::nullopt;
    std::size_t at = 2;
    while (size - at >= 4 && data[at] == 0xFF) {
        unsigned const marker = data[at + 1];
        unsigned const length = word(data + at + 2);
        if (length < 2 || size - at - 2 < length) return std::nullopt;
        if (isFrameHeader(marker)) {
            if (length < 8) return std::nullopt;
            std::uint8_t const* const header = data + at + 4;
            JpegHeader const found = {header[0], word(header + 1), word(header + 3), header[5]};
            if (length < 8 + 3 * found.components) return std::nullopt;
            return found;
        }
        if (!mayStandBeforeIt(marker)) return std::nullopt;
        at += 2 + length;
    }
    return std::nullopt;
}

}  // namespace hvdicom
