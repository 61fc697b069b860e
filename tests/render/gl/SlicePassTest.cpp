#include "support/NodeTest.h"

#include <QOpenGLFunctions>

namespace {

constexpr GLuint kOwn = ~GLuint(0);

struct SlicePass : NodeTest
{
    SlicePass()
    {
        canvas.clear();
        makePrograms();
    }

    /// The programs are built by the scene's walk; a mode that draws nothing is enough.
    void makePrograms()
    {
        loadConstant(8, 150);
        node->renderNode(GL_SELECT);
        setFullBar();
    }

    /// The bar that shows each voxel in its own grey. A load puts it back to 0 to 100.
    void setFullBar()
    {
        node->setSliceMin(0);
        node->setSliceMax(255);
    }

    void slice(double a, double b, double c, double d, GLuint id = kOwn)
    {
        canvas.clear();
        double plane[4] = {a, b, c, d};
        node->renderSlice(plane, id);
        takeGlError();  // the hint that today's drivers don't know
    }
};

TEST_F(SlicePass, ShowsTheVoxelInTheGreyOfTheSlicePalette)
{
    slice(0, 0, 1, 0.1);
    EXPECT_THAT(canvas.at(0, 0), IsColor(150, 150, 150, 1));
    EXPECT_THAT(canvas.at(0.8, -0.8), IsColor(150, 150, 150, 1));
    EXPECT_THAT(canvas.at(1.1, 0), IsColor(0, 0, 0, 0));
}

TEST_F(SlicePass, TheOpacityScalesTheAlpha)
{
    node->setSliceOpacity(0.5F);
    slice(0, 0, 1, 0.1);
    EXPECT_THAT(canvas.at(0, 0), IsColor(75, 75, 75, 1));
}

TEST_F(SlicePass, TheWidthOfTheBarScalesTheValueAndItsMinimumIsNotSubtracted)
{
    loadConstant(8, 100);
    node->setSliceMin(50);
    node->setSliceMax(250);
    slice(0, 0, 1, 0.1);  // 100 / 200 of the table
    EXPECT_THAT(canvas.at(0, 0), IsColor(127, 127, 127, 1));
}

TEST_F(SlicePass, BelowTheBarTheSliceIsTransparent)
{
    loadConstant(8, 100);
    node->setSliceMin(101);
    node->setSliceMax(200);
    slice(0, 0, 1, 0.1);
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
}

TEST_F(SlicePass, AboveTheBarTheLastEntryShows)
{
    node->setSliceMin(20);
    node->setSliceMax(120);
    slice(0, 0, 1, 0.1);
    EXPECT_THAT(canvas.at(0, 0), IsColor(255, 255, 255, 0));
}

TEST_F(SlicePass, TheBarIsInIntensitiesOfTheSource)
{
    std::vector<unsigned char> voxels(512, 100);
    float extent[3] = {2, 2, 2};
    ASSERT_TRUE(node->loadVolume(voxels.data(), 8, 8, 8, 3000, static_cast<unsigned long>(-1000), extent));
    ASSERT_EQ(node->getMin(), -1000);
    node->setSliceMin(-1000 + 4000 * 0.2F);
    node->setSliceMax(-1000 + 4000 * 0.7F);
    slice(0, 0, 1, 0.1);  // (100 / 255) / 0.5 of 255
    EXPECT_THAT(canvas.at(0, 0), IsColor(200, 200, 200, 1));
    node->setSliceMin(-1000 + 4000 * 0.4F);  // 0.392 is below
    slice(0, 0, 1, 0.1);
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
}

TEST_F(SlicePass, WithTheTransferFunctionTheTablesOwnAlphaStands)
{
    setTable(200, 100, 50, 128);
    node->setSliceUseTransferFunction(true);
    node->setSliceOpacity(0.1F);
    node->setSliceMin(200);  // neither opacity nor bar count
    slice(0, 0, 1, 0.1);
    EXPECT_THAT(canvas.at(0, 0), IsColor(100, 50, 25, 1));
    node->setSliceUseTransferFunction(false);
    slice(0, 0, 1, 0.1);
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
}

TEST_F(SlicePass, APlaneThatMissesTheBoxDrawsNothing)
{
    slice(0, 0, 1, 1.2);
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
}

TEST_F(SlicePass, APlaneOnAFaceStillDraws)
{
    slice(0, 0, 1, 1.0);
    EXPECT_GT(canvas.at(0, 0).r, 60);  // half: the texture fades at the face
}

TEST_F(SlicePass, CutsAtTheRightPlace)
{
    load(8, 8, 8, [](int, int, int z) { return 20 + 20 * z; });
    setFullBar();
    slice(0, 0, 1, 0.125);  // the middle of voxel 4
    EXPECT_THAT(canvas.at(0, 0), IsColor(100, 100, 100, 1));
    slice(0, 0, -1, 0.625);  // the middle of voxel 1
    EXPECT_THAT(canvas.at(0, 0), IsColor(40, 40, 40, 1));
}

TEST_F(SlicePass, ThePlaneIsInTheScenesSpaceUnlessTheIdSaysOwn)
{
    load(8, 8, 8, [](int, int, int z) { return 20 + 20 * z; });
    setFullBar();
    matrix shift;
    shift(0, 3) = 0.5;
    shift(2, 3) = 0.25;
    node->setTransformation(shift);
    slice(0, 0, 1, 0.375, 0);  // 0.125 in the node's own space
    EXPECT_THAT(canvas.at(0, 0), IsColor(100, 100, 100, 1));
    EXPECT_THAT(canvas.at(1.3, 0), IsColor(100, 100, 100, 1));
    EXPECT_THAT(canvas.at(-0.7, 0), IsColor(0, 0, 0, 0));
    slice(0, 0, 1, 0.125, kOwn);
    EXPECT_THAT(canvas.at(-0.7, 0), IsColor(100, 100, 100, 1));
    EXPECT_THAT(canvas.at(1.3, 0), IsColor(0, 0, 0, 0));
}

TEST_F(SlicePass, TheCropFollowsTheSpaceOfThePlane)
{
    Vec3f offsets[8];
    for (int corner : {1, 2, 5, 6})
        offsets[corner].set(-1.0, 0.0, 0.0);  // x <= 0 is kept
    node->setCropBoxOffset(offsets);
    slice(0, 0, 1, 0.1);
    EXPECT_THAT(canvas.at(-0.3, 0), IsColor(150, 150, 150, 1));
    EXPECT_THAT(canvas.at(0.3, 0), IsColor(0, 0, 0, 0));
    matrix shift;
    shift(0, 3) = 0.5;
    node->setTransformation(shift);
    slice(0, 0, 1, 0.1, 0);
    EXPECT_THAT(canvas.at(0.3, 0), IsColor(150, 150, 150, 1));
    EXPECT_THAT(canvas.at(0.7, 0), IsColor(0, 0, 0, 0));
    node->setCropEnabled(false);
    slice(0, 0, 1, 0.1, 0);
    EXPECT_THAT(canvas.at(0.7, 0), IsColor(150, 150, 150, 1));
}

TEST_F(SlicePass, HasNoTestOfTheAlphaFunction)
{
    glAlphaFunc(GL_EQUAL, 0.5F);
    slice(0, 0, 1, 0.1);
    EXPECT_THAT(canvas.at(0, 0), IsColor(150, 150, 150, 1));
}

TEST_F(SlicePass, AHiddenObjectAndANullPlaneDrawNothing)
{
    node->show(false);
    slice(0, 0, 1, 0.1);
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
    node->show(true);
    node->renderSlice(nullptr, kOwn);
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
}

TEST_F(SlicePass, SetsItsUniforms)
{
    node->setSliceMin(51);
    node->setSliceMax(204);
    node->setSliceOpacity(0.75F);
    slice(0, 0, 1, 0.1);
    QOpenGLFunctions& gl = *canvas.context().functions();
    const GLuint program = probe.sliceProgram().getID();
    const auto value = [&](const char* name) {
        float v = -1.0F;
        gl.glGetUniformfv(program, gl.glGetUniformLocation(program, name), &v);
        return v;
    };
    EXPECT_EQ(value("volumeData"), 0.0F);
    EXPECT_EQ(value("colorTable"), 2.0F);
    EXPECT_EQ(value("bSliceUseTransferFunction"), 0.0F);
    EXPECT_FLOAT_EQ(value("sliceMinColorBar"), 0.2F);
    EXPECT_FLOAT_EQ(value("sliceMaxColorBar"), 0.8F);
    EXPECT_EQ(value("sliceOpacity"), 0.75F);
}

// --- thick slices ---

struct ThickSlicePass : NodeTest
{
    ThickSlicePass()
    {
        loadConstant(8, 150);
        setTable(255, 255, 255, 60);
        use(false);
        draw();  // leaves the shading parameters
    }

    void thick(int axis, double position, double thickness, GLenum mode = GL_FUNC_ADD, double depth = 1.0)
    {
        canvas.clear(depth);
        node->renderThickSlice(axis, position, thickness, mode, false);
        EXPECT_EQ(takeGlError(), GLenum(GL_NO_ERROR));
    }

    /// Quads of z lie at -1 + step * i, step = 2 / 9: 1 + 2 / 0.25 of them.
    double grey(int slices) const { return composited(1.0, sliceAlpha(60 / 255.0, 1.0), slices); }
};

TEST_F(ThickSlicePass, ShowsTheSlicesBetweenItsPlanes)
{
    thick(4, 0.0, 0.3);  // -0.111 and 0.111
    EXPECT_THAT(canvas.at(0, 0), IsColor(grey(2), grey(2), grey(2), 2));
    thick(4, 0.0, 0.7);  // and -0.333, 0.333
    EXPECT_THAT(canvas.at(0, 0), IsColor(grey(4), grey(4), grey(4), 3));
    thick(4, 0.0, 0.0);
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
}

TEST_F(ThickSlicePass, EachAxisHasItsSlab)
{
    for (int axis : {1, 2}) {
        glLoadIdentity();
        if (axis == 1) glRotated(-90, 0, 1, 0);
        if (axis == 2) glRotated(90, 1, 0, 0);
        probe.thickSliceListDirty() = true;
        thick(axis, 0.0, 0.3);
        EXPECT_THAT(canvas.at(0, 0), IsColor(grey(2), grey(2), grey(2), 2)) << "axis " << axis;
    }
}

TEST_F(ThickSlicePass, DoesNotLookAtTheDepthAndWritesNone)
{
    glEnable(GL_DEPTH_TEST);
    thick(4, 0.0, 0.3, GL_FUNC_ADD, 0.1);
    EXPECT_THAT(canvas.at(0, 0), IsColor(grey(2), grey(2), grey(2), 2));
    EXPECT_NEAR(canvas.depthAt(0, 0), 0.1, 1e-4);
}

TEST_F(ThickSlicePass, DoesNotUseTheCropPlanes)
{
    Vec3f offsets[8];
    for (int corner : {1, 2, 5, 6})
        offsets[corner].set(-1.0, 0.0, 0.0);
    node->setCropBoxOffset(offsets);
    thick(4, 0.0, 0.3);
    EXPECT_THAT(canvas.at(0.5, 0), IsColor(grey(2), grey(2), grey(2), 2));
}

TEST_F(ThickSlicePass, TheModeIsTheCallersNotTheNodes)
{
    node->setMIP(true);
    thick(4, 0.0, 0.3);
    EXPECT_THAT(canvas.at(0, 0), IsColor(grey(2), grey(2), grey(2), 2));
    node->setMIP(false);
    thick(4, 0.0, 0.3, GL_MAX);
    EXPECT_THAT(canvas.at(0, 0), IsColor(255, 255, 255, 0));
}

TEST_F(ThickSlicePass, UsesItsListAgainWhenTheSlabMoves)
{
    thick(4, 0.0, 0.3);
    const GLuint list = probe.thickSliceList();
    EXPECT_FALSE(probe.thickSliceListDirty());
    glNewList(list, GL_COMPILE);  // a list without slices: what is used again draws nothing
    glEndList();
    thick(4, 0.2, 0.5);
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
    node->setLevelOfDetail(200);
    thick(4, 0.2, 0.5);
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0)) << "the density does not outdate this list";
    node->setLevelOfDetail(100);
    node->recalculateGeometry();
    thick(4, 0.0, 0.3);
    EXPECT_THAT(canvas.at(0, 0), IsColor(grey(2), grey(2), grey(2), 2));
    EXPECT_EQ(probe.thickSliceList(), list);
    glNewList(list, GL_COMPILE);
    glEndList();
    glTranslated(0.01, 0, 0);
    thick(4, 0.0, 0.3);
    EXPECT_THAT(canvas.at(0, 0), IsColor(grey(2), grey(2), grey(2), 2)) << "another matrix";
}

TEST_F(ThickSlicePass, DrawsNothingInAPassWithTheAlphaFunctionEqual)
{
    glAlphaFunc(GL_EQUAL, 0.5F);
    thick(4, 0.0, 0.3);
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
}

TEST_F(ThickSlicePass, AnUnknownAxisDrawsNothing)
{
    thick(3, 0.0, 0.3);
    EXPECT_THAT(canvas.at(0, 0), IsColor(0, 0, 0, 0));
}

TEST_F(ThickSlicePass, SetsItsOwnUniformsAndLeavesTheShading)
{
    node->setShininess(9.0F);
    node->setLighting(true);
    canvas.clear();
    node->renderThickSlice(4, 0.0, 0.3, GL_FUNC_ADD, true);
    QOpenGLFunctions& gl = *canvas.context().functions();
    const GLuint program = probe.volumeProgram().getID();
    const auto value = [&](const char* name) {
        float v[3] = {-1.0F, -1.0F, -1.0F};
        gl.glGetUniformfv(program, gl.glGetUniformLocation(program, name), v);
        return v[0];
    };
    EXPECT_EQ(value("bLighting"), 1.0F);
    EXPECT_EQ(value("shininess"), 6.0F) << "of the last volume pass";
    node->renderThickSlice(4, 0.0, 0.3, GL_FUNC_ADD, false);
    EXPECT_EQ(value("bLighting"), 0.0F);
}

}  // namespace
