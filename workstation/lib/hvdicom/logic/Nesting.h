#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

namespace hvdicom {

// Copies `count` bytes at `offset` of a file; false when they are not all there.
using ByteSource = std::function<bool(std::uint64_t offset, std::uint8_t* target, std::size_t count)>;

// Deepest nesting of sequences in a DICOM file, counted up to `limit`: 0 where no sequence has an item. The
// DICOM library goes down by a call for each level, so that a small file of nothing but sequences would end
// the program. Follows the attributes to the end of the file, as far as they make sense; deflated ones are
// not seen.
unsigned nestingDepth(ByteSource const& file, unsigned limit);

// Where the deflated attributes of a file begin; nothing for a file that is not deflated. Inflated, they are
// a source of their own for nestingDepth().
std::optional<std::uint64_t> deflatedAttributes(ByteSource const& file);

}  // namespace hvdicom
