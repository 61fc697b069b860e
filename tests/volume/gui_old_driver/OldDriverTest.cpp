#include "render/gl/OGL_INFO.h"
#include "render/gl/VolumeMemoryProbe.h"
#include "volume/CVolumeInfoDialog.h"
#include "volume/support/RecordingHost.h"

#include <QPushButton>

#include <gtest/gtest.h>

namespace {

class OldDriver : public testing::Test
{
protected:
    void SetUp() override
    {
        if (OGL_INFO().openGLVersion() >= 2.0F)
            GTEST_SKIP() << "needs the environment MESA_GL_VERSION_OVERRIDE=1.4 and a Mesa driver";
    }

    viz_test::RecordingHost host;
};

TEST_F(OldDriver, NoVolumeFits)
{
    EXPECT_FALSE(checkVolumeMemory(4, 4, 4, GL_TEXTURE_3D, 1.8F));
}

TEST_F(OldDriver, TheDialogAsksForAnotherDriver)
{
    CVolumeInfoDialog dialog;
    EXPECT_FALSE(dialog.updateMemoryStatus());

    EXPECT_FALSE(dialog.isMemoryGood());
    EXPECT_EQ(dialog.memoryGroup->title(), "3D Graphics Status");
    EXPECT_EQ(dialog.memoryStatusLabel->text(),
              "Please install the latest OpenGL (OpenGL 2.0 or better) drivers.");
    EXPECT_TRUE(dialog.memoryHintLabel->isHidden());
    EXPECT_FALSE(dialog.rowSpacingBox->isEnabled());
    EXPECT_FALSE(dialog.columnSpacingBox->isEnabled());
    EXPECT_FALSE(dialog.sliceSpacingBox->isEnabled());
    EXPECT_FALSE(dialog.resolutionSlider->isEnabled());
    EXPECT_TRUE(dialog.buttonBox->button(QDialogButtonBox::Ok)->isEnabled()) << "is left as it was";
}

}  // namespace
