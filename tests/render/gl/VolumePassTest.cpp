#include "support/NodeTest.h"

namespace {

struct VolumePass : NodeTest
{};

// The opacity of n slices of a constant volume, worked out for the densities of the level-of-detail slider.

struct Density
{
    int percent;
    double voxelInterval;
    int slices;  // of 8 voxels: 1 + (2 - 2e-6) / (0.25 * interval), truncated
};

struct VolumePassDensity : VolumePass, ::testing::WithParamInterface<Density>
{};
INSTANTIATE_TEST_SUITE_P(Densities, VolumePassDensity,
                         ::testing::Values(Density{100, 1.0, 8}, Density{50, 2.0, 4},
                                           Density{300, 1.0 / 3.0, 24}));

TEST_P(VolumePassDensity, AccumulatesTheCorrectedOpacityOfEachSlice)
{
    loadConstant(8, 200);
    setTable(255, 128, 64, 60);
    node->m_nLevelOfDetail = GetParam().percent;
    use(false);
    draw();
    const double alpha = sliceAlpha(60 / 255.0, GetParam().voxelInterval);
    const int n = GetParam().slices;
    EXPECT_THAT(canvas.at(0, 0), IsColor(composited(1.0, alpha, n), composited(128 / 255.0, alpha, n),
                                         composited(64 / 255.0, alpha, n), n > 8 ? 6 : 3));
    EXPECT_THAT(canvas.at(1.2, 0), IsColor(0, 0, 0, 0));
    EXPECT_EQ(probe.sliceDensity(), GetParam().percent);
}

TEST_P(VolumePassDensity, HasAThirdOfTheOpacityInPerformanceMode)
{
    loadConstant(8, 200);
    setTable(255, 255, 255, 60);
    node->m_nLevelOfDetail = GetParam().percent;
    draw();
    const double alpha = sliceAlpha(60 / 255.0, GetParam().voxelInterval) / 3.0;
    const double grey = composited(1.0, alpha, GetParam().slices);
    EXPECT_THAT(canvas.at(0.3, -0.3), IsColor(grey, grey, grey, 6));
}

TEST_F(VolumePass, AFullTableAlphaGivesAtMost255Of256)
{
    load(1, 1, 1, [](int, int, int) { return 200; });
    setTable(255, 255, 255, 255);
    use(false);
    node->setMIP(true);
    draw();
    unsigned char rgba[4];
    glReadPixels(32, 32, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
    EXPECT_EQ(rgba[3], 254);  // 255 * 255 / 256 = 254.004
    use(true);
    draw();
    glReadPixels(32, 32, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, rgba);
    EXPECT_EQ(rgba[3], 85);  // 254.004 / 3 = 84.67
}

TEST_F(VolumePass, UnderMaximumIntensityABrightVoxelShowsItsValue)
{
    // Slices pass between the voxels of 9: half of the one in the middle.
    load(9, 9, 9, [](int x, int y, int z) { return x == 4 && y == 4 && z == 4 ? 240 : 20; });
    setRamp(10);
    node->setMIP(true);
    draw();
    // The pixel's centre is half a pixel, 3 / 128, off the voxel's, in x and in y.
    const double weight = 1.0 - (3.0 / 128.0) / (2.0 / 9.0);
    const double grey = 20 + 220 * 0.5 * weight * weight;
    EXPECT_THAT(canvas.at(0.02, 0.02), IsColor(grey, grey, grey, 1));
    EXPECT_THAT(canvas.at(0.6, 0.6), IsColor(20, 20, 20, 1));
    EXPECT_TRUE(node->isMIP());
}

TEST_F(VolumePass, UnderMinimumIntensityTheBackgroundWins)
{
    loadConstant(8, 200);
    setRamp(10);
    probe.blendEquation() = GL_MIN;
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
    EXPECT_FALSE(node->isMIP());
    node->setMIP(false);
    EXPECT_EQ(probe.blendEquation(), GLenum(GL_FUNC_ADD));
}

TEST_F(VolumePass, AFlippedAxisMirrorsThePicture)
{
    load(8, 8, 8, [](int x, int y, int) { return x < 4 ? 100 : (y < 4 ? 150 : 200); });
    setRamp(30);
    node->setMIP(true);
    draw();
    EXPECT_THAT(canvas.at(-0.5, 0.5), IsColor(100, 100, 100, 1));
    EXPECT_THAT(canvas.at(0.5, 0.5), IsColor(200, 200, 200, 1));
    EXPECT_THAT(canvas.at(0.5, -0.5), IsColor(150, 150, 150, 1));
    node->setAxisOrientation(true, false, false);
    draw();
    EXPECT_THAT(canvas.at(0.5, 0.5), IsColor(100, 100, 100, 1));
    EXPECT_THAT(canvas.at(-0.5, 0.5), IsColor(200, 200, 200, 1));
    node->setAxisOrientation(false, true, false);
    draw();
    EXPECT_THAT(canvas.at(0.5, 0.5), IsColor(150, 150, 150, 1));
}

TEST_F(VolumePass, TheNearVoxelsCoverTheFarOnesWhereverTheVolumeIsSeenFrom)
{
    load(8, 8, 8, [](int, int, int z) { return z < 4 ? 100 : 200; });
    setTable([](int v) {
        return v > 150 ? std::array<int, 4>{255, 0, 0, 255} : std::array<int, 4>{0, 255, 0, 255};
    });
    use(false);
    draw();  // +z is near
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 255, 0, 3)) << "the face itself has faded to half";
    node->setCropBoxOffset(std::vector<Vec3f>(8, Vec3f(0, 0, 0.25)).data());
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(255, 0, 0, 3));
    glRotated(180, 0, 1, 0);
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 255, 0, 3));
}

TEST_F(VolumePass, TheCropPlanesCutWhenTheyAreEnabled)
{
    loadConstant(8, 200);
    setRamp(30);
    node->setMIP(true);
    Vec3f offsets[8];
    for (int corner : {1, 2, 5, 6})
        offsets[corner].set(-1.0, 0.0, 0.0);  // high x moves to the centre
    node->setCropBoxOffset(offsets);
    EXPECT_TRUE(node->isCropEnabled());
    draw();
    EXPECT_THAT(canvas.at(-0.3, 0), IsColor(200, 200, 200, 1));
    EXPECT_THAT(canvas.at(0.3, 0), IsColor(0, 0, 0, 0));
    node->setCropEnabled(false);
    draw();
    EXPECT_THAT(canvas.at(0.3, 0), IsColor(200, 200, 200, 1));
    node->setCropEnabled(true);
    draw();
    EXPECT_THAT(canvas.at(0.3, 0), IsColor(0, 0, 0, 0));
}

TEST_F(VolumePass, TheCropPlanesFollowTheNode)
{
    loadConstant(8, 200);
    setRamp(30);
    node->setMIP(true);
    Vec3f offsets[8];
    for (int corner : {1, 2, 5, 6})
        offsets[corner].set(-1.0, 0.0, 0.0);
    node->setCropBoxOffset(offsets);
    matrix shift;
    shift(0, 3) = 0.4;
    node->setTransformation(shift);
    draw();
    EXPECT_THAT(canvas.at(0.3, 0), IsColor(200, 200, 200, 1));
    EXPECT_THAT(canvas.at(0.5, 0), IsColor(0, 0, 0, 0));
    EXPECT_THAT(canvas.at(-0.8, 0), IsColor(0, 0, 0, 0));
}

TEST_F(VolumePass, OnlyWhatIsWellVisibleWritesItsDepth)
{
    loadConstant(8, 200);
    use(false);
    setTable(255, 255, 255, 24);  // 0.0938 after the correction
    draw();
    EXPECT_EQ(canvas.depthAt(0, 0), 1.0);
    EXPECT_GT(canvas.at(0, 0).r, 100);
    setTable(255, 255, 255, 28);  // 0.1094
    draw();
    EXPECT_NEAR(canvas.depthAt(0, 0), 0.25, 1e-4);  // z = 1 of -2 to 2
    EXPECT_EQ(canvas.depthAt(1.2, 0), 1.0);
}

TEST_F(VolumePass, IsHiddenByWhatStandsBeforeIt)
{
    loadConstant(8, 200);
    setTable(255, 255, 255, 255);
    use(false);
    draw(0.2);
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
}

TEST_F(VolumePass, DrawsNothingInAPassWithTheAlphaFunctionEqual)
{
    loadConstant(8, 200);
    setTable(255, 255, 255, 255);
    draw();
    const QByteArray normal = canvas.pixels();
    glAlphaFunc(GL_EQUAL, 0.5F);
    draw();
    EXPECT_EQ(canvas.pixels().count('\0'), canvas.pixels().size());
    glAlphaFunc(GL_GREATER, 0.5F);
    draw();
    EXPECT_EQ(canvas.pixels(), normal);
}

TEST_F(VolumePass, AHiddenObjectIsNotDrawn)
{
    loadConstant(8, 200);
    setTable(255, 255, 255, 255);
    node->show(false);
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
    node->render(true);
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
    node->show(true);
    node->render(true);
    EXPECT_GT(canvas.at(0, 0).r, 100);
}

TEST_F(VolumePass, OtherModesThanRenderingCompileTheProgramsAndDrawNothing)
{
    loadConstant(8, 200);
    canvas.clear();
    node->renderNode(GL_SELECT);
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
    EXPECT_TRUE(probe.shadersReady());
    EXPECT_NE(probe.volumeProgram().getID(), 0U);
    EXPECT_NE(probe.sliceProgram().getID(), 0U);
    EXPECT_EQ(probe.volumeTex(), 0U);
}

TEST_F(VolumePass, ANodeWithoutVoxelsDoesNothingAtAll)
{
    canvas.clear();
    node->renderNode(GL_RENDER);
    EXPECT_FALSE(probe.shadersReady());
    EXPECT_FALSE(node->isValid());
}

TEST_F(VolumePass, ATextureOfAnEarlierLoadKeepsTheNodeValidAndDrawn)
{
    loadConstant(8, 200);
    setTable(255, 255, 255, 100);
    draw();
    const QByteArray before = canvas.pixels();
    node->freeVoxelData();
    EXPECT_TRUE(node->isValid());
    draw();
    EXPECT_EQ(canvas.pixels(), before);
    node->resetVolumeStates();  // now the voxels are asked for
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
    EXPECT_TRUE(probe.volumeTextureDirty());
}

TEST_F(VolumePass, TheListIsCompiledInEveryFrame)
{
    loadConstant(8, 200);
    setTable(255, 255, 255, 100);
    draw();
    const QByteArray before = canvas.pixels();
    const GLuint list = probe.volumeList();
    EXPECT_FALSE(probe.volumeListDirty());
    glNewList(list, GL_COMPILE);
    glEndList();
    draw();
    EXPECT_EQ(canvas.pixels(), before);
    EXPECT_EQ(probe.volumeList(), list);
}

TEST_F(VolumePass, TheMatrixOfTheFrameIsStored)
{
    loadConstant(8, 200);
    glRotated(30, 0, 1, 0);
    double modelview[16];
    glGetDoublev(GL_MODELVIEW_MATRIX, modelview);
    draw();
    const double* stored = probe.volumeListMatrix();
    for (int i = 0; i < 16; ++i)
        EXPECT_EQ(stored[i], modelview[i]);
}

TEST_F(VolumePass, WhileTheUserDragsTheDensityIs50)
{
    loadConstant(8, 200);
    node->m_nLevelOfDetail = 300;
    services.setFastRenderingMode(true);
    draw();
    EXPECT_EQ(probe.sliceDensity(), 50);
    EXPECT_EQ(node->m_nLevelOfDetail, 300);
    services.setFastRenderingMode(false);
    draw();
    EXPECT_EQ(probe.sliceDensity(), 300);
}

TEST_F(VolumePass, AnObliqueViewShowsTheSameConstantVolume)
{
    loadConstant(8, 200);
    setRamp(30);
    node->setMIP(true);
    glRotated(35, 1, 0, 0);
    glRotated(45, 0, 1, 0);
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(200, 200, 200, 1));
    EXPECT_THAT(canvas.at(0.9, 0), IsColor(200, 200, 200, 100));
    EXPECT_THAT(canvas.at(1.46, 1.46), IsColor(0, 0, 0, 0));
}

}  // namespace
