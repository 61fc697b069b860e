#include "Nesting.h"

#include <array>
#include <string>
#include <vector>

namespace hvdicom {

namespace {

constexpr std::uint32_t undefined = 0xFFFFFFFFU;
constexpr std::uint32_t pixelData = 0x7FE00010U;
constexpr std::uint32_t item = 0xFFFEE000U;
constexpr std::uint32_t itemEnd = 0xFFFEE00DU;
constexpr std::uint32_t sequenceEnd = 0xFFFEE0DDU;
constexpr std::uint32_t transferSyntax = 0x00020010U;

struct Encoding
{
    bool isExplicit = true;
    bool isLittleEndian = true;
};

struct Attribute
{
    std::uint32_t tag = 0;
    std::string representation;  // empty where it is not written
    std::uint32_t length = 0;
    std::uint64_t value = 0;  // where it begins
};

class Walk
{
public:
    Walk(ByteSource const& file, unsigned limit)
        : m_file(file)
        , m_limit(limit)
    {}

    unsigned depth()
    {
        std::uint64_t const start = behindHeader();
        if (start != nowhere && !m_isDeflated && guessEncoding(start)) follow(start);
        return m_deepest;
    }

    std::optional<std::uint64_t> deflated()
    {
        std::uint64_t const start = behindHeader();
        if (start == nowhere || !m_isDeflated) return std::nullopt;
        return start;
    }

private:
    struct Level
    {
        std::uint64_t end;  // nowhere: told by a delimiter
        bool isItem;
        bool isPixels;
        Encoding outside;  // encoding to go back to
    };

    static constexpr std::uint64_t nowhere = ~std::uint64_t{0};

    std::uint32_t number(std::uint8_t const* at, unsigned bytes) const
    {
        std::uint32_t value = 0;
        for (unsigned i = 0; i < bytes; ++i)
            value = value << 8 | at[m_encoding.isLittleEndian ? bytes - 1 - i : i];
        return value;
    }

    bool read(std::uint64_t at, Attribute& attribute) const
    {
        std::array<std::uint8_t, 12> b = {};
        if (!m_file(at, b.data(), 8)) return false;
        attribute.tag = number(b.data(), 2) << 16 | number(b.data() + 2, 2);
        attribute.representation.clear();
        attribute.value = at + 8;
        if (!m_encoding.isExplicit || attribute.tag >> 16 == 0xFFFE) {
            attribute.length = number(b.data() + 4, 4);
            return true;
        }
        for (unsigned i = 4; i < 6; ++i) {
            if (b[i] < 'A' || b[i] > 'Z') return false;
            attribute.representation += static_cast<char>(b[i]);
        }
        static constexpr char const* longOnes[] = {"OB", "OW", "OF", "OD", "OL", "OV", "SQ",
                                                   "UC", "UR", "UT", "UN", "SV", "UV"};
        for (char const* const longOne : longOnes)
            if (attribute.representation == longOne) {
                if (!m_file(at + 8, b.data() + 8, 4)) return false;
                attribute.length = number(b.data() + 8, 4);
                attribute.value = at + 12;
                return true;
            }
        attribute.length = number(b.data() + 6, 2);
        return true;
    }

    std::uint64_t behindHeader()
    {
        std::array<std::uint8_t, 132> b = {};
        bool const hasHeader =
            m_file(0, b.data(), b.size()) && std::string(b.begin() + 128, b.end()) == "DICM";
        std::uint64_t at = hasHeader ? 132 : 0;
        std::string syntax;
        Attribute attribute;
        while (read(at, attribute) && attribute.tag >> 16 == 2 && attribute.length != undefined) {
            if (attribute.tag == transferSyntax && attribute.length <= 64) {
                syntax.resize(attribute.length);
                if (!m_file(attribute.value, reinterpret_cast<std::uint8_t*>(syntax.data()), syntax.size()))
                    return nowhere;
                syntax.erase(syntax.find_last_not_of(std::string("\0 ", 2)) + 1);
            }
            at = attribute.value + attribute.length;
        }
        m_isDeflated = syntax == "1.2.840.10008.1.2.1.99";
        return at;
    }

    // Files lie about their syntax: what the first attribute looks like counts.
    bool guessEncoding(std::uint64_t at)
    {
        std::array<std::uint8_t, 8> b = {};
        if (!m_file(at, b.data(), b.size())) return false;
        m_encoding.isLittleEndian = !(b[0] == 0 && b[1] != 0);
        m_encoding.isExplicit = b[4] >= 'A' && b[4] <= 'Z' && b[5] >= 'A' && b[5] <= 'Z';
        return true;
    }

    void leave()
    {
        m_encoding = m_levels.back().outside;
        if (m_levels.back().isItem) --m_depth;
        m_levels.pop_back();
    }

    void enter(std::uint64_t at, std::uint32_t length, bool isItem, bool isPixels, Encoding outside)
    {
        m_levels.push_back({length == undefined ? nowhere : at + length, isItem, isPixels, outside});
        if (isItem && ++m_depth > m_deepest) m_deepest = m_depth;
    }

    // Whether an attribute of a length begins with an item. Without a written representation only that tells.
    bool beginsWithItem(Attribute const& attribute) const
    {
        std::array<std::uint8_t, 4> b = {};
        return attribute.length >= 8 && m_file(attribute.value, b.data(), 4) &&
               (number(b.data(), 2) << 16 | number(b.data() + 2, 2)) == item;
    }

    // Pixels may be called a sequence too; only what they are called, and not how they begin, tells.
    bool holdsItems(Attribute const& attribute) const
    {
        std::string const& kind = attribute.representation;
        if (attribute.length == undefined || kind == "SQ") return true;
        bool const isBulk = kind == "OB" || kind == "OW" || (kind.empty() && attribute.tag == pixelData);
        return !isBulk && beginsWithItem(attribute);
    }

    void follow(std::uint64_t at)
    {
        Attribute attribute;
        while (m_deepest < m_limit) {
            while (!m_levels.empty() && at >= m_levels.back().end)
                leave();
            if (!read(at, attribute)) return;
            std::uint64_t const next = attribute.value + attribute.length;
            if (attribute.tag == item) {
                bool const isFragment = !m_levels.empty() && m_levels.back().isPixels;
                if (!isFragment) enter(attribute.value, attribute.length, true, false, m_encoding);
                at = isFragment && attribute.length != undefined ? next : attribute.value;
            } else if (attribute.tag == itemEnd || attribute.tag == sequenceEnd) {
                if (!m_levels.empty() && m_levels.back().isItem == (attribute.tag == itemEnd)) leave();
                at = attribute.value;
            } else if (holdsItems(attribute)) {
                Encoding const outside = m_encoding;
                if (attribute.representation == "UN") m_encoding = {false, true};
                bool const hasFragments = attribute.tag == pixelData && attribute.representation != "SQ";
                enter(attribute.value, attribute.length, false, hasFragments, outside);
                at = attribute.value;
            } else {
                at = next;
            }
        }
    }

    ByteSource const& m_file;
    unsigned const m_limit;
    Encoding m_encoding;
    bool m_isDeflated = false;
    std::vector<Level> m_levels;
    unsigned m_depth = 0;
    unsigned m_deepest = 0;
};

}  // namespace

unsigned nestingDepth(ByteSource const& file, unsigned limit)
{
    return Walk(file, limit).depth();
}

std::optional<std::uint64_t> deflatedAttributes(ByteSource const& file)
{
    return Walk(file, 0).deflated();
}

}  // namespace hvdicom
