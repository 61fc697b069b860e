#include "Yardstick.h"

#include "support/SampleLoops.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <tiffio.h>

namespace {

struct Freed
{
    void operator()(void* memory) const { std::free(memory); }
};

/// One file after another; a file that comes again stays open.
class Reader
{
public:
    explicit Reader(const PlainFrames& frames)
        : m_frames(frames)
    {}
    ~Reader() { close(); }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;

    bool read(std::size_t frame, void* samples)
    {
        const std::string& name = m_frames.file(frame);
        if (m_name != &name) {
            close();
            m_file = ::open(name.c_str(), O_RDONLY | O_CLOEXEC);
            m_name = &name;
        }
        const std::size_t bytes = m_frames.columns * m_frames.rows * sizeof(std::uint16_t);
        return m_file >= 0 &&
               ::pread(m_file, samples, bytes, m_frames.offsets[frame]) == static_cast<ssize_t>(bytes);
    }

private:
    void close()
    {
        if (m_file >= 0) ::close(m_file);
        m_file = -1;
    }

    const PlainFrames& m_frames;
    const std::string* m_name = nullptr;
    int m_file = -1;
};

}  // namespace

unsigned long loadAtTheLimit(const PlainFrames& frames)
{
    constexpr std::size_t hugePage = std::size_t{2} << 20;
    const std::size_t pixels = frames.columns * frames.rows;
    const std::size_t plane = frames.columns * frames.count();
    const std::size_t blockSize = (pixels * frames.count() + hugePage - 1) / hugePage * hugePage;
    const std::size_t frameSize = (pixels * sizeof(std::uint16_t) + hugePage - 1) / hugePage * hugePage;
    const std::unique_ptr<void, Freed> frame(std::aligned_alloc(hugePage, frameSize));
    const std::unique_ptr<void, Freed> block(std::aligned_alloc(hugePage, blockSize));
    if (!frame || !block) return 0;
    madvise(block.get(), blockSize, MADV_HUGEPAGE);

    auto* const samples = static_cast<std::uint16_t*>(frame.get());
    auto* const voxels = static_cast<std::uint8_t*>(block.get());
    Reader reader(frames);
    std::uint16_t lowest = 65535;
    std::uint16_t highest = 0;
    for (std::size_t i = 0; i < frames.count(); ++i) {
        if (!reader.read(i, samples)) return 0;
        range(samples, pixels, &lowest, &highest);
    }
    const float scale = 255.0F / static_cast<float>(std::max(highest - lowest, 1));
    for (std::size_t i = 0; i < frames.count(); ++i) {
        if (!reader.read(i, samples)) return 0;
        for (std::size_t y = 0; y < frames.rows; ++y)
            map(samples + y * frames.columns, frames.columns, lowest, scale,
                voxels + i * frames.columns + (frames.rows - 1 - y) * plane);
    }
    return 1UL + voxels[0] + voxels[pixels * frames.count() - 1];
}

unsigned long decodeBarely(const PlainFrames& frames)
{
    const std::size_t bytes = frames.columns * frames.rows * sizeof(std::uint16_t);
    const std::unique_ptr<void, Freed> frame(std::malloc(bytes));
    auto* const samples = static_cast<unsigned char*>(frame.get());
    unsigned long sum = 1;
    std::size_t done = 0;
    while (samples != nullptr && done < frames.count()) {
        TIFF* const file = TIFFOpen(frames.file(done).c_str(), "r");
        if (file == nullptr) return 0;
        do {
            tmsize_t filled = 0;
            for (std::uint32_t strip = 0; strip < TIFFNumberOfStrips(file); ++strip)
                filled += TIFFReadEncodedStrip(file, strip, samples + filled,
                                               static_cast<tmsize_t>(bytes) - filled);
            sum += samples[bytes - 1];
            ++done;
        } while (TIFFReadDirectory(file) != 0);
        TIFFClose(file);
    }
    return samples == nullptr ? 0 : sum;
}
