#pragma once

#include "Nesting.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hvdicom {

// What the header of a plain DICOM file tells of itself and of its pixels: a file with a header of its own,
// in one of the two little endian encodings, uncompressed, whose attributes follow each other in order and
// fill the file to its last byte. Most files are; the DICOM library takes many times as long to say the same.
class PlainHeader
{
public:
    // Nothing for any other file, which may be DICOM all the same. `start` holds the first `count` bytes of
    // the file, `file` gives the rest; `size` is the file's, in bytes.
    static std::optional<PlainHeader> read(std::uint8_t const* start, std::size_t count,
                                           ByteSource const& file, std::uint64_t size);

    // Whether an attribute stands in the file's own header or on the first level; `tag` is group and element.
    bool has(std::uint32_t tag) const;

    // All values of an attribute as text, parted by "\\", without blanks around them. Nothing for an
    // attribute that is absent, or whose value was not kept: those are kept that tell a data set from
    // another. The text lives as long as this.
    std::optional<std::string_view> values(std::uint32_t tag) const;

    bool hasPixels() const { return m_hasPixels; }
    std::uint64_t pixelBytes() const { return m_pixelBytes; }

private:
    friend class PlainHeaderWalk;

    std::vector<std::uint32_t> m_tags;  // in ascending order
    struct Value
    {
        std::uint32_t tag;
        std::uint32_t begin;  // in the text
        std::uint32_t length;
    };
    std::vector<Value> m_values;
    std::string m_text;
    bool m_hasPixels = false;
    std::uint64_t m_pixelBytes = 0;
};

}  // namespace hvdicom
