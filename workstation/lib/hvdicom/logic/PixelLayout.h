#pragma once

#include <cstdint>

namespace hvdicom {

// What a file declares about its pixels; nothing of it is to be believed before pixelFault() has agreed.
struct PixelLayout
{
    std::uint64_t columns = 0;
    std::uint64_t rows = 0;
    std::uint64_t frames = 1;
    unsigned samplesPerPixel = 1;
    unsigned bitsAllocated = 0;
    unsigned bitsStored = 0;
    unsigned highBit = 0;
    bool isSigned = false;
    bool lowIsWhite = false;         // MONOCHROME1
    bool isEncapsulated = false;     // compressed, in fragments
    std::uint64_t elementBytes = 0;  // that are there: of the element, or of all fragments together
    std::uint64_t fragments = 0;     // of an encapsulated one, without the offset table

    bool operator==(PixelLayout const& other) const;
};

enum class PixelFault
{
    None,
    NoSize,       // rows or columns missing, 0 or above 65535
    NoFrames,     // less than one frame
    BadBits,      // no sample of 1 to 32 bits
    BadSamples,   // not 1, 3 or 4 samples a pixel
    TooShort,     // the element has less bytes than the frames need
    TooFewParts,  // more frames than compressed fragments
    TooLarge      // a compressed frame declares a size that its bytes cannot stand for
};

// Whether a frame may be decoded. All products are checked against overflow.
PixelFault pixelFault(PixelLayout const& layout);

// For the log.
char const* describe(PixelFault fault);

// Whether `encoded` bytes may be decoded to `decoded` ones. Compressed pictures of air shrink by thousands,
// so the quotient alone says little; but no honest file of a kilobyte holds gigabytes.
bool isPlausibleExpansion(std::uint64_t encoded, std::uint64_t decoded);

// Of a layout without fault. Bits and bytes of one frame in the uncompressed file.
std::uint64_t samplesPerFrame(PixelLayout const& layout);
std::uint64_t frameBits(PixelLayout const& layout);
std::uint64_t frameBytes(PixelLayout const& layout);  // rounded up

}  // namespace hvdicom
