#include "InflatedFile.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace hvdicom {

namespace {

constexpr std::size_t piece = 65536;
constexpr std::size_t kept = 4096;  // bytes before the last piece
constexpr std::uint64_t farthest = std::uint64_t{1} << 32;

}  // namespace

InflatedFile::InflatedFile(Deflated deflated)
    : m_deflated(std::move(deflated))
    , m_input(piece)
{
    // Negative: bytes as DICOM deflates them, without a header of their own.
    m_atEnd = inflateInit2(&m_stream, -MAX_WBITS) != Z_OK;
}

InflatedFile::~InflatedFile()
{
    inflateEnd(&m_stream);
}

bool InflatedFile::read(std::uint64_t offset, std::uint8_t* target, std::size_t count)
{
    if (offset < m_start || count > kept || offset > farthest) return false;
    while (offset + count > m_start + m_bytes.size())
        if (!inflateMore()) return false;
    if (offset < m_start) return false;
    std::memcpy(target, m_bytes.data() + (offset - m_start), count);
    return true;
}

bool InflatedFile::inflateMore()
{
    if (m_atEnd) return false;
    std::size_t const dropped = m_bytes.size() - std::min(m_bytes.size(), kept);
    m_bytes.erase(m_bytes.begin(), m_bytes.begin() + static_cast<std::ptrdiff_t>(dropped));
    m_start += dropped;
    std::size_t const before = m_bytes.size();
    m_bytes.resize(before + piece);
    m_stream.next_out = m_bytes.data() + before;
    m_stream.avail_out = piece;
    while (m_stream.avail_out > 0 && !m_atEnd) {
        if (m_stream.avail_in == 0) {
            std::size_t const got = m_deflated(m_taken, m_input.data(), m_input.size());
            m_taken += got;
            m_stream.next_in = m_input.data();
            m_stream.avail_in = static_cast<uInt>(got);
            if (got == 0) m_atEnd = true;
        }
        if (!m_atEnd && inflate(&m_stream, Z_NO_FLUSH) != Z_OK) m_atEnd = true;
    }
    m_bytes.resize(before + piece - m_stream.avail_out);
    return m_bytes.size() > before;
}

}  // namespace hvdicom
