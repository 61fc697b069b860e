#pragma once

#include <cstddef>

namespace viz_test {

/// Lets operator new of this program throw for large blocks, as on a machine without memory. Gives all again
/// at its end.
class ScarceMemory
{
public:
    ScarceMemory() = default;
    ~ScarceMemory() { giveAll(); }
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;

    /// False where the memory belongs to somebody else (a sanitizer), who does not throw.
    static bool isPossible();

    /// Blocks of that many bytes and more can't be had from here on.
    static void throwFrom(std::size_t bytes);
    static void giveAll();
};

}  // namespace viz_test
