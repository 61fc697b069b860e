#pragma once

#include "EncodedPixels.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dccodec.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace hvdicom {

// A decoder for the DICOM library that decodes frame by frame, for whole files and for single frames. A frame
// that declares more than its bytes can stand for is refused before it is decoded. Encodes nothing.
class FrameCodec : public DcmCodec
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

protected:
    virtual bool isMine(E_TransferSyntax syntax) const = 0;
    virtual bool canDecode(FrameShape const& shape) const = 0;
    // Whether a fragment is the first of a frame.
    virtual bool beginsFrame(std::uint8_t const* data, std::size_t size) const = 0;
    // Writes shape.frameBytes() bytes. Empty on success, else what is wrong.
    virtual std::string decodeBytes(std::uint8_t const* data, std::size_t size, FrameShape const& shape,
                                    void* target) const = 0;
    // Whether samples of a pixel are written together, whatever the file says.
    virtual bool alwaysInterleaves() const = 0;

private:
    bool beginsFrameAt(DcmPixelSequence& fragments, Uint32 index) const;
    OFCondition findFrame(DcmPixelSequence& fragments, Uint32 frame, std::uint64_t frames,
                          Uint32& index) const;
    OFCondition decodeOne(DcmPixelSequence& fragments, FrameShape const& shape, Uint32 frame, Uint32& index,
                          void* target) const;
};

// JPEG 2000 (transfer syntaxes 1.2.840.10008.1.2.4.90 and .91), of which the library has no decoder: 8 or 16
// bits a sample, 1 or 3 samples a pixel. Stream and attributes must agree.
class Jpeg2000Codec : public FrameCodec
{
protected:
    bool isMine(E_TransferSyntax syntax) const override;
    bool canDecode(FrameShape const& shape) const override;
    bool beginsFrame(std::uint8_t const* data, std::size_t size) const override;
    std::string decodeBytes(std::uint8_t const* data, std::size_t size, FrameShape const& shape,
                            void* target) const override;
    bool alwaysInterleaves() const override { return true; }
};

// RLE (1.2.840.10008.1.2.5), of which the library's own decoder reads outside of damaged frames.
class RleCodec : public FrameCodec
{
protected:
    bool isMine(E_TransferSyntax syntax) const override;
    bool canDecode(FrameShape const& shape) const override;
    bool beginsFrame(std::uint8_t const*, std::size_t) const override { return true; }
    std::string decodeBytes(std::uint8_t const* data, std::size_t size, FrameShape const& shape,
                            void* target) const override;
    bool alwaysInterleaves() const override { return false; }
};

}  // namespace hvdicom
