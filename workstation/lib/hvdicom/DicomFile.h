#pragma once

#include "hvdicom/SGroupElemInfo.h"
#include "logic/PixelLayout.h"
#include "logic/PlainHeader.h"
#include "logic/StoredSamples.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcfcache.h>
#include <dcmtk/dcmdata/dcfilefo.h>

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <memory>
#include <optional>
#include <vector>

class CILImage;

namespace hvdicom {

// True for a regular file in DICOM format. `path` in the file system's encoding.
bool isDicomFile(char const* path);

// True for a regular file that can be opened for reading. Pipes and devices, which might never answer, are
// not.
bool isReadableFile(char const* path);

// A parsed DICOM file with safe access to its attributes and frames; what both reader classes stand on.
// Nothing throws. Large elements stay on disk until they are asked for.
class DicomFile
{
public:
    DicomFile();

    // Forgets what was there and opens another file. `path` in the file system's encoding. A plain file is
    // parsed by the DICOM library only when something is asked that its header did not tell.
    bool open(QByteArray const& path);
    // The same for a file whose plain header (HeaderMemory.h) has just been read; null: it is not plain.
    bool open(QByteArray const& path, std::shared_ptr<PlainHeader const> plain);
    bool isOpen() const { return m_plain || m_file; }

    // Value number `position` of an attribute without blanks around it; empty when absent.
    QByteArray text(DcmTagKey const& tag, unsigned long position = 0) const;
    // The same as a finite number in C notation.
    std::optional<double> number(DcmTagKey const& tag, unsigned long position = 0) const;
    // The text in the characters that the file names.
    QString string(DcmTagKey const& tag) const;
    QString implementationVersionName() const;

    // All attributes of the first level and of the file's own header, under "gggg, eeee". Values of sequences
    // and of long binary attributes are empty.
    QMap<QString, SGroupElemInfo> elements() const;
    // The same of each item of a sequence; none where the attribute is absent or no sequence.
    QList<QMap<QString, SGroupElemInfo>> items(DcmTagKey const& sequence) const;
    // All values of an attribute, parted by "\\"; group 0002 stands in the file's own header.
    QString values(DcmTagKey const& tag) const;

    // What the file declares about its pixels; all zero where there are none.
    PixelLayout const& layout() const;
    // Why frames cannot be decoded; empty when they can. Colour counts as decodable here, though readFrame()
    // is for pictures of one sample a pixel.
    QString pixelFault() const;

    // As in the enumeration of the DICOM library, which the contract fixes: 0, 1 unknown, 2, 3 grey, above
    // colour.
    int photometricInterpretation() const;
    bool isGrey() const;

    // Bits of the samples that readFrame() writes: 8, 16 or 32.
    unsigned sampleBits() const { return outputBits(layout().bitsStored); }

    // Frame, from 0, as unsigned samples of sampleBits() that are brighter the larger they are, rows from top
    // to bottom. `target` has room for them and is aligned for 4 bytes. False when there is no such frame or
    // it does not decode.
    bool readFrame(std::uint64_t frame, void* target);
    // The same into an image, with fresh statistics.
    bool readFrame(std::uint64_t frame, CILImage& image);

private:
    DcmFileFormat* parsed() const;
    bool readPlain(std::uint64_t frame, void* target);
    bool readCompressed(std::uint64_t frame, void* target);
    struct Pixels
    {
        PixelLayout layout;
        SampleCoding coding;
        QString fault;
        int photometric = 0;
    };
    Pixels const& pixels() const;
    PixelLayout readLayout() const;
    Pixels readPixels() const;

    QByteArray m_path;
    std::shared_ptr<PlainHeader const> m_plain;
    // Parsed attributes are read by functions of the DICOM library that are not const.
    mutable std::unique_ptr<DcmFileFormat> m_file;
    mutable bool m_isBroken = false;  // the plain file is no longer what it was
    DcmFileCache m_cache;
    mutable std::optional<Pixels> m_pixels;  // read when it is first asked for
    std::vector<Uint32> m_fragmentOfFrame;   // as far as known
    std::vector<std::uint32_t> m_words;      // room for one frame as it lies in the file
};

}  // namespace hvdicom
