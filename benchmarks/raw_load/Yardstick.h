#pragma once

#include <cstddef>

/// What the machine can do: the frames of a file of unsigned 16-bit samples, read twice into one buffer, once
/// for their range and once to map them to bytes in a block on huge pages. No progress, no image classes, no
/// checks.
/// @param path    of a file with `offset` bytes in front of `frames` frames of `pixels` samples each
/// @return a sum over the bytes that were written, so that nothing can be left out; 0 when the file can't be
/// read
unsigned long loadAtTheLimit(const char* path, long offset, std::size_t pixels, unsigned frames);
