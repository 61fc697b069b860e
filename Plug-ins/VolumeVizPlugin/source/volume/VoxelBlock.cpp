#include "volume/VoxelBlock.h"

#include <cstdlib>

#ifdef __linux__
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace {

constexpr std::uintptr_t smallPage = 4096;
constexpr std::size_t hugePage = std::size_t{2} << 20;

}  // namespace

bool fitsIntoMemory(std::uint64_t bytes)
{
#ifdef __linux__
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long pageBytes = sysconf(_SC_PAGESIZE);
    if (pages > 0 && pageBytes > 0)
        return bytes <= static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(pageBytes);
#endif
    return bytes <= SIZE_MAX / 2;
}

std::uint8_t* allocateVoxels(std::size_t bytes)
{
    if (bytes == 0 || !fitsIntoMemory(bytes)) return nullptr;
    // Large blocks come straight from the system: already zero, and not one page touched.
    void* const block = std::calloc(bytes, 1);
#if defined(__linux__) && defined(MADV_HUGEPAGE)
    if (block != nullptr && bytes >= 2 * hugePage) {
        const auto begin = (reinterpret_cast<std::uintptr_t>(block) + smallPage - 1) & ~(smallPage - 1);
        const auto end = (reinterpret_cast<std::uintptr_t>(block) + bytes) & ~(smallPage - 1);
        madvise(reinterpret_cast<void*>(begin), end - begin, MADV_HUGEPAGE);  // a wish; refusal does no harm
    }
#endif
    return static_cast<std::uint8_t*>(block);
}
