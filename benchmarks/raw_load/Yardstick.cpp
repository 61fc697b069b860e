#include "Yardstick.h"

#include "support/SampleLoops.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {

struct Freed
{
    void operator()(void* memory) const { std::free(memory); }
};

bool readFrame(int file, void* buffer, std::size_t bytes)
{
    return ::read(file, buffer, bytes) == static_cast<ssize_t>(bytes);
}

}  // namespace

unsigned long loadAtTheLimit(const char* path, long offset, std::size_t pixels, unsigned frames)
{
    constexpr std::size_t hugePage = std::size_t{2} << 20;
    const std::size_t blockSize = (pixels * frames + hugePage - 1) / hugePage * hugePage;
    const std::size_t frameSize = pixels * sizeof(std::uint16_t);
    const std::unique_ptr<void, Freed> frame(std::aligned_alloc(hugePage, std::max(frameSize, hugePage)));
    const std::unique_ptr<void, Freed> block(std::aligned_alloc(hugePage, blockSize));
    const int file = ::open(path, O_RDONLY | O_CLOEXEC);
    if (file < 0 || !frame || !block) return 0;
    madvise(block.get(), blockSize, MADV_HUGEPAGE);

    auto* const samples = static_cast<std::uint16_t*>(frame.get());
    auto* const voxels = static_cast<std::uint8_t*>(block.get());
    std::uint16_t lowest = 64000;
    std::uint16_t highest = 0;
    bool good = ::lseek(file, offset, SEEK_SET) == offset;
    for (unsigned i = 0; i < frames && good; ++i) {
        good = readFrame(file, samples, frameSize);
        range(samples, pixels, &lowest, &highest);
    }
    good = good && ::lseek(file, offset, SEEK_SET) == offset;
    const float scale = 255.0F / static_cast<float>(highest - lowest);
    for (unsigned i = 0; i < frames && good; ++i) {
        good = readFrame(file, samples, frameSize);
        map(samples, pixels, lowest, scale, voxels + i * pixels);
    }
    ::close(file);
    return good ? 1UL + voxels[0] + voxels[pixels * frames - 1] : 0;
}
