#include "StoredSamples.h"

#include <cstring>

namespace hvdicom {

namespace {

std::uint32_t lowBits(unsigned count)
{
    return count >= 32 ? 0xFFFFFFFFU : (1U << count) - 1U;
}

template <class In, class Out>
void decodeWords(SampleCoding const& coding, void const* raw, std::size_t count, void* target)
{
    auto const* const from = static_cast<unsigned char const*>(raw);
    auto* const to = static_cast<unsigned char*>(target);
    unsigned const shift = coding.shift;
    std::uint32_t const mask = coding.mask;
    std::uint32_t const flip = coding.flip;
    for (std::size_t i = 0; i < count; ++i) {
        In word;
        std::memcpy(&word, from + i * sizeof(In), sizeof(In));
        auto const sample = static_cast<Out>(((static_cast<std::uint32_t>(word) >> shift) & mask) ^ flip);
        std::memcpy(to + i * sizeof(Out), &sample, sizeof(Out));
    }
}

template <class Out>
void decodeBits(SampleCoding const& coding, void const* raw, unsigned firstBit, std::size_t count,
                void* target)
{
    auto const* const bytes = static_cast<unsigned char const*>(raw);
    std::uint64_t at = firstBit;
    for (std::size_t i = 0; i < count; ++i) {
        std::uint32_t word = 0;
        for (unsigned bit = 0; bit < coding.bitsAllocated; ++bit, ++at)
            word |= static_cast<std::uint32_t>(bytes[at / 8] >> at % 8 & 1) << bit;
        auto const sample = static_cast<Out>(((word >> coding.shift) & coding.mask) ^ coding.flip);
        std::memcpy(static_cast<unsigned char*>(target) + i * sizeof(Out), &sample, sizeof(Out));
    }
}

template <class Out>
void decodeTo(SampleCoding const& coding, void const* raw, unsigned firstBit, std::size_t count, void* target)
{
    switch (coding.bitsAllocated) {
    case 8:
        return decodeWords<std::uint8_t, Out>(coding, raw, count, target);
    case 16:
        return decodeWords<std::uint16_t, Out>(coding, raw, count, target);
    case 32:
        return decodeWords<std::uint32_t, Out>(coding, raw, count, target);
    default:
        return decodeBits<Out>(coding, raw, firstBit, count, target);
    }
}

}  // namespace

SampleCoding sampleCoding(PixelLayout const& layout)
{
    SampleCoding coding;
    coding.bitsAllocated = layout.bitsAllocated;
    coding.shift = layout.highBit + 1 - layout.bitsStored;
    coding.mask = lowBits(layout.bitsStored);
    if (layout.isSigned) coding.flip ^= 1U << (layout.bitsStored - 1);
    if (layout.lowIsWhite) coding.flip ^= coding.mask;
    return coding;
}

unsigned outputBits(unsigned bitsStored)
{
    return bitsStored > 16 ? 32 : bitsStored > 8 ? 16 : 8;
}

bool isPlain(SampleCoding const& coding, unsigned bits)
{
    return coding.bitsAllocated == bits && coding.shift == 0 && coding.flip == 0 &&
           coding.mask == lowBits(bits);
}

void decodeSamples(SampleCoding const& coding, void const* raw, unsigned firstBit, std::size_t count,
                   unsigned bits, void* target)
{
    if (bits == 8)
        decodeTo<std::uint8_t>(coding, raw, firstBit, count, target);
    else if (bits == 16)
        decodeTo<std::uint16_t>(coding, raw, firstBit, count, target);
    else
        decodeTo<std::uint32_t>(coding, raw, firstBit, count, target);
}

}  // namespace hvdicom
