#pragma once

/// Reads a whole file.
/// @param path  in the file system's encoding
/// @param size  bytes read; set where a buffer is returned
/// @return the contents, to be freed with std::free; null for a file that can't be opened, is empty, or is
/// too
///         large for memory or for `size`
unsigned char* readFile(const char* path, unsigned* size);

/// Turns a volume of 16-bit samples, high byte first, x fastest, then y, then z, into one of 8 bits.
/// @param data       2 * w * h * d bytes from std::malloc
/// @param keepInput  false: `data` is freed
/// @param linear     255 * value / highest value; else the values with the strongest edges get most grey
/// levels
/// @param verbose    tells the range and the end on the standard output
/// @return w * h * d voxels, to be freed with std::free; null when memory does not suffice, which is logged,
/// and
///         for an empty volume
unsigned char* quantize16To8(unsigned char* data, unsigned w, unsigned h, unsigned d, bool keepInput,
                             bool linear, bool verbose);
