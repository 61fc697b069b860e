#include "volume/Common.h"

#include "volume/ReaderLog.h"
#include "volume/logic/Quantise16.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <memory>

namespace {

constexpr std::size_t blockSize = 0x100000;

struct FileCloser
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};

struct Freed
{
    void operator()(void* memory) const { std::free(memory); }
};

template <typename T>
using Buffer = std::unique_ptr<T, Freed>;

template <typename T>
Buffer<T> allocate(std::size_t count)
{
    if (count > std::numeric_limits<std::size_t>::max() / sizeof(T)) return nullptr;
    return Buffer<T>(static_cast<T*>(std::malloc(count * sizeof(T))));
}

void logNoMemory()
{
    logReader(QStringLiteral("Common.cpp"), CHVSLog::eError, __TIME__);
}

bool resize(Buffer<unsigned char>& buffer, std::size_t size)
{
    auto* const resized = static_cast<unsigned char*>(std::realloc(buffer.get(), size));
    if (resized == nullptr) return false;
    static_cast<void>(buffer.release());
    buffer.reset(resized);
    return true;
}

// w * h * d, or 0 where that can't be addressed.
std::size_t voxelCount(unsigned w, unsigned h, unsigned d)
{
    const std::uint64_t area = std::uint64_t{w} * h;
    constexpr std::uint64_t most = std::numeric_limits<std::size_t>::max() / 2;
    return area == 0 || d > most / area ? 0 : static_cast<std::size_t>(area * d);
}

Buffer<unsigned char> quantised(const viz::Volume16& volume, bool linear, bool verbose)
{
    const auto [low, high] = std::minmax_element(volume.samples, volume.samples + volume.count());
    if (verbose) std::printf("16 bit volume has scalar range=[%d,%d]\n", *low, *high);

    const Buffer<double> table = allocate<double>(viz::values16);
    Buffer<unsigned char> voxels = allocate<unsigned char>(volume.count());
    if (table == nullptr || voxels == nullptr) return nullptr;
    if (linear)
        viz::fillLinearTable(*high, table.get());
    else
        viz::fillEqualisedTable(volume, *low, *high, table.get());
    viz::applyTable(volume, table.get(), voxels.get());
    return voxels;
}

}  // namespace

unsigned char* readFile(const char* path, unsigned* size)
{
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path, "rb"));
    if (file == nullptr) return nullptr;

    Buffer<unsigned char> contents;
    std::size_t total = 0;
    std::size_t read = blockSize;
    while (read == blockSize) {
        if (total > std::numeric_limits<unsigned>::max() - blockSize ||
            !resize(contents, total + blockSize)) {
            logNoMemory();
            return nullptr;
        }
        read = std::fread(contents.get() + total, 1, blockSize, file.get());
        total += read;
    }
    if (total == 0) return nullptr;
    resize(contents, total);
    *size = static_cast<unsigned>(total);
    return contents.release();
}

unsigned char* quantize16To8(unsigned char* data, unsigned w, unsigned h, unsigned d, bool keepInput,
                             bool linear, bool verbose)
{
    Buffer<unsigned char> input(data);
    const std::size_t count = voxelCount(w, h, d);
    Buffer<unsigned char> voxels;
    if (count != 0) {
        const Buffer<std::uint16_t> samples = allocate<std::uint16_t>(count);
        if (samples != nullptr) viz::decodeBigEndian(data, count, samples.get());
        if (keepInput) static_cast<void>(input.release());
        input.reset();
        if (samples != nullptr) voxels = quantised({samples.get(), w, h, d}, linear, verbose);
        if (voxels == nullptr) logNoMemory();
        if (voxels != nullptr && verbose) std::printf("quantized volume to 8 bit\n");
    }
    if (keepInput) static_cast<void>(input.release());
    return voxels.release();
}
