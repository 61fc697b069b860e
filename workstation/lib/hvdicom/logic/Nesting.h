#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>

namespace hvdicom {

// Copies `count` bytes at `offset` of a file; false when they are not all there.
using ByteSource = std::function<bool(std::uint64_t offset, std::uint8_t* target, std::size_t count)>;

// Deepest nesting of sequences in a DICOM file, counted up to `limit`: 0 where no sequence has an item. The
// DICOM library goes down by a call for each level, so that a small file of nothing but sequences would end
// the program. Follows the attributes as far as they make sense and up to the pixels; what is behind them or
// deflated is not seen.
unsigned nestingDepth(ByteSource const& file, unsigned limit);

}  // namespace hvdicom
