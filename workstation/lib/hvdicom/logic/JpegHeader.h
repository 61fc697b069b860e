#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

namespace hvdicom {

// What the frame header of a JPEG or JPEG-LS stream declares.
struct JpegHeader
{
    unsigned precision = 0;  // bits of a sample
    unsigned rows = 0;
    unsigned columns = 0;
    unsigned components = 0;
};

// True when the bytes begin a JPEG or JPEG-LS stream.
bool beginsJpeg(std::uint8_t const* data, std::size_t size);

// The frame header of a stream: nothing where one stands before it that has no business there, where a length
// leads out of the data, or where the header is not whole.
std::optional<JpegHeader> readJpegHeader(std::uint8_t const* data, std::size_t size);

}  // namespace hvdicom
