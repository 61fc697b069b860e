#include "hvimage/CILImage.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace {

template <typename Sample>
void mirrorRows(void* data, std::size_t width, std::size_t height)
{
    auto* row = static_cast<Sample*>(data);
    for (std::size_t y = 0; y < height; ++y, row += width)
        std::reverse(row, row + width);
}

}  // namespace

void CILImage::Mirror()
{
    if (get_data() == nullptr) return;
    auto const width = static_cast<std::size_t>(get_width());
    auto const height = static_cast<std::size_t>(get_height());
    // Only the size of a sample matters, not what it means.
    switch (get_reqsizefortype(get_datatype())) {
    case 1:
        return mirrorRows<std::uint8_t>(get_data(), width, height);
    case 2:
        return mirrorRows<std::uint16_t>(get_data(), width, height);
    case 4:
        return mirrorRows<std::uint32_t>(get_data(), width, height);
    default:
        return mirrorRows<std::uint64_t>(get_data(), width, height);
    }
}

void CILImage::Flip()
{
    if (get_data() == nullptr) return;
    auto const rowBytes =
        static_cast<std::size_t>(get_width()) * static_cast<std::size_t>(get_reqsizefortype(get_datatype()));
    auto* top = static_cast<std::uint8_t*>(get_data());
    auto* bottom = top + rowBytes * static_cast<std::size_t>(get_height() - 1);
    for (; top < bottom; top += rowBytes, bottom -= rowBytes)
        std::swap_ranges(top, top + rowBytes, bottom);
}
