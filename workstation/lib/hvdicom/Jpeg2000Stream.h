#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace hvdicom {

// One frame as its file declares it.
struct Jpeg2000Frame
{
    std::uint64_t columns = 0;
    std::uint64_t rows = 0;
    unsigned samplesPerPixel = 1;
    unsigned bitsAllocated = 16;  // of a sample that is written: 8 or 16
};

// True when the bytes begin a code stream, or the file format around one.
bool beginsJpeg2000(std::uint8_t const* data, std::size_t size);

// Decodes `size` bytes into columns * rows * samplesPerPixel samples of bitsAllocated, the samples of a pixel
// together. Signed samples are written as two's complement. Empty on success, else what is wrong; `target` is
// then undefined. The stream must have the declared size, number of components without sub-sampling, and no
// more bits than a sample has room for; truncated ones are refused.
std::string decodeJpeg2000(std::uint8_t const* data, std::size_t size, Jpeg2000Frame const& frame,
                           void* target);

}  // namespace hvdicom
