#pragma once

#include "phantom/Slices.h"

#include <cstdint>
#include <string>

namespace phantom {

/// How a scan is told in DICOM.
struct DicomOptions
{
    Orientation orientation = Orientation::Axial;
    bool feetFirst = false;
    bool native = false;     ///< as the workstation's own files: by the name of the program that wrote them
    double spacing = 1;      ///< mm, the same in all directions
    std::uint64_t seed = 1;  ///< of the scan; the identifiers depend on it
};

/// Bytes of one file of a series: slice i (from 0) of the scan. Uncompressed, explicit VR, little endian; no
/// date, no real name; the same arguments give the same bytes.
std::string dicomSlice(const Slices& slices, int i, const DicomOptions& options);

/// Bytes of the file of all slices up to the first pixel, whose bytes follow without a gap, padded to an even
/// number: one attribute set for all frames, place and direction of the first.
std::string dicomFramesHeader(const Slices& slices, const DicomOptions& options);

/// Writes a folder of one file a slice, "slice-0001.dcm" and so on along the slices' direction. The folder
/// appears under its name only when all are written; one that holds files stays as it is.
///
/// Returns an empty text on success, else one line that says what went wrong.
std::string writeDicomSeries(const std::string& folder, const Slices& slices, const DicomOptions& options);

/// Writes one file of all slices; like writeRawFile() on failure.
std::string writeDicomFrames(const std::string& path, const Slices& slices, const DicomOptions& options);

}  // namespace phantom
