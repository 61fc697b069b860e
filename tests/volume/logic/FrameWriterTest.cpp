#include "volume/logic/FrameWriter.h"

#include "volume/logic/VoxelLayout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using testing::ElementsAre;
using viz::BlockCounts;
using viz::SliceAxis;

using Voxels = std::vector<std::uint8_t>;

template <typename Sample>
std::vector<Sample> frameOf(const BlockCounts& stack, unsigned frame)
{
    std::vector<Sample> pixels;
    for (unsigned y = 0; y < stack.rows; ++y)
        for (unsigned x = 0; x < stack.columns; ++x)
            pixels.push_back(static_cast<Sample>((x * 31 + y * 17 + frame * 71) % 251));
    return pixels;
}

template <typename Sample>
Voxels written(SliceAxis axis, const BlockCounts& stack)
{
    Voxels block(std::size_t{stack.columns} * stack.rows * stack.frames, 255);
    viz::FrameWriter writer(axis, stack, {0, 1.0F, false}, block.data());
    for (unsigned i = 0; i < stack.frames; ++i)
        writer.add(frameOf<Sample>(stack, i).data());
    writer.finish();
    return block;
}

// Where pixel (x, y) of slice i must stand, in the words of the table of layouts.
std::size_t placeOf(SliceAxis axis, const BlockCounts& s, std::size_t x, std::size_t y, std::size_t i)
{
    const std::size_t w = s.columns;
    const std::size_t h = s.rows;
    const std::size_t n = s.frames;
    if (axis == SliceAxis::Sagittal) return i + y * n + x * h * n;
    if (axis == SliceAxis::Coronal) return x + y * w + (n - 1 - i) * w * h;
    return x + i * w + (h - 1 - y) * w * n;
}

template <typename Sample>
void expectAllVoxels(SliceAxis axis, const BlockCounts& stack)
{
    const Voxels block = written<Sample>(axis, stack);
    for (unsigned i = 0; i < stack.frames; ++i)
        for (unsigned y = 0; y < stack.rows; ++y)
            for (unsigned x = 0; x < stack.columns; ++x)
                ASSERT_EQ(block[placeOf(axis, stack, x, y, i)], (x * 31 + y * 17 + i * 71) % 251)
                    << stack.columns << 'x' << stack.rows << 'x' << stack.frames << " at " << x << ' ' << y
                    << ' ' << i;
}

// 2 x 2 pixels, 2 slices: a b | e f
//                         c d | g h
TEST(FrameWriter, EightVoxelsByHand)
{
    const auto text = [](SliceAxis axis) {
        std::string block(8, '.');
        viz::FrameWriter writer(axis, {2, 2, 2}, {0, 1.0F, false},
                                reinterpret_cast<std::uint8_t*>(block.data()));
        writer.add(reinterpret_cast<const std::uint8_t*>("abcd"));
        writer.add(reinterpret_cast<const std::uint8_t*>("efgh"));
        writer.finish();
        return block;
    };
    EXPECT_EQ(text(SliceAxis::Sagittal), "aecgbfdh");
    EXPECT_EQ(text(SliceAxis::Coronal), "efghabcd");
    EXPECT_EQ(text(SliceAxis::Axial), "cdghabef");
}

TEST(FrameWriter, EveryVoxelOfOddSizes)
{
    for (const SliceAxis axis : {SliceAxis::Sagittal, SliceAxis::Coronal, SliceAxis::Axial})
        for (const BlockCounts stack :
             {BlockCounts{1, 1, 1}, BlockCounts{3, 2, 1}, BlockCounts{16, 16, 16}, BlockCounts{17, 3, 15},
              BlockCounts{70, 5, 67}, BlockCounts{5, 70, 130}, BlockCounts{64, 64, 64}}) {
            expectAllVoxels<std::uint8_t>(axis, stack);
            expectAllVoxels<std::uint16_t>(axis, stack);
            expectAllVoxels<std::uint32_t>(axis, stack);
        }
}

// Frames so large that only a few wait at a time.
TEST(FrameWriter, EveryVoxelOfLargeFrames)
{
    expectAllVoxels<std::uint8_t>(SliceAxis::Sagittal, {2048, 1025, 9});
}

TEST(FrameWriter, LayoutsAgreeWithTheTable)
{
    const BlockCounts stack{4, 3, 5};
    for (const SliceAxis axis : {SliceAxis::Sagittal, SliceAxis::Coronal, SliceAxis::Axial})
        for (unsigned i = 0; i < stack.frames; ++i) {
            const viz::VoxelLayout layout =
                viz::sliceLayout(axis, i, stack.columns, stack.rows, stack.frames);
            for (unsigned y = 0; y < stack.rows; ++y)
                for (unsigned x = 0; x < stack.columns; ++x)
                    EXPECT_EQ(layout.index(x, y), static_cast<std::ptrdiff_t>(placeOf(axis, stack, x, y, i)));
        }
}

TEST(FrameWriter, MapsWithAndWithoutAnUpperEnd)
{
    const std::vector<std::uint16_t> pixels{100, 200, 356, 65535};
    for (const bool clamped : {false, true}) {
        Voxels block(4);
        viz::FrameWriter writer(SliceAxis::Sagittal, {4, 1, 1}, {100, 1.0F, clamped}, block.data());
        writer.add(pixels.data());
        writer.finish();
        // 256 and 65435, low bytes 0 and 155
        if (clamped)
            EXPECT_THAT(block, ElementsAre(0, 100, 255, 255));
        else
            EXPECT_THAT(block, ElementsAre(0, 100, 0, 155));
    }
}

TEST(FrameWriter, SkippedFrameStaysAsItIs)
{
    for (const SliceAxis axis : {SliceAxis::Sagittal, SliceAxis::Coronal, SliceAxis::Axial}) {
        Voxels block(3, 0);
        viz::FrameWriter writer(axis, {1, 1, 3}, {0, 1.0F, false}, block.data());
        const std::uint8_t one = 1;
        const std::uint8_t three = 3;
        writer.add(&one);
        writer.skip();
        writer.add(&three);
        writer.finish();
        if (axis == SliceAxis::Coronal)
            EXPECT_THAT(block, ElementsAre(3, 0, 1));
        else
            EXPECT_THAT(block, ElementsAre(1, 0, 3));
    }
}

TEST(FrameWriter, TakesNoMoreFramesThanThereAre)
{
    for (const SliceAxis axis : {SliceAxis::Sagittal, SliceAxis::Axial}) {
        Voxels block{9, 9, 42};
        viz::FrameWriter writer(axis, {1, 1, 2}, {0, 1.0F, false}, block.data());
        const std::uint8_t one = 1;
        for (int i = 0; i < 4; ++i)
            writer.add(&one);
        writer.skip();
        writer.finish();
        EXPECT_THAT(block, ElementsAre(1, 1, 42));
    }
}

TEST(FrameWriter, NothingToWrite)
{
    viz::FrameWriter writer(SliceAxis::Sagittal, {0, 4, 2}, {0, 1.0F, false}, nullptr);
    const std::uint8_t one = 1;
    writer.add(&one);
    writer.finish();
}

}  // namespace
