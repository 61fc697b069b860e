#include "support/NodeTest.h"

#include <QOpenGLFunctions>

#include <map>
#include <string>

namespace {

/// The state that a pass must leave as it was: all but the active texture unit and the texture bindings.
std::map<std::string, std::vector<double>> glState()
{
    std::map<std::string, std::vector<double>> state;
    const auto flags = {GL_ALPHA_TEST,  GL_BLEND,       GL_CULL_FACE,    GL_DEPTH_TEST,   GL_FOG,
                        GL_LIGHTING,    GL_LIGHT0,      GL_SCISSOR_TEST, GL_STENCIL_TEST, GL_CLIP_PLANE0,
                        GL_CLIP_PLANE1, GL_CLIP_PLANE2, GL_CLIP_PLANE3,  GL_CLIP_PLANE4,  GL_CLIP_PLANE5};
    for (GLenum flag : flags)
        state["enabled " + std::to_string(flag)] = {double(glIsEnabled(flag))};
    const auto values = {
        GL_BLEND_SRC,       GL_BLEND_DST,       GL_BLEND_EQUATION,     GL_DEPTH_FUNC,
        GL_DEPTH_WRITEMASK, GL_MATRIX_MODE,     GL_ATTRIB_STACK_DEPTH, GL_MODELVIEW_STACK_DEPTH,
        GL_CURRENT_PROGRAM, GL_ALPHA_TEST_FUNC, GL_UNPACK_ALIGNMENT,   GL_SHADE_MODEL};
    for (GLenum name : values) {
        double value[4] = {};
        glGetDoublev(name, value);
        state["value " + std::to_string(name)] = {value[0]};
    }
    for (GLenum name : {GL_MODELVIEW_MATRIX, GL_PROJECTION_MATRIX}) {
        std::vector<double> m(16);
        glGetDoublev(name, m.data());
        state["matrix " + std::to_string(name)] = m;
    }
    QOpenGLFunctions& gl = *QOpenGLContext::currentContext()->functions();
    GLint unit = 0;
    glGetIntegerv(GL_ACTIVE_TEXTURE, &unit);
    for (int i = 0; i < 3; ++i) {
        gl.glActiveTexture(GL_TEXTURE0 + i);
        state["textures of unit " + std::to_string(i)] = {double(glIsEnabled(GL_TEXTURE_1D)),
                                                          double(glIsEnabled(GL_TEXTURE_2D)),
                                                          double(glIsEnabled(GL_TEXTURE_3D))};
    }
    gl.glActiveTexture(unit);
    return state;
}

struct GlState : NodeTest
{
    GlState()
    {
        loadConstant(8, 200);
        setTable(200, 200, 200, 100);
        // Nothing as it is by default.
        glEnable(GL_LIGHTING);
        glEnable(GL_CULL_FACE);
        glEnable(GL_CLIP_PLANE3);
        glDisable(GL_DEPTH_TEST);
        glBlendFunc(GL_ONE, GL_ONE);
        glPixelStorei(GL_UNPACK_ALIGNMENT, 2);
        glMatrixMode(GL_PROJECTION);
    }

    /// Twice: the first time makes textures, programs and lists.
    template <class Pass>
    void expectRestored(Pass pass)
    {
        for (int i = 0; i < 2; ++i) {
            const auto before = glState();
            pass();
            takeGlError();
            EXPECT_EQ(glState(), before);
        }
    }
};

TEST_F(GlState, ComesBackAfterTheVolumePass)
{
    expectRestored([&] { node->render(true, GL_RENDER); });
    node->renderNode(GL_SELECT);  // from here on with programs
    expectRestored([&] { node->render(true, GL_RENDER); });
}

TEST_F(GlState, ComesBackAfterMaximumIntensity)
{
    node->setMIP(true);
    expectRestored([&] { node->render(true, GL_RENDER); });
    GLint equation = 0;
    glGetIntegerv(GL_BLEND_EQUATION, &equation);
    EXPECT_EQ(equation, GL_FUNC_ADD);
}

TEST_F(GlState, ComesBackAfterASlice)
{
    double plane[4] = {0, 0, 1, 0};
    expectRestored([&] { node->renderSlice(plane, ~GLuint(0)); });
    expectRestored([&] { node->renderSlice(plane, 0); });
}

TEST_F(GlState, ComesBackAfterAThickSlice)
{
    for (GLenum mode : {GL_FUNC_ADD, GL_MAX, GL_MIN})
        expectRestored([&] { node->renderThickSlice(2, 0, 0.5, mode, true); });
}

TEST_F(GlState, ComesBackWhenTheUploadFails)
{
    node->freeVoxelData();
    expectRestored([&] { node->render(true, GL_RENDER); });
    expectRestored([&] { node->renderThickSlice(1, 0, 0.5, GL_FUNC_ADD, false); });
    double plane[4] = {0, 0, 1, 0};
    expectRestored([&] { node->renderSlice(plane, 0); });
}

TEST_F(GlState, ComesBackWithoutTheCropPlanes)
{
    node->setCropEnabled(false);
    expectRestored([&] { node->render(true, GL_RENDER); });
}

}  // namespace
