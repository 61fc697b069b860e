#include "support/ModalWatcher.h"
#include "support/SharedData.h"
#include "volume/CVolumeInfoDialog.h"
#include "volume/CVolumeRaw.h"
#include "volume/support/RecordingHost.h"

#include <QFile>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using viz_test::sharedData;

class RealRaw : public testing::Test
{
protected:
    bool load(const QString& path) { return reader.loadVolumeFile(QFile::encodeName(path).constData()); }

    std::size_t count() const
    {
        return std::size_t{reader.getLoadColumns()} * reader.getLoadRows() * reader.getFrames();
    }

    viz_test::RecordingHost host;
    viz_test::ModalWatcher modal;
    CVolumeRaw reader{nullptr};
};

TEST_F(RealRaw, MouseHeadOfEightBits)
{
    const QString path = sharedData("raw/mouse_head_8bit/mouse_129X1_SVJ.vox");
    if (path.isEmpty()) GTEST_SKIP() << "no collection of real scans";
    ASSERT_TRUE(load(path));
    // 138 is no multiple of 64 or 20: 136.62 rounds to 137, and 3 more make 140
    EXPECT_EQ(reader.getColumns(), 138U);
    EXPECT_EQ(reader.getLoadColumns(), 140U);
    EXPECT_EQ(reader.getLoadRows(), 140U);
    EXPECT_EQ(reader.getFrames(), 146U);
    // the dialog keeps four decimals of 0.141113 and 0.141355
    EXPECT_FLOAT_EQ(reader.getExtent()[2], 0.1411F * 138);
    EXPECT_GT(std::count_if(reader.getVoxels(), reader.getVoxels() + count(), [](int v) { return v > 45; }),
              50000);
}

TEST_F(RealRaw, HumanHeadOfSixteenBits)
{
    const QString path = sharedData("raw/human_head_16bit/headsq_quarter.raw");
    if (path.isEmpty()) GTEST_SKIP() << "no collection of real scans";
    ASSERT_TRUE(load(path));
    EXPECT_EQ(reader.getLoadColumns(), 64U);
    EXPECT_EQ(reader.getLoadRows(), 64U);
    EXPECT_EQ(reader.getFrames(), 93U);
    EXPECT_EQ(reader.getMinValue(), 0);
    EXPECT_EQ(reader.getMaxValue(), 3926);
    EXPECT_EQ(*std::max_element(reader.getVoxels(), reader.getVoxels() + count()), 255);
    EXPECT_FLOAT_EQ(reader.getExtent()[1], 1.5F * 93);
}

TEST_F(RealRaw, SignedHounsfieldUnits)
{
    const QString path = sharedData("raw/ct_hounsfield_signed16/ct_head_crop_hu.raw");
    if (path.isEmpty()) GTEST_SKIP() << "no collection of real scans";
    ASSERT_TRUE(load(path));
    // 96 is no multiple of 64 or 20: 95.04 rounds to 95, and 5 more make 100
    EXPECT_EQ(reader.getLoadColumns(), 100U);
    EXPECT_EQ(reader.getFrames(), 20U);
    EXPECT_EQ(reader.getMinValue(), 0);
    EXPECT_GE(reader.getMaxValue(), 65534) << "every frame is spread over the whole range";
}

TEST_F(RealRaw, AFileWithoutHeaderIsAskedFor)
{
    const QString path = sharedData("raw/mouse_crop_headerless/mouse_AKR_crop_64x80x48_8bit.raw");
    if (path.isEmpty()) GTEST_SKIP() << "no collection of real scans";
    modal.expect([](QWidget* window) {
        auto* const dialog = qobject_cast<CVolumeInfoDialog*>(window);
        dialog->setColumns(64);
        dialog->setRows(80);
        dialog->setFrames(48);
        dialog->accept();
        if (dialog->isVisible()) dialog->reject();
    });
    ASSERT_TRUE(load(path));
    // The dialog began with one by one pixel and took full resolution away. At 99 percent the columns fall
    // below 64, so they become 64 and the factor 1 again; the rows, 80, are padded to 100.
    EXPECT_EQ(reader.getResolutionFactor(), 1.0F);
    EXPECT_EQ(reader.getLoadColumns(), 64U);
    EXPECT_EQ(reader.getLoadRows(), 100U);
    EXPECT_EQ(count(), 307200U);
}

}  // namespace
