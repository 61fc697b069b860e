#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

// Writes one DICOM file. Without any setting it is a CT slice of 4 x 3 pixels, 16 bits unsigned, the values 0
// to 11, axial at the origin, head first, 1 mm in every direction, explicit VR little endian.
//
// The setters give the object back, so that they chain. A builder may be written any number of times; copies
// are independent.
class DicomBuilder
{
public:
    DicomBuilder();

    // --- pixels ---

    // Frames above 1 also write Number of Frames. Values that samples() does not give are 0, 1, 2, ... in
    // order.
    DicomBuilder& size(unsigned columns, unsigned rows, unsigned frames = 1);
    // `allocated` 1, 8, 16 or 32; stored bits are the low ones.
    DicomBuilder& bits(unsigned allocated, unsigned stored, bool isSigned = false);
    // All samples: frame by frame, row by row, x fastest; for colour the components of a pixel together.
    // Negative ones are cut to the allocated bits.
    DicomBuilder& samples(std::vector<std::int64_t> values);
    // "MONOCHROME1", "RGB", ...; `perPixel` is the number of components.
    DicomBuilder& photometric(QByteArray name, unsigned perPixel = 1);
    DicomBuilder& withoutPixels();

    // --- encoding ---

    // UID of the transfer syntax. Plain, deflated, RLE (1.2.840.10008.1.2.5), JPEG baseline, extended and
    // lossless (1.2.840.10008.1.2.4.50, .51, .57, .70), JPEG-LS (.80, .81), JPEG 2000 (.90, .91).
    // JPEG-LS needs frames of at least 256 bytes, and of a picture that shrinks.
    DicomBuilder& transferSyntax(QByteArray uid);
    // Implementation Version Name in the file's own header.
    DicomBuilder& implementation(QByteArray versionName);
    DicomBuilder& implementationClass(QByteArray uid);
    // No preamble and no header before the attributes.
    DicomBuilder& withoutHeader();

    // --- geometry, in mm ---

    DicomBuilder& position(double x, double y, double z);
    DicomBuilder& orientation(std::array<double, 3> alongRow, std::array<double, 3> alongColumn);
    DicomBuilder& spacing(double betweenRows, double betweenColumns);

    // --- any attribute ---

    // Value as text, several parted by "\\"; written after the pixels are made, so that it may lie about
    // them. An empty value is written as an attribute of no length. The value representation is the
    // dictionary's.
    DicomBuilder& set(unsigned short group, unsigned short element, QByteArray value);
    DicomBuilder& remove(unsigned short group, unsigned short element);
    // An attribute of bytes under a representation of one's own: "OB", "OW", "OF", "OD", "UN".
    DicomBuilder& setBytes(unsigned short group, unsigned short element, QByteArray representation,
                           QByteArray bytes);

    // --- out ---

    // The file as it would lie on disk; empty when it cannot be encoded.
    QByteArray bytes() const;
    // False when it cannot be encoded or written.
    bool write(QString const& path) const;

private:
    struct Settings;
    std::shared_ptr<Settings> d;
    Settings& change();
};

// A series of single-frame files: `builder` for each slice, at `origin` + i * `step` (mm), with the samples
// that `value` gives for (column, row, slice). Names are "slice_000.dcm" and on; returns the paths in slice
// order, or an empty list when a file could not be written. Instance Number, SOP Instance UID are set.
QStringList writeDicomSeries(QString const& folder, DicomBuilder builder, unsigned columns, unsigned rows,
                             unsigned slices, std::array<double, 3> origin, std::array<double, 3> step,
                             std::function<std::int64_t(unsigned, unsigned, unsigned)> const& value);

// JPEG 2000 code stream, lossless, of one frame of `components` (1 or 3) a pixel, the components of a pixel
// together. Empty when it cannot be made.
QByteArray jpeg2000Frame(std::vector<std::int64_t> const& samples, unsigned columns, unsigned rows,
                         unsigned bits, bool isSigned, unsigned components = 1);
