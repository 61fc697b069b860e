#pragma once

#include "PixelLayout.h"

#include <cstddef>
#include <cstdint>

namespace hvdicom {

// Turns what lies in a file into unsigned samples that order as the picture does:
//   sample = (((raw >> shift) & mask) ^ flip)
// `mask` cuts off what shares the word with the sample. `flip` moves signed values up by half their range
// (which is the same as inverting the sign bit) and turns pictures over whose lowest value is white.
struct SampleCoding
{
    unsigned bitsAllocated = 16;
    unsigned shift = 0;
    std::uint32_t mask = 0xFFFF;
    std::uint32_t flip = 0;
};

// For a layout without fault.
SampleCoding sampleCoding(PixelLayout const& layout);

// Bits of an unsigned sample that holds `bitsStored`: 8, 16 or 32.
unsigned outputBits(unsigned bitsStored);

// Whether samples of this coding are the bytes as they lie in the file, in words of `bits`.
bool isPlain(SampleCoding const& coding, unsigned bits);

// `raw` holds words of coding.bitsAllocated bits, little endian, without gaps; the first begins `firstBit`
// bits (0 to 7) into it, and is at 0 where words are whole bytes. Writes `count` samples of `bits` (8, 16 or
// 32) to `target`, aligned for them. Where both widths are equal, `target` may be `raw`; else they must not
// overlap.
void decodeSamples(SampleCoding const& coding, void const* raw, unsigned firstBit, std::size_t count,
                   unsigned bits, void* target);

}  // namespace hvdicom
