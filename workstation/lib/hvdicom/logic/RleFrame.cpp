#include "RleFrame.h"

#include <algorithm>

namespace hvdicom {

namespace {

constexpr std::size_t headerBytes = 64;
constexpr unsigned mostSegments = 15;

std::uint32_t word(std::uint8_t const* at)
{
    return static_cast<std::uint32_t>(at[0]) | static_cast<std::uint32_t>(at[1]) << 8 |
           static_cast<std::uint32_t>(at[2]) << 16 | static_cast<std::uint32_t>(at[3]) << 24;
}

// Bytes of a segment to every `step`th byte of the target.
bool decodeSegment(std::uint8_t const* at, std::uint8_t const* end, std::uint64_t count, std::uint8_t* target,
                   std::size_t step)
{
    while (count > 0) {
        if (at == end) return false;
        unsigned const control = *at++;
        if (control == 128) continue;
        bool const isRun = control > 128;
        std::uint64_t const length = std::min<std::uint64_t>(isRun ? 257 - control : control + 1, count);
        auto const needed = static_cast<std::ptrdiff_t>(isRun ? 1 : length);
        if (end - at < needed) return false;
        for (std::uint64_t i = 0; i < length; ++i, target += step)
            *target = at[isRun ? 0 : i];
        at += needed;
        count -= length;
    }
    return true;
}

}  // namespace

bool decodeRle(std::uint8_t const* data, std::size_t size, RleFrame const& frame, std::uint8_t* target)
{
    unsigned const segments = frame.samplesPerPixel * frame.bytesPerSample;
    if (size < headerBytes || segments > mostSegments || word(data) != segments) return false;
    std::size_t const pixelStep = frame.isByPlane ? frame.bytesPerSample : segments;
    std::size_t const sampleStep = frame.isByPlane
                                       ? static_cast<std::size_t>(frame.pixels) * frame.bytesPerSample
                                       : frame.bytesPerSample;
    for (unsigned segment = 0; segment < segments; ++segment) {
        std::uint32_t const offset = word(data + 4 + 4 * segment);
        if (offset < headerBytes || offset > size) return false;
        unsigned const sample = segment / frame.bytesPerSample;
        unsigned const byte = frame.bytesPerSample - 1 - segment % frame.bytesPerSample;
        if (!decodeSegment(data + offset, data + size, frame.pixels, target + sample * sampleStep + byte,
                           pixelStep))
            return false;
    }
    return true;
}

}  // namespace hvdicom
