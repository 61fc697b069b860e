#pragma once

#include "phantom/Scan.h"

#include <string>

namespace phantom {

/// The text in front of the voxels of a RAW file: sizes, bits a voxel (8 or 16), spacing in mm, the sample
/// format, and the end marker. It says everything, so that a reader has nothing to ask.
std::string rawHeader(int size, int bits, double spacing);

/// Writes header and voxels of a scan to `path`. The file appears under its name only when it is whole; on
/// failure nothing is left behind and an older file of that name stays as it was.
///
/// Returns an empty text on success, else one line that says what went wrong.
std::string writeRawFile(const std::string& path, const Scan& scan, int bits, double spacing,
                         unsigned threads);

}  // namespace phantom
