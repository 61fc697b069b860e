#include "support/FailingUpload.h"
#include "support/NodeTest.h"

#include "hvutils/CHVUtilityFns.h"

namespace {

struct Textures : NodeTest
{
    std::vector<unsigned char> voxelsOfTexture(int count)
    {
        std::vector<unsigned char> back(count);
        glPixelStorei(GL_PACK_ALIGNMENT, 1);
        glBindTexture(GL_TEXTURE_3D, probe.volumeTex());
        glGetTexImage(GL_TEXTURE_3D, 0, GL_RED, GL_UNSIGNED_BYTE, back.data());
        glPixelStorei(GL_PACK_ALIGNMENT, 4);
        return back;
    }

    static GLint parameter(GLenum target, GLuint texture, GLenum name)
    {
        glBindTexture(target, texture);
        GLint value = -1;
        glGetTexParameteriv(target, name, &value);
        return value;
    }
};

struct TextureWidths : Textures, ::testing::WithParamInterface<int>
{};
INSTANTIATE_TEST_SUITE_P(Widths, TextureWidths, ::testing::Values(1, 5, 6, 7, 8));

TEST_P(TextureWidths, UploadEachVoxelAsItIsAndPutTheAlignmentBack)
{
    const int a = GetParam();
    std::vector<unsigned char> expected;
    load(a, 7, 3, [&](int x, int y, int z) { return (31 * x + 17 * y + 101 * z) & 255; });
    for (int z = 0; z < 3; ++z)
        for (int y = 0; y < 7; ++y)
            for (int x = 0; x < a; ++x)
                expected.push_back((31 * x + 17 * y + 101 * z) & 255);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 8);
    draw();
    GLint alignment = 0;
    glGetIntegerv(GL_UNPACK_ALIGNMENT, &alignment);
    EXPECT_EQ(alignment, 8);
    EXPECT_EQ(voxelsOfTexture(static_cast<int>(expected.size())), expected);
    EXPECT_FALSE(probe.volumeTextureDirty());
}

TEST_F(Textures, HaveTheirParameters)
{
    loadConstant(4, 100);
    draw();
    double plane[4] = {0, 0, 1, 0};
    node->renderSlice(plane, 0);
    for (GLenum wrap : {GL_TEXTURE_WRAP_S, GL_TEXTURE_WRAP_T, GL_TEXTURE_WRAP_R})
        EXPECT_EQ(parameter(GL_TEXTURE_3D, probe.volumeTex(), wrap), GL_CLAMP);
    EXPECT_EQ(parameter(GL_TEXTURE_1D, probe.colorTableTex(), GL_TEXTURE_WRAP_S), GL_CLAMP);
    EXPECT_EQ(parameter(GL_TEXTURE_1D, probe.sliceColorTableTex(), GL_TEXTURE_WRAP_S), GL_CLAMP_TO_EDGE);
    for (GLenum filter : {GL_TEXTURE_MIN_FILTER, GL_TEXTURE_MAG_FILTER}) {
        EXPECT_EQ(parameter(GL_TEXTURE_3D, probe.volumeTex(), filter), GL_LINEAR);
        EXPECT_EQ(parameter(GL_TEXTURE_1D, probe.colorTableTex(), filter), GL_LINEAR);
        EXPECT_EQ(parameter(GL_TEXTURE_1D, probe.sliceColorTableTex(), filter), GL_LINEAR);
    }
    GLint format = 0;
    glBindTexture(GL_TEXTURE_3D, probe.volumeTex());
    glGetTexLevelParameteriv(GL_TEXTURE_3D, 0, GL_TEXTURE_INTENSITY_SIZE, &format);
    EXPECT_EQ(format, 8);
}

TEST_F(Textures, ANewLoadGoesIntoTheSameTexture)
{
    loadConstant(4, 100);
    setRamp(50);
    node->setMIP(true);
    draw();
    const GLuint texture = probe.volumeTex();
    loadConstant(5, 200);
    draw();
    EXPECT_EQ(probe.volumeTex(), texture);
    EXPECT_THAT(canvas.at(0.1, 0.1), IsColor(200, 200, 200, 1));
}

TEST_F(Textures, ANewColourTableIsSent)
{
    loadConstant(4, 100);
    node->setMIP(true);
    setTable(200, 0, 0, 50);
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(200, 0, 0, 1));
    setTable(0, 150, 0, 50);
    EXPECT_FALSE(probe.volumeColorTableUploaded());
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 150, 0, 1));
    EXPECT_TRUE(probe.volumeColorTableUploaded());
}

TEST_F(Textures, WithoutVoxelsTheFlagStaysAndNothingIsMade)
{
    loadConstant(4, 100);
    node->freeVoxelData();
    canvas.clear();
    node->render(true, GL_RENDER);
    EXPECT_TRUE(probe.volumeTextureDirty());
    EXPECT_EQ(probe.volumeTex(), 0U);
    EXPECT_EQ(probe.volumeList(), 0U);
}

const char* const kLowMemory = "Very low memory encountered - unable to generate volume texture.";

TEST_F(Textures, OutOfMemoryIsToldOnceAndTheFrameStaysEmpty)
{
    loadConstant(8, 200);
    setTable(255, 255, 255, 100);
    services.answerNextBox(1024);
    {
        const FailingUpload noMemory;
        draw();
    }
    ASSERT_EQ(services.boxes().size(), 1);
    const HostQuestion& box = services.boxes()[0].question;
    EXPECT_EQ(box.kind, HostQuestion::Error);
    EXPECT_EQ(box.text, kLowMemory);
    EXPECT_EQ(box.title, CHVUtilityFns::getAppName());
    EXPECT_EQ(services.messages(3), QStringList{kLowMemory});
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
    EXPECT_FALSE(probe.volumeTextureDirty());
    draw();  // draws with the incomplete texture, and says nothing more
    EXPECT_EQ(services.boxes().size(), 1);
    EXPECT_EQ(services.messages(3).size(), 1);
}

TEST_F(Textures, AStaleErrorDoesNotHideThatMemoryIsOut)
{
    loadConstant(8, 200);
    services.answerNextBox(1024);
    glEnable(0x1234);
    {
        const FailingUpload noMemory;
        canvas.clear();
        node->renderNode(GL_RENDER);
    }
    EXPECT_EQ(services.boxes().size(), 1);
    takeGlError();
}

/// What an event loop may do while the box is open: another view paints in its own context.
struct PaintingServices : TestHostServices
{
    int ask(const HostQuestion& question) override
    {
        const GlCanvas other(8);
        return TestHostServices::ask(question);
    }
};

TEST_F(Textures, AfterTheBoxThePassGoesOnWhereItWas)
{
    loadConstant(8, 200);
    PaintingServices painting;
    painting.answerNextBox(1024);
    GLint before = 0;
    GLint after = -1;
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &before);
    {
        const FailingUpload noMemory;
        draw();
    }
    EXPECT_EQ(QOpenGLContext::currentContext(), &canvas.context());
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &after);
    EXPECT_EQ(after, before);
    GLint stack = -1;
    glGetIntegerv(GL_ATTRIB_STACK_DEPTH, &stack);
    EXPECT_EQ(stack, 0);
}

TEST_F(Textures, OtherErrorsOfTheUploadAreIgnored)
{
    loadConstant(8, 200);
    setTable(255, 255, 255, 100);
    const FailingUpload tooLarge(1 << 20);
    draw();
    EXPECT_TRUE(services.boxes().isEmpty());
    EXPECT_FALSE(probe.volumeTextureDirty());
}

}  // namespace
