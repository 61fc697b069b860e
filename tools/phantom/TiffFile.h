#pragma once

#include "phantom/Slices.h"

#include <cstdint>
#include <string>
#include <vector>

namespace phantom {

// TIFF files, uncompressed, little endian, one strip a picture. The resolutions hold the edge of a voxel in
// mm as a plain number, with no unit: readers that take them for spacings show the mouse in its size.

/// Bytes of a file of slice i alone.
std::string tiffSlice(const Slices& slices, int i, double spacing);

/// Bytes of a file of one square picture, 16 bits a pixel, the top row first.
std::string tiffPicture(int size, const std::vector<std::uint16_t>& pixels, double spacing);

/// Writes a folder of one file a slice, "slice-0001.tif" and so on; like writeDicomSeries() on failure.
std::string writeTiffStack(const std::string& folder, const Slices& slices, double spacing);

/// Writes one file of a page for each slice; like writeRawFile() on failure.
std::string writeTiffPages(const std::string& path, const Slices& slices, double spacing);

}  // namespace phantom
