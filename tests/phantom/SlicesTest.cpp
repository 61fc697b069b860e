#include "phantom/Slices.h"
#include "phantom/Mouse.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace phantom;

namespace {

constexpr int n = 16;

/// A mouse scan, its voxels as RAW has them, and a look at it by slices.
class SlicesOfTheMouse : public testing::TestWithParam<std::tuple<Orientation, bool, int>>
{
protected:
    Orientation orientation() const { return std::get<0>(GetParam()); }
    bool feetFirst() const { return std::get<1>(GetParam()); }
    int bits() const { return std::get<2>(GetParam()); }

    Scan m_scan{mouseOnBed(), n, 1};
};

std::vector<unsigned> samples(const std::vector<unsigned char>& bytes, int bits)
{
    std::vector<unsigned> values;
    for (std::size_t i = 0; i < bytes.size(); i += static_cast<std::size_t>(bits / 8))
        values.push_back(bits == 8 ? bytes[i] : bytes[i] | bytes[i + 1] << 8U);
    return values;
}

int nearest(double value)
{
    return static_cast<int>(std::lround(value));
}

}  // namespace

TEST_P(SlicesOfTheMouse, everyPixelIsTheVoxelAtItsPlace)
{
    const Slices slices(m_scan, bits(), orientation(), feetFirst(), 2);
    const auto voxels = samples(sampledFrames(m_scan, 0, n, bits(), 1), bits());
    const Triple row = slices.alongRow(), column = slices.alongColumn();
    for (int i = 0; i < n; ++i) {
        const auto pixels = samples(slices.slice(i), bits());
        ASSERT_EQ(pixels.size(), static_cast<std::size_t>(n) * n);
        const Triple first = slices.firstPixel(i);
        for (int r = 0; r < n; ++r)
            for (int c = 0; c < n; ++c) {
                const auto place = [&](int axis) { return first[axis] + c * row[axis] + r * column[axis]; };
                // Head first the scanner's x, y, z are the mouse's x, -z, y; feet first it is turned around
                // the vertical, so that x and z are the other way round.
                const double turned = feetFirst() ? -1 : 1, half = (n - 1) / 2.0;
                const int x = nearest(turned * place(0) + half), y = nearest(turned * place(2) + half);
                const int z = nearest(half - place(1));
                ASSERT_EQ(pixels[r * n + c], voxels[(z * n + y) * n + x])
                    << "slice " << i << " row " << r << " column " << c;
            }
    }
}

TEST_P(SlicesOfTheMouse, placesStepByOneVoxelAlongTheNormal)
{
    const Slices slices(m_scan, bits(), orientation(), feetFirst(), 2);
    const Triple across = slices.acrossSlices();
    for (int i = 1; i < n; ++i)
        for (std::size_t axis = 0; axis < 3; ++axis)
            EXPECT_EQ(slices.firstPixel(i)[axis] - slices.firstPixel(i - 1)[axis], across[axis]);
}

INSTANTIATE_TEST_SUITE_P(Slices, SlicesOfTheMouse,
                         testing::Combine(testing::Values(Orientation::Axial, Orientation::Coronal,
                                                          Orientation::Sagittal),
                                          testing::Bool(), testing::Values(8, 16)));

TEST(Slices, headFirstAxialShowsTheBedBelowAndTheHeadLast)
{
    const Scan scan(mouseOnBed(), n, 1);
    const Slices slices(scan, 8, Orientation::Axial, false, 1);
    EXPECT_EQ(slices.alongRow(), (Triple{1, 0, 0}));
    EXPECT_EQ(slices.alongColumn(), (Triple{0, 1, 0}));
    EXPECT_EQ(slices.acrossSlices(), (Triple{0, 0, 1}));
    const auto frames = sampledFrames(scan, 0, n, 8, 1);
    // Row 0 of the last slice is the highest frame's row at the head.
    const auto last = slices.slice(n - 1);
    for (int c = 0; c < n; ++c)
        EXPECT_EQ(last[c], frames[((n - 1) * n + (n - 1)) * n + c]);
}

TEST(Slices, coronalAndSagittalHaveTheHeadAtTheTop)
{
    const Scan scan(mouseOnBed(), n, 1);
    for (const Orientation orientation : {Orientation::Coronal, Orientation::Sagittal})
        EXPECT_EQ(Slices(scan, 8, orientation, false, 1).alongColumn(), (Triple{0, 0, -1}));
}
