#include "Jpeg2000Codec.h"

#include "Jpeg2000Stream.h"
#include "logic/PixelLayout.h"

#include <dcmtk/dcmdata/dcdatset.h>
#include <dcmtk/dcmdata/dcdeftag.h>
#include <dcmtk/dcmdata/dcpixseq.h>
#include <dcmtk/dcmdata/dcpxitem.h>
#include <dcmtk/dcmdata/dcvrpobw.h>
#include <dcmtk/oflog/oflog.h>

#include <exception>
#include <vector>

namespace hvdicom {

namespace {

class NoParameter : public DcmCodecParameter
{
public:
    DcmCodecParameter* clone() const override { return new NoParameter; }
    char const* className() const override { return "NoParameter"; }
};

NoParameter const& noParameter()
{
    static NoParameter const parameter;
    return parameter;
}

OFLogger& logger()
{
    static OFLogger log = OFLog::getLogger("hvdicom.jpeg2000");
    return log;
}

bool isJpeg2000(E_TransferSyntax syntax)
{
    return syntax == EXS_JPEG2000LosslessOnly || syntax == EXS_JPEG2000;
}

struct Shape
{
    Jpeg2000Frame frame;
    std::uint64_t frames = 1;
};

bool readShape(DcmItem& dataset, Shape& shape)
{
    Uint16 columns = 0;
    Uint16 rows = 0;
    Uint16 samples = 0;
    Uint16 bits = 0;
    if (dataset.findAndGetUint16(DCM_Columns, columns).bad() ||
        dataset.findAndGetUint16(DCM_Rows, rows).bad() ||
        dataset.findAndGetUint16(DCM_BitsAllocated, bits).bad())
        return false;
    if (dataset.findAndGetUint16(DCM_SamplesPerPixel, samples).bad()) samples = 1;
    Sint32 frames = 1;
    if (dataset.findAndGetSint32(DCM_NumberOfFrames, frames).bad() || frames < 1) frames = 1;
    shape.frame = {columns, rows, samples, bits};
    shape.frames = static_cast<std::uint64_t>(frames);
    return columns > 0 && rows > 0 && (bits == 8 || bits == 16) && (samples == 1 || samples == 3);
}

std::uint64_t bytesOf(Jpeg2000Frame const& frame)
{
    return frame.columns * frame.rows * frame.samplesPerPixel * (frame.bitsAllocated / 8);
}

bool fragment(DcmPixelSequence& fragments, Uint32 index, Uint8*& data, Uint32& size)
{
    DcmPixelItem* item = nullptr;
    if (fragments.getItem(item, index).bad() || !item || item->getUint8Array(data).bad() || !data)
        return false;
    size = item->getLength();
    return true;
}

bool beginsFrame(DcmPixelSequence& fragments, Uint32 index)
{
    Uint8* data = nullptr;
    Uint32 size = 0;
    return fragment(fragments, index, data, size) && beginsJpeg2000(data, size);
}

// Fragment with which a frame begins. The offset table may be empty or wrong: then the fragments are counted
// that begin a code stream.
OFCondition findFrame(DcmPixelSequence& fragments, Uint32 frame, std::uint64_t frames, Uint32& index)
{
    auto const count = static_cast<Uint32>(fragments.card());
    if (index > 0 && index < count && beginsFrame(fragments, index)) return EC_Normal;
    if (frames <= 0x7FFFFFFFU &&
        DcmCodec::determineStartFragment(frame, static_cast<Sint32>(frames), &fragments, index).good() &&
        index < count && beginsFrame(fragments, index))
        return EC_Normal;
    Uint32 seen = 0;
    for (index = 1; index < count; ++index)
        if (beginsFrame(fragments, index) && seen++ == frame) return EC_Normal;
    return EC_InvalidOffset;
}

OFCondition decodeOne(DcmPixelSequence& fragments, Shape const& shape, Uint32 frame, Uint32& index,
                      void* target)
{
    OFCondition const found = findFrame(fragments, frame, shape.frames, index);
    if (found.bad()) return found;
    auto const count = static_cast<Uint32>(fragments.card());
    Uint8* data = nullptr;
    Uint32 size = 0;
    if (!fragment(fragments, index, data, size)) return EC_CorruptedData;
    Uint32 next = index + 1;
    std::vector<Uint8> joined;
    for (; next < count && (shape.frames == 1 || !beginsFrame(fragments, next)); ++next) {
        Uint8* more = nullptr;
        Uint32 length = 0;
        if (!fragment(fragments, next, more, length)) break;
        if (joined.empty()) joined.assign(data, data + size);
        joined.insert(joined.end(), more, more + length);
    }
    Uint8 const* const bytes = joined.empty() ? data : joined.data();
    std::size_t const length = joined.empty() ? size : joined.size();
    if (!isPlausibleExpansion(length, bytesOf(shape.frame))) return EC_CorruptedData;
    std::string const fault = decodeJpeg2000(bytes, length, shape.frame, target);
    if (!fault.empty()) {
        OFLOG_WARN(logger(), "JPEG 2000 frame cannot be decoded: " << fault.c_str());
        return EC_CorruptedData;
    }
    index = next;
    return EC_Normal;
}

}  // namespace

void Jpeg2000Codec::registerWithLibrary()
{
    DcmCodecList::registerCodec(this, nullptr, &noParameter());
}

void Jpeg2000Codec::withdraw()
{
    DcmCodecList::deregisterCodec(this);
}

OFCondition Jpeg2000Codec::decode(DcmRepresentationParameter const* fromParameter,
                                  DcmPixelSequence* fragments, DcmPolymorphOBOW& pixels,
                                  DcmCodecParameter const* parameter, DcmStack const& stack,
                                  OFBool& removeOldRepresentation) const
{
    removeOldRepresentation = OFFalse;
    DcmStack above(stack);
    above.pop();  // the pixels themselves
    DcmObject* const holder = above.pop();
    if (!fragments || !holder || (holder->ident() != EVR_dataset && holder->ident() != EVR_item))
        return EC_InvalidTag;
    auto& dataset = *static_cast<DcmItem*>(holder);
    Shape shape;
    if (!readShape(dataset, shape)) return EC_InvalidValue;
    std::uint64_t encoded = 0;
    for (Uint32 i = 1; i < fragments->card(); ++i) {
        DcmPixelItem* item = nullptr;
        if (fragments->getItem(item, i).good() && item) encoded += item->getLength();
    }
    std::uint64_t total = 0;
    if (shape.frames >= fragments->card() ||
        __builtin_mul_overflow(bytesOf(shape.frame), shape.frames, &total) || total > 0xFFFFFFFEU ||
        !isPlausibleExpansion(encoded, total))
        return EC_CorruptedData;

    Uint16* words = nullptr;
    OFCondition result = pixels.createUint16Array(static_cast<Uint32>((total + 1) / 2), words);
    if (result.bad()) return result;
    auto* const bytes = reinterpret_cast<Uint8*>(words);
    try {
        Uint32 index = 0;
        // An odd frame of 16-bit samples cannot be: frames begin on a whole sample.
        for (Uint32 frame = 0; frame < shape.frames && result.good(); ++frame)
            result = decodeOne(*fragments, shape, frame, index, bytes + frame * bytesOf(shape.frame));
    } catch (std::exception const&) {
        result = EC_MemoryExhausted;
    }
    if (result.bad()) return result;
    if (shape.frame.samplesPerPixel > 1) {
        OFString colorModel;
        result = determineDecompressedColorModel(fromParameter, fragments, parameter, &dataset, colorModel);
        if (result.good())
            result = dataset.putAndInsertString(DCM_PhotometricInterpretation, colorModel.c_str());
        if (result.good()) result = dataset.putAndInsertUint16(DCM_PlanarConfiguration, 0);
        removeOldRepresentation = OFTrue;
    }
    return result;
}

OFCondition Jpeg2000Codec::decodeFrame(DcmRepresentationParameter const* fromParameter,
                                       DcmPixelSequence* fragments, DcmCodecParameter const* parameter,
                                       DcmItem* dataset, Uint32 frame, Uint32& startFragment, void* buffer,
                                       Uint32 bufferSize, OFString& colorModel) const
{
    Shape shape;
    if (!fragments || !dataset || !buffer || !readShape(*dataset, shape)) return EC_IllegalCall;
    if (frame >= shape.frames || bytesOf(shape.frame) > bufferSize) return EC_IllegalCall;
    try {
        Uint32 index = startFragment;
        OFCondition const result = decodeOne(*fragments, shape, frame, index, buffer);
        if (result.bad()) return result;
        startFragment = index;
    } catch (std::exception const&) {
        return EC_MemoryExhausted;
    }
    return determineDecompressedColorModel(fromParameter, fragments, parameter, dataset, colorModel);
}

OFCondition Jpeg2000Codec::encode(Uint16 const*, Uint32, DcmRepresentationParameter const*,
                                  DcmPixelSequence*&, DcmCodecParameter const*, DcmStack&, OFBool&) const
{
    return EC_CannotChangeRepresentation;
}

OFCondition Jpeg2000Codec::encode(E_TransferSyntax, DcmRepresentationParameter const*, DcmPixelSequence*,
                                  DcmRepresentationParameter const*, DcmPixelSequence*&,
                                  DcmCodecParameter const*, DcmStack&, OFBool&) const
{
    return EC_CannotChangeRepresentation;
}

OFBool Jpeg2000Codec::canChangeCoding(E_TransferSyntax from, E_TransferSyntax to) const
{
    return isJpeg2000(from) && !DcmXfer(to).isEncapsulated();
}

OFCondition Jpeg2000Codec::determineDecompressedColorModel(DcmRepresentationParameter const*,
                                                           DcmPixelSequence*, DcmCodecParameter const*,
                                                           DcmItem* dataset, OFString& colorModel) const
{
    if (!dataset) return EC_IllegalCall;
    OFCondition const result = dataset->findAndGetOFString(DCM_PhotometricInterpretation, colorModel);
    // The decoder has undone the colour transform of these two.
    if (colorModel == "YBR_ICT" || colorModel == "YBR_RCT") colorModel = "RGB";
    return result;
}

}  // namespace hvdicom
