#include "render/gl/VolumeMemoryProbe.h"

#include "render/gl/OGL_INFO.h"
#include "volume/support/RecordingHost.h"

#include <QApplication>
#include <QOpenGLContext>

#include <gtest/gtest.h>

#include <limits>

namespace {

using viz_test::RecordingHost;

TEST(OglInfo, HasAContextWithoutBeingShown)
{
    OGL_INFO info;
    EXPECT_GE(info.openGLVersion(), 2.0F);
    EXPECT_FALSE(info.isVisible());
    EXPECT_EQ(info.size(), QSize(1, 1));
    EXPECT_NEAR(info.windowOpacity(), 0.1, 0.01);
    EXPECT_EQ(QOpenGLContext::currentContext(), info.context());
}

TEST(OglInfo, TheVersionIsTheNumberBeforeTheSecondPoint)
{
    EXPECT_FLOAT_EQ(OGL_INFO::versionNumber("4.5 (Compatibility Profile) Mesa 22.3.6"), 4.5F);
    EXPECT_FLOAT_EQ(OGL_INFO::versionNumber("2.1.0 maker 331.89"), 2.1F);
    EXPECT_FLOAT_EQ(OGL_INFO::versionNumber("1.4"), 1.4F);
    EXPECT_FLOAT_EQ(OGL_INFO::versionNumber("3"), 3.0F);
    EXPECT_FLOAT_EQ(OGL_INFO::versionNumber("OpenGL ES 3.2"), 0.0F);
    EXPECT_FLOAT_EQ(OGL_INFO::versionNumber(""), 0.0F);
    EXPECT_FLOAT_EQ(OGL_INFO::versionNumber(nullptr), 0.0F);
}

TEST(VolumeMemoryProbe, SmallVolumesFitWhateverTheirSides)
{
    const RecordingHost host;
    for (unsigned a = 1; a <= 9; ++a)
        for (int depth = 1; depth <= 6; ++depth)
            EXPECT_TRUE(checkVolumeMemory(a, 3, depth, GL_TEXTURE_3D, 1.8F));
}

TEST(VolumeMemoryProbe, FlatTexturesFitToo)
{
    const RecordingHost host;
    EXPECT_TRUE(checkVolumeMemory(100, 1, 1, GL_TEXTURE_1D, 1.0F));
    EXPECT_TRUE(checkVolumeMemory(33, 77, 1, GL_TEXTURE_2D, 1.0F));
}

TEST(VolumeMemoryProbe, AFullMachineHoldsNothing)
{
    RecordingHost host;
    host.memoryIsFull = true;
    EXPECT_FALSE(checkVolumeMemory(4, 4, 4, GL_TEXTURE_3D, 1.8F));
    EXPECT_EQ(host.memoryChecks, 1);
}

TEST(VolumeMemoryProbe, ABlockThatCannotBeAllocatedDoesNotFit)
{
    const RecordingHost host;
    EXPECT_FALSE(
        checkVolumeMemory(0xFFFFFFFF, 0xFFFFFFFF, std::numeric_limits<int>::max(), GL_TEXTURE_3D, 1.8F));
}

TEST(VolumeMemoryProbe, ADriverOutOfMemoryIsBelieved)
{
    const RecordingHost host;
    EXPECT_FALSE(checkVolumeMemory(2048, 2048, 1138, GL_TEXTURE_3D, 1.8F));
}

TEST(VolumeMemoryProbe, OtherErrorsCountAsRoomEnough)
{
    const RecordingHost host;
    EXPECT_TRUE(checkVolumeMemory(1U << 20, 1, 1, GL_TEXTURE_3D, 1.8F))
        << "more texels a side than any card has";
}

TEST(VolumeMemoryProbe, LeavesTheCurrentContextAndItsStateAlone)
{
    const RecordingHost host;
    OGL_INFO scene;
    ASSERT_GE(scene.openGLVersion(), 2.0F);
    while (glGetError() != GL_NO_ERROR) {
    }
    glPixelStorei(GL_UNPACK_ALIGNMENT, 8);
    EXPECT_TRUE(checkVolumeMemory(5, 7, 3, GL_TEXTURE_3D, 1.8F));

    EXPECT_EQ(QOpenGLContext::currentContext(), scene.context());
    GLint alignment = 0;
    glGetIntegerv(GL_UNPACK_ALIGNMENT, &alignment);
    EXPECT_EQ(alignment, 8);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST(VolumeMemoryProbe, LeavesNoContextCurrentWhereThereWasNone)
{
    const RecordingHost host;
    ASSERT_EQ(QOpenGLContext::currentContext(), nullptr);
    EXPECT_TRUE(checkVolumeMemory(5, 7, 3, GL_TEXTURE_3D, 1.8F));
    EXPECT_EQ(QOpenGLContext::currentContext(), nullptr);
}

TEST(VolumeMemoryProbe, LeavesNoTextureBehind)
{
    const RecordingHost host;
    OGL_INFO scene;  // all contexts share their textures
    ASSERT_GE(scene.openGLVersion(), 2.0F);
    const auto textures = [] {
        int count = 0;
        for (GLuint name = 1; name < 1000; ++name)
            count += glIsTexture(name) == GL_TRUE ? 1 : 0;
        return count;
    };
    const int before = textures();
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(checkVolumeMemory(5, 7, 3, GL_TEXTURE_3D, 1.8F));
    EXPECT_EQ(textures(), before);
}

TEST(VolumeMemoryProbe, LeavesNoWidgetBehind)
{
    const RecordingHost host;
    const int before = QApplication::topLevelWidgets().size();
    EXPECT_TRUE(checkVolumeMemory(5, 7, 3, GL_TEXTURE_3D, 1.8F));
    EXPECT_EQ(QApplication::topLevelWidgets().size(), before);
}

}  // namespace
