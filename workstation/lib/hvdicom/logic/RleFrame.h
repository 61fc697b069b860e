#pragma once

#include <cstddef>
#include <cstdint>

namespace hvdicom {

// One frame of RLE pixels as its file declares it.
struct RleFrame
{
    std::uint64_t pixels = 0;
    unsigned samplesPerPixel = 1;
    unsigned bytesPerSample = 2;  // 1, 2 or 4
    bool isByPlane = false;       // how several samples a pixel are written: one after the other, or together
};

// Decodes one frame: 64 bytes of header (number of segments, then their offsets), and a segment for each byte
// of each sample, the highest byte first, in runs. Writes pixels * samplesPerPixel * bytesPerSample bytes,
// samples in little endian. False, with `target` undefined, when the number of segments is another, one lies
// outside of the data, or ends before all pixels are there.
bool decodeRle(std::uint8_t const* data, std::size_t size, RleFrame const& frame, std::uint8_t* target);

}  // namespace hvdicom
