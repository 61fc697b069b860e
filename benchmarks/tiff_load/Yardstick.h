#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// Pictures of unsigned 16-bit samples that stand without compression in one piece each.
struct PlainFrames
{
    std::vector<std::string> files;  ///< one for each frame, or one for all
    std::vector<long> offsets;       ///< in bytes, of each frame in its file
    std::size_t columns = 0;
    std::size_t rows = 0;

    std::size_t count() const { return offsets.size(); }
    const std::string& file(std::size_t frame) const { return files[files.size() == 1 ? 0 : frame]; }
};

/// What the machine can do: every frame read twice from a place that is known beforehand, once for the range
/// and once to map it to bytes in a block on huge pages, rows turned upside down. No directories, no
/// progress, no image classes, no checks.
/// @return a sum over bytes that were written, so that nothing can be left out; 0 when a file can't be read
unsigned long loadAtTheLimit(const PlainFrames& frames);

/// Every picture decoded once by libtiff, strip by strip into one buffer, and nothing done with it.
/// @return as above
unsigned long decodeBarely(const PlainFrames& frames);
