#include "render/gl/GlewSupport.h"
#include "support/NodeTest.h"

namespace {

struct NoMinMax : NodeTest
{
    void SetUp() override
    {
        if (glew::supports("GL_EXT_blend_minmax"))
            GTEST_SKIP() << "this driver can't leave the extension out";
    }
};

TEST_F(NoMinMax, MaximumIntensityLooksLikeCompositing)
{
    loadConstant(8, 200);
    setTable(255, 255, 255, 60);
    draw();
    const QByteArray composited = canvas.pixels();
    node->setMIP(true);
    draw();
    EXPECT_EQ(canvas.pixels(), composited);
    EXPECT_GT(canvas.at(0, 0).r, 60);
    EXPECT_LT(canvas.at(0, 0).r, 250);
    EXPECT_TRUE(node->isMIP());
}

TEST_F(NoMinMax, SoDoesAThickSlice)
{
    loadConstant(8, 200);
    setTable(255, 255, 255, 60);
    draw();
    canvas.clear();
    node->renderThickSlice(4, 0, 0.5, GL_FUNC_ADD, false);
    const QByteArray composited = canvas.pixels();
    canvas.clear();
    node->renderThickSlice(4, 0, 0.5, GL_MAX, false);
    EXPECT_EQ(canvas.pixels(), composited);
    EXPECT_EQ(takeGlError(), GLenum(GL_NO_ERROR));
}

}  // namespace
