#pragma once

#include "volume/logic/QuantiseUnsigned.h"

#include <cstdint>
#include <initializer_list>

namespace viz {

/// Lowest and highest source value of a DICOM volume. Some files name them, signed or not; for others they
/// are unsigned numbers of up to 32 bits, as the decoder gives them. Wide enough that all of them compare
/// rightly.
struct SourceRange
{
    std::int64_t lowest = 0;
    std::int64_t highest = 0;

    /// The extremes of one frame's samples, truncated to integers.
    static SourceRange ofFrame(double frameLowest, double frameHighest);

    /// Takes in the extremes of one more frame.
    void widen(const SourceRange& frame);

    /// The two as 32-bit patterns, made to differ: what the mapping to 8 bits takes.
    UnsignedRange patterns() const;
};

/// A product of counts that stays at the largest number instead of overflowing.
std::uint64_t saturatedProduct(std::initializer_list<std::uint64_t> factors);

}  // namespace viz
