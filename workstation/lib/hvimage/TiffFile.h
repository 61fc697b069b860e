#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

// A plain file whose bytes are read at any place. Nothing of it is mapped: a file that shrinks while it is
// read gives fewer bytes, not a signal.
class TiffFile
{
public:
    // Opens a plain file; a folder, pipe or device is refused without waiting for it.
    explicit TiffFile(char const* path);
    ~TiffFile();
    TiffFile(TiffFile const&) = delete;
    TiffFile& operator=(TiffFile const&) = delete;

    bool isOpen() const { return m_descriptor >= 0; }
    std::uint64_t size() const { return m_size; }  // when it was opened

    // Reads `count` bytes at `offset`; returns how many there were. Small reads come from a window that
    // the first of them fills.
    std::size_t read(std::uint64_t offset, void* bytes, std::size_t count);

    // What tells one state of a file from another.
    struct Identity
    {
        std::uint64_t device = 0, inode = 0, size = 0;
        std::int64_t seconds = 0, nanoseconds = 0;  // of the last change
        bool operator==(Identity const& other) const
        {
            return device == other.device && inode == other.inode && size == other.size &&
                   seconds == other.seconds && nanoseconds == other.nanoseconds;
        }
    };
    Identity const& identity() const { return m_identity; }

    // As libtiff sees it.
    std::uint64_t position = 0;

private:
    std::size_t readThrough(std::uint64_t offset, void* bytes, std::size_t count) const;

    int m_descriptor = -1;
    std::uint64_t m_size = 0;
    Identity m_identity;
    std::vector<unsigned char> m_window;
    std::uint64_t m_windowStart = 0;
    std::size_t m_windowBytes = 0;
};

// Where the directories of a TIFF file's pictures stand.
struct TiffIndex
{
    std::vector<std::uint64_t> offsets;
    bool runsInCircle = false;  // the chain came back to a directory that it had passed
};

// Whether the file begins as a TIFF file does and has at least one whole directory.
bool isTiff(TiffFile& file);

// Follows the chain of directories, as far as it goes. The last few answers are remembered, so that asking
// for the pages of one file in any order walks its chain once. Any thread.
std::shared_ptr<TiffIndex const> tiffIndex(TiffFile& file);
