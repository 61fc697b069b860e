#include "plugin/logic/UnitRanges.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

UnitFacts calibrated()
{
    UnitFacts facts;
    facts.volumeMin = 100;
    facts.volumeMax = 4000;
    facts.reconstructedMin = 0.5F;
    facts.reconstructedMax = 2.5F;
    facts.air = 0.0F;
    facts.water = 1.0F;
    return facts;
}

}  // namespace

TEST(UnitRanges, CountsAreAlwaysOnOffer)
{
    UnitFacts facts;
    facts.volumeMin = -3;
    facts.volumeMax = 70000;
    const UnitRanges ranges = unitRanges(facts);
    EXPECT_EQ(ranges.units(), QStringList("Counts"));
    EXPECT_EQ(ranges.conversion, (std::array<float, 6>{-3, 70000, 0, 0, 0, 0}));
}

TEST(UnitRanges, TheReconstructedRangeGivesAbsorption)
{
    UnitFacts facts = calibrated();
    facts.air.reset();
    const UnitRanges ranges = unitRanges(facts);
    EXPECT_EQ(ranges.units(), QStringList({"Counts", "Absorption"}));
    // The scale is (2.5 - 0.5) / 4000.
    EXPECT_FLOAT_EQ(ranges.conversion[2], 0.55F);
    EXPECT_FLOAT_EQ(ranges.conversion[3], 2.5F);
    EXPECT_EQ(ranges.conversion[4], 0.0F);
}

TEST(UnitRanges, WithoutARisingRangeTheScaleIsOne)
{
    UnitFacts facts = calibrated();
    for (const float max : {0.5F, -7.0F}) {
        facts.reconstructedMax = max;
        const UnitRanges ranges = unitRanges(facts);
        EXPECT_TRUE(ranges.hasAbsorption);
        EXPECT_FLOAT_EQ(ranges.conversion[2], 100.5F) << max;
        EXPECT_FLOAT_EQ(ranges.conversion[3], 4000.5F) << max;
    }
}

TEST(UnitRanges, AirAndWaterGiveHounsfield)
{
    const UnitRanges ranges = unitRanges(calibrated());
    EXPECT_EQ(ranges.units(), QStringList({"Counts", "Absorption", "Hounsfield"}));
    EXPECT_NEAR(ranges.conversion[4], -450.0F, 1e-3);
    EXPECT_NEAR(ranges.conversion[5], 1500.0F, 1e-3);
}

TEST(UnitRanges, EachUnitHasItsTwoEnds)
{
    const std::array<float, 6> ends{1, 2, 3, 4, 5, 6};
    EXPECT_EQ(rangeIn("Counts", ends), (std::array<float, 2>{1, 2}));
    EXPECT_EQ(rangeIn("Absorption", ends), (std::array<float, 2>{3, 4}));
    EXPECT_EQ(rangeIn("Hounsfield", ends), (std::array<float, 2>{5, 6}));
    EXPECT_FALSE(rangeIn("counts", ends));
    EXPECT_FALSE(rangeIn("", ends));
}

TEST(UnitRanges, HounsfieldNeedsAbsorption)
{
    UnitFacts facts = calibrated();
    facts.reconstructedMin.reset();
    EXPECT_EQ(unitRanges(facts).units(), QStringList("Counts"));
    facts = calibrated();
    facts.reconstructedMax.reset();
    EXPECT_EQ(unitRanges(facts).units(), QStringList("Counts"));
}

TEST(UnitRanges, AUnitWithoutAFiniteRangeIsNotOnOffer)
{
    UnitFacts facts = calibrated();
    facts.water = facts.air;
    EXPECT_EQ(unitRanges(facts).units(), QStringList({"Counts", "Absorption"}));
    facts = calibrated();
    facts.volumeMax = 0;
    EXPECT_EQ(unitRanges(facts).units(), QStringList("Counts"));
    facts = calibrated();
    facts.reconstructedMin = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(unitRanges(facts).units(), QStringList("Counts"));
}

TEST(UnitRanges, ValuesAreTakenWithSixDigits)
{
    EXPECT_FLOAT_EQ(asShown(0.123456789F).value(), 0.123457F);
    EXPECT_EQ(asShown(1234567.0F).value(), 1234570.0F);
    EXPECT_EQ(asShown(-12.5F).value(), -12.5F);

    UnitFacts facts = calibrated();
    facts.volumeMin = 0;
    facts.reconstructedMin = 1234567.0F;
    facts.reconstructedMax = 7654321.0F;
    facts.air = 1000004.0F;
    facts.water = 2000006.0F;
    const UnitRanges ranges = unitRanges(facts);
    EXPECT_EQ(ranges.conversion[2], 1234570.0F);
    EXPECT_EQ(ranges.conversion[3], 7654320.0F);
    // 1000 * (1234570 - 2000010) / (2000010 - 1000000)
    EXPECT_NEAR(ranges.conversion[4], -765.4323, 1e-3);
}
