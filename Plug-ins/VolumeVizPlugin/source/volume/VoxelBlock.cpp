#include "volume/VoxelBlock.h"

#include <cstdlib>

#ifdef __linux__
#include <sys/mman.h>
#endif

namespace {

constexpr std::uintptr_t smallPage = 4096;
constexpr std::size_t hugePage = std::size_t{2} << 20;

}  // namespace

std::uint8_t* allocateVoxels(std::size_t bytes)
{
    if (bytes == 0) return nullptr;
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
