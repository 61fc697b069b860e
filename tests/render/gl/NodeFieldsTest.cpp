#include "support/NodeTest.h"

#include <QMetaMethod>
#include <QSignalSpy>

namespace {

struct NodeFields : NodeTest
{
    CGLVolume fresh{"GLVolume"};
    CGLVolumeProbe fields{fresh};
};

TEST_F(NodeFields, HaveTheirDefaults)
{
    EXPECT_EQ(fresh.getName(), "GLVolume");
    EXPECT_FALSE(fields.sliceColorTableUploaded());
    EXPECT_EQ(fresh.m_nLevelOfDetail, 100);
    EXPECT_EQ(fields.colorTableTex(), 0U);
    EXPECT_EQ(fields.sliceColorTableTex(), 0U);
    for (const auto& plane : fields.cropPlanes())
        for (double v : plane)
            EXPECT_EQ(v, 0.0);
    EXPECT_EQ(fields.blendEquation(), GLenum(GL_FUNC_ADD));
    EXPECT_EQ(fields.volumeTex(), 0U);
    EXPECT_EQ(fields.volumeList(), 0U);
    EXPECT_EQ(fields.thickSliceList(), 0U);
    EXPECT_TRUE(fields.volumeListDirty());
    EXPECT_TRUE(fields.thickSliceListDirty());
    EXPECT_EQ(fields.vertices()[0].color[0], 1.0);
    EXPECT_EQ(fields.vertices()[0].position[3], 0.0);
    EXPECT_EQ(fields.edges()[11].first, 0);
    EXPECT_EQ(fields.sliceDensity(), 100);
    EXPECT_FALSE(fields.shadersReady());
    EXPECT_EQ(fresh.getLighting(), 0.0F);
    EXPECT_TRUE(fields.volumeTextureDirty());
    EXPECT_FALSE(fields.sliceUseTransferFunction());
    EXPECT_EQ(fields.slicePalette().reversed(), 0);
    EXPECT_EQ(fields.sliceOpacity(), 1.0F);
    EXPECT_EQ(fields.sliceMin(), 0.0F);
    EXPECT_EQ(fields.sliceMax(), 100.0F);
    EXPECT_TRUE(fresh.isCropEnabled());
    const double* list = fields.volumeListMatrix();
    const double* thickList = fields.thickSliceListMatrix();
    for (int i = 0; i < 16; ++i) {
        EXPECT_EQ(list[i], i % 5 == 0 ? 1.0 : 0.0);
        EXPECT_EQ(thickList[i], i % 5 == 0 ? 1.0 : 0.0);
    }
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(fields.ambient()[i], i < 3 ? 0.2F : 1.0F);
        EXPECT_EQ(fields.diffuse()[i], i < 3 ? 0.8F : 1.0F);
        EXPECT_EQ(fields.specular()[i], i < 3 ? 0.3F : 1.0F);
    }
    EXPECT_EQ(fresh.getShininess(), 6.0F);
    EXPECT_EQ(fresh.getEmissionCompensation(), 0.06F);
    EXPECT_EQ(fields.gradientSmoothThreshold(), 0.2F);
    EXPECT_FALSE(fields.sliceProgramAdded());
    EXPECT_EQ(fields.defaultThresholdFactor(), 3.0F);
    EXPECT_EQ(fresh.getPreRenderVoxelRatio(), 0.033333335F);
    EXPECT_EQ(fresh.getQualityRenderingThreshold(), 0.033333335F * 3.0F);
    EXPECT_EQ(fresh.getDefaultQualityRenderingThreshold(), 0.033333335F * 3.0F);
    EXPECT_FALSE(fresh.isMIP());
    EXPECT_FALSE(fresh.isValid());
}

TEST_F(NodeFields, TheSlicePaletteMapsZeroTo255OnGreys)
{
    double r = -1, g = -1, b = -1, a = -1;
    fields.slicePalette().GetRGBForImageValue(255.0, &r, &g, &b, &a);
    EXPECT_EQ(r, 255.0);
    EXPECT_EQ(g, 255.0);
    fields.slicePalette().GetRGBForImageValue(0.0, &r, &g, &b, &a);
    EXPECT_EQ(r, 0.0);
    EXPECT_EQ(b, 0.0);
}

TEST_F(NodeFields, LightIntensitiesAreGreysWithFullAlpha)
{
    fields.ambient()[3] = 0.5F;
    fresh.setLightIntensity(0.1F, 0.4F, 0.7F);
    EXPECT_THAT(fields.ambient(), ::testing::ElementsAre(0.1F, 0.1F, 0.1F, 1.0F));
    EXPECT_THAT(fields.diffuse(), ::testing::ElementsAre(0.4F, 0.4F, 0.4F, 1.0F));
    EXPECT_THAT(fields.specular(), ::testing::ElementsAre(0.7F, 0.7F, 0.7F, 1.0F));
    fields.diffuse()[0] = 0.1F;
    EXPECT_FLOAT_EQ(fresh.getDiffuseIntensity(), 0.3F);
    EXPECT_FLOAT_EQ(fresh.getAmbientIntensity(), 0.1F);
    EXPECT_FLOAT_EQ(fresh.getSpecularIntensity(), 0.7F);
}

TEST_F(NodeFields, PlainSettingsAnswerWhatWasSet)
{
    fresh.setShininess(3.5F);
    EXPECT_EQ(fresh.getShininess(), 3.5F);
    fresh.setEmissionCompensation(0.25F);
    EXPECT_EQ(fresh.getEmissionCompensation(), 0.25F);
    fresh.setLighting(true);
    EXPECT_EQ(fresh.getLighting(), 1.0F);
    fresh.setMedianFilterDenoise(true);
    EXPECT_TRUE(fresh.isMedianFilterDenoise());
    fresh.setFilterDenoiseGradient(true);
    EXPECT_TRUE(fresh.isFilterDenoiseGradient());
    fresh.setRenderInBestPerformance(true);
    EXPECT_TRUE(fresh.isRenderInBestPerformance());
    fresh.setQualityRenderingThreshold(0.5F);
    EXPECT_EQ(fresh.getQualityRenderingThreshold(), 0.5F);
    EXPECT_EQ(fresh.getDefaultQualityRenderingThreshold(), 0.033333335F * 3.0F);
    fresh.setSliceOpacity(0.5F);
    EXPECT_EQ(fields.sliceOpacity(), 0.5F);
    fresh.setSliceMin(-5.0F);
    EXPECT_EQ(fields.sliceMin(), -5.0F);
    fresh.setSliceMax(5.0F);
    EXPECT_EQ(fields.sliceMax(), 5.0F);
    fresh.setShadersReady(true);
    EXPECT_TRUE(fields.shadersReady());
    fresh.setMIP(true);
    EXPECT_EQ(fields.blendEquation(), GLenum(GL_MAX));
}

TEST_F(NodeFields, TheLevelOfDetailIsTheDensityOfTheNextFrameOnly)
{
    fields.volumeListDirty() = false;
    fresh.setLevelOfDetail(250);
    EXPECT_EQ(fields.sliceDensity(), 250);
    EXPECT_TRUE(fields.volumeListDirty());
    EXPECT_EQ(fresh.m_nLevelOfDetail, 100);
}

TEST_F(NodeFields, SettingsOfTheSliceTableMarkItAsNotUploaded)
{
    fields.sliceColorTableUploaded() = true;
    fresh.setSliceUseTransferFunction(true);
    EXPECT_TRUE(fields.sliceUseTransferFunction());
    EXPECT_FALSE(fields.sliceColorTableUploaded());
    fields.sliceColorTableUploaded() = true;
    fresh.setSliceColorTable(eColorTableRainbow, true, false);
    EXPECT_FALSE(fields.sliceColorTableUploaded());
    EXPECT_NE(fields.slicePalette().reversed(), 0);
}

TEST_F(NodeFields, ALockedSliceTableStays)
{
    fresh.updateSliceColorTable();
    EXPECT_EQ(fields.sliceColorTable()[4 * 100], 100);
    fields.sliceColorTableLocked() = true;
    fresh.setSliceColorTable(eColorTableGrays, true, false);
    fresh.updateSliceColorTable();
    EXPECT_EQ(fields.sliceColorTable()[4 * 100], 100);
    fields.sliceColorTableLocked() = false;
    fresh.updateSliceColorTable();
    EXPECT_EQ(fields.sliceColorTable()[4 * 100], 155);
}

TEST_F(NodeFields, ALoadPlacesTheBoxAndResetsTheStates)
{
    fields.volumeTextureDirty() = false;
    fields.volumeListDirty() = false;
    fields.thickSliceListDirty() = false;
    fresh.setSliceMin(7.0F);
    fresh.setSliceMax(8.0F);
    fields.cropPlanes()[3][2] = 5.0;
    unsigned char voxels[8] = {};
    float extent[3] = {2.0F, 6.0F, 4.0F};  // of a, c, b
    ASSERT_TRUE(fresh.loadVolume(voxels, 2, 2, 2, 1000, 100, extent));
    EXPECT_EQ(fields.vertices()[6].position[0], 1.0);
    EXPECT_EQ(fields.vertices()[6].position[1], 2.0);
    EXPECT_EQ(fields.vertices()[6].position[2], 3.0);
    EXPECT_EQ(fields.vertices()[6].texture[2], 1.0);
    EXPECT_EQ(fields.edges()[11].first, 7);
    EXPECT_TRUE(fields.volumeTextureDirty());
    EXPECT_TRUE(fields.volumeListDirty());
    EXPECT_TRUE(fields.thickSliceListDirty());
    EXPECT_EQ(fields.sliceMin(), 0.0F);
    EXPECT_EQ(fields.sliceMax(), 100.0F);
    EXPECT_EQ(fields.cropPlanes()[3][2], 0.0);
}

TEST_F(NodeFields, ABoxThatMovesIsFollowed)
{
    fields.volumeListDirty() = false;
    Coord3d min(-1, -2, -3);
    Coord3d max(1, 2, 3);
    fresh.setBBox(min, max);
    EXPECT_EQ(fields.vertices()[6].position[1], 2.0);
    EXPECT_TRUE(fields.volumeListDirty());
}

TEST_F(NodeFields, CropOffsetsBecomePlanesAndAreAnnounced)
{
    Coord3d min(-1, -1, -1);
    Coord3d max(1, 1, 1);
    fresh.setBBox(min, max);
    fields.volumeListDirty() = false;
    QSignalSpy announced(&fresh, SIGNAL(onSignalVolumeCropParametersChanged()));
    Vec3f offsets[8];
    fresh.setCropBoxOffset(offsets);
    EXPECT_EQ(announced.count(), 1);
    EXPECT_EQ(fields.cropPlanes()[2][0], fields.cropPlanes()[2][3]);  // x + 1 >= 0, of any length
    EXPECT_GT(fields.cropPlanes()[2][0], 0.0);
    EXPECT_FALSE(fields.volumeListDirty()) << "clipping lies outside the lists";
    fresh.setCropBoxOffset(nullptr);
    EXPECT_EQ(announced.count(), 1);
}

TEST_F(NodeFields, NotificationsPassTheirFlagOn)
{
    QSignalSpy crop(&fresh, SIGNAL(onSignalCroppinEquationsChanged(bool)));
    QSignalSpy moved(&fresh, SIGNAL(onSignalTransformationChanged(bool)));
    fresh.notifyCropEquationsChanged(true);
    fresh.notifyCropEquationsChanged(false);
    fresh.notifyTransformationChanged(true);
    ASSERT_EQ(crop.count(), 2);
    EXPECT_TRUE(crop[0][0].toBool());
    EXPECT_FALSE(crop[1][0].toBool());
    ASSERT_EQ(moved.count(), 1);
    EXPECT_TRUE(moved[0][0].toBool());
}

TEST_F(NodeFields, TheSlotsAreKnownByName)
{
    const QMetaObject* meta = fresh.metaObject();
    for (const char* slot : {"render(bool,GLenum)", "render(bool)", "renderSlice(GLdouble*,GLuint)",
                             "renderThickSlice(int,double,double,GLenum,bool)", "recalculateGeometry()"})
        EXPECT_GE(meta->indexOfSlot(slot), 0) << slot;
    const int reset = meta->indexOfMethod("resetVolumeStates()");
    ASSERT_GE(reset, 0);
    fields.sliceMax() = 3.0F;
    EXPECT_TRUE(QMetaObject::invokeMethod(&fresh, "resetVolumeStates"));
    EXPECT_EQ(fields.sliceMax(), 100.0F);
}

TEST_F(NodeFields, TheDestructorDeletesWhatExists)
{
    loadConstant(4, 100);
    draw();
    double plane[4] = {0, 0, 1, 0};
    node->renderSlice(plane, ~GLuint(0));
    node->renderThickSlice(4, 0, 1, GL_FUNC_ADD, false);
    takeGlError();
    const GLuint textures[3] = {probe.volumeTex(), probe.colorTableTex(), probe.sliceColorTableTex()};
    const GLuint lists[2] = {probe.volumeList(), probe.thickSliceList()};
    for (GLuint texture : textures)
        EXPECT_TRUE(glIsTexture(texture));
    for (GLuint list : lists)
        EXPECT_TRUE(glIsList(list));
    node.reset();
    for (GLuint texture : textures)
        EXPECT_FALSE(glIsTexture(texture));
    for (GLuint list : lists)
        EXPECT_FALSE(glIsList(list));
    EXPECT_EQ(takeGlError(), GLenum(GL_NO_ERROR));
}

TEST(NodeWithoutAContext, IsMadeUsedAndDestroyedQuietly)
{
    CGLVolume node("GLVolume");
    unsigned char voxels[8] = {};
    float extent[3] = {1, 1, 1};
    ASSERT_TRUE(node.loadVolume(voxels, 2, 2, 2, 255, 0, extent));
    node.renderNode(GL_RENDER);
    double plane[4] = {0, 0, 1, 0};
    node.renderSlice(plane, 0);
    node.renderThickSlice(1, 0, 1, GL_MAX, true);
}

}  // namespace
