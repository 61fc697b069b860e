#include "support/NodeTest.h"

namespace {

/// Colours on the lit path. Maximum intensity shows the colour of a fragment whatever its opacity, and the
/// crop keeps the faces of the box, where the texture fades, out of the picture.
struct Lighting : NodeTest
{
    Lighting()
    {
        node->setMIP(true);
        node->setLighting(true);
        node->setCropBoxOffset(crop());
    }

    static Vec3f* crop()
    {
        static Vec3f offsets[8];
        for (int k = 0; k < 8; ++k)
            offsets[k].set(-0.7, -0.7, 0.7);
        return offsets;
    }

    /// Values from 60 to 200, rising along z, or falling.
    void loadRamp(bool rising)
    {
        load(8, 8, 8, [=](int, int, int z) { return 60 + 20 * (rising ? z : 7 - z); });
        node->setCropBoxOffset(crop());
    }
};

TEST_F(Lighting, ABlackSurfaceFacingAwayShowsTheEmissionOnly)
{
    loadRamp(true);  // the gradient points to the viewer, against the view
    setTable(0, 0, 0, 128);
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(0.06 * 255, 0.06 * 255, 0.06 * 255, 1));
}

TEST_F(Lighting, AGradientAlongTheViewHasAHighlight)
{
    loadRamp(false);
    setTable(0, 0, 0, 128);
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(0.36 * 255, 0.36 * 255, 0.36 * 255, 1));
}

TEST_F(Lighting, AmbientAndDiffuseScaleTheColourOnBothSides)
{
    setTable(128, 64, 0, 128);
    loadRamp(true);
    draw();  // c * (0.2 + 0.8) + 0.06
    EXPECT_THAT(canvas.at(0, 0), IsColor(128 + 15.3, 64 + 15.3, 15.3, 1));
    loadRamp(false);
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(128 + 91.8, 64 + 91.8, 91.8, 1));
}

TEST_F(Lighting, TheDiffuseTermIsTheCosine)
{
    loadRamp(true);
    setTable(200, 200, 200, 128);
    node->setLightIntensity(0.0F, 0.5F, 0.0F);
    node->setEmissionCompensation(0.0F);
    glRotated(60, 0, 1, 0);
    draw();  // 200 * 0.5 * cos 60
    EXPECT_THAT(canvas.at(0, 0), IsColor(50, 50, 50, 1));
}

TEST_F(Lighting, TheShininessIsTheExponentOfTheHighlight)
{
    loadRamp(false);
    setTable(0, 0, 0, 128);
    node->setLightIntensity(0.0F, 0.0F, 1.0F);
    node->setEmissionCompensation(0.0F);
    node->setShininess(2.0F);
    glRotated(60, 0, 1, 0);
    draw();  // 0.5 squared
    EXPECT_THAT(canvas.at(0, 0), IsColor(63.75, 63.75, 63.75, 1));
}

TEST_F(Lighting, WithoutAGradientTheColourStays)
{
    loadConstant(8, 200);
    node->setCropBoxOffset(crop());
    setTable(100, 100, 100, 128);
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(100, 100, 100, 0));
}

TEST_F(Lighting, WithoutLightingTheColourStays)
{
    loadRamp(false);
    setTable(100, 100, 100, 128);
    node->setLighting(false);
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(100, 100, 100, 0));
}

TEST_F(Lighting, WhatIsNearlyClearIsNotLit)
{
    loadRamp(true);
    setTable(100, 100, 100, 2);  // 0.0078
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(100, 100, 100, 0));
    setTable(100, 100, 100, 4);  // 0.0157
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(115, 115, 115, 1));
}

TEST_F(Lighting, WhileTheUserDragsOnlyWhatIsWellVisibleIsLit)
{
    loadRamp(true);
    setTable(100, 100, 100, 64);  // 0.25, below 0.3
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(115, 115, 115, 1));
    services.setFastRenderingMode(true);
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(100, 100, 100, 0));
    setTable(100, 100, 100, 90);
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(115, 115, 115, 1));
}

TEST_F(Lighting, WhileTheUserDragsAFaintGradientIsNotLit)
{
    // One grey level a voxel: half the difference over two voxels is 0.0039, over four, at density 50,
    // 0.0078.
    load(8, 8, 8, [](int, int, int z) { return 100 + z; });
    node->setCropBoxOffset(crop());
    setTable(100, 100, 100, 128);
    draw();  // above 0.001
    EXPECT_THAT(canvas.at(0, 0), IsColor(115, 115, 115, 1));
    services.setFastRenderingMode(true);
    draw();  // below 0.01
    EXPECT_THAT(canvas.at(0, 0), IsColor(100, 100, 100, 0));
}

TEST_F(Lighting, IsTheSameInTheQualityText)
{
    loadRamp(false);
    setTable(128, 64, 0, 128);
    use(false);
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(128 + 91.8, 64 + 91.8, 91.8, 1));
    node->setFilterDenoiseGradient(true);  // the mean of equal gradients is the same
    draw();
    EXPECT_THAT(canvas.at(0, 0), IsColor(128 + 91.8, 64 + 91.8, 91.8, 1));
}

// The filters of the quality text.

struct Filters : NodeTest
{
    Filters() { use(false); }
};

TEST_F(Filters, TheMedianRemovesASaltVoxel)
{
    load(8, 8, 8, [](int x, int y, int z) { return x == 4 && y == 4 && z == 4 ? 250 : 50; });
    setRamp(30);
    node->setMIP(true);
    draw();
    EXPECT_GT(canvas.at(0.125, 0.125).r, 140);
    node->setMedianFilterDenoise(true);
    draw();
    EXPECT_THAT(canvas.at(0.125, 0.125), IsColor(50, 50, 50, 1));
    services.setFastRenderingMode(true);
    draw();
    EXPECT_GT(canvas.at(0.125, 0.125).r, 140) << "filters are off while the user drags";
}

TEST_F(Filters, TheMedianHasNoEffectInThePerformanceText)
{
    load(8, 8, 8, [](int x, int y, int z) { return x == 4 && y == 4 && z == 4 ? 250 : 50; });
    setRamp(30);
    node->setMIP(true);
    use(true);
    draw();
    const QByteArray plain = canvas.pixels();
    node->setMedianFilterDenoise(true);
    node->setFilterDenoiseGradient(true);
    draw();
    EXPECT_EQ(canvas.pixels(), plain);
}

TEST_F(Filters, AnEdgeIsMedianedToEitherSide)
{
    // A step between x = 3 and x = 4: five of nine samples decide, so the ramp between the two stays a ramp
    // of the middle sample, and both sides keep their values.
    load(8, 8, 8, [](int x, int, int) { return x < 4 ? 60 : 180; });
    setRamp(30);
    node->setMIP(true);
    node->setMedianFilterDenoise(true);
    draw();
    EXPECT_THAT(canvas.at(-0.3, 0), IsColor(60, 60, 60, 2));
    EXPECT_THAT(canvas.at(0.3, 0), IsColor(180, 180, 180, 2));
    EXPECT_THAT(canvas.at(0.0, 0), IsColor(120, 120, 120, 12));
}

struct GradientFilter : Filters
{
    // Maximum intensity of black surfaces: emission, and a highlight of 0.3 (N . E) ^ 6. A faint ramp along z
    // falls towards the viewer; noise along x tilts single gradients.
    GradientFilter()
    {
        node->setMIP(true);
        node->setLighting(true);
        load(16, 16, 16,
             [](int x, int y, int z) { return 160 - 4 * z + ((x + 2 * y + 3 * z) % 5 == 0 ? 6 : 0); });
        Vec3f offsets[8];
        for (Vec3f& offset : offsets)
            offset.set(-0.5, -0.5, 0.5);
        node->setCropBoxOffset(offsets);
        setTable(0, 0, 0, 128);
    }

    int darkest() const
    {
        int least = 255;
        for (double x = -0.4; x <= 0.4; x += 0.05)
            for (double y = -0.4; y <= 0.4; y += 0.05)
                least = std::min(least, canvas.at(x, y).r);
        return least;
    }
};

TEST_F(GradientFilter, SmoothsFaintGradients)
{
    draw();
    const QByteArray plain = canvas.pixels();
    node->setFilterDenoiseGradient(true);
    draw();
    EXPECT_NE(canvas.pixels(), plain);
}

TEST_F(GradientFilter, LeavesGradientsAboveTheThreshold)
{
    draw();
    const QByteArray plain = canvas.pixels();
    node->setFilterDenoiseGradient(true);
    probe.gradientSmoothThreshold() = 0.0F;
    draw();
    EXPECT_EQ(canvas.pixels(), plain);
}

TEST_F(GradientFilter, IsOffWhileTheUserDrags)
{
    services.setFastRenderingMode(true);
    draw();
    const QByteArray plain = canvas.pixels();
    node->setFilterDenoiseGradient(true);
    node->setMedianFilterDenoise(true);
    draw();
    EXPECT_EQ(canvas.pixels(), plain);
}

}  // namespace
