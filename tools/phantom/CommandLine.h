#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace phantom {

/// What a call of the program asks for.
struct Request
{
    bool help = false;
    std::string error;   ///< one line if the call makes no sense; the rest then means nothing
    int size = 128;      ///< columns, rows and frames
    int bits = 8;        ///< 8 or 16
    double spacing = 0;  ///< mm
    std::uint64_t seed = 1;
    std::string path;
};

/// Takes the arguments apart, the program's name left out. Without a spacing the one is chosen that makes the
/// mouse life-size: 80 mm over all voxels.
Request parseCommandLine(const std::vector<std::string>& arguments);

/// The text of --help.
std::string helpText();

/// The whole program: 0 on success, 1 if the file could not be written, 2 for a call that makes no sense.
/// Messages go to `out` and `error`.
int runPhantom(const std::vector<std::string>& arguments, std::string& out, std::string& error);

}  // namespace phantom
