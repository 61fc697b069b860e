#pragma once

#include "volume/logic/QuantiseUnsigned.h"
#include "volume/logic/SliceAxis.h"

#include <cstddef>
#include <cstdint>

// How the frames of a source stand in the block of voxels.
namespace viz {

/// One frame's place: its pixel (x, y) is voxel start + x * alongX + y * alongY of the block.
struct VoxelLayout
{
    std::ptrdiff_t start = 0;
    std::ptrdiff_t alongX = 1;
    std::ptrdiff_t alongY = 0;

    std::ptrdiff_t index(unsigned x, unsigned y) const
    {
        return start + static_cast<std::ptrdiff_t>(x) * alongX + static_cast<std::ptrdiff_t>(y) * alongY;
    }
};

/// Frames as axial slices: each is a row of every plane of the block, and its last row lies in the first
/// plane. Pixel (x, y) is voxel x + frame * columns + (rows - 1 - y) * columns * frames.
/// @param columns, rows  of a stored frame, in pixels
VoxelLayout axialLayout(unsigned frame, unsigned columns, unsigned rows, unsigned frames);

/// Frames as slices across one of the axes, placed so that the volume always lies in the same way. With W
/// columns, H rows and N frames, pixel (x, y) of a frame is voxel frame + y * N + x * H * N for sagittal
/// slices, x + y * W + (N - 1 - frame) * W * H for coronal ones; axial ones stand as above.
VoxelLayout sliceLayout(SliceAxis axis, unsigned frame, unsigned columns, unsigned rows, unsigned frames);

/// Maps columns x rows pixels to 8 bits (see quantiseUnsigned) and writes each to its place in the block,
/// which all of them must have.
template <typename Sample>
void storeFrame(const Sample* pixels, unsigned columns, unsigned rows, std::uint32_t lowest, float scale,
                const VoxelLayout& layout, std::uint8_t* block);

}  // namespace viz
