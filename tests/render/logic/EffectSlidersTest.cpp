#include "render/logic/EffectSliders.h"

#include <gtest/gtest.h>

#include <limits>

using namespace effect_sliders;

TEST(EffectSliders, IntensitiesAreTenths)
{
    EXPECT_EQ(intensityAt(0), 0.0F);
    EXPECT_EQ(intensityAt(3), 0.3F);
    EXPECT_EQ(intensityAt(10), 1.0F);
    EXPECT_EQ(ofIntensity(0.25F), 3) << "0.5 + 2.5";
    EXPECT_EQ(ofIntensity(0.24F), 2);
    EXPECT_EQ(ofIntensity(0.8F), 8);
}

TEST(EffectSliders, ShininessStandsForItself)
{
    EXPECT_EQ(shininessAt(6), 6.0F);
    EXPECT_EQ(ofShininess(5.5F), 6);
    EXPECT_EQ(ofShininess(5.4F), 5);
}

TEST(EffectSliders, EmissionsAreHundredths)
{
    EXPECT_EQ(emissionAt(6), 0.06F);
    EXPECT_EQ(ofEmission(0.06F), 6);
    EXPECT_EQ(ofEmission(0.044F), 4);
}

TEST(EffectSliders, TheLimitIsAFifthOfASecondOverTheSlider)
{
    EXPECT_EQ(thresholdAt(1), 0.2F);
    EXPECT_EQ(thresholdAt(2), 0.1F);
    EXPECT_EQ(thresholdAt(10), 0.02F);
    EXPECT_EQ(ofThreshold(0.2F), 1);
    EXPECT_EQ(ofThreshold(0.1F), 2);
    EXPECT_EQ(ofThreshold(0.02F), 10);
}

TEST(EffectSliders, EachPositionComesBack)
{
    for (int value = 0; value <= 10; ++value) {
        EXPECT_EQ(ofIntensity(intensityAt(value)), value);
        EXPECT_EQ(ofEmission(emissionAt(value)), value);
        if (value == 0) continue;
        EXPECT_EQ(ofShininess(shininessAt(value)), value);
        EXPECT_EQ(ofThreshold(thresholdAt(value)), value);
    }
}

TEST(EffectSliders, ValuesOutsideTheRangeBecomeItsEnds)
{
    const double none = std::numeric_limits<double>::quiet_NaN();
    const double endless = std::numeric_limits<double>::infinity();
    EXPECT_EQ(ofIntensity(-3.0), 0);
    EXPECT_EQ(ofIntensity(4.0), 10);
    EXPECT_EQ(ofIntensity(none), 0);
    EXPECT_EQ(ofShininess(0.0), 1);
    EXPECT_EQ(ofShininess(endless), 10);
    EXPECT_EQ(ofEmission(1e30), 10);
    EXPECT_EQ(ofThreshold(0.0), 10);
    EXPECT_EQ(ofThreshold(-1.0), 1);
    EXPECT_EQ(ofThreshold(5.0), 1);
}

TEST(EffectSliders, LabelsHaveTheirWordsAndSpaces)
{
    EXPECT_EQ(ambientLabel(2), QString("Ambient Intensity: 20%\t"));
    EXPECT_EQ(diffuseLabel(10), QString("Diffuse Intensity: 100%\t"));
    EXPECT_EQ(highlightLabel(3), QString("Highlight Intensity: 30%"));
    EXPECT_EQ(shininessLabel(6), QString("Highlight Shininess: 6 "));
    EXPECT_EQ(emissionLabel(4), QString("Emission  Intensity: 4 "));
}
