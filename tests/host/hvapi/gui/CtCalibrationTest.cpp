#include "lib/hvapi/sequence/CtCalibration.h"

#include "hvapi/scene/C3DScene.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvparser/CPLSection.h"
#include "hvparser/CPLSequenceInfo.h"
#include "lib/hvapi/sequence/SequenceContents.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvparser/KeyedFile.h"

#include <gtest/gtest.h>

namespace {

void describe(CPLSequenceInfo& info)
{
    CPLSection* section = CPLSequenceInfo::Private::fileOf(info).findOrAdd("CT Acquisition Parameters");
    ASSERT_NE(section, nullptr);
    section->addKeyValue("Reconstructed Volume Min", "-0.5");
    section->addKeyValue("Reconstructed Volume Max", "6.0535");
    section->addKeyValue("Hounsfield Calibration Air", "0.01");
    section->addKeyValue("Hounsfield Calibration Water", "1.01");
}

struct CtCalibrationTest : testing::Test
{
    void SetUp() override
    {
        describe(info);
        section = info["CT Acquisition Parameters"];
        ASSERT_NE(section, nullptr);
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

TEST(CtCalibration, TheSceneOfASequenceConvertsByIt)
{
    SequenceContents contents;
    contents.info = std::make_unique<CPLSequenceInfo>();
    describe(*contents.info);
    auto& registry = SequenceRegistry::instance();
    auto* sequence = registry.open({"calibrated", SequenceKind::Ct, false, {}, {}}, std::move(contents));
    ASSERT_NE(sequence, nullptr);
    auto* window = CHVSSequenceWindow::getSequenceWindow(sequence);
    window->prepare3DView();
    ASSERT_NE(window->get3DScene(), nullptr);
    int stored = 0;
    int air = 0;
    int water = 0;
    window->get3DScene()->CTHUValueReverseToVoxelsConverter(3001, nullptr, &stored, &air, &water);
    // Ten thousand stored values a unit, from -0.5 on.
    EXPECT_EQ(stored, 45110);
    EXPECT_EQ(air, 5100);
    EXPECT_EQ(water, 15100);
    registry.close(sequence);
}

}  // namespace
