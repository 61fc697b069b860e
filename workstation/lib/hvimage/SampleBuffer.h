#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>

// Bytes on a 64-byte boundary. Fresh ones are zero; large blocks get their pages on first use only.
class SampleBuffer
{
public:
    // False when memory does not suffice; the former block then stays.
    bool allocate(std::size_t bytes)
    {
        if (bytes > PTRDIFF_MAX - alignment) return false;
        std::unique_ptr<void, Free> block(std::calloc(1, bytes + alignment));
        if (!block) return false;
        std::size_t space = bytes + alignment;
        void* start = block.get();
        std::align(alignment, bytes, start, space);
        m_block = std::move(block);
        m_start = start;
        m_bytes = bytes;
        return true;
    }

    void* data() const { return m_start; }
    std::size_t size() const { return m_bytes; }

private:
    struct Free
    {
        void operator()(void* block) const { std::free(block); }
    };

    static constexpr std::size_t alignment = 64;
    std::unique_ptr<void, Free> m_block;
    void* m_start = nullptr;
    std::size_t m_bytes = 0;
};
