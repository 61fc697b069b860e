#pragma once

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dccodec.h>

#include <memory>

namespace hvdicom {

// One of the library's decoders of JPEG and JPEG-LS, behind a check of the streams: their headers must be
// whole, with the size and the samples that the file declares. Without it the decoders of DCMTK 3.6.7 never
// come back from some damaged streams. Encodes nothing.
class CheckedJpegCodec : public DcmCodec
{
public:
    // `parameter` is the decoder's own, and is not owned.
    CheckedJpegCodec(std::unique_ptr<DcmCodec> decoder, DcmCodecParameter const* parameter);

    // The object must live until withdraw().
    void registerWithLibrary();
    void withdraw();

    OFCondition decode(DcmRepresentationParameter const* fromParameter, DcmPixelSequence* fragments,
                       DcmPolymorphOBOW& pixels, DcmCodecParameter const* parameter, DcmStack const& stack,
                       OFBool& removeOldRepresentation) const override;

    OFCondition decodeFrame(DcmRepresentationParameter const* fromParameter, DcmPixelSequence* fragments,
                            DcmCodecParameter const* parameter, DcmItem* dataset, Uint32 frame,
                            Uint32& startFragment, void* buffer, Uint32 bufferSize,
                            OFString& colorModel) const override;

    OFCondition encode(Uint16 const* pixels, Uint32 length, DcmRepresentationParameter const* toParameter,
                       DcmPixelSequence*& fragments, DcmCodecParameter const* parameter, DcmStack& stack,
                       OFBool& removeOldRepresentation) const override;

    OFCondition encode(E_TransferSyntax from, DcmRepresentationParameter const* fromParameter,
                       DcmPixelSequence* fromFragments, DcmRepresentationParameter const* toParameter,
                       DcmPixelSequence*& toFragments, DcmCodecParameter const* parameter, DcmStack& stack,
                       OFBool& removeOldRepresentation) const override;

    OFBool canChangeCoding(E_TransferSyntax from, E_TransferSyntax to) const override;

    OFCondition determineDecompressedColorModel(DcmRepresentationParameter const* fromParameter,
                                                DcmPixelSequence* fragments,
                                                DcmCodecParameter const* parameter, DcmItem* dataset,
                                                OFString& colorModel) const override;

private:
    std::unique_ptr<DcmCodec> m_decoder;
    DcmCodecParameter const* m_parameter;
};

}  // namespace hvdicom
