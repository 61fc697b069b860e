#pragma once

#include <cstddef>
#include <memory>

namespace hvscene {

/// A block of bytes that starts on a 2 MiB boundary and asks the system for huge pages, which saves most of
/// the page faults of a big volume. Move-only; may be empty.
class VoxelBlock
{
public:
    VoxelBlock() = default;
    /// The bytes are not set. Empty when there is no memory, or `size` exceeds the memory of the machine.
    static VoxelBlock allocate(std::size_t size);
    /// What `allocate` can grant at most.
    static std::size_t largest();

    unsigned char* data() const { return m_data.get(); }
    std::size_t size() const { return m_data ? m_size : 0; }

private:
    struct Free
    {
        void operator()(unsigned char* block) const;
    };
    std::unique_ptr<unsigned char, Free> m_data;
    std::size_t m_size = 0;
};

}  // namespace hvscene
