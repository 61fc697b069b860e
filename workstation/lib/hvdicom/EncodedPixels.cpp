#include "EncodedPixels.h"

#include "logic/PixelLayout.h"

#include <dcmtk/dcmdata/dcdeftag.h>
#include <dcmtk/dcmdata/dcpxitem.h>

namespace hvdicom {

bool readShape(DcmItem& dataset, FrameShape& shape)
{
    Uint16 columns = 0;
    Uint16 rows = 0;
    Uint16 samples = 0;
    Uint16 bits = 0;
    Uint16 planes = 0;
    if (dataset.findAndGetUint16(DCM_Columns, columns).bad() ||
        dataset.findAndGetUint16(DCM_Rows, rows).bad() ||
        dataset.findAndGetUint16(DCM_BitsAllocated, bits).bad())
        return false;
    if (dataset.findAndGetUint16(DCM_SamplesPerPixel, samples).bad()) samples = 1;
    if (dataset.findAndGetUint16(DCM_PlanarConfiguration, planes).bad()) planes = 0;
    Sint32 frames = 1;
    if (dataset.findAndGetSint32(DCM_NumberOfFrames, frames).bad() || frames < 1) frames = 1;
    shape = {columns, rows, static_cast<std::uint64_t>(frames), samples, bits, planes == 1};
    return columns > 0 && rows > 0 && (bits == 8 || bits == 16 || bits == 32) &&
           (samples == 1 || samples == 3);
}

DcmItem* holderOf(DcmStack const& stack)
{
    DcmStack above(stack);
    above.pop();  // the pixels themselves
    DcmObject* const holder = above.pop();
    if (!holder || (holder->ident() != EVR_dataset && holder->ident() != EVR_item)) return nullptr;
    return static_cast<DcmItem*>(holder);
}

bool fragment(DcmPixelSequence& fragments, Uint32 index, Uint8*& data, Uint32& size)
{
    DcmPixelItem* item = nullptr;
    if (fragments.getItem(item, index).bad() || !item || item->getUint8Array(data).bad() || !data)
        return false;
    size = item->getLength();
    return true;
}

bool mayDecodeAll(DcmPixelSequence& fragments, FrameShape const& shape, std::uint64_t& total)
{
    std::uint64_t encoded = 0;
    for (Uint32 i = 1; i < fragments.card(); ++i) {
        DcmPixelItem* item = nullptr;
        if (fragments.getItem(item, i).good() && item) encoded += item->getLength();
    }
    return shape.frames < fragments.card() &&
           !__builtin_mul_overflow(shape.frameBytes(), shape.frames, &total) && total <= 0xFFFFFFFEU &&
           isPlausibleExpansion(encoded, total);
}

}  // namespace hvdicom
