#include "volume/HeapRoom.h"

#include <QByteArray>
#include <QFile>

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <sys/resource.h>
#include <vector>

#if defined(__SANITIZE_ADDRESS__)
constexpr bool hasOwnHeap = true;
#else
constexpr bool hasOwnHeap = false;
#endif

namespace {

constexpr std::size_t blockBytes = std::size_t{512} << 10;
constexpr unsigned blocks = 200;
constexpr double megabyte = 1024.0 * 1024.0;

double residentMegabytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly)) return 0;
    return file.readAll().split(' ').value(1).toDouble() * 4096.0 / megabyte;
}

long pageFaults()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt;
}

bool systemHasLargePages()
{
    QFile file(QStringLiteral("/sys/kernel/mm/transparent_hugepage/enabled"));
    return file.open(QIODevice::ReadOnly) && !file.readAll().contains("[never]");
}

// Blocks as a parser leaves them behind: large ones, with small ones in between and others that go again.
class Parsed
{
public:
    void add()
    {
        keep(blockBytes);
        keep(100);
        void* const passing = std::malloc(2 * blockBytes);
        std::memset(passing, 1, 2 * blockBytes);
        std::free(passing);
    }
    ~Parsed()
    {
        for (void* block : m_blocks)
            std::free(block);
    }
    Parsed() = default;
    Parsed(const Parsed&) = delete;
    Parsed& operator=(const Parsed&) = delete;

private:
    void keep(std::size_t bytes)
    {
        m_blocks.push_back(std::malloc(bytes));
        std::memset(m_blocks.back(), 1, bytes);
    }
    std::vector<void*> m_blocks;
};

TEST(HeapRoom, TouchesNothingItself)
{
    const double before = residentMegabytes();
    const HeapRoom room(std::uint64_t{300} << 20);
    EXPECT_LT(residentMegabytes() - before, 10.0);
}

TEST(HeapRoom, IsFilledInLargePages)
{
    if (hasOwnHeap) GTEST_SKIP() << "the sanitizer has a heap of its own";
    if (!systemHasLargePages()) GTEST_SKIP() << "the system has no large pages";
    const double before = residentMegabytes();
    const HeapRoom room(blocks * blockBytes);
    Parsed files;
    const long faults = pageFaults();
    for (unsigned i = 0; i < blocks; ++i)
        files.add();
    // 25600 pages of 4 KiB are kept alone
    EXPECT_LT(pageFaults() - faults, 8000);
    EXPECT_LT(residentMegabytes() - before, 100.0 + 16.0);
}

TEST(HeapRoom, GivesTheMemoryBackAtItsEnd)
{
    if (hasOwnHeap) GTEST_SKIP() << "the sanitizer has a heap of its own";
    const double before = residentMegabytes();
    void* survivor = nullptr;
    {
        const HeapRoom room(blocks * blockBytes);
        Parsed files;
        for (unsigned i = 0; i < blocks; ++i)
            files.add();
        survivor = std::malloc(3 * blockBytes);  // above the files: must not keep what lies below it
        std::memset(survivor, 1, 3 * blockBytes);
    }
    EXPECT_LT(residentMegabytes() - before, 16.0);
    std::free(survivor);
}

TEST(HeapRoom, MoreThanTheMachineHasIsNoRoom)
{
    const double before = residentMegabytes();
    const HeapRoom room(~std::uint64_t{0});
    const HeapRoom none(0);
    EXPECT_LT(residentMegabytes() - before, 1.0);
}

}  // namespace
