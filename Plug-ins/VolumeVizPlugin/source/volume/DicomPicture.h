#pragma once

#include <memory>

class CILImage;
class DcmDataset;
class DcmFileFormat;
class DicomImage;

/// The decoded pixels of a parsed DICOM file: unsigned samples of 8, 16 or 32 bits. What the file says of its
/// size is held against its data and the machine's memory before anything is decoded.
class DicomPicture
{
public:
    enum class State
    {
        Good,
        TooLarge,  ///< does not fit into memory
        TooShort   ///< has less data than its size needs
    };

    /// @param frames  number of frames to decode from the first one; 0 for all. `file` must outlive this.
    explicit DicomPicture(DcmFileFormat& file, unsigned long frames = 0);
    ~DicomPicture();
    DicomPicture(const DicomPicture&) = delete;
    DicomPicture& operator=(const DicomPicture&) = delete;

    State state() const { return m_state; }
    bool isMonochrome() const;
    int depth() const;  ///< bits of a decoded sample; 0 when nothing was decoded

    /// The first frame as an image of the type that holds the depth.
    /// @return false when it was not decoded, is deeper than 32 bits, or memory does not suffice
    bool copyTo(CILImage& image) const;

private:
    State m_state;
    std::unique_ptr<DcmDataset> m_compressed;  // a copy, for the image to change
    std::unique_ptr<DicomImage> m_image;
};
