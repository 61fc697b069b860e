#include "volume/logic/Quantise16.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

using Samples = std::vector<std::uint16_t>;

viz::Volume16 volume(const Samples& samples, unsigned w, unsigned h, unsigned d)
{
    return {samples.data(), w, h, d};
}

TEST(Quantise16, SamplesHaveTheirHighByteFirst)
{
    const unsigned char bytes[] = {0x01, 0x02, 0xFF, 0xFE, 0x00, 0x80};
    Samples samples(3);
    viz::decodeBigEndian(bytes, 3, samples.data());
    EXPECT_EQ(samples, (Samples{0x0102, 0xFFFE, 0x0080}));
}

TEST(Quantise16, GradientIsHalvedInsideAndWholeAtTheEnds)
{
    // x: 0 10 40; the same in every row and slice
    const Samples samples{0, 10, 40, 0, 10, 40, 0, 10, 40, 0, 10, 40};
    const viz::Volume16 v = volume(samples, 3, 2, 2);
    EXPECT_EQ(viz::gradientMagnitude(v, 0, 0, 0), 10.0);
    EXPECT_EQ(viz::gradientMagnitude(v, 1, 1, 1), 20.0);
    EXPECT_EQ(viz::gradientMagnitude(v, 2, 0, 1), 30.0);
}

TEST(Quantise16, GradientIsTheEuclideanNormOfThreeAxes)
{
    // value = 3x + 4y + 12z on 2 x 2 x 2: differences 3, 4, 12 everywhere
    const Samples samples{0, 3, 4, 7, 12, 15, 16, 19};
    const viz::Volume16 v = volume(samples, 2, 2, 2);
    EXPECT_EQ(viz::gradientMagnitude(v, 0, 0, 0), 13.0);
    EXPECT_EQ(viz::gradientMagnitude(v, 1, 1, 1), 13.0);
}

TEST(Quantise16, DifferencesAreIntegers)
{
    const Samples odd{0, 9, 15};
    EXPECT_EQ(viz::gradientMagnitude(volume(odd, 3, 1, 1), 1, 0, 0), 7.0) << "15 / 2";
    const Samples falling{15, 9, 0};
    EXPECT_EQ(viz::gradientMagnitude(volume(falling, 3, 1, 1), 1, 0, 0), 7.0);
}

TEST(Quantise16, AnAxisOfOneVoxelHasNoGradient)
{
    const Samples one{500};
    EXPECT_EQ(viz::gradientMagnitude(volume(one, 1, 1, 1), 0, 0, 0), 0.0);
    const Samples line{0, 8};
    EXPECT_EQ(viz::gradientMagnitude(volume(line, 1, 2, 1), 0, 0, 0), 8.0);
}

TEST(Quantise16, LinearTableEndsAt255)
{
    std::vector<double> table(viz::values16);
    viz::fillLinearTable(1000, table.data());
    EXPECT_EQ(table[0], 0.0);
    EXPECT_DOUBLE_EQ(table[500], 127.5);
    EXPECT_DOUBLE_EQ(table[1000], 255.0);

    const Samples samples{0, 2, 500, 1000};
    std::vector<unsigned char> voxels(4);
    viz::applyTable(volume(samples, 4, 1, 1), table.data(), voxels.data());
    EXPECT_EQ(voxels, (std::vector<unsigned char>{0, 1, 128, 255}));  // 0.51 + 0.5, 127.5 + 0.5
}

TEST(Quantise16, LinearTableOfNothingButZeroIsZero)
{
    std::vector<double> table(viz::values16, 1.0);
    viz::fillLinearTable(0, table.data());
    EXPECT_EQ(table[0], 0.0);
    EXPECT_EQ(table[65535], 0.0);
}

TEST(Quantise16, CuttingMakesFewWeightsEqual)
{
    // 100 inner values with different gradients: each is far above one 256th of the sum, and the cutting
    // levels them. So each is one step of 2.55.
    Samples samples;
    for (int i = 0; i <= 101; ++i)
        samples.push_back(static_cast<std::uint16_t>(i * i));
    std::vector<double> table(viz::values16);
    viz::fillEqualisedTable(volume(samples, 102, 1, 1), 0, 101 * 101, table.data());
    EXPECT_EQ(table[0], 0.0);
    EXPECT_NEAR(table[1], 2.55, 1e-6);
    EXPECT_NEAR(table[3], 2.55, 1e-6);
    EXPECT_NEAR(table[4], 5.1, 1e-6);
    EXPECT_NEAR(table[50 * 50], 127.5, 1e-6);
    EXPECT_NEAR(table[101 * 101], 255.0, 1e-6) << "the highest value has no weight of its own";
    EXPECT_NEAR(table[65535], 255.0, 1e-6);
}

TEST(Quantise16, AHandfulOfValuesIsCutDownToNothing)
{
    // Three weights shrink to 3 / 256 of themselves in each of the 256 rounds.
    const Samples samples{0, 10, 20, 40, 90};
    std::vector<double> table(viz::values16);
    viz::fillEqualisedTable(volume(samples, 5, 1, 1), 0, 90, table.data());
    EXPECT_EQ(table[65535], 0.0);
}

TEST(Quantise16, WeightIsTheCubeRootOfSummedSquareRoots)
{
    // 600 inner values, so that no entry is above one 256th of the sum: the weights stay as they are.
    // The samples rise by 1 up to 300 and by 9 after that: gradients 1 and 9, at the bend 10 / 2 = 5.
    Samples samples;
    for (int i = 0; i <= 300; ++i)
        samples.push_back(static_cast<std::uint16_t>(i));
    for (int i = 1; i <= 300; ++i)
        samples.push_back(static_cast<std::uint16_t>(300 + 9 * i));
    std::vector<double> table(viz::values16);
    viz::fillEqualisedTable(volume(samples, 601, 1, 1), 0, 3000, table.data());

    const double flat = 1.0;
    const double bend = std::cbrt(std::sqrt(5.0));
    const double steep = std::cbrt(3.0);
    const double sum = 299 * flat + bend + 299 * steep;
    EXPECT_NEAR(table[100], 255.0 * 100 * flat / sum, 1e-9);
    EXPECT_NEAR(table[300], 255.0 * (299 * flat + bend) / sum, 1e-9);
    EXPECT_NEAR(table[309], 255.0 * (299 * flat + bend + steep) / sum, 1e-9);
    EXPECT_NEAR(table[3000], 255.0, 1e-9) << "the highest value has no weight of its own";
}

TEST(Quantise16, AVolumeWithoutEdgesGivesAnEmptyTable)
{
    const Samples samples(8, 700);
    std::vector<double> table(viz::values16, 1.0);
    viz::fillEqualisedTable(volume(samples, 2, 2, 2), 700, 700, table.data());
    EXPECT_EQ(table[700], 0.0);
    EXPECT_EQ(table[65535], 0.0);
}

}  // namespace
