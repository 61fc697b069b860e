#include "support/NodeTest.h"

#include <QOpenGLFunctions>

namespace {

struct Shaders : NodeTest
{
    std::array<float, 3> value(const char* name)
    {
        QOpenGLFunctions& gl = *canvas.context().functions();
        const GLuint program = probe.volumeProgram().getID();
        std::array<float, 3> v{-1.0F, -1.0F, -1.0F};
        const GLint location = gl.glGetUniformLocation(program, name);
        EXPECT_GE(location, 0) << name;
        if (location >= 0) gl.glGetUniformfv(program, location, v.data());
        return v;
    }
};

TEST_F(Shaders, TheVolumePassSetsTheUniforms)
{
    load(5, 8, 9, [](int, int, int) { return 100; });
    use(false);
    node->m_nLevelOfDetail = 200;
    node->setLighting(true);
    node->setShininess(4.0F);
    node->setEmissionCompensation(0.125F);
    node->setMedianFilterDenoise(true);
    node->setFilterDenoiseGradient(true);
    glScaled(0.5, 0.5, 0.5);
    glRotated(90, 0, 1, 0);  // x of the node points away from the viewer
    draw();
    EXPECT_EQ(value("bLighting")[0], 1.0F);
    EXPECT_EQ(value("volumeData")[0], 0.0F);
    EXPECT_EQ(value("colorTable")[0], 1.0F);
    EXPECT_NEAR(value("viewVec")[0], 0.5F, 1e-6) << "not normalised";
    EXPECT_NEAR(value("viewVec")[2], 0.0F, 1e-6);
    EXPECT_EQ(value("shininess")[0], 4.0F);
    EXPECT_EQ(value("sliceVoxelInterval")[0], 0.5F);
    EXPECT_EQ(value("bFastRenderingMode")[0], 0.0F);
    EXPECT_EQ(value("voxelTextureSize_Normalized")[0], 0.5F / 8.0F) << "the power of two above 5";
    EXPECT_EQ(value("voxelTextureSize_Normalized")[1], 0.5F / 8.0F) << "8 itself";
    EXPECT_EQ(value("voxelTextureSize_Normalized")[2], 0.5F / 16.0F);
    EXPECT_EQ(value("emissionlightCompensation")[0], 0.125F);
    EXPECT_EQ(value("gradientsmooththreshold")[0], 0.2F);
    EXPECT_EQ(value("bFilterDenoiseGradient")[0], 1.0F);
    EXPECT_EQ(value("bMedianFilterDenoise")[0], 1.0F);
    float light[4];
    glGetLightfv(GL_LIGHT0, GL_SPECULAR, light);
    EXPECT_EQ(light[1], 0.3F);
    GLint localViewer = 1;
    glGetIntegerv(GL_LIGHT_MODEL_LOCAL_VIEWER, &localViewer);
    EXPECT_EQ(localViewer, 0);
}

TEST_F(Shaders, TheFastModeReachesTheProgram)
{
    loadConstant(8, 100);
    services.setFastRenderingMode(true);
    draw();
    EXPECT_EQ(value("bFastRenderingMode")[0], 1.0F);
    EXPECT_EQ(value("sliceVoxelInterval")[0], 2.0F);
}

TEST_F(Shaders, AnotherModeIsSeenOnlyWhenTheProgramIsAskedForAgain)
{
    loadConstant(8, 100);
    setTable(255, 255, 255, 60);
    use(false);
    draw();
    const QByteArray quality = canvas.pixels();
    node->setRenderInBestPerformance(true);
    draw();
    EXPECT_EQ(canvas.pixels(), quality);
    EXPECT_TRUE(probe.shadersReady());
    node->setShadersReady(false);
    draw();
    EXPECT_NE(canvas.pixels(), quality);
    EXPECT_TRUE(probe.shadersReady());
}

TEST_F(Shaders, TheSliceProgramIsCompiledOnce)
{
    loadConstant(8, 100);
    draw();
    EXPECT_TRUE(probe.sliceProgramAdded());
    const GLuint slice = probe.sliceProgram().getID();
    use(false);
    draw();
    EXPECT_EQ(probe.sliceProgram().getID(), slice);
    EXPECT_TRUE(probe.volumeProgram().getID() != 0);
}

TEST_F(Shaders, ASliceProgramThatCantBeAddedIsTriedAgain)
{
    loadConstant(8, 100);
    // The name is taken by a text that draws nothing of ours, so adding fails; the volume text stands.
    ASSERT_TRUE(probe.sliceProgram().addShader_Source(FRAGMENT_SHADER, "slice_fp",
                                                      "void main() { gl_FragColor = vec4(1.0); }"));
    draw();
    EXPECT_FALSE(probe.shadersReady());
    EXPECT_FALSE(probe.sliceProgramAdded());
    EXPECT_NE(probe.volumeProgram().getID(), 0U);
    EXPECT_GT(canvas.pixels().count('\0'), 0) << "and the frame is drawn all the same";
}

TEST_F(Shaders, ProgramsRunInTheStateOfTheirPasses)
{
    loadConstant(8, 100);
    for (bool performance : {true, false}) {
        use(performance);
        draw();
        probe.volumeProgram().activate();
        EXPECT_TRUE(probe.volumeProgram().validateProgram());
        probe.volumeProgram().deactivate();
    }
}

}  // namespace
