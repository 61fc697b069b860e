#include "SceneHelpers.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/CGLProgram.h"

#include <gtest/gtest.h>

#include <QOpenGLContext>
#include <QOpenGLFunctions>

using namespace viz_test;

namespace {

const char* const red = "void main() { gl_FragColor = vec4(1.0, 0.0, 0.0, 1.0); }";
const char* const green = "void main() { gl_FragColor = vec4(0.0, 1.0, 0.0, 1.0); }";
const char* const broken = "void main() { gl_FragColor = nonsense; }";
const char* const fixedVertex = "void main() { gl_Position = ftransform(); }";
const char* const unlinkable = "float elsewhere(); void main() { gl_FragColor = vec4(elsewhere()); }";

struct GlProgramTest : testing::Test
{
    void SetUp() override
    {
        scene.resize(16, 16);
        scene.grabFramebuffer();
        scene.makeCurrent();
    }
    GLint current()
    {
        GLint id = -1;
        glGetIntegerv(GL_CURRENT_PROGRAM, &id);
        return id;
    }
    /// Colour that a full quad gets.
    QColor drawn()
    {
        scene.makeCurrent();
        glMatrixMode(GL_PROJECTION);
        glLoadIdentity();
        glMatrixMode(GL_MODELVIEW);
        glLoadIdentity();
        glDisable(GL_DEPTH_TEST);
        program.activate();
        glColor3f(0, 0, 1);
        glRectf(-1, -1, 1, 1);
        program.deactivate();
        GLubyte pixel[4] = {};
        glReadPixels(8, 8, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel);
        return QColor(pixel[0], pixel[1], pixel[2]);
    }

    RecordingServices host;
    C3DSGManager manager;
    C3DScene scene{&manager};
    CGLProgram program;
};

TEST_F(GlProgramTest, AddCompilesLinksAndActivates)
{
    EXPECT_EQ(program.getID(), 0u);
    EXPECT_TRUE(program.addShader_Source(FRAGMENT_SHADER, "fp", red));
    EXPECT_NE(program.getID(), 0u);
    program.activate();
    EXPECT_EQ(current(), static_cast<GLint>(program.getID()));
    program.deactivate();
    EXPECT_EQ(current(), 0);
    EXPECT_EQ(drawn(), QColor(255, 0, 0));
    EXPECT_TRUE(program.validateProgram());
    EXPECT_TRUE(host.messages.isEmpty());
}

TEST_F(GlProgramTest, FragmentStageIsValueZero)
{
    EXPECT_EQ(static_cast<int>(FRAGMENT_SHADER), 0);
}

TEST_F(GlProgramTest, UpdateReplacesTheSourceOfThatName)
{
    ASSERT_TRUE(program.updateShader_Source(FRAGMENT_SHADER, "fp", red));
    EXPECT_EQ(drawn(), QColor(255, 0, 0));
    ASSERT_TRUE(program.updateShader_Source(FRAGMENT_SHADER, "fp", green));
    EXPECT_EQ(drawn(), QColor(0, 255, 0));
    const GLuint id = program.getID();
    EXPECT_TRUE(program.updateShader_Source(FRAGMENT_SHADER, "fp", green));
    EXPECT_EQ(program.getID(), id) << "the same text needs no new program";
}

TEST_F(GlProgramTest, ANameIsAddedOnce)
{
    ASSERT_TRUE(program.addShader_Source(FRAGMENT_SHADER, "fp", red));
    EXPECT_FALSE(program.addShader_Source(FRAGMENT_SHADER, "fp", green));
    EXPECT_EQ(drawn(), QColor(255, 0, 0));
    EXPECT_FALSE(program.addShader_Source(FRAGMENT_SHADER, "other", nullptr));
}

TEST_F(GlProgramTest, StagesAreLinkedTogether)
{
    ASSERT_TRUE(program.addShader_Source(FRAGMENT_SHADER, "fp", red));
    ASSERT_TRUE(program.addShader_Source(VERTEX_SHADER, "fp", fixedVertex));
    EXPECT_EQ(drawn(), QColor(255, 0, 0));
    ASSERT_TRUE(program.updateShader_Source(FRAGMENT_SHADER, "fp", green));
    EXPECT_EQ(drawn(), QColor(0, 255, 0));
}

TEST_F(GlProgramTest, AFailedCompileIsLoggedOnceAndLeavesTheProgram)
{
    ASSERT_TRUE(program.updateShader_Source(FRAGMENT_SHADER, "volume_fp", red));
    const GLuint id = program.getID();
    for (int frame = 0; frame < 5; ++frame)
        EXPECT_FALSE(program.updateShader_Source(FRAGMENT_SHADER, "volume_fp", broken));
    EXPECT_EQ(program.getID(), id);
    EXPECT_EQ(drawn(), QColor(255, 0, 0));
    ASSERT_EQ(host.messages.size(), 1);
    EXPECT_EQ(host.severities.at(0), 3);
    EXPECT_TRUE(host.messages.at(0).contains("volume_fp"));
    EXPECT_TRUE(host.messages.at(0).contains("nonsense")) << "the driver's text";
    EXPECT_TRUE(program.updateShader_Source(FRAGMENT_SHADER, "volume_fp", green));
    EXPECT_FALSE(program.updateShader_Source(FRAGMENT_SHADER, "volume_fp", broken));
    EXPECT_EQ(host.messages.size(), 1);
}

TEST_F(GlProgramTest, AFailedLinkIsLoggedOnce)
{
    for (int frame = 0; frame < 3; ++frame)
        EXPECT_FALSE(program.addShader_Source(FRAGMENT_SHADER, "fp", unlinkable));
    EXPECT_EQ(program.getID(), 0u);
    ASSERT_EQ(host.messages.size(), 1);
    EXPECT_EQ(host.severities.at(0), 3);
    EXPECT_TRUE(program.addShader_Source(FRAGMENT_SHADER, "fp", red)) << "the name is still free";
}

TEST_F(GlProgramTest, WithoutAContextNothingHappens)
{
    scene.doneCurrent();
    CGLProgram lonely;
    EXPECT_FALSE(lonely.addShader_Source(FRAGMENT_SHADER, "fp", red));
    EXPECT_FALSE(lonely.validateProgram());
    lonely.activate();
    lonely.deactivate();
    EXPECT_EQ(lonely.getID(), 0u);
    EXPECT_TRUE(host.messages.isEmpty());
}

TEST_F(GlProgramTest, TheDestructorDeletesTheProgram)
{
    GLuint id = 0;
    {
        CGLProgram shortLived;
        ASSERT_TRUE(shortLived.addShader_Source(FRAGMENT_SHADER, "fp", red));
        id = shortLived.getID();
        EXPECT_TRUE(scene.context()->functions()->glIsProgram(id));
    }
    EXPECT_FALSE(scene.context()->functions()->glIsProgram(id));
}

}  // namespace
