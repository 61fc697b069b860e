#include "volume/HeapRoom.h"

#include "volume/VoxelBlock.h"

#include <cstdlib>

#ifdef __GLIBC__
#include <malloc.h>
#include <sys/mman.h>
#include <vector>
#endif

void HeapRoom::Release::operator()(void* block) const
{
    std::free(block);
}

#if defined(__GLIBC__) && defined(MADV_HUGEPAGE)

namespace {

constexpr std::uint64_t worthTheTrouble = std::uint64_t{16} << 20;
constexpr std::uintptr_t page = 4096;

// The heap takes blocks up to this size from its own pages, and not one by one from the system, once a block
// of at least that size was freed (M_MMAP_THRESHOLD in mallopt(3), whose limit is 32 MiB on 64-bit systems).
constexpr std::size_t heapBlock = (std::size_t{32} << 20) - (std::size_t{1} << 16);
constexpr std::size_t piece = heapBlock - (std::size_t{1} << 20);
constexpr std::uintptr_t betweenPieces = 64;  // at most, where one follows the other

using Block = std::unique_ptr<void, decltype(&std::free)>;

Block allocate(std::size_t bytes)
{
    void* volatile block = std::malloc(bytes);  // not to be optimised away
    return {block, &std::free};
}

void preferLargePages(std::uintptr_t begin, std::uintptr_t end)
{
    begin = (begin + page - 1) & ~(page - 1);
    end &= ~(page - 1);
    if (begin < end)
        madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);  // refusal is harmless
}

}  // namespace

HeapRoom::HeapRoom(std::uint64_t bytes)
{
    if (bytes < worthTheTrouble || !fitsIntoMemory(bytes)) return;
    allocate(heapBlock);
    std::vector<Block> pieces;
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;
    for (std::uint64_t room = 0; room < bytes; room += piece) {
        pieces.push_back(allocate(piece));
        const auto start = reinterpret_cast<std::uintptr_t>(pieces.back().get());
        if (start == 0) break;
        if (start < end || start - end > betweenPieces) {
            preferLargePages(begin, end);
            begin = start;
        }
        end = start + piece;
    }
    preferLargePages(begin, end);
    m_lid.reset(allocate(piece).release());
}

HeapRoom::~HeapRoom()
{
    if (!m_lid) return;
    m_lid.reset();
    malloc_trim(0);
}

#else

HeapRoom::HeapRoom(std::uint64_t) {}

HeapRoom::~HeapRoom() = default;

#endif
