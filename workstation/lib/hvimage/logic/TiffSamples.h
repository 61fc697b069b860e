#pragma once

#include "hvimage/HVSDataTypes.h"

#include <cstddef>
#include <cstdint>

namespace hvimage {

// How the numbers of a TIFF picture are to be read, by the values of its SampleFormat tag.
enum class TiffNumber : std::uint16_t
{
    Unsigned = 1,
    Signed = 2,
    Float = 3,
    Untyped = 4,  // read as unsigned
    ComplexInteger = 5,
    ComplexFloat = 6
};

// What the directory of a TIFF picture says of it.
struct TiffPage
{
    std::uint32_t width = 0;    // pixels; 0 for a directory that can't be read
    std::uint32_t height = 0;   // pixels
    std::uint16_t bits = 1;     // of a sample
    std::uint16_t samples = 1;  // of a pixel
    TiffNumber number = TiffNumber::Unsigned;
    std::uint16_t compression = 1;  // value of the tag
    float xResolution = 0;          // as it stands in the file; 0 when absent or no finite number
    float yResolution = 0;
    std::uint16_t resolutionUnit = 2;  // 1 none, 2 inch, 3 centimetre
};

// Type in which the samples of a picture come out: the narrowest unsigned one that has their bits. eTypeNone
// for what is not one whole number of 1 to 32 bits a pixel; `reason`, if not null, then points to the
// explanation, which follows "the picture".
HVSDataTypes sampleTypeOf(TiffPage const& page, char const** reason = nullptr);

// Whether a file of `fileSize` bytes can hold the picture by the densest packing of its compression, as far
// as that has a limit. Guards against a few bytes that promise gigabytes.
bool canHold(std::uint64_t fileSize, TiffPage const& page);

// Bytes of a row of `pixels` samples of `bits` bits each, without gaps between them.
std::uint64_t packedRowBytes(std::uint64_t pixels, unsigned bits);

// Takes samples of 1 to 32 bits out of a row without gaps, highest bit first; 24 bits are three bytes in the
// machine's order. `samples` has room for `count` of the type that sampleTypeOf gives.
void unpackRow(void const* row, std::size_t count, unsigned bits, HVSDataTypes type, void* samples);

// Signed samples of `bits` bits become unsigned ones in the same order, by adding half of their range.
void shiftSigned(HVSDataTypes type, void* samples, std::size_t count, unsigned bits);

}  // namespace hvimage
