#include "volume/logic/FrameWriter.h"

#include "volume/logic/QuantiseUnsigned.h"
#include "volume/logic/VoxelLayout.h"

#include <algorithm>
#include <cstring>

namespace viz {

namespace {

constexpr unsigned side = 16;       // of a tile that is turned at once
constexpr unsigned runLength = 64;  // bytes of a cache line
constexpr std::size_t page = 4096;
constexpr std::size_t mostBytes = std::size_t{17} << 20;  // that wait

#if defined(__GNUC__)
using Lane = std::uint8_t __attribute__((vector_size(side)));

Lane interleavedLow(Lane a, Lane b)
{
    return __builtin_shufflevector(a, b, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
}

Lane interleavedHigh(Lane a, Lane b)
{
    return __builtin_shufflevector(a, b, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15, 31);
}

// Transposes a tile: `from` are 16 rows of 16 bytes at distance `stride`, `to` 16 rows at distance `step`.
// Each of the four rounds interleaves row i with row i + 8.
void turnTile(const std::uint8_t* from, std::size_t stride, std::uint8_t* to, std::size_t step)
{
    Lane rows[side];
    for (unsigned i = 0; i < side; ++i)
        std::memcpy(&rows[i], from + i * stride, side);
    for (unsigned round = 0; round < 4; ++round) {
        Lane next[side];
        for (unsigned i = 0; i < side / 2; ++i) {
            next[2 * i] = interleavedLow(rows[i], rows[i + side / 2]);
            next[2 * i + 1] = interleavedHigh(rows[i], rows[i + side / 2]);
        }
        std::copy(next, next + side, rows);
    }
    for (unsigned i = 0; i < side; ++i)
        std::memcpy(to + i * step, &rows[i], side);
}
#else
void turnTile(const std::uint8_t* from, std::size_t stride, std::uint8_t* to, std::size_t step)
{
    for (unsigned x = 0; x < side; ++x)
        for (unsigned i = 0; i < side; ++i)
            to[x * step + i] = from[i * stride + x];
}
#endif

// A piece of `columns` pixels of a row, in `frames` frames: byte x of frame i goes to to[x * step + i].
void turnRow(const std::uint8_t* from, std::size_t stride, unsigned columns, unsigned frames,
             std::uint8_t* to, std::size_t step)
{
    const unsigned wholeColumns = columns - columns % side;
    const unsigned wholeFrames = frames - frames % side;
    for (unsigned x = 0; x < wholeColumns; x += side)
        for (unsigned i = 0; i < wholeFrames; i += side)
            turnTile(from + i * stride + x, stride, to + x * step + i, step);
    for (unsigned x = 0; x < columns; ++x)
        for (unsigned i = x < wholeColumns ? wholeFrames : 0; i < frames; ++i)
            to[x * step + i] = from[i * stride + x];
}

}  // namespace

FrameWriter::FrameWriter(SliceAxis axis, const BlockCounts& stack, const VoxelMapping& mapping,
                         std::uint8_t* block)
    : m_axis(axis)
    , m_stack(stack)
    , m_mapping(mapping)
    , m_block(block)
{
    if (axis != SliceAxis::Sagittal || framePixels() == 0) return;
    // A cache line beyond whole pages: the same pixel of all waiting frames must not compete for one place in
    // the cache.
    m_stride = (framePixels() + page - 1) / page * page + runLength;
    const std::size_t fit = std::max<std::size_t>(mostBytes / m_stride, 1);
    m_mostWaiting = static_cast<unsigned>(std::min<std::size_t>({fit, runLength, stack.frames}));
    m_waiting.resize(m_mostWaiting * m_stride);
}

template <typename Sample>
void FrameWriter::map(const Sample* pixels, std::size_t count, std::uint8_t* voxels) const
{
    if (m_mapping.clamped)
        quantiseClamped(pixels, count, m_mapping.lowest, m_mapping.scale, voxels);
    else
        quantiseUnsigned(pixels, count, m_mapping.lowest, m_mapping.scale, voxels);
}

template <typename Sample>
void FrameWriter::add(const Sample* pixels)
{
    if (m_next >= m_stack.frames || framePixels() == 0) return;
    if (m_axis == SliceAxis::Sagittal) {
        map(pixels, framePixels(), m_waiting.data() + m_waitingFrames * m_stride);
        ++m_next;
        if (++m_waitingFrames == m_mostWaiting) finish();
        return;
    }
    const VoxelLayout layout = sliceLayout(m_axis, m_next, m_stack.columns, m_stack.rows, m_stack.frames);
    for (unsigned y = 0; y < m_stack.rows; ++y, pixels += m_stack.columns)
        map(pixels, m_stack.columns, m_block + layout.index(0, y));
    ++m_next;
}

template void FrameWriter::add(const std::uint8_t*);
template void FrameWriter::add(const std::uint16_t*);
template void FrameWriter::add(const std::uint32_t*);

void FrameWriter::skip()
{
    finish();
    if (m_next < m_stack.frames) ++m_next;
}

void FrameWriter::finish()
{
    if (m_waitingFrames == 0) return;
    const std::size_t row = m_stack.frames;
    const std::size_t plane = row * m_stack.rows;
    std::uint8_t* const first = m_block + (m_next - m_waitingFrames);
    for (unsigned x = 0; x < m_stack.columns; x += runLength) {
        const unsigned columns = std::min(runLength, m_stack.columns - x);
        for (unsigned y = 0; y < m_stack.rows; ++y)
            turnRow(m_waiting.data() + std::size_t{y} * m_stack.columns + x, m_stride, columns,
                    m_waitingFrames, first + x * plane + y * row, plane);
    }
    m_waitingFrames = 0;
}

}  // namespace viz
