#include "volume/logic/SourceRange.h"

#include <algorithm>
#include <limits>

namespace viz {

SourceRange SourceRange::ofFrame(double frameLowest, double frameHighest)
{
    const UnsignedRange range = UnsignedRange::ofFrame(frameLowest, frameHighest);
    return {range.lowest, range.highest};
}

void SourceRange::widen(const SourceRange& frame)
{
    lowest = std::min(lowest, frame.lowest);
    highest = std::max(highest, frame.highest);
}

UnsignedRange SourceRange::patterns() const
{
    UnsignedRange range;
    range.lowest = static_cast<std::uint32_t>(lowest);
    range.highest = static_cast<std::uint32_t>(highest);
    range.separate();
    return range;
}

std::uint64_t saturatedProduct(std::initializer_list<std::uint64_t> factors)
{
    constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
    if (std::find(factors.begin(), factors.end(), std::uint64_t{0}) != factors.end()) return 0;
    std::uint64_t product = 1;
    for (const std::uint64_t factor : factors) {
        if (product > most / factor) return most;
        product *= factor;
    }
    return product;
}

}  // namespace viz
