#pragma once

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dccodec.h>

namespace hvdicom {

// Decoder of JPEG 2000 pixels (transfer syntaxes 1.2.840.10008.1.2.4.90 and .91) for the DICOM library.
// Frames of 8 or 16 bits a sample, with 1 or 3 samples a pixel. A frame whose code stream and attributes
// disagree, or that declares more than its bytes can stand for, is refused before it is decoded. Encodes
// nothing.
class Jpeg2000Codec : public DcmCodec
{
public:
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
};

}  // namespace hvdicom
