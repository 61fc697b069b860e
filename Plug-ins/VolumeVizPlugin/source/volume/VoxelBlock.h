#pragma once

#include <cstddef>
#include <cstdint>

// The one big allocation of a load.

/// False for more bytes than the machine has memory: asking for them would only bring it to a stop.
bool fitsIntoMemory(std::uint64_t bytes);

/// A block of zeros, for std::free; null for no bytes and when memory does not suffice. Its pages are huge
/// where the system has such: writing it for the first time costs a fraction of what it costs with small
/// ones.
std::uint8_t* allocateVoxels(std::size_t bytes);
