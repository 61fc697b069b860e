#include "render/logic/EffectSliders.h"
#include "support/NodeTest.h"
#include "support/UploadCounter.h"

#include <vector>

// What a change of the settings does to the next frame, and what it costs.

namespace {

/// A ramp along the view in front of which the whole light shows.
struct Settings : NodeTest
{
    Settings()
    {
        load(8, 8, 8, [](int, int, int z) { return 200 - 20 * z; });
        Vec3f offsets[8];
        for (Vec3f& offset : offsets)
            offset.set(-0.7, -0.7, 0.7);
        node->setCropBoxOffset(offsets);
        node->setMIP(true);
        node->setLighting(true);
        setTable(60, 60, 60, 128);
        use(false);
    }

    void light(const effect_sliders::Light& sliders)
    {
        node->setLightIntensity(effect_sliders::intensityAt(sliders.ambient),
                                effect_sliders::intensityAt(sliders.diffuse),
                                effect_sliders::intensityAt(sliders.highlight));
        node->setShininess(effect_sliders::shininessAt(sliders.shininess));
        node->setEmissionCompensation(effect_sliders::emissionAt(sliders.emission));
    }
    int grey()
    {
        draw();
        return canvas.at(0, 0).r;
    }
};

TEST_F(Settings, TheDefaultsAreTheNodesOwn)
{
    const int own = grey();
    light(effect_sliders::defaultLight);
    EXPECT_EQ(grey(), own);
    EXPECT_NEAR(own, 60 * (0.2 + 0.8) + 255 * (0.06 + 0.3), 2);
}

TEST_F(Settings, HighContrastIsBrighterByItsFormula)
{
    light(effect_sliders::highContrastLight);
    EXPECT_NEAR(grey(), 60 * (0.2 + 1.0) + 255 * (0.04 + 0.5), 2);
}

TEST_F(Settings, EachSliderOfTheLightAddsItsShare)
{
    light({0, 0, 0, 6, 0});
    EXPECT_NEAR(grey(), 0, 1);
    light({5, 0, 0, 6, 0});
    EXPECT_NEAR(grey(), 30, 2) << "ambient";
    light({0, 5, 0, 6, 0});
    EXPECT_NEAR(grey(), 30, 2) << "diffuse, seen head on";
    light({0, 0, 5, 6, 0});
    EXPECT_NEAR(grey(), 127.5, 2) << "highlight, seen head on";
    light({0, 0, 0, 6, 10});
    EXPECT_NEAR(grey(), 25.5, 2) << "emission";
    glRotated(60, 0, 1, 0);
    light({0, 0, 10, 1, 0});
    EXPECT_NEAR(grey(), 127.5, 3) << "cos 60";
    light({0, 0, 10, 2, 0});
    EXPECT_NEAR(grey(), 63.75, 3) << "cos 60, squared by the shininess";
}

TEST_F(Settings, ChangesCostNoUploadAndNoLink)
{
    draw();
    const UploadCounter uploads;
    const GLuint program = probe.volumeProgram().getID();
    const GLuint texture = probe.volumeTex();
    const std::vector<std::function<void()>> changes = {
        [this] { light(effect_sliders::highContrastLight); },
        [this] { node->setLighting(false); },
        [this] { node->setMIP(false); },
        [this] { node->setMedianFilterDenoise(true); },
        [this] { node->setFilterDenoiseGradient(true); },
        [this] { node->m_nLevelOfDetail = 200; },
        [this] { node->setQualityRenderingThreshold(0.02F); },
        [this] { node->setCropEnabled(false); },
        [this] { setTable(90, 90, 90, 90); },
        [this] { services.setFastRenderingMode(true); },
        [this] { services.setFastRenderingMode(false); },
        [this] { node->setShadersReady(false); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        changes[i]();
        draw();
        EXPECT_EQ(uploads.count(), 0) << i;
        EXPECT_EQ(probe.volumeProgram().getID(), program) << i;
        EXPECT_EQ(probe.volumeTex(), texture) << i;
    }
}

TEST_F(Settings, AnotherModeLinksOnceAndUploadsNothing)
{
    draw();
    const UploadCounter uploads;
    const GLuint quality = probe.volumeProgram().getID();
    use(true);
    draw();
    const GLuint performance = probe.volumeProgram().getID();
    EXPECT_NE(performance, quality);
    draw();
    EXPECT_EQ(probe.volumeProgram().getID(), performance);
    EXPECT_EQ(uploads.count(), 0);
}

TEST_F(Settings, ATextThatDoesNotLinkIsToldOnceAndFramesGoOn)
{
    // A second main() in the way of the node's own text.
    ASSERT_TRUE(probe.volumeProgram().addShader_Source(FRAGMENT_SHADER, "intruder",
                                                       "void main() { gl_FragColor = vec4(1.0); }"));
    for (int frame = 0; frame < 4; ++frame)
        draw();
    EXPECT_FALSE(probe.shadersReady());
    ASSERT_EQ(services.messages(3).size(), 1);
    EXPECT_TRUE(services.messages(3)[0].contains("volume_fp"));
    EXPECT_TRUE(services.boxes().isEmpty());
}

TEST_F(Settings, AContextThatGoesBetweenFramesIsSurvived)
{
    draw();
    const QByteArray before = canvas.pixels();
    {
        GlCanvas other(64, &canvas.context());  // another view of the same objects
        node->renderNode(GL_RENDER);
        EXPECT_EQ(takeGlError(), GLenum(GL_NO_ERROR));
        EXPECT_EQ(other.pixels(), before);
    }  // and no context is current
    node->renderNode(GL_RENDER);
    node->render(true);
    double plane[4] = {0, 0, 1, 0};
    node->renderSlice(plane, 0);
    node->renderThickSlice(4, 0, 1, GL_MAX, true);
    node->setMedianFilterDenoise(true);
    use(true);
    use(false);
    node->setMedianFilterDenoise(false);
    canvas.resume();
    draw();
    EXPECT_EQ(canvas.pixels(), before);
}

TEST_F(Settings, AContextThatKnowsNoneOfTheNodesObjectsShowsNothingOfIt)
{
    draw();
    const QByteArray before = canvas.pixels();
    {
        const GlCanvas foreign;
        node->renderNode(GL_RENDER);
        while (takeGlError() != GL_NO_ERROR) {
        }
    }
    EXPECT_TRUE(services.boxes().isEmpty());
    canvas.resume();
    draw();
    EXPECT_EQ(canvas.pixels(), before);
}

}  // namespace
