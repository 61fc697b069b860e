#include "render/gl/GlewSupport.h"
#include "support/NodeTest.h"

namespace {

struct OldDriver : NodeTest
{
    void SetUp() override
    {
        if (glew::supports("GL_VERSION_2_0")) GTEST_SKIP() << "this driver can't pretend to be old";
    }
};

TEST_F(OldDriver, EveryEntryReturnsQuietly)
{
    loadConstant(8, 200);
    setTable(255, 255, 255, 255);
    canvas.clear();
    double plane[4] = {0, 0, 1, 0};
    node->renderNode(GL_RENDER);
    node->render(true, GL_RENDER);
    node->render(true);
    node->renderSlice(plane, 0);
    node->renderThickSlice(4, 0, 1, GL_MAX, true);
    EXPECT_EQ(takeGlError(), GLenum(GL_NO_ERROR));
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
    EXPECT_EQ(probe.volumeTex(), 0U);
    EXPECT_EQ(probe.sliceColorTableTex(), 0U);
    EXPECT_FALSE(probe.shadersReady());
    EXPECT_EQ(probe.volumeProgram().getID(), 0U);
    EXPECT_TRUE(services.boxes().isEmpty());
    EXPECT_TRUE(services.entries().isEmpty());
}

TEST_F(OldDriver, TheNodeKeepsItsDataAndSettings)
{
    loadConstant(8, 200);
    node->setMIP(true);
    EXPECT_TRUE(node->isValid());
    EXPECT_TRUE(node->isMIP());
    EXPECT_EQ(probe.vertices()[6].position[0], 1.0);
}

}  // namespace
