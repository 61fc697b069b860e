#include "PlainHeader.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>

namespace hvdicom {

namespace {

constexpr std::uint32_t undefined = 0xFFFFFFFFU;
constexpr std::uint32_t metaLength = 0x00020000U;
constexpr std::uint32_t transferSyntax = 0x00020010U;
constexpr std::uint32_t pixelData = 0x7FE00010U;
constexpr std::uint32_t item = 0xFFFEE000U;
constexpr std::uint32_t itemEnd = 0xFFFEE00DU;
constexpr std::uint32_t sequenceEnd = 0xFFFEE0DDU;
constexpr std::uint32_t longestValue = 256;
constexpr int deepest = 16;

constexpr std::uint16_t representation(char first, char second)
{
    return static_cast<std::uint16_t>(static_cast<unsigned char>(first) << 8 |
                                      static_cast<unsigned char>(second));
}

// How the length of a value is written.
enum class Form : std::uint8_t
{
    Unknown,
    Short,
    Long
};

// By the two letters of the representation.
constexpr std::array<Form, 26 * 26> formsByLetters()
{
    std::array<Form, 26 * 26> forms = {};
    constexpr char const* shortOnes[] = {"AE", "AS", "AT", "CS", "DA", "DS", "DT", "FD", "FL", "IS", "LO",
                                         "LT", "PN", "SH", "SL", "SS", "ST", "TM", "UI", "UL", "US"};
    constexpr char const* longOnes[] = {"OB", "OD", "OF", "OL", "OW", "SQ", "UC", "UN", "UR", "UT"};
    auto const place = [](char const* name) {
        return static_cast<std::size_t>(name[0] - 'A') * 26 + static_cast<std::size_t>(name[1] - 'A');
    };
    for (char const* const name : shortOnes)
        forms[place(name)] = Form::Short;
    for (char const* const name : longOnes)
        forms[place(name)] = Form::Long;
    return forms;
}

Form formOf(std::uint8_t first, std::uint8_t second)
{
    static constexpr std::array<Form, 26 * 26> forms = formsByLetters();
    unsigned const row = first - unsigned{'A'};
    unsigned const column = second - unsigned{'A'};
    return row < 26 && column < 26 ? forms[row * 26 + column] : Form::Unknown;
}

constexpr std::uint16_t us = representation('U', 'S');
constexpr std::uint16_t sq = representation('S', 'Q');
constexpr std::uint16_t un = representation('U', 'N');

struct Kept
{
    std::uint32_t tag;
    std::uint16_t representation;
};

// In the order of their tags.
constexpr Kept kept[] = {{0x00020010U, representation('U', 'I')},
                         {0x00020013U, representation('S', 'H')},
                         {0x00080016U, representation('U', 'I')},
                         {0x00080060U, representation('C', 'S')},
                         {0x00080070U, representation('L', 'O')},
                         {0x00180050U, representation('D', 'S')},
                         {0x00180088U, representation('D', 'S')},
                         {0x00280002U, us},
                         {0x00280004U, representation('C', 'S')},
                         {0x00280008U, representation('I', 'S')},
                         {0x00280010U, us},
                         {0x00280011U, us},
                         {0x00280030U, representation('D', 'S')},
                         {0x00280100U, us},
                         {0x00280101U, us},
                         {0x00280102U, us},
                         {0x00280103U, us}};

std::uint32_t number(std::uint8_t const* at, unsigned bytes)
{
    std::uint32_t value = 0;
    for (unsigned i = bytes; i-- > 0;)
        value = value << 8 | at[i];
    return value;
}

// Appends the values without the blanks and the padding around each. False for text of another alphabet.
bool appendClean(std::string_view text, std::string& target)
{
    text = text.substr(0, text.find_last_not_of('\0') + 1);
    bool hasBlank = false;
    for (char const c : text) {
        if (c < ' ' || c > '~') return false;
        hasBlank = hasBlank || c == ' ';
    }
    if (!hasBlank) {
        target.append(text);
        return true;
    }
    for (std::size_t begin = 0;;) {
        std::size_t const end = std::min(text.find('\\', begin), text.size());
        std::size_t const first = text.find_first_not_of(' ', begin);
        if (first < end) target.append(text.substr(first, text.find_last_not_of(' ', end - 1) + 1 - first));
        if (end == text.size()) return true;
        target += '\\';
        begin = end + 1;
    }
}

}  // namespace

class PlainHeaderWalk
{
public:
    PlainHeaderWalk(std::uint8_t const* start, std::size_t count, ByteSource const& file, std::uint64_t size)
        : m_start(start)
        , m_count(count)
        , m_file(file)
        , m_size(size)
    {
        m_header.m_tags.reserve(96);
        m_header.m_values.reserve(std::size(kept));
        m_header.m_text.reserve(256);
    }

    std::optional<PlainHeader> walk()
    {
        if (!readMeta() || !readDataSet()) return std::nullopt;
        return std::move(m_header);
    }

private:
    struct Attribute
    {
        std::uint32_t tag = 0;
        std::uint16_t representation = 0;  // 0 where it is not written
        std::uint32_t length = 0;
        std::uint64_t value = 0;  // where it begins
    };

    bool bytes(std::uint64_t at, std::uint8_t* target, std::size_t count) const
    {
        if (at > m_count || m_count - at < count) return m_file(at, target, count);
        std::memcpy(target, m_start + at, count);
        return true;
    }

    bool read(std::uint64_t at, std::uint64_t end, Attribute& attribute) const
    {
        std::array<std::uint8_t, 12> b = {};
        if (end - at < 8 || !bytes(at, b.data(), 8)) return false;
        attribute.tag = number(b.data(), 2) << 16 | number(b.data() + 2, 2);
        attribute.representation = 0;
        attribute.value = at + 8;
        if (!m_isExplicit || attribute.tag >> 16 == 0xFFFE) {
            attribute.length = number(b.data() + 4, 4);
            return true;
        }
        attribute.representation = static_cast<std::uint16_t>(b[4] << 8 | b[5]);
        Form const form = formOf(b[4], b[5]);
        if (form == Form::Short) {
            attribute.length = number(b.data() + 6, 2);
            return true;
        }
        if (form != Form::Long || end - at < 12 || !bytes(at + 8, b.data() + 8, 4)) return false;
        attribute.length = number(b.data() + 8, 4);
        attribute.value = at + 12;
        return true;
    }

    // Its value lies in what is left, and has the even length that every value should have.
    static bool fits(Attribute const& attribute, std::uint64_t end)
    {
        return attribute.length != undefined && attribute.length % 2 == 0 && attribute.value <= end &&
               attribute.length <= end - attribute.value;
    }

    bool keep(Attribute const& attribute)
    {
        m_header.m_tags.push_back(attribute.tag);
        while (m_next != std::end(kept) && m_next->tag < attribute.tag)
            ++m_next;
        if (m_next == std::end(kept) || m_next->tag != attribute.tag) return true;
        if (attribute.representation != 0 && attribute.representation != m_next->representation) return false;
        if (attribute.length > longestValue) return false;
        std::array<std::uint8_t, longestValue> value;
        if (!bytes(attribute.value, value.data(), attribute.length)) return false;
        std::string& text = m_header.m_text;
        auto const begin = static_cast<std::uint32_t>(text.size());
        if (m_next->representation == us) {
            if (attribute.length != 2) return false;
            text += std::to_string(number(value.data(), 2));
        } else if (!appendClean({reinterpret_cast<char const*>(value.data()), attribute.length}, text)) {
            return false;
        }
        m_header.m_values.push_back({attribute.tag, begin, static_cast<std::uint32_t>(text.size()) - begin});
        return true;
    }

    // The file's own header: explicit, and as long as it says.
    bool readMeta()
    {
        std::array<std::uint8_t, 132> b = {};
        if (m_size < b.size() || !bytes(0, b.data(), b.size()) || std::memcmp(b.data() + 128, "DICM", 4) != 0)
            return false;
        m_isExplicit = true;
        Attribute attribute;
        if (!read(b.size(), m_size, attribute) || attribute.tag != metaLength ||
            attribute.representation != representation('U', 'L') || attribute.length != 4 ||
            !fits(attribute, m_size) || !bytes(attribute.value, b.data(), 4))
            return false;
        std::uint64_t at = attribute.value + 4;
        std::uint64_t const end = at + number(b.data(), 4);
        if (end > m_size) return false;
        std::uint32_t before = metaLength;
        while (at < end) {
            if (!read(at, end, attribute) || attribute.tag >> 16 != 2 || attribute.tag <= before ||
                !fits(attribute, end) || !keep(attribute))
                return false;
            before = attribute.tag;
            at = attribute.value + attribute.length;
        }
        m_begin = end;
        std::optional<std::string_view> const syntax = m_header.values(transferSyntax);
        if (!syntax) return false;
        m_isExplicit = *syntax == "1.2.840.10008.1.2.1";
        return m_isExplicit || *syntax == "1.2.840.10008.1.2";
    }

    bool readDataSet()
    {
        // Files lie about their syntax: an implicit one does not begin with two capitals where lengths stand.
        std::array<std::uint8_t, 8> b = {};
        if (m_size - m_begin < 8 || !bytes(m_begin, b.data(), b.size())) return false;
        bool const looksExplicit = b[4] >= 'A' && b[4] <= 'Z' && b[5] >= 'A' && b[5] <= 'Z';
        if (looksExplicit != m_isExplicit) return false;

        std::uint64_t at = m_begin;
        std::uint32_t before = 0x0002FFFFU;
        Attribute attribute;
        while (at < m_size) {
            if (!read(at, m_size, attribute) || attribute.tag <= before || attribute.tag >> 16 == 0xFFFE)
                return false;
            before = attribute.tag;
            if (attribute.tag == pixelData) {
                if (!fits(attribute, m_size) ||
                    (m_isExplicit && attribute.representation != representation('O', 'B') &&
                     attribute.representation != representation('O', 'W')))
                    return false;
                m_header.m_hasPixels = true;
                m_header.m_pixelBytes = attribute.length;
                m_header.m_tags.push_back(attribute.tag);
                at = attribute.value + attribute.length;
            } else if (!keepIfPlain(attribute, at)) {
                return false;
            }
        }
        return true;
    }

    // Moves `at` behind the attribute.
    bool keepIfPlain(Attribute const& attribute, std::uint64_t& at)
    {
        if (isSequence(attribute, m_size)) {
            m_header.m_tags.push_back(attribute.tag);
            at = attribute.value;
            return passSequence(attribute, m_size, at, 0);
        }
        at = attribute.value + attribute.length;
        return fits(attribute, m_size) && keep(attribute);
    }

    bool isSequence(Attribute const& attribute, std::uint64_t end) const
    {
        if (attribute.representation != 0) return attribute.representation == sq;
        if (attribute.length == undefined) return true;
        std::array<std::uint8_t, 4> b = {};
        return attribute.length >= 8 && fits(attribute, end) && bytes(attribute.value, b.data(), 4) &&
               (number(b.data(), 2) << 16 | number(b.data() + 2, 2)) == item;
    }

    bool passSequence(Attribute const& sequence, std::uint64_t end, std::uint64_t& at, int depth) const
    {
        bool const isOpen = sequence.length == undefined;
        if (depth >= deepest || (!isOpen && !fits(sequence, end))) return false;
        std::uint64_t const own = isOpen ? end : sequence.value + sequence.length;
        Attribute attribute;
        while (isOpen || at < own) {
            if (!read(at, own, attribute)) return false;
            at = attribute.value;
            if (isOpen && attribute.tag == sequenceEnd) return attribute.length == 0;
            if (attribute.tag != item || !passItem(attribute, own, at, depth)) return false;
        }
        return at == own;
    }

    bool passItem(Attribute const& entry, std::uint64_t end, std::uint64_t& at, int depth) const
    {
        bool const isOpen = entry.length == undefined;
        if (!isOpen && !fits(entry, end)) return false;
        std::uint64_t const own = isOpen ? end : entry.value + entry.length;
        std::uint32_t before = 0;
        Attribute attribute;
        while (isOpen || at < own) {
            if (!read(at, own, attribute)) return false;
            if (isOpen && attribute.tag == itemEnd) {
                at = attribute.value;
                return attribute.length == 0;
            }
            if (attribute.tag <= before || attribute.tag >> 16 == 0xFFFE) return false;
            before = attribute.tag;
            if (isSequence(attribute, own)) {
                at = attribute.value;
                if (!passSequence(attribute, own, at, depth + 1)) return false;
            } else {
                if (!fits(attribute, own) || attribute.representation == un) return false;
                at = attribute.value + attribute.length;
            }
        }
        return at == own;
    }

    std::uint8_t const* const m_start;
    std::size_t const m_count;
    ByteSource const& m_file;
    std::uint64_t const m_size;
    Kept const* m_next = std::begin(kept);
    std::uint64_t m_begin = 0;  // of the data set
    bool m_isExplicit = true;
    PlainHeader m_header;
};

std::optional<PlainHeader> PlainHeader::read(std::uint8_t const* start, std::size_t count,
                                             ByteSource const& file, std::uint64_t size)
{
    return PlainHeaderWalk(start, count, file, size).walk();
}

bool PlainHeader::has(std::uint32_t tag) const
{
    return std::binary_search(m_tags.begin(), m_tags.end(), tag);
}

std::optional<std::string_view> PlainHeader::values(std::uint32_t tag) const
{
    auto const found = std::lower_bound(m_values.begin(), m_values.end(), tag,
                                        [](Value const& value, std::uint32_t t) { return value.tag < t; });
    if (found == m_values.end() || found->tag != tag) return std::nullopt;
    return std::string_view(m_text).substr(found->begin, found->length);
}

}  // namespace hvdicom
