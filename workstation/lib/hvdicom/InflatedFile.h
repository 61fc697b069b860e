#pragma once

#include <zlib.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace hvdicom {

// What a deflated file says, read from the beginning to the end; only the last few thousand bytes can be read
// again.
class InflatedFile
{
public:
    // Copies up to `count` deflated bytes from `offset` on; gives how many there were, 0 at the end.
    using Deflated =
        std::function<std::size_t(std::uint64_t offset, std::uint8_t* target, std::size_t count)>;

    explicit InflatedFile(Deflated deflated);
    ~InflatedFile();
    InflatedFile(InflatedFile const&) = delete;
    InflatedFile& operator=(InflatedFile const&) = delete;

    // Copies `count` inflated bytes at `offset`; false when they are not all there, lie too far back, or lie
    // behind the first 4 GiB: a file of that size is no document any more.
    bool read(std::uint64_t offset, std::uint8_t* target, std::size_t count);

private:
    bool inflateMore();

    Deflated m_deflated;
    std::uint64_t m_taken = 0;  // deflated bytes so far
    z_stream m_stream = {};
    bool m_atEnd = false;
    std::uint64_t m_start = 0;  // place of the first byte of m_bytes
    std::vector<std::uint8_t> m_bytes;
    std::vector<std::uint8_t> m_input;
};

}  // namespace hvdicom
