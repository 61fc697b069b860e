#include "phantom/TiffFile.h"

#include "phantom/Bytes.h"
#include "phantom/PartFile.h"

#include <cmath>
#include <cstdio>

namespace phantom {
namespace {

constexpr unsigned asShort = 3, asLong = 4, asFraction = 5, asText = 2;
constexpr std::uint32_t headerBytes = 8;

// Fine enough for a spacing of 0.0001 mm, and 99 mm still fit.
constexpr std::uint32_t resolutionParts = 10'000'000;

constexpr char software[] = "phantom";  // 8 bytes with its end mark

/// Where a page stands among the others.
struct Place
{
    int page, pages;
    std::uint32_t offset;  ///< of its directory in the file
};

class Directory
{
public:
    void entry(unsigned tag, unsigned type, std::uint32_t count, std::uint32_t value)
    {
        putU16(m_entries, tag);
        putU16(m_entries, type);
        putU32(m_entries, count);
        putU32(m_entries, value);
        ++m_count;
    }
    unsigned count() const { return m_count; }
    const std::string& entries() const { return m_entries; }

private:
    std::string m_entries;
    unsigned m_count = 0;
};

/// What all pages of a file are like.
struct PageKind
{
    int size, bits;
    double spacing;
};

std::uint32_t pictureBytes(const PageKind& kind)
{
    return static_cast<std::uint32_t>(kind.size) * kind.size * (kind.bits / 8);
}

/// Directory of a page, with what its entries point to: everything in front of the pixels, an even number of
/// bytes.
std::string pageHead(const PageKind& kind, const Place& place)
{
    const unsigned entries = place.pages > 1 ? 17 : 15;
    const std::uint32_t extras = place.offset + 2 + 12 * entries + 4;
    constexpr std::uint32_t fraction = 8;
    const std::uint32_t pixels = extras + fraction + sizeof software;
    const auto size = static_cast<std::uint32_t>(kind.size);
    const std::uint32_t bytes = pictureBytes(kind);

    Directory d;
    if (place.pages > 1) d.entry(254, asLong, 1, 2);  // a page of many
    d.entry(256, asLong, 1, size);
    d.entry(257, asLong, 1, size);
    d.entry(258, asShort, 1, static_cast<std::uint32_t>(kind.bits));
    d.entry(259, asShort, 1, 1);  // not compressed
    d.entry(262, asShort, 1, 1);  // 0 is black
    d.entry(273, asLong, 1, pixels);
    d.entry(274, asShort, 1, 1);
    d.entry(277, asShort, 1, 1);
    d.entry(278, asLong, 1, size);
    d.entry(279, asLong, 1, bytes);
    d.entry(282, asFraction, 1, extras);
    d.entry(283, asFraction, 1, extras);
    d.entry(296, asShort, 1, 1);  // no unit
    if (place.pages > 1)
        d.entry(297, asShort, 2,
                static_cast<std::uint32_t>(place.page) | static_cast<std::uint32_t>(place.pages) << 16);
    d.entry(305, asText, sizeof software, extras + fraction);
    d.entry(339, asShort, 1, 1);  // unsigned

    std::string head;
    putU16(head, d.count());
    head += d.entries();
    putU32(head, place.page + 1 < place.pages ? pixels + bytes + bytes % 2 : 0);
    putU32(head, static_cast<std::uint32_t>(std::lround(kind.spacing * resolutionParts)));
    putU32(head, resolutionParts);
    head.append(software, sizeof software);
    return head;
}

std::string fileHeader()
{
    std::string header = "II";
    putU16(header, 42);
    putU32(header, headerBytes);
    return header;
}

}  // namespace

std::string tiffSlice(const Slices& slices, int i, double spacing)
{
    const std::vector<unsigned char> pixels = slices.slice(i);
    std::string bytes = fileHeader() + pageHead({slices.size(), slices.bits(), spacing}, {0, 1, headerBytes});
    bytes.append(pixels.begin(), pixels.end());
    return bytes;
}

std::string tiffPicture(int size, const std::vector<std::uint16_t>& pixels, double spacing)
{
    std::string bytes = fileHeader() + pageHead({size, 16, spacing}, {0, 1, headerBytes});
    for (const std::uint16_t pixel : pixels)
        putU16(bytes, pixel);
    return bytes;
}

std::string writeTiffStack(const std::string& folder, const Slices& slices, double spacing)
{
    PartFolder part(folder);
    for (int i = 0; i < slices.size() && part.error().empty(); ++i) {
        char name[32];
        std::snprintf(name, sizeof name, "slice-%04d.tif", i + 1);
        PartFile file(part.path(name));
        file.write(tiffSlice(slices, i, spacing));
        file.finish();
        if (!file.error().empty()) return file.error();
    }
    part.finish();
    return part.error();
}

std::string writeTiffPages(const std::string& path, const Slices& slices, double spacing)
{
    PartFile file(path);
    file.write(fileHeader());
    std::uint32_t offset = headerBytes;
    for (int i = 0; i < slices.size() && file.error().empty(); ++i) {
        const std::string head =
            pageHead({slices.size(), slices.bits(), spacing}, {i, slices.size(), offset});
        std::vector<unsigned char> pixels = slices.slice(i);
        pixels.resize(pixels.size() + pixels.size() % 2);
        file.write(head);
        file.write(pixels.data(), pixels.size());
        offset += static_cast<std::uint32_t>(head.size() + pixels.size());
    }
    file.finish();
    return file.error();
}

}  // namespace phantom
