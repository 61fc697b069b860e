#pragma once

#include "volume/CVolumeDicom.h"

#include <cstdint>

/// Frames of a file that are to be loaded, and all that it has.
struct CVolumeDicom::FrameRange
{
    std::uint32_t first = 0;
    std::uint32_t last = 0;
    std::uint32_t inFile = 0;

    FrameRange(std::uint32_t from, std::uint32_t to, std::uint32_t all)
        : first(from)
        , last(to)
        , inFile(all)
    {
        constexpr std::uint32_t everything = 0xFFFFFFFF;
        if (first == everything || last == everything) takeAll();
        if (last >= inFile) last = inFile - 1;
    }

    void takeAll()
    {
        first = 0;
        last = inFile - 1;
    }

    bool isEmpty() const { return inFile == 0 || first > last; }
    std::uint32_t count() const { return last - first + 1; }
};
