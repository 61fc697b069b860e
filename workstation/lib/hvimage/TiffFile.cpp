#include "TiffFile.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <mutex>
#include <unordered_set>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::size_t windowSize = 8192;
constexpr std::size_t firstWindowSize = 16;
constexpr std::size_t smallRead = 4096;

// More than any volume has slices; keeps a file that is one long chain of empty directories from taking
// minutes.
constexpr std::size_t mostPages = 1 << 20;

// Sizes of the parts of a directory in the two kinds of TIFF file.
struct Shape
{
    bool lowFirst = true;
    std::size_t countBytes = 2;
    std::size_t entryBytes = 12;
    std::size_t offsetBytes = 4;
    std::uint64_t first = 0;  // offset of the first directory
};

std::uint64_t number(unsigned char const* bytes, std::size_t count, bool lowFirst)
{
    std::uint64_t value = 0;
    for (std::size_t i = 0; i < count; ++i)
        value = (value << 8) | bytes[lowFirst ? count - 1 - i : i];
    return value;
}

bool readNumber(TiffFile& file, std::uint64_t offset, std::size_t count, bool lowFirst, std::uint64_t& value)
{
    unsigned char bytes[8];
    if (file.read(offset, bytes, count) != count) return false;
    value = number(bytes, count, lowFirst);
    return true;
}

bool readHeader(TiffFile& file, Shape& shape)
{
    unsigned char header[16] = {};
    std::size_t const count = file.read(0, header, sizeof header);
    if (count < 8 || header[0] != header[1] || (header[0] != 'I' && header[0] != 'M')) return false;
    shape.lowFirst = header[0] == 'I';
    constexpr std::uint64_t classic = 42;
    constexpr std::uint64_t big = 43;
    std::uint64_t const version = number(header + 2, 2, shape.lowFirst);
    if (version == classic) {
        shape.first = number(header + 4, 4, shape.lowFirst);
        return true;
    }
    if (version != big || count < 16 || number(header + 4, 2, shape.lowFirst) != 8 ||
        number(header + 6, 2, shape.lowFirst) != 0)
        return false;
    shape.countBytes = 8;
    shape.entryBytes = 20;
    shape.offsetBytes = 8;
    shape.first = number(header + 8, 8, shape.lowFirst);
    return true;
}

// The end of a directory's entries, where the offset of the next one stands. False unless the whole directory
// lies in the file.
bool directoryEnd(TiffFile& file, Shape const& shape, std::uint64_t offset, std::uint64_t& end)
{
    std::uint64_t entries = 0;
    if (offset < 8 || offset > file.size() ||
        !readNumber(file, offset, shape.countBytes, shape.lowFirst, entries))
        return false;
    std::uint64_t const left = file.size() - std::min(file.size(), offset + shape.countBytes);
    if (entries == 0 || entries > left / shape.entryBytes) return false;
    end = offset + shape.countBytes + entries * shape.entryBytes;
    return true;
}

TiffIndex walk(TiffFile& file)
{
    TiffIndex index;
    Shape shape;
    if (!readHeader(file, shape)) return index;
    std::unordered_set<std::uint64_t> passed;
    std::uint64_t offset = shape.first;
    std::uint64_t end = 0;
    while (index.offsets.size() < mostPages && directoryEnd(file, shape, offset, end)) {
        if (!passed.insert(offset).second) {
            index.runsInCircle = true;
            break;
        }
        index.offsets.push_back(offset);
        if (!readNumber(file, end, shape.offsetBytes, shape.lowFirst, offset)) break;
    }
    return index;
}

struct Remembered
{
    TiffFile::Identity identity;
    std::shared_ptr<TiffIndex const> index;
};

}  // namespace

TiffFile::TiffFile(char const* path)
{
    struct stat state = {};
    if (!path || stat(path, &state) != 0 || !S_ISREG(state.st_mode)) return;
    do {
        m_descriptor = open(path, O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    } while (m_descriptor < 0 && errno == EINTR);
    if (m_descriptor < 0) return;
    if (fstat(m_descriptor, &state) != 0 || !S_ISREG(state.st_mode)) {
        close(m_descriptor);
        m_descriptor = -1;
        return;
    }
    m_size = static_cast<std::uint64_t>(state.st_size);
    m_identity = {state.st_dev, state.st_ino, m_size, state.st_mtim.tv_sec, state.st_mtim.tv_nsec};
}

TiffFile::~TiffFile()
{
    if (isOpen()) close(m_descriptor);
}

std::size_t TiffFile::read(std::uint64_t offset, void* bytes, std::size_t count)
{
    if (!isOpen() || offset >= m_size) return 0;
    if (count > smallRead) return readThrough(offset, bytes, count);
    if (offset < m_windowStart || offset + count > m_windowStart + m_windowBytes) {
        // The first bytes tell most files from a TIFF file.
        m_window.resize(m_window.empty() ? std::max(firstWindowSize, count) : windowSize);
        m_windowStart = offset;
        m_windowBytes = readThrough(offset, m_window.data(), m_window.size());
    }
    std::size_t const held = m_windowBytes - static_cast<std::size_t>(offset - m_windowStart);
    std::size_t const given = std::min(count, held);
    std::memcpy(bytes, m_window.data() + (offset - m_windowStart), given);
    return given;
}

std::size_t TiffFile::readThrough(std::uint64_t offset, void* bytes, std::size_t count) const
{
    auto* target = static_cast<unsigned char*>(bytes);
    std::size_t done = 0;
    while (done < count) {
        ssize_t const got =
            pread(m_descriptor, target + done, count - done, static_cast<off_t>(offset + done));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) break;
        done += static_cast<std::size_t>(got);
    }
    return done;
}

bool isTiff(TiffFile& file)
{
    Shape shape;
    std::uint64_t end = 0;
    return file.isOpen() && readHeader(file, shape) && directoryEnd(file, shape, shape.first, end);
}

std::shared_ptr<TiffIndex const> tiffIndex(TiffFile& file)
{
    static std::mutex mutex;
    static std::array<Remembered, 4> remembered;
    static std::size_t oldest = 0;
    {
        std::lock_guard<std::mutex> const lock(mutex);
        for (Remembered const& one : remembered)
            if (one.index && one.identity == file.identity()) return one.index;
    }
    auto index = std::make_shared<TiffIndex const>(walk(file));
    // One page is found again at once; only long chains are worth the room.
    if (index->offsets.size() > 1) {
        std::lock_guard<std::mutex> const lock(mutex);
        remembered[oldest] = {file.identity(), index};
        oldest = (oldest + 1) % remembered.size();
    }
    return index;
}
