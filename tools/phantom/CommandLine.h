#pragma once

#include "phantom/Slices.h"

#include <cstdint>
#include <string>
#include <vector>

namespace phantom {

enum class Format
{
    Raw,
    Dicom,
    DicomMultiFrame,
    DicomNative,
    DicomNativeMultiFrame,
    Tiff,
    TiffMultiPage,
    Sequence
};

/// What a call of the program asks for.
struct Request
{
    bool help = false;
    std::string error;   ///< one line if the call makes no sense; the rest then means nothing
    int size = 128;      ///< columns, rows and frames
    int bits = 0;        ///< 8 or 16
    double spacing = 0;  ///< mm
    std::uint64_t seed = 1;
    Format format = Format::Raw;
    Orientation orientation = Orientation::Axial;
    bool feetFirst = false;
    std::string path;  ///< of a file, or for a series or a stack of a folder
};

/// Takes the arguments apart, the program's name left out. Without a spacing the one is chosen that makes the
/// mouse life-size: 80 mm over all voxels. Without a depth RAW has 8 bits, everything else 16.
Request parseCommandLine(const std::vector<std::string>& arguments);

/// The text of --help.
std::string helpText();

/// The whole program: 0 on success, 1 if the file could not be written, 2 for a call that makes no sense.
/// Messages go to `out` and `error`.
int runPhantom(const std::vector<std::string>& arguments, std::string& out, std::string& error);

}  // namespace phantom
