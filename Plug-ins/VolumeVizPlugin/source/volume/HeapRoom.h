#pragma once

#include <cstdint>
#include <memory>

/// Room on the heap for many blocks that somebody else is going to allocate and that stay for a while, such
/// as parsed files. The first touch of fresh memory costs as much as reading the file from the cache: in this
/// room it is made in large pages, and what is freed in between is not given back to the system only to be
/// taken again. Nothing is touched before it is used. The end of the room gives the memory back.
///
/// A help and no promise: where the C library's heap or the system does not play along, memory comes as ever.
class HeapRoom
{
public:
    /// @param bytes  what is going to be allocated, about. Too little or more than the machine has: no room
    explicit HeapRoom(std::uint64_t bytes);
    ~HeapRoom();
    HeapRoom(const HeapRoom&) = delete;
    HeapRoom& operator=(const HeapRoom&) = delete;

private:
    struct Release
    {
        void operator()(void* block) const;
    };
    std::unique_ptr<void, Release> m_lid;  // last block of the heap, unused: keeps the room below it open
};
