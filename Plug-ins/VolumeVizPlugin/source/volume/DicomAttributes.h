#pragma once

#include "volume/logic/SliceAxis.h"
#include "volume/logic/SliceOrder.h"

#include <QString>

#include <cstdint>
#include <optional>

class DcmFileFormat;
class DcmTagKey;

/// Parses a file; its pixels stay on the disk.
/// @return false for what is no file, is no DICOM file to the host, or cannot be parsed. The host's word
/// comes
///         first: it knows files that would not let the parser go, nested without end.
bool parseFile(const QString& path, DcmFileFormat& file);

// Attributes of a parsed DICOM file, as the reader of volumes takes them. Numbers are read with a decimal
// point whatever the desktop's locale; one that is empty, no number or not finite counts as missing.

/// The text of a value of an attribute, counted from 0; empty when it is missing.
QString dicomText(DcmFileFormat& file, const DcmTagKey& tag, unsigned long position = 0);

std::optional<float> dicomDecimal(DcmFileFormat& file, const DcmTagKey& tag, unsigned long position = 0);
std::optional<std::int64_t> dicomInteger(DcmFileFormat& file, const DcmTagKey& tag);

/// Rows or Columns; nothing for 0 and for what no picture can have.
std::optional<std::uint32_t> dicomSide(DcmFileFormat& file, const DcmTagKey& tag);

/// Number of Frames, 1 when it is missing or below that.
std::uint32_t dicomFrames(DcmFileFormat& file);

/// Image Position (Patient) in mm, 0 for each value that is missing.
viz::SlicePoint dicomPosition(DcmFileFormat& file);

/// Image Orientation (Patient), if all six values are there.
std::optional<viz::SliceOrientation> dicomOrientation(DcmFileFormat& file);

/// Distances in mm of rows and of columns, 0.1 for each that is missing.
struct DicomPixelSpacing
{
    float rows = 0.1F;
    float columns = 0.1F;
};
DicomPixelSpacing dicomPixelSpacing(DcmFileFormat& file);

/// Distance of slices in mm, else their thickness, else `otherwise`.
float dicomSliceSpacing(DcmFileFormat& file, float otherwise);

/// Smallest and largest pixel value, if the file tells both.
struct DicomPixelRange
{
    std::int64_t smallest = 0;
    std::int64_t largest = 0;
};
std::optional<DicomPixelRange> dicomPixelRange(DcmFileFormat& file);
