#include "CheckedJpegCodec.h"

#include "EncodedPixels.h"
#include "logic/JpegHeader.h"
#include "logic/PixelLayout.h"

#include <dcmtk/dcmdata/dcdeftag.h>

#include <exception>
#include <utility>

namespace hvdicom {

namespace {

bool agrees(JpegHeader const& header, FrameShape const& shape)
{
    return header.rows == shape.rows && header.columns == shape.columns &&
           header.components == shape.samplesPerPixel && header.precision >= 1 &&
           header.precision <= shape.bitsAllocated && header.precision <= 16;
}

// The fragment begins a frame whose header agrees with the file.
bool isWhole(DcmPixelSequence& fragments, Uint32 index, FrameShape const& shape, unsigned& precision)
{
    Uint8* data = nullptr;
    Uint32 size = 0;
    if (!fragment(fragments, index, data, size)) return false;
    std::optional<JpegHeader> const header = readJpegHeader(data, size);
    if (!header || !agrees(*header, shape)) return false;
    precision = header->precision;
    return true;
}

}  // namespace

CheckedJpegCodec::CheckedJpegCodec(std::unique_ptr<DcmCodec> decoder, DcmCodecParameter const* parameter)
    : m_decoder(std::move(decoder))
    , m_parameter(parameter)
{}

void CheckedJpegCodec::registerWithLibrary()
{
    DcmCodecList::registerCodec(this, nullptr, m_parameter);
}

void CheckedJpegCodec::withdraw()
{
    DcmCodecList::deregisterCodec(this);
}

OFCondition CheckedJpegCodec::decode(DcmRepresentationParameter const* fromParameter,
                                     DcmPixelSequence* fragments, DcmPolymorphOBOW& pixels,
                                     DcmCodecParameter const* parameter, DcmStack const& stack,
                                     OFBool& removeOldRepresentation) const
{
    DcmItem* const dataset = holderOf(stack);
    FrameShape shape;
    if (!fragments || !dataset || !readShape(*dataset, shape)) return EC_InvalidTag;
    std::uint64_t total = 0;
    if (!mayDecodeAll(*fragments, shape, total)) return EC_CorruptedData;
    try {
        // A fragment that begins no stream goes on with the one before it; none does where every one is a
        // frame.
        bool const everyOneIsAFrame = shape.frames + 1 == fragments->card();
        unsigned precision = 0;
        unsigned first = 0;
        for (Uint32 i = 1; i < fragments->card(); ++i) {
            Uint8* data = nullptr;
            Uint32 size = 0;
            if (!fragment(*fragments, i, data, size)) return EC_CorruptedData;
            bool const isFrame = i == 1 || everyOneIsAFrame || beginsJpeg(data, size);
            if (isFrame ? !isWhole(*fragments, i, shape, precision)
                        : size > 1 && data[0] == 0xFF && data[1] == 0x01)
                return EC_CorruptedData;
            if (i == 1) first = precision;
            if ((precision > 8) != (first > 8)) return EC_CorruptedData;
        }
        return m_decoder->decode(fromParameter, fragments, pixels, parameter, stack, removeOldRepresentation);
    } catch (std::exception const&) {
        return EC_MemoryExhausted;
    }
}

OFCondition CheckedJpegCodec::decodeFrame(DcmRepresentationParameter const* fromParameter,
                                          DcmPixelSequence* fragments, DcmCodecParameter const* parameter,
                                          DcmItem* dataset, Uint32 frame, Uint32& startFragment, void* buffer,
                                          Uint32 bufferSize, OFString& colorModel) const
{
    FrameShape shape;
    if (!fragments || !dataset || !buffer || !readShape(*dataset, shape) || frame >= shape.frames ||
        shape.frameBytes() > bufferSize)
        return EC_IllegalCall;
    std::uint64_t encoded = 0;
    for (Uint32 i = 1; i < fragments->card() && !isPlausibleExpansion(encoded, shape.frameBytes()); ++i) {
        Uint8* data = nullptr;
        Uint32 size = 0;
        if (fragment(*fragments, i, data, size)) encoded += size;
    }
    if (!isPlausibleExpansion(encoded, shape.frameBytes())) return EC_CorruptedData;
    try {
        Uint32 index = startFragment;
        if (index == 0) {
            OFCondition const found =
                determineStartFragment(frame, static_cast<Sint32>(shape.frames), fragments, index);
            if (found.bad()) return found;
        }
        unsigned precision = 0;
        // Samples of less than a word would be written as bytes.
        if (!isWhole(*fragments, index, shape, precision) || (precision > 8) != (shape.bitsAllocated > 8))
            return EC_CorruptedData;
        OFCondition const result = m_decoder->decodeFrame(fromParameter, fragments, parameter, dataset, frame,
                                                          index, buffer, bufferSize, colorModel);
        if (result.good()) startFragment = index;
        return result;
    } catch (std::exception const&) {
        return EC_MemoryExhausted;
    }
}

OFCondition CheckedJpegCodec::encode(Uint16 const*, Uint32, DcmRepresentationParameter const*,
                                     DcmPixelSequence*&, DcmCodecParameter const*, DcmStack&, OFBool&) const
{
    return EC_CannotChangeRepresentation;
}

OFCondition CheckedJpegCodec::encode(E_TransferSyntax, DcmRepresentationParameter const*, DcmPixelSequence*,
                                     DcmRepresentationParameter const*, DcmPixelSequence*&,
                                     DcmCodecParameter const*, DcmStack&, OFBool&) const
{
    return EC_CannotChangeRepresentation;
}

OFBool CheckedJpegCodec::canChangeCoding(E_TransferSyntax from, E_TransferSyntax to) const
{
    return !DcmXfer(to).isEncapsulated() && m_decoder->canChangeCoding(from, to);
}

OFCondition CheckedJpegCodec::determineDecompressedColorModel(DcmRepresentationParameter const* fromParameter,
                                                              DcmPixelSequence* fragments,
                                                              DcmCodecParameter const* parameter,
                                                              DcmItem* dataset, OFString& colorModel) const
{
    FrameShape shape;
    unsigned precision = 0;
    if (!fragments || !dataset || !readShape(*dataset, shape) || !isWhole(*fragments, 1, shape, precision))
        return EC_CorruptedData;
    // A grey picture has no other colours when it is decoded. For colour the decoder has to decode a frame.
    if (shape.samplesPerPixel == 1)
        return dataset->findAndGetOFString(DCM_PhotometricInterpretation, colorModel);
    std::uint64_t total = 0;
    if (!mayDecodeAll(*fragments, shape, total)) return EC_CorruptedData;
    return m_decoder->determineDecompressedColorModel(fromParameter, fragments, parameter, dataset,
                                                      colorModel);
}

}  // namespace hvdicom
