#pragma once

#include "volume/logic/SliceAxis.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace viz {

/// From source samples to voxels: see quantiseUnsigned, or quantiseClamped where a result above 255 is cut.
struct VoxelMapping
{
    std::uint32_t lowest = 0;
    float scale = 1.0F;
    bool clamped = false;
};

/// Writes the frames of a stack into the block, each to the place that sliceLayout() gives it. Sagittal
/// frames lie across the block, byte by byte; they are gathered, mapped already, and written many at a time.
class FrameWriter
{
public:
    /// @param stack  size of a frame as it is stored, in pixels, and number of frames
    /// @param block  stack.columns * stack.rows * stack.frames voxels
    FrameWriter(SliceAxis axis, const BlockCounts& stack, const VoxelMapping& mapping, std::uint8_t* block);

    /// Takes the next frame, the first one at the first call, as long as there is one left to take.
    /// @param pixels  columns x rows unsigned samples of 8, 16 or 32 bits
    template <typename Sample>
    void add(const Sample* pixels);

    /// Leaves out the next frame: its voxels stay as they are.
    void skip();

    /// Writes what still waits. To be called after the last frame.
    void finish();

private:
    template <typename Sample>
    void map(const Sample* pixels, std::size_t count, std::uint8_t* voxels) const;
    std::size_t framePixels() const { return std::size_t{m_stack.columns} * m_stack.rows; }

    SliceAxis m_axis;
    BlockCounts m_stack;
    VoxelMapping m_mapping;
    std::uint8_t* m_block;
    unsigned m_next = 0;                  // number of the next frame
    std::vector<std::uint8_t> m_waiting;  // sagittal frames, one after the other
    std::size_t m_stride = 0;             // bytes from one of them to the next
    unsigned m_waitingFrames = 0;
    unsigned m_mostWaiting = 0;
};

}  // namespace viz
