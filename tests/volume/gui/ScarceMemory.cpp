#include "volume/support/ScarceMemory.h"

#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> tooLarge{SIZE_MAX};

}  // namespace

void viz_test::ScarceMemory::throwFrom(std::size_t bytes)
{
    tooLarge = bytes;
}

void viz_test::ScarceMemory::giveAll()
{
    tooLarge = SIZE_MAX;
}

#if defined(__SANITIZE_ADDRESS__)

bool viz_test::ScarceMemory::isPossible()
{
    return false;
}

#else

bool viz_test::ScarceMemory::isPossible()
{
    return true;
}

// All others of the standard library come down to these.
void* operator new(std::size_t bytes)
{
    void* const block = bytes < tooLarge ? std::malloc(bytes > 0 ? bytes : 1) : nullptr;
    if (block == nullptr) throw std::bad_alloc();
    return block;
}

void operator delete(void* block) noexcept
{
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    std::free(block);
}

#endif
