#include "plugin/logic/CapabilityProbe.h"

#include <gtest/gtest.h>

namespace {

GraphicsStrings graphics(const char* version, const char* extensions, const char* language)
{
    return {QString(version), QString(extensions), QString(language)};
}

const char* const withTexture3D = "GL_ARB_multitexture GL_EXT_texture3D GL_EXT_blend_minmax";

}  // namespace

TEST(CapabilityProbe, TakesTheNumberBeforeTheSeparator)
{
    EXPECT_FLOAT_EQ(leadingNumber("4.5 (Compatibility Profile) Mesa 22.3.6", '.'), 4.0f);
    EXPECT_FLOAT_EQ(leadingNumber("1.20 NVIDIA via Cg compiler", ' '), 1.2f);
    EXPECT_FLOAT_EQ(leadingNumber("", '.'), 0.0f);
    EXPECT_FLOAT_EQ(leadingNumber("OpenGL ES 3.2", '.'), 0.0f);
    EXPECT_FLOAT_EQ(leadingNumber(QString(), '.'), 0.0f);
}

TEST(CapabilityProbe, NeedsOpenGl2)
{
    EXPECT_TRUE(supportsVolumeRendering(graphics("2.0", withTexture3D, "1.20")));
    EXPECT_TRUE(supportsVolumeRendering(graphics("4.5 (Compatibility Profile)", withTexture3D, "4.50")));
    EXPECT_FALSE(supportsVolumeRendering(graphics("1.5", withTexture3D, "1.20")));
    EXPECT_FALSE(supportsVolumeRendering(graphics("1.9.9", withTexture3D, "1.20")));
    EXPECT_FALSE(supportsVolumeRendering(graphics("", withTexture3D, "1.20")));
}

TEST(CapabilityProbe, NeedsTexture3DAsAWholeWordInAnyCase)
{
    EXPECT_TRUE(supportsVolumeRendering(graphics("2.1", "gl_ext_TEXTURE3d", "1.20")));
    EXPECT_FALSE(supportsVolumeRendering(graphics("2.1", "GL_ARB_multitexture", "1.20")));
    EXPECT_FALSE(supportsVolumeRendering(graphics("2.1", "GL_EXT_texture3D_more", "1.20")));
    EXPECT_FALSE(supportsVolumeRendering(graphics("2.1", "", "1.20")));
}

TEST(CapabilityProbe, NeedsShadingLanguage1Point2)
{
    EXPECT_TRUE(supportsVolumeRendering(graphics("2.0", withTexture3D, "1.2")));
    EXPECT_TRUE(supportsVolumeRendering(graphics("2.0", withTexture3D, "1.20 maker's own text")));
    EXPECT_FALSE(supportsVolumeRendering(graphics("2.0", withTexture3D, "1.10")));
    EXPECT_FALSE(supportsVolumeRendering(graphics("2.0", withTexture3D, "")));
}

TEST(CapabilityProbe, ASilentSystemIsNotSupported)
{
    EXPECT_FALSE(supportsVolumeRendering({}));
}

TEST(CapabilityProbe, TheNoticeIsThisText)
{
    EXPECT_EQ(
        unsupportedGraphicsNotice(),
        QString(
            "<p><font color=\"red\">This system doesn't meet the minimum requirements for <b>3D Corvane "
            "Tools</b>, due to the following reason(s).</p></font>\t\t\t\t\t\t\t\t\t<p><ul><li>Requires "
            "<b>OpenGL 2.0</b> with GPU shader support.</li><li>Requires <b>GL_EXT_texture3D</b> "
            "extension.</li></ul>\t\t\t\t\t\t\t\t\t<p>Please refer to the Halvane&reg; User Guide for this "
            "tool's minimum system and graphic card (GPU) requirements.</p>"));
}
