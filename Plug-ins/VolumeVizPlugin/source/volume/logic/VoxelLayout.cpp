#include "volume/logic/VoxelLayout.h"

#include <algorithm>

namespace viz {

VoxelLayout axialLayout(unsigned frame, unsigned columns, unsigned rows, unsigned frames)
{
    const std::ptrdiff_t row = columns;
    const std::ptrdiff_t plane = row * static_cast<std::ptrdiff_t>(frames);
    VoxelLayout layout;
    layout.start = row * static_cast<std::ptrdiff_t>(frame) + plane * (static_cast<std::ptrdiff_t>(rows) - 1);
    layout.alongX = 1;
    layout.alongY = -plane;
    return layout;
}

VoxelLayout sliceLayout(SliceAxis axis, unsigned frame, unsigned columns, unsigned rows, unsigned frames)
{
    if (axis == SliceAxis::Axial) return axialLayout(frame, columns, rows, frames);
    const auto w = static_cast<std::ptrdiff_t>(columns);
    const auto h = static_cast<std::ptrdiff_t>(rows);
    const auto n = static_cast<std::ptrdiff_t>(frames);
    const auto i = static_cast<std::ptrdiff_t>(frame);
    if (axis == SliceAxis::Sagittal) return {i, h * n, n};
    return {(n - 1 - i) * w * h, 1, w};
}

template <typename Sample>
void storeFrame(const Sample* pixels, unsigned columns, unsigned rows, std::uint32_t lowest, float scale,
                const VoxelLayout& layout, std::uint8_t* block)
{
    for (unsigned y = 0; y < rows; ++y, pixels += columns) {
        std::uint8_t* const row = block + layout.index(0, y);
        if (layout.alongX == 1) {
            quantiseUnsigned(pixels, columns, lowest, scale, row);
            continue;
        }
        constexpr unsigned most = 512;
        std::uint8_t piece[most];
        for (unsigned x = 0; x < columns; x += most) {
            const unsigned count = std::min(most, columns - x);
            quantiseUnsigned(pixels + x, count, lowest, scale, piece);
            for (unsigned i = 0; i < count; ++i)
                row[static_cast<std::ptrdiff_t>(x + i) * layout.alongX] = piece[i];
        }
    }
}

template void storeFrame(const std::uint8_t*, unsigned, unsigned, std::uint32_t, float, const VoxelLayout&,
                         std::uint8_t*);
template void storeFrame(const std::uint16_t*, unsigned, unsigned, std::uint32_t, float, const VoxelLayout&,
                         std::uint8_t*);
template void storeFrame(const std::uint32_t*, unsigned, unsigned, std::uint32_t, float, const VoxelLayout&,
                         std::uint8_t*);

}  // namespace viz
