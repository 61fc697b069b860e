#include "logic/TiffSamples.h"

#include <QtGlobal>

#include <limits>

namespace hvimage {

namespace {

// Values of the tag.
constexpr std::uint16_t compressionNone = 1;
constexpr std::uint16_t compressionLzw = 5;
constexpr std::uint16_t compressionDeflate = 8;
constexpr std::uint16_t compressionPackBits = 32773;
constexpr std::uint16_t compressionOldDeflate = 32946;

// Bytes out of one byte of the file, at most: a PackBits pair gives 128; an LZW code of at least 9 bits gives
// less than 4096; a deflate stream gives less than 1033. 0: no limit.
std::uint64_t densest(std::uint16_t compression)
{
    switch (compression) {
    case compressionNone:
        return 1;
    case compressionPackBits:
        return 64;
    case compressionLzw:
        return 4096;
    case compressionDeflate:
    case compressionOldDeflate:
        return 1040;
    default:
        return 0;
    }
}

template <class T>
void unpackBits(std::uint8_t const* row, std::size_t count, unsigned bits, T* samples)
{
    std::uint64_t window = 0;
    unsigned held = 0;
    std::uint64_t const mask = (std::uint64_t{1} << bits) - 1;
    for (std::size_t i = 0; i < count; ++i) {
        while (held < bits) {
            window = (window << 8) | *row++;
            held += 8;
        }
        held -= bits;
        samples[i] = static_cast<T>((window >> held) & mask);
    }
}

void unpackTriples(std::uint8_t const* row, std::size_t count, std::uint32_t* samples)
{
    constexpr bool lowFirst = Q_BYTE_ORDER == Q_LITTLE_ENDIAN;
    for (std::size_t i = 0; i < count; ++i, row += 3)
        samples[i] = static_cast<std::uint32_t>((lowFirst ? row[0] : row[2]) | (row[1] << 8) |
                                                ((lowFirst ? row[2] : row[0]) << 16));
}

template <class T>
void flipBit(T* samples, std::size_t count, unsigned bit)
{
    T const mask = static_cast<T>(T{1} << bit);
    for (std::size_t i = 0; i < count; ++i)
        samples[i] = static_cast<T>(samples[i] ^ mask);
}

}  // namespace

HVSDataTypes sampleTypeOf(TiffPage const& page, char const** reason)
{
    char const* why = nullptr;
    HVSDataTypes type = eTypeNone;
    if (page.width == 0 || page.height == 0)
        why = "has no size";
    else if (page.samples != 1)
        why = "is in colour or has more than one sample a pixel";
    else if (page.number == TiffNumber::Float)
        why = "has floating-point samples; whole numbers of up to 32 bits are read";
    else if (page.number != TiffNumber::Unsigned && page.number != TiffNumber::Signed &&
             page.number != TiffNumber::Untyped)
        why = "has samples of an unknown kind; whole numbers of up to 32 bits are read";
    else if (page.bits < 1 || page.bits > 32)
        why = "has samples of another size than 1 to 32 bits";
    else
        type = page.bits <= 8 ? eTypeUInt8 : page.bits <= 16 ? eTypeUInt16 : eTypeUInt32;
    if (reason) *reason = why;
    return type;
}

bool canHold(std::uint64_t fileSize, TiffPage const& page)
{
    std::uint64_t const ratio = densest(page.compression);
    if (ratio == 0) return true;
    // Below 2^35 bytes a row and 2^32 rows: compared by division, as the product may not fit.
    std::uint64_t const most =
        fileSize > std::numeric_limits<std::uint64_t>::max() / ratio ? fileSize : fileSize * ratio;
    std::uint64_t const row = packedRowBytes(std::uint64_t{page.width} * page.samples, page.bits);
    return page.height == 0 || row <= most / page.height;
}

std::uint64_t packedRowBytes(std::uint64_t pixels, unsigned bits)
{
    return (pixels * bits + 7) / 8;
}

void unpackRow(void const* row, std::size_t count, unsigned bits, HVSDataTypes type, void* samples)
{
    auto const* const bytes = static_cast<std::uint8_t const*>(row);
    if (bits < 1 || bits > 32) return;
    if (type == eTypeUInt8)
        unpackBits(bytes, count, bits, static_cast<std::uint8_t*>(samples));
    else if (type == eTypeUInt16)
        unpackBits(bytes, count, bits, static_cast<std::uint16_t*>(samples));
    else if (type == eTypeUInt32 && bits == 24)
        unpackTriples(bytes, count, static_cast<std::uint32_t*>(samples));
    else if (type == eTypeUInt32)
        unpackBits(bytes, count, bits, static_cast<std::uint32_t*>(samples));
}

void shiftSigned(HVSDataTypes type, void* samples, std::size_t count, unsigned bits)
{
    if (type == eTypeUInt8)
        flipBit(static_cast<std::uint8_t*>(samples), count, bits - 1);
    else if (type == eTypeUInt16)
        flipBit(static_cast<std::uint16_t*>(samples), count, bits - 1);
    else if (type == eTypeUInt32)
        flipBit(static_cast<std::uint32_t*>(samples), count, bits - 1);
}

}  // namespace hvimage
