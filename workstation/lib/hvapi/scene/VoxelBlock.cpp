#include "lib/hvapi/scene/VoxelBlock.h"

#include <limits>
#include <new>

#ifdef __linux__
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace hvscene {

namespace {

constexpr std::size_t hugePage = std::size_t(2) << 20;

}  // namespace

void VoxelBlock::Free::operator()(unsigned char* block) const
{
    ::operator delete(block, std::align_val_t(hugePage));
}

std::size_t VoxelBlock::largest()
{
#ifdef __linux__
    // The system grants more than it has and ends the program on first use: such a request is refused here.
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long pageSize = sysconf(_SC_PAGESIZE);
    if (pages > 0 && pageSize > 0)
        return static_cast<std::size_t>(pages) * static_cast<std::size_t>(pageSize);
#endif
    return std::numeric_limits<std::size_t>::max() / 2;
}

VoxelBlock VoxelBlock::allocate(std::size_t size)
{
    VoxelBlock block;
    if (size == 0 || size > largest()) return block;
    block.m_data.reset(
        static_cast<unsigned char*>(::operator new(size, std::align_val_t(hugePage), std::nothrow)));
    block.m_size = size;
#ifdef __linux__
    if (block.m_data) madvise(block.m_data.get(), size, MADV_HUGEPAGE);
#endif
    return block;
}

}  // namespace hvscene
