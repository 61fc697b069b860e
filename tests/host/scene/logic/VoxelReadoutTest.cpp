#include "lib/hvapi/scene/logic/VoxelReadout.h"

#include <gtest/gtest.h>

#include <clocale>
#include <limits>

using hvscene::numberAtStep;
using hvscene::readoutText;
using hvscene::ValueUnit;

namespace {

TEST(VoxelReadoutTest, AnEightBitValueStandsForAPlaceOnALine)
{
    const ValueUnit unit{"Hounsfield", -1000.0, 1550.0};
    EXPECT_EQ(unit.valueOf(0), -1000.0);
    EXPECT_EQ(unit.valueOf(255), 1550.0);
    EXPECT_NEAR(unit.valueOf(100), 0.0, 1e-9);
    EXPECT_NEAR(unit.step(), 10.0, 1e-12);
    EXPECT_EQ(unit.valueOf(-5), -1000.0);
    EXPECT_EQ(unit.valueOf(300), 1550.0);
}

TEST(VoxelReadoutTest, ALineThatFallsHasAStepWithoutSign)
{
    const ValueUnit unit{"x", 255.0, 0.0};
    EXPECT_EQ(unit.step(), 1.0);
    EXPECT_EQ(unit.valueOf(255), 0.0);
}

TEST(VoxelReadoutTest, NumbersHaveTheDigitsThatTheStepLeaves)
{
    EXPECT_EQ(numberAtStep(812.345, 9.8), "812");
    EXPECT_EQ(numberAtStep(812.345, 25.0), "812");
    EXPECT_EQ(numberAtStep(812.345, 1.0), "812");
    EXPECT_EQ(numberAtStep(812.345, 0.98), "812.3");
    EXPECT_EQ(numberAtStep(0.12345, 0.0078), "0.123");
    EXPECT_EQ(numberAtStep(0.12345, 0.01), "0.12");
    EXPECT_EQ(numberAtStep(-3.26, 0.5), QString::fromUtf8("\u22123.3"));
    EXPECT_EQ(numberAtStep(-0.01, 0.5), "0.0") << "no sign before what is shown as 0";
}

TEST(VoxelReadoutTest, NumbersOfUnusualSizeAreWrittenWithAnExponent)
{
    EXPECT_EQ(numberAtStep(1.234567e-9, 1e-11), "1.235e-09");
    EXPECT_EQ(numberAtStep(2.5e15, 1e13), "2.5e+15");
}

TEST(VoxelReadoutTest, WithoutAStepSixDigitsAreShown)
{
    EXPECT_EQ(numberAtStep(5.0, 0.0), "5");
    EXPECT_EQ(numberAtStep(1.0 / 3.0, std::numeric_limits<double>::quiet_NaN()), "0.333333");
    EXPECT_EQ(numberAtStep(1.0 / 3.0, std::numeric_limits<double>::infinity()), "0.333333");
}

TEST(VoxelReadoutTest, TheLineTellsPlaceValueAndStep)
{
    EXPECT_EQ(readoutText({3.2, -1.1, 0.456}, 143, {"Hounsfield", -1000.0, 1550.0}),
              QString::fromUtf8(
                  "x 3.20  y \u22121.10  z 0.46 mm   |   voxel 143   |   430 Hounsfield, in steps of 10"));
    EXPECT_EQ(readoutText({0.0, -0.001, 0.0}, 255, {"Counts", 0.0, 4080.0}),
              "x 0.00  y 0.00  z 0.00 mm   |   voxel 255   |   4080 Counts, in steps of 16");
    EXPECT_EQ(readoutText({0.0, 0.0, 0.0}, 7, {"", 5.0, 5.0}),
              "x 0.00  y 0.00  z 0.00 mm   |   voxel 7   |   5");
}

TEST(VoxelReadoutTest, ExtremeRangesStayNumbers)
{
    const double most = std::numeric_limits<double>::max();
    const ValueUnit unit{"x", -most, most};
    EXPECT_TRUE(std::isfinite(unit.valueOf(128)));
    EXPECT_TRUE(std::isfinite(unit.step()));
}

TEST(VoxelReadoutTest, NumbersHaveAPointInACommaLocale)
{
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8"})
        if (std::setlocale(LC_ALL, name)) break;
    const QString text = numberAtStep(0.5, 0.1);
    std::setlocale(LC_ALL, before.c_str());
    EXPECT_EQ(text, "0.5");
}

}  // namespace
