#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace hvdicom {

// A file through a window, so that its attributes are not read one by one.
class FileWindow
{
public:
    // `path` in the file system's encoding; a file that cannot be opened has no bytes. Pipes are not waited
    // for.
    explicit FileWindow(char const* path)
        : m_file(::open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {}
    ~FileWindow()
    {
        if (m_file >= 0) ::close(m_file);
    }
    FileWindow(FileWindow const&) = delete;
    FileWindow& operator=(FileWindow const&) = delete;

    bool read(std::uint64_t offset, std::uint8_t* target, std::size_t count)
    {
        if (count > m_bytes.size()) return false;
        if (offset < m_start || offset - m_start > m_filled || m_filled - (offset - m_start) < count) {
            m_filled = fill(offset, m_bytes.data(), m_bytes.size());
            m_start = offset;
            if (m_filled < count) return false;
        }
        std::memcpy(target, m_bytes.data() + (offset - m_start), count);
        return true;
    }

    // As many bytes from `offset` on as there are, at most `count`.
    std::size_t fill(std::uint64_t offset, std::uint8_t* target, std::size_t count) const
    {
        if (m_file < 0 || offset > farthest) return 0;
        ssize_t const got = ::pread(m_file, target, count, static_cast<off_t>(offset));
        return static_cast<std::size_t>(std::max<ssize_t>(got, 0));
    }

private:
    static constexpr std::uint64_t farthest = std::uint64_t{1} << 62;
    int m_file;
    std::uint64_t m_start = 0;
    std::size_t m_filled = 0;
    std::array<std::uint8_t, 8192> m_bytes;
};

}  // namespace hvdicom
