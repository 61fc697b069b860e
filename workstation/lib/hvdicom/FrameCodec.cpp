#include "FrameCodec.h"

#include "Jpeg2000Stream.h"
#include "logic/PixelLayout.h"
#include "logic/RleFrame.h"

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
    static OFLogger log = OFLog::getLogger("hvdicom.frames");
    return log;
}

}  // namespace

bool FrameCodec::beginsFrameAt(DcmPixelSequence& fragments, Uint32 index) const
{
    Uint8* data = nullptr;
    Uint32 size = 0;
    return fragment(fragments, index, data, size) && beginsFrame(data, size);
}

// Fragment with which a frame begins. The offset table may be empty or wrong: then the fragments are counted
// that begin a code stream.
OFCondition FrameCodec::findFrame(DcmPixelSequence& fragments, Uint32 frame, std::uint64_t frames,
                                  Uint32& index) const
{
    auto const count = static_cast<Uint32>(fragments.card());
    if (index > 0 && index < count && beginsFrameAt(fragments, index)) return EC_Normal;
    if (frames <= 0x7FFFFFFFU &&
        DcmCodec::determineStartFragment(frame, static_cast<Sint32>(frames), &fragments, index).good() &&
        index < count && beginsFrameAt(fragments, index))
        return EC_Normal;
    Uint32 seen = 0;
    for (index = 1; index < count; ++index)
        if (beginsFrameAt(fragments, index) && seen++ == frame) return EC_Normal;
    return EC_InvalidOffset;
}

OFCondition FrameCodec::decodeOne(DcmPixelSequence& fragments, FrameShape const& shape, Uint32 frame,
                                  Uint32& index, void* target) const
{
    OFCondition const found = findFrame(fragments, frame, shape.frames, index);
    if (found.bad()) return found;
    auto const count = static_cast<Uint32>(fragments.card());
    Uint8* data = nullptr;
    Uint32 size = 0;
    if (!fragment(fragments, index, data, size)) return EC_CorruptedData;
    Uint32 next = index + 1;
    std::vector<Uint8> joined;
    for (; next < count && (shape.frames == 1 || !beginsFrameAt(fragments, next)); ++next) {
        Uint8* more = nullptr;
        Uint32 length = 0;
        if (!fragment(fragments, next, more, length)) break;
        if (joined.empty()) joined.assign(data, data + size);
        joined.insert(joined.end(), more, more + length);
    }
    Uint8 const* const bytes = joined.empty() ? data : joined.data();
    std::size_t const length = joined.empty() ? size : joined.size();
    if (!isPlausibleExpansion(length, shape.frameBytes())) return EC_CorruptedData;
    std::string const fault = decodeBytes(bytes, length, shape, target);
    if (!fault.empty()) {
        OFLOG_WARN(logger(), "a compressed frame cannot be decoded: " << fault.c_str());
        return EC_CorruptedData;
    }
    index = next;
    return EC_Normal;
}

void FrameCodec::registerWithLibrary()
{
    DcmCodecList::registerCodec(this, nullptr, &noParameter());
}

void FrameCodec::withdraw()
{
    DcmCodecList::deregisterCodec(this);
}

OFCondition FrameCodec::decode(DcmRepresentationParameter const* fromParameter, DcmPixelSequence* fragments,
                               DcmPolymorphOBOW& pixels, DcmCodecParameter const* parameter,
                               DcmStack const& stack, OFBool& removeOldRepresentation) const
{
    removeOldRepresentation = OFFalse;
    DcmItem* const holder = holderOf(stack);
    if (!fragments || !holder) return EC_InvalidTag;
    DcmItem& dataset = *holder;
    FrameShape shape;
    if (!readShape(dataset, shape) || !canDecode(shape)) return EC_InvalidValue;
    std::uint64_t total = 0;
    if (!mayDecodeAll(*fragments, shape, total)) return EC_CorruptedData;

    Uint16* words = nullptr;
    OFCondition result = pixels.createUint16Array(static_cast<Uint32>((total + 1) / 2), words);
    if (result.bad()) return result;
    auto* const bytes = reinterpret_cast<Uint8*>(words);
    try {
        Uint32 index = 0;
        // An odd frame of 16-bit samples cannot be: frames begin on a whole sample.
        for (Uint32 frame = 0; frame < shape.frames && result.good(); ++frame)
            result = decodeOne(*fragments, shape, frame, index, bytes + frame * shape.frameBytes());
    } catch (std::exception const&) {
        result = EC_MemoryExhausted;
    }
    if (result.bad()) return result;
    if (shape.samplesPerPixel > 1 && alwaysInterleaves()) {
        OFString colorModel;
        result = determineDecompressedColorModel(fromParameter, fragments, parameter, &dataset, colorModel);
        if (result.good())
            result = dataset.putAndInsertString(DCM_PhotometricInterpretation, colorModel.c_str());
        if (result.good()) result = dataset.putAndInsertUint16(DCM_PlanarConfiguration, 0);
        removeOldRepresentation = OFTrue;
    }
    return result;
}

OFCondition FrameCodec::decodeFrame(DcmRepresentationParameter const* fromParameter,
                                    DcmPixelSequence* fragments, DcmCodecParameter const* parameter,
                                    DcmItem* dataset, Uint32 frame, Uint32& startFragment, void* buffer,
                                    Uint32 bufferSize, OFString& colorModel) const
{
    FrameShape shape;
    if (!fragments || !dataset || !buffer || !readShape(*dataset, shape) || !canDecode(shape))
        return EC_IllegalCall;
    if (frame >= shape.frames || shape.frameBytes() > bufferSize) return EC_IllegalCall;
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

OFCondition FrameCodec::encode(Uint16 const*, Uint32, DcmRepresentationParameter const*, DcmPixelSequence*&,
                               DcmCodecParameter const*, DcmStack&, OFBool&) const
{
    return EC_CannotChangeRepresentation;
}

OFCondition FrameCodec::encode(E_TransferSyntax, DcmRepresentationParameter const*, DcmPixelSequence*,
                               DcmRepresentationParameter const*, DcmPixelSequence*&,
                               DcmCodecParameter const*, DcmStack&, OFBool&) const
{
    return EC_CannotChangeRepresentation;
}

OFBool FrameCodec::canChangeCoding(E_TransferSyntax from, E_TransferSyntax to) const
{
    return isMine(from) && !DcmXfer(to).isEncapsulated();
}

OFCondition FrameCodec::determineDecompressedColorModel(DcmRepresentationParameter const*, DcmPixelSequence*,
                                                        DcmCodecParameter const*, DcmItem* dataset,
                                                        OFString& colorModel) const
{
    if (!dataset) return EC_IllegalCall;
    OFCondition const result = dataset->findAndGetOFString(DCM_PhotometricInterpretation, colorModel);
    // The decoder has undone the colour transform of these two.
    if (colorModel == "YBR_ICT" || colorModel == "YBR_RCT") colorModel = "RGB";
    return result;
}

bool Jpeg2000Codec::isMine(E_TransferSyntax syntax) const
{
    return syntax == EXS_JPEG2000LosslessOnly || syntax == EXS_JPEG2000;
}

bool Jpeg2000Codec::canDecode(FrameShape const& shape) const
{
    return shape.bitsAllocated <= 16;
}

bool Jpeg2000Codec::beginsFrame(std::uint8_t const* data, std::size_t size) const
{
    return beginsJpeg2000(data, size);
}

std::string Jpeg2000Codec::decodeBytes(std::uint8_t const* data, std::size_t size, FrameShape const& shape,
                                       void* target) const
{
    return decodeJpeg2000(data, size, {shape.columns, shape.rows, shape.samplesPerPixel, shape.bitsAllocated},
                          target);
}

bool RleCodec::isMine(E_TransferSyntax syntax) const
{
    return syntax == EXS_RLELossless;
}

bool RleCodec::canDecode(FrameShape const&) const
{
    return true;
}

std::string RleCodec::decodeBytes(std::uint8_t const* data, std::size_t size, FrameShape const& shape,
                                  void* target) const
{
    RleFrame const frame = {shape.columns * shape.rows, shape.samplesPerPixel, shape.bitsAllocated / 8,
                            shape.isByPlane};
    return decodeRle(data, size, frame, static_cast<std::uint8_t*>(target)) ? "" : "its runs are damaged";
}

}  // namespace hvdicom
