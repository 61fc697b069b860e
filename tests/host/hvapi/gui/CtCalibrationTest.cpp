#include "lib/hvapi/sequence/CtCalibration.h"

#include "hvparser/CPLSection.h"
#include "hvparser/CPLSequenceInfo.h"
#include "lib/hvparser/KeyedFile.h"

#include <gtest/gtest.h>

namespace {

struct CtCalibrationTest : testing::Test
{
    void SetUp() override
    {
        section = CPLSequenceInfo::Private::fileOf(info).findOrAdd("CT Acquisition Parameters");
        ASSERT_NE(section, nullptr);
        section->addKeyValue("Reconstructed Volume Min", "-0.5");
        section->addKeyValue("Reconstructed Volume Max", "6.0535");
        section->addKeyValue("Hounsfield Calibration Air", "0.01");
        section->addKeyValue("Hounsfield Calibration Water", "1.01");
    }

    CPLSequenceInfo info;
    CPLSection* section = nullptr;
};

TEST_F(CtCalibrationTest, IsReadFromTheDescriptionOfTheSequence)
{
    auto const calibration = ctCalibration(&info);
    ASSERT_TRUE(calibration.has_value());
    EXPECT_DOUBLE_EQ(calibration->volumeMin, -0.5);
    EXPECT_DOUBLE_EQ(calibration->volumeMax, 6.0535);
    EXPECT_DOUBLE_EQ(calibration->air, 0.01);
    EXPECT_DOUBLE_EQ(calibration->water, 1.01);
}

TEST_F(CtCalibrationTest, NeedsAllFourNumbers)
{
    section->setValue("Hounsfield Calibration Water", "one");
    EXPECT_FALSE(ctCalibration(&info).has_value());
}

TEST(CtCalibration, NeedsTheSection)
{
    CPLSequenceInfo empty;
    EXPECT_FALSE(ctCalibration(&empty).has_value());
    EXPECT_FALSE(ctCalibration(nullptr).has_value());
}

}  // namespace
