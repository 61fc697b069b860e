#include "lib/hvapi/scene/logic/Hounsfield.h"

#include <gtest/gtest.h>

#include <limits>

using namespace hvscene;

namespace {

/// Stored values 0 to 65535 for 0 to 6.5535: ten thousand a unit.
constexpr CtCalibration calibration{0.0, 6.5535, 0.01, 1.01};

TEST(HounsfieldTest, AirAndWaterAreMinusThousandAndZero)
{
    const auto water = storedHounsfield(0, calibration);
    ASSERT_TRUE(water.has_value());
    EXPECT_NEAR(water->value, 10100.0, 1e-6);
    EXPECT_EQ(water->stored, 10100);
    EXPECT_EQ(water->water, 10100);
    EXPECT_EQ(water->air, 100);
    EXPECT_EQ(storedHounsfield(-1000, calibration)->stored, 100);
}

TEST(HounsfieldTest, ScaleGoesOnBeyondWater)
{
    EXPECT_EQ(storedHounsfield(3001, calibration)->stored, 40110);
    EXPECT_EQ(storedHounsfield(9000, calibration)->stored, 65535) << "held in 16 bits";
    EXPECT_NEAR(storedHounsfield(9000, calibration)->value, 100100.0, 1e-6);
    EXPECT_EQ(storedHounsfield(-2000, calibration)->stored, 0);
}

TEST(HounsfieldTest, AMinimumShiftsTheScale)
{
    EXPECT_EQ(storedHounsfield(0, {-1.0, 5.5535, 0.0, 1.0})->stored, 20000);
}

TEST(HounsfieldTest, NoScaleGivesNothing)
{
    EXPECT_FALSE(storedHounsfield(3001, {}).has_value());
    EXPECT_FALSE(storedHounsfield(3001, {1.0, 1.0, 0.1, 0.2}).has_value());
    EXPECT_FALSE(storedHounsfield(3001, {0.0, 1.0, 0.2, 0.2}).has_value());
    EXPECT_FALSE(storedHounsfield(3001, {0.0, 1.0, 0.3, 0.2}).has_value());
    EXPECT_FALSE(
        storedHounsfield(3001, {0.0, 1.0, std::numeric_limits<double>::quiet_NaN(), 0.2}).has_value());
    const double huge = std::numeric_limits<double>::max();
    EXPECT_FALSE(storedHounsfield(3001, {-huge, huge, 0.1, 0.2}).has_value());
    EXPECT_FALSE(storedHounsfield(3001, {0.0, 1e-300, -huge / 2, huge / 2}).has_value());
}

}  // namespace
