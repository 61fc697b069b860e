#include "PixelLayout.h"

namespace hvdicom {

namespace {

constexpr std::uint64_t mostOfASide = 65535;
constexpr std::uint64_t mostBits = 32;
constexpr std::uint64_t alwaysDecoded = std::uint64_t{64} << 20;
constexpr std::uint64_t mostExpansion = 2048;

}  // namespace

bool PixelLayout::operator==(PixelLayout const& other) const
{
    return columns == other.columns && rows == other.rows && frames == other.frames &&
           samplesPerPixel == other.samplesPerPixel && bitsAllocated == other.bitsAllocated &&
           bitsStored == other.bitsStored && highBit == other.highBit && isSigned == other.isSigned &&
           lowIsWhite == other.lowIsWhite && isEncapsulated == other.isEncapsulated &&
           elementBytes == other.elementBytes && fragments == other.fragments;
}

bool isPlausibleExpansion(std::uint64_t encoded, std::uint64_t decoded)
{
    return decoded <= alwaysDecoded || (decoded - alwaysDecoded) / mostExpansion <= encoded;
}

PixelFault pixelFault(PixelLayout const& layout)
{
    if (layout.columns < 1 || layout.columns > mostOfASide || layout.rows < 1 || layout.rows > mostOfASide)
        return PixelFault::NoSize;
    if (layout.frames < 1) return PixelFault::NoFrames;
    if (layout.samplesPerPixel != 1 && layout.samplesPerPixel != 3 && layout.samplesPerPixel != 4)
        return PixelFault::BadSamples;
    if (layout.bitsAllocated < 1 || layout.bitsAllocated > mostBits || layout.bitsStored < 1 ||
        layout.bitsStored > layout.bitsAllocated || layout.highBit >= layout.bitsAllocated ||
        layout.highBit + 1 < layout.bitsStored)
        return PixelFault::BadBits;

    // Sides and bits are bounded by now: one frame fits well into 64 bits.
    if (layout.isEncapsulated) {
        if (layout.bitsAllocated % 8 != 0) return PixelFault::BadBits;
        if (layout.frames > layout.fragments) return PixelFault::TooFewParts;
        if (!isPlausibleExpansion(layout.elementBytes, frameBytes(layout))) return PixelFault::TooLarge;
        return PixelFault::None;
    }
    // Some colour models leave samples out; such pictures are never decoded here.
    if (layout.samplesPerPixel > 1) return PixelFault::None;
    std::uint64_t bits = 0;
    if (__builtin_mul_overflow(frameBits(layout), layout.frames, &bits) || bits / 8 > layout.elementBytes ||
        (bits / 8 == layout.elementBytes && bits % 8 != 0))
        return PixelFault::TooShort;
    return PixelFault::None;
}

char const* describe(PixelFault fault)
{
    switch (fault) {
    case PixelFault::None:
        break;
    case PixelFault::NoSize:
        return "rows or columns are missing or out of range";
    case PixelFault::NoFrames:
        return "the number of frames is below 1";
    case PixelFault::BadBits:
        return "the bits of a sample are missing or not supported";
    case PixelFault::BadSamples:
        return "the number of samples of a pixel is not supported";
    case PixelFault::TooShort:
        return "there are less pixels than rows, columns and frames ask for";
    case PixelFault::TooFewParts:
        return "there are less compressed frames than the number of frames";
    case PixelFault::TooLarge:
        return "rows and columns are too large for the compressed pixels";
    }
    return "";
}

std::uint64_t samplesPerFrame(PixelLayout const& layout)
{
    return layout.columns * layout.rows * layout.samplesPerPixel;
}

std::uint64_t frameBits(PixelLayout const& layout)
{
    return samplesPerFrame(layout) * layout.bitsAllocated;
}

std::uint64_t frameBytes(PixelLayout const& layout)
{
    return (frameBits(layout) + 7) / 8;
}

}  // namespace hvdicom
