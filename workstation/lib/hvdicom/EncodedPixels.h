#pragma once

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcdatset.h>
#include <dcmtk/dcmdata/dcpixseq.h>
#include <dcmtk/dcmdata/dcstack.h>

#include <cstdint>

namespace hvdicom {

// What a file declares about its compressed frames.
struct FrameShape
{
    std::uint64_t columns = 0;
    std::uint64_t rows = 0;
    std::uint64_t frames = 1;
    unsigned samplesPerPixel = 1;
    unsigned bitsAllocated = 16;
    bool isByPlane = false;

    std::uint64_t frameBytes() const { return columns * rows * samplesPerPixel * (bitsAllocated / 8); }
};

// False for a missing or empty size, for other bits than 8, 16 or 32, and for other samples a pixel than 1
// or 3.
bool readShape(DcmItem& dataset, FrameShape& shape);

// The data set to which the pixels at the top of a decoder's stack belong; null when there is none.
DcmItem* holderOf(DcmStack const& stack);

// Bytes of a fragment; the first one is the offset table. False when there is no such fragment.
bool fragment(DcmPixelSequence& fragments, Uint32 index, Uint8*& data, Uint32& size);

// Whether all frames may be decoded into one element: enough fragments, a length that an element can have,
// and no more than the encoded bytes can stand for. Their length in bytes is then in `total`.
bool mayDecodeAll(DcmPixelSequence& fragments, FrameShape const& shape, std::uint64_t& total);

}  // namespace hvdicom
