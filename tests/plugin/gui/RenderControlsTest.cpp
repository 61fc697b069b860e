#include "gui/PluginBench.h"
#include "gui/SetMeter.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "lib/hvapi/scene/C3DVolumePrivate.h"
#include "render/CGLVolume.h"
#include "render/support/CGLVolumeProbe.h"
#include "support/RenderQuestion.h"

#include <QTest>

using viz_test::RenderQuestion;

namespace {

constexpr double limit = 0.1;              // of a fresh node, seconds
constexpr double performanceLimit = 0.04;  // four tenths of it

/// Tells of each frame of its scene.
class FrameTeller : public C3DObject
{
public:
    explicit FrameTeller(std::function<void()> tell)
        : C3DObject(QStringLiteral("FrameTeller"))
        , m_tell(std::move(tell))
    {}
    void renderNode(GLenum mode) override
    {
        if (mode == GL_RENDER) m_tell();
    }

private:
    std::function<void()> m_tell;
};

/// A loaded volume in Quality Mode, as a fast card leaves it.
class RenderControls : public PluginBench
{
protected:
    void SetUp() override
    {
        sequence = openCurrent("S1");
        ASSERT_TRUE(palette->onLoadVolumeData({writeRaw("a.raw")}, -1, -1));
        node = nodeOf(sequence);
        scene = sceneOf(sequence);
        meter->calls.clear();
        host.entries.clear();
    }

    QCheckBox* quality() { return palette->m_pBestRenderQualityCheckBox; }
    QCheckBox* denoise() { return palette->m_pMedianFilterDenoiseCheckBox; }
    QCheckBox* mip() { return palette->m_pMIPCheckBox; }
    QCheckBox* light() { return palette->m_pLightingCheckBox; }

    void addFrameTeller()
    {
        auto* teller = new FrameTeller([this] { meter->calls.append("frame"); });
        ASSERT_TRUE(sequence->get3DSGManager()->addChild(sequence->get3DSGManager()->getRootNode(), teller));
        scene->addToScene(teller);
        QCoreApplication::processEvents();
        meter->calls.clear();
    }

    void expectPerformanceMode()
    {
        EXPECT_TRUE(node->isRenderInBestPerformance());
        EXPECT_FALSE(node->isFilterDenoiseGradient());
        EXPECT_FALSE(node->isMedianFilterDenoise());
        EXPECT_FALSE(quality()->isChecked());
        EXPECT_FALSE(denoise()->isChecked());
        EXPECT_FALSE(denoise()->isEnabled());
        EXPECT_FALSE(record("S1").bBestQuality);
        EXPECT_FALSE(record("S1").bMedianFilterDenoise);
        EXPECT_FALSE(record("S1").bFilterDenoiseGradient);
    }

    void expectQualityMode()
    {
        EXPECT_FALSE(node->isRenderInBestPerformance());
        EXPECT_TRUE(node->isFilterDenoiseGradient());
        EXPECT_TRUE(quality()->isChecked());
        EXPECT_TRUE(denoise()->isEnabled());
        EXPECT_TRUE(record("S1").bBestQuality);
        EXPECT_TRUE(record("S1").bFilterDenoiseGradient);
    }

    CHVSSequenceDataset* sequence = nullptr;
    CGLVolume* node = nullptr;
    C3DScene* scene = nullptr;
};

}  // namespace

TEST_F(RenderControls, AreThereWithAVolume)
{
    for (QWidget* control :
         {static_cast<QWidget*>(quality()), static_cast<QWidget*>(denoise()), static_cast<QWidget*>(mip()),
          static_cast<QWidget*>(light()), static_cast<QWidget*>(palette->m_pRenderEffectsDlgButton)})
        EXPECT_TRUE(control->isEnabled()) << control->objectName().toStdString();
    EXPECT_TRUE(light()->isChecked());
    EXPECT_FALSE(mip()->isChecked());
    expectQualityMode();
}

TEST_F(RenderControls, MaximumIntensityTakesTheLightAway)
{
    mip()->click();
    EXPECT_TRUE(node->isMIP());
    EXPECT_EQ(node->getLighting(), 0.0F);
    EXPECT_FALSE(light()->isChecked());
    EXPECT_FALSE(light()->isEnabled());
    EXPECT_TRUE(record("S1").bMIP);
    EXPECT_FALSE(record("S1").bLighting);
    EXPECT_FALSE(record("S1").bLightingEnabled);
    mip()->click();
    EXPECT_FALSE(node->isMIP());
    EXPECT_EQ(node->getLighting(), 0.0F) << "it does not come back by itself";
    EXPECT_TRUE(light()->isEnabled());
    EXPECT_FALSE(record("S1").bMIP);
    EXPECT_TRUE(record("S1").bLightingEnabled);
}

TEST_F(RenderControls, TheLightTakesMaximumIntensityAway)
{
    light()->click();
    EXPECT_EQ(node->getLighting(), 0.0F);
    EXPECT_FALSE(record("S1").bLighting);
    EXPECT_TRUE(mip()->isEnabled());
    EXPECT_TRUE(record("S1").bMIPEnabled);
    {
        const QSignalBlocker quiet(mip());  // both, as only a program can leave them
        mip()->setChecked(true);
    }
    node->setMIP(true);
    light()->click();
    EXPECT_EQ(node->getLighting(), 1.0F);
    EXPECT_TRUE(record("S1").bLighting);
    EXPECT_FALSE(mip()->isChecked());
    EXPECT_FALSE(mip()->isEnabled());
    EXPECT_FALSE(node->isMIP());
    EXPECT_FALSE(record("S1").bMIP);
    EXPECT_FALSE(record("S1").bMIPEnabled);
}

TEST_F(RenderControls, TheEffectsAreThoseOfTheLight)
{
    light()->click();
    EXPECT_FALSE(palette->m_pRenderEffectsDlgButton->isEnabled());
    light()->click();
    EXPECT_TRUE(palette->m_pRenderEffectsDlgButton->isEnabled());
}

TEST_F(RenderControls, DenoisingReachesTheNode)
{
    denoise()->click();
    EXPECT_TRUE(node->isMedianFilterDenoise());
    EXPECT_TRUE(record("S1").bMedianFilterDenoise);
    denoise()->click();
    EXPECT_FALSE(node->isMedianFilterDenoise());
    EXPECT_FALSE(record("S1").bMedianFilterDenoise);
}

TEST_F(RenderControls, EachSettingIsPaintedAtOnceAndOnce)
{
    addFrameTeller();
    denoise()->click();
    EXPECT_EQ(meter->calls, QStringList("frame"));
    meter->calls.clear();
    light()->click();
    EXPECT_EQ(meter->calls, QStringList("frame"));
    meter->calls.clear();
    palette->m_pLODSlider->setValue(150);
    EXPECT_EQ(meter->calls, QStringList("frame"));
}

TEST_F(RenderControls, LeavingQualityTakesTheFiltersAway)
{
    denoise()->click();
    quality()->click();
    expectPerformanceMode();
    EXPECT_TRUE(meter->calls.isEmpty()) << "nothing is measured on this way";
    EXPECT_TRUE(host.logged(16).isEmpty());
}

TEST_F(RenderControls, AMeasurementKeepsItsOrder)
{
    denoise()->click();
    quality()->click();
    addFrameTeller();
    quality()->click();
    EXPECT_EQ(meter->calls, QStringList({"finish", "start", "sleep 1", "frame", "finish", "read", "start",
                                         "sleep 1", "frame", "finish", "read"}));
    expectQualityMode();
}

TEST_F(RenderControls, TheMeasuredFrameIsTheHeaviestOfFewSlices)
{
    light()->click();
    palette->m_pLODSlider->setValue(180);
    quality()->click();
    CGLVolumeProbe probe{*node};
    int moments = 0;
    meter->onCall = [&](const QString& call) {
        if (call == "finish" && moments == 0) {
            ++moments;
            EXPECT_EQ(node->m_nLevelOfDetail, 180) << "the card is idle before anything changes";
            EXPECT_TRUE(node->isRenderInBestPerformance());
            EXPECT_EQ(node->getLighting(), 0.0F);
        } else if (call == "start" && moments == 1) {
            ++moments;
            EXPECT_EQ(node->m_nLevelOfDetail, 10);
            EXPECT_EQ(probe.sliceDensity(), 10);
            EXPECT_TRUE(probe.volumeListDirty());
            EXPECT_FALSE(node->isRenderInBestPerformance());
            EXPECT_TRUE(node->isFilterDenoiseGradient());
            EXPECT_TRUE(node->isMedianFilterDenoise());
            EXPECT_EQ(node->getLighting(), 1.0F);
        } else if (call == "read" && moments == 2) {
            ++moments;
            EXPECT_FALSE(probe.volumeListDirty()) << "the frame was drawn";
            EXPECT_EQ(probe.sliceDensity(), 10);
        } else if (call == "start" && moments == 3) {
            ++moments;
            EXPECT_EQ(node->m_nLevelOfDetail, 180);
            EXPECT_EQ(probe.sliceDensity(), 180);
            EXPECT_EQ(node->getLighting(), 0.0F);
            EXPECT_FALSE(node->isMedianFilterDenoise());
        } else if (call == "read" && moments == 4) {
            ++moments;
            EXPECT_TRUE(probe.shadersReady()) << "the program of the mode was taken";
            EXPECT_FALSE(probe.volumeListDirty());
        }
    };
    quality()->click();
    EXPECT_EQ(moments, 5);
    expectQualityMode();
}

TEST_F(RenderControls, TheShaderOfTheMeasurementIsTheOneInForce)
{
    quality()->click();
    QCoreApplication::processEvents();
    CGLVolumeProbe probe{*node};
    const GLuint performance = probe.volumeProgram().getID();
    bool measured = false;
    meter->onCall = [&](const QString& call) {
        if (call != "read" || measured) return;
        measured = true;
        EXPECT_EQ(probe.volumeProgram().getID(), performance);
    };
    quality()->click();
    EXPECT_TRUE(measured);
    EXPECT_NE(probe.volumeProgram().getID(), performance);
}

TEST_F(RenderControls, OpticalVoxelsTakePartInTheMeasurement)
{
    quality()->click();
    hvscene::OpticalVoxels voxels;
    for (int i = 0; i < 20; ++i)
        voxels.voxels.push_back({{0.1 * i, 0.0, 0.0}, {0.1, 0.1, 0.1}, 1.0F});
    auto* optical = new C3DVolume(hvscene::opticalVolumeName);
    optical->hostSide().setVoxels(voxels);
    ASSERT_TRUE(sequence->get3DSGManager()->addChild(sequence->get3DSGManager()->getRootNode(), optical));
    scene->addToScene(optical);
    optical->setMultiPassRenderWithDepthTest(false);
    ASSERT_EQ(optical->hostSide().drawnCount(), 20U);
    QList<int> drawn;
    meter->onCall = [&](const QString& call) {
        if (call == "start" || call == "read")
            drawn.append(static_cast<int>(optical->hostSide().drawnCount()));
    };
    quality()->click();
    EXPECT_EQ(drawn, QList<int>({1, 1, 20, 20})) << "a thirtieth of them, but at least one; then all";
    EXPECT_TRUE(optical->hostSide().comparesDepth()) << "this stays on";
}

namespace {

struct Reading
{
    double seconds;
    bool passes;
};

class FromPerformanceMode : public RenderControls, public testing::WithParamInterface<Reading>
{};
class FromQualityMode : public RenderControls, public testing::WithParamInterface<Reading>
{};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Readings, FromPerformanceMode,
                         testing::Values(Reading{0.039, true}, Reading{performanceLimit, true},
                                         Reading{0.041, false}, Reading{limit, false}));

TEST_P(FromPerformanceMode, FourTenthsOfTheLimitCount)
{
    quality()->click();
    meter->seconds = GetParam().seconds;
    const RenderQuestion::Answer no(QMessageBox::No);
    quality()->click();
    EXPECT_EQ(no.count(), GetParam().passes ? 0 : 1);
    if (GetParam().passes)
        expectQualityMode();
    else
        expectPerformanceMode();
}

INSTANTIATE_TEST_SUITE_P(Readings, FromQualityMode,
                         testing::Values(Reading{0.099, true}, Reading{limit, true}, Reading{0.101, false}));

TEST_P(FromQualityMode, TheWholeLimitCounts)
{
    // As a load does: the node is in Quality Mode and the box is checked.
    meter->seconds = GetParam().seconds;
    const RenderQuestion::Answer no(QMessageBox::No);
    palette->onBestRenderQualityCheckBoxToggled(true);
    EXPECT_EQ(no.count(), GetParam().passes ? 0 : 1);
    if (GetParam().passes)
        expectQualityMode();
    else
        expectPerformanceMode();
}

TEST_F(RenderControls, TheLimitIsTheNodes)
{
    node->setQualityRenderingThreshold(0.02F);
    meter->seconds = 0.021;
    const RenderQuestion::Answer no(QMessageBox::No);
    palette->onBestRenderQualityCheckBoxToggled(true);
    EXPECT_EQ(no.count(), 1);
}

TEST_F(RenderControls, TheQuestionHasItsWordsAndButtons)
{
    meter->seconds = 1.0;
    const RenderQuestion::Answer no(QMessageBox::No);
    palette->onBestRenderQualityCheckBoxToggled(true);
    ASSERT_EQ(no.count(), 1);
    EXPECT_EQ(no.title(), QString("Choose 3D Rendering Mode: Performance/Quality"));
    EXPECT_TRUE(no.text().startsWith("Current rendering speed of the Graphics Processing Unit is too low"));
    EXPECT_EQ(no.buttons(), QMessageBox::Yes | QMessageBox::No);
    EXPECT_EQ(no.defaultButton(), QMessageBox::No);
    EXPECT_EQ(no.icon(), QMessageBox::Warning);
}

TEST_F(RenderControls, NoEndsInPerformanceModeWithoutALine)
{
    denoise()->click();
    meter->seconds = 1.0;
    const RenderQuestion::Answer no(QMessageBox::No);
    palette->onBestRenderQualityCheckBoxToggled(true);
    expectPerformanceMode();
    EXPECT_TRUE(host.logged(16).isEmpty());
    EXPECT_EQ(node->m_nLevelOfDetail, 100);
    EXPECT_EQ(node->getLighting(), 1.0F);
}

TEST_F(RenderControls, YesKeepsQualityAndTheDenoiseBoxAsItIs)
{
    denoise()->click();
    meter->seconds = 0.5;
    const RenderQuestion::Answer yes(QMessageBox::Yes);
    palette->onBestRenderQualityCheckBoxToggled(true);
    EXPECT_EQ(yes.count(), 1);
    expectQualityMode();
    EXPECT_TRUE(denoise()->isChecked());
    EXPECT_TRUE(node->isMedianFilterDenoise());
    EXPECT_EQ(host.logged(16),
              QStringList("GPU Rendering Profile (Frame Time): Partial Prerendering (Quality Mode) 0.5s, "
                          "Quality Mode Requirement <0.1000s,Full regular rendering (Quality Mode) 0.5s."));
}

TEST_F(RenderControls, AFastCardIsLoggedToo)
{
    quality()->click();
    quality()->click();
    EXPECT_EQ(
        host.logged(16),
        QStringList("GPU Rendering Profile (Frame Time): Partial Prerendering (Performance Mode) 0.001s, "
                    "Quality Mode Requirement <0.0400s,Full regular rendering (Quality Mode) 0.001s."));
}

TEST_F(RenderControls, ALoadMeasures)
{
    EXPECT_TRUE(palette->onLoadVolumeData({writeRaw("b.raw")}, -1, -1));
    EXPECT_EQ(meter->calls.count("read"), 2);
    EXPECT_EQ(host.logged(16).size(), 1);
}

// The 3D view of an optical sequence is made by the load itself.
TEST_F(RenderControls, TheFirstFrameOfAViewIsDrawnForTheMeasurement)
{
    for (const SequenceKind kind : {SequenceKind::Scene3D, SequenceKind::Sla}) {
        CHVSSequenceDataset* fresh = openCurrent(kind == SequenceKind::Sla ? "S7" : "S8", kind);
        int reads = 0;
        meter->onCall = [&](const QString& call) {
            if (call != "read") return;
            ++reads;
            ASSERT_NE(nodeOf(fresh), nullptr);
            CGLVolumeProbe probe{*nodeOf(fresh)};
            EXPECT_FALSE(probe.volumeListDirty()) << "read " << reads;
            EXPECT_FALSE(probe.volumeTextureDirty()) << "read " << reads;
            EXPECT_EQ(probe.sliceDensity(), reads == 1 ? 10 : 100);
        };
        EXPECT_TRUE(palette->onLoadVolumeData({writeRaw("b.raw")}, -1, -1));
        EXPECT_EQ(reads, 2);
        meter->onCall = nullptr;
    }
}

TEST_F(RenderControls, TheMeasurementOfNothingFails)
{
    double seconds = 5.0;
    EXPECT_FALSE(palette->evaluateRenderPerformance(nullptr, node, 10, 0.1, &seconds));
    EXPECT_FALSE(palette->evaluateRenderPerformance(windowOf(sequence), nullptr, 10, 0.1, &seconds));
    EXPECT_FALSE(palette->evaluateRenderPerformance(windowOf(sequence), node, 10, 0.1, nullptr));
    palette->setRenderMeter(nullptr);
    quality()->click();
    quality()->click();
    EXPECT_EQ(meter->calls.count("read"), 2) << "the stopwatch stays";
}

TEST_F(RenderControls, ASlowCardsLoadAsksAndEndsInPerformanceMode)
{
    meter->seconds = 1.0;
    const RenderQuestion::Answer no(QMessageBox::No);
    EXPECT_TRUE(palette->onLoadVolumeData({writeRaw("b.raw")}, -1, -1));
    EXPECT_EQ(no.count(), 1);
    expectPerformanceMode();
}

TEST_F(RenderControls, ALoadMeasuresThoughTheBoxIsClear)
{
    quality()->click();
    meter->calls.clear();
    EXPECT_TRUE(palette->onLoadVolumeData({writeRaw("b.raw")}, -1, -1));
    EXPECT_EQ(meter->calls.count("read"), 2);
    EXPECT_FALSE(node->isRenderInBestPerformance()) << "a fast card";
    EXPECT_FALSE(quality()->isChecked());
    EXPECT_FALSE(record("S1").bBestQuality);
}

TEST_F(RenderControls, SettingsOfTheRecordReachTheNodeOfTheNextLoad)
{
    light()->click();
    denoise()->click();
    node->setLighting(true);
    node->setMIP(true);
    node->setMedianFilterDenoise(false);
    EXPECT_TRUE(palette->onLoadVolumeData({writeRaw("b.raw")}, -1, -1));
    EXPECT_EQ(node->getLighting(), 0.0F);
    EXPECT_FALSE(node->isMIP());
    EXPECT_TRUE(node->isMedianFilterDenoise());
}

TEST_F(RenderControls, WithoutASequenceNothingHappens)
{
    palette->onSequenceChanged(nullptr);
    palette->onMIPToggled(true);
    palette->onLightingToggled(true);
    palette->onMedianFilterDenoiseToggled(true);
    palette->onBestRenderQualityCheckBoxToggled(true);
    palette->onFilterDenoiseGradientChanged(true);
    EXPECT_EQ(palette->recordOf(QString()), nullptr);
    EXPECT_TRUE(meter->calls.isEmpty());
    EXPECT_TRUE(host.entries.isEmpty());
}

TEST_F(RenderControls, WithoutAVolumeOnlyTheRecordChanges)
{
    openCurrent("S2");
    meter->calls.clear();
    EXPECT_TRUE(record("S2").bBestQuality);
    palette->m_pMIPCheckBox->setChecked(true);
    EXPECT_TRUE(record("S2").bMIP);
    EXPECT_FALSE(record("S2").bLighting);
    palette->m_pLightingCheckBox->setChecked(true);
    EXPECT_FALSE(record("S2").bMIP);
    EXPECT_TRUE(record("S2").bLighting);
    palette->m_pMedianFilterDenoiseCheckBox->setChecked(true);
    EXPECT_TRUE(record("S2").bMedianFilterDenoise);
    quality()->setChecked(false);
    EXPECT_FALSE(record("S2").bBestQuality);
    quality()->setChecked(true);
    EXPECT_TRUE(record("S2").bBestQuality);
    EXPECT_TRUE(meter->calls.isEmpty());
}

TEST_F(RenderControls, DenoisingCanBeHadAgainAfterASequenceWithoutAVolume)
{
    CHVSSequenceDataset* good = openCurrent("S3");
    ASSERT_TRUE(palette->onLoadVolumeData({writeRaw("b.raw")}, -1, -1));
    palette->onSequenceChanged(sequence);
    quality()->click();  // the first one in Performance Mode
    openCurrent("S2");
    palette->onSequenceChanged(good);
    EXPECT_FALSE(nodeOf(good)->isRenderInBestPerformance());
    EXPECT_TRUE(denoise()->isEnabled());
}

TEST_F(RenderControls, EachSequenceHasItsMode)
{
    mip()->click();
    quality()->click();
    openCurrent("S2");
    EXPECT_FALSE(mip()->isChecked());
    EXPECT_TRUE(light()->isChecked());
    EXPECT_TRUE(quality()->isChecked());
    palette->onSequenceChanged(sequence);
    EXPECT_TRUE(mip()->isChecked());
    EXPECT_FALSE(light()->isEnabled());
    expectPerformanceMode();
}

TEST_F(RenderControls, ASequenceThatGoesDuringTheQuestionEndsIt)
{
    for (const QMessageBox::StandardButton button : {QMessageBox::No, QMessageBox::Yes}) {
        CHVSSequenceDataset* going = openCurrent("S9");
        ASSERT_TRUE(palette->onLoadVolumeData({writeRaw("b.raw")}, -1, -1));
        host.entries.clear();
        meter->seconds = 1.0;
        {
            const RenderQuestion::Answer answer(button, [&] { close(going); });
            palette->onBestRenderQualityCheckBoxToggled(true);
            EXPECT_EQ(answer.count(), 1);
        }
        EXPECT_EQ(palette->recordOf("S9"), nullptr);
        EXPECT_TRUE(host.logged(16).isEmpty());
        meter->seconds = 0.001;
    }
}

TEST_F(RenderControls, ASequenceThatGoesDuringTheQuestionOfItsLoadEndsTheLoad)
{
    CHVSSequenceDataset* going = openCurrent("S9");
    meter->seconds = 1.0;
    const RenderQuestion::Answer no(QMessageBox::No, [&] { close(going); });
    EXPECT_FALSE(palette->onLoadVolumeData({writeRaw("b.raw")}, -1, -1));
    EXPECT_EQ(no.count(), 1);
    EXPECT_EQ(palette->recordOf("S9"), nullptr);
    EXPECT_EQ(host.cursorDepth, 0);
}

TEST_F(RenderControls, ASequenceThatGoesWhileItIsShownLeavesNothing)
{
    // S1 stands in Quality Mode and S2 has the box clear, so that the way back to S1 measures.
    openCurrent("S2");
    quality()->setChecked(false);
    meter->seconds = 1.0;
    const RenderQuestion::Answer no(QMessageBox::No, [&] { close(sequence); });
    palette->onSequenceChanged(sequence);
    EXPECT_EQ(no.count(), 1);
    EXPECT_EQ(palette->recordOf("S1"), nullptr);
}

TEST_F(RenderControls, AnotherSequenceDuringTheQuestionKeepsItsBoxes)
{
    CHVSSequenceDataset* other = open("S2");
    meter->seconds = 1.0;
    const RenderQuestion::Answer no(QMessageBox::No, [&] { palette->onSequenceChanged(other); });
    palette->onBestRenderQualityCheckBoxToggled(true);
    EXPECT_EQ(palette->getCurrentSeqID(), QString("S2"));
    EXPECT_TRUE(quality()->isChecked());
    EXPECT_TRUE(record("S2").bBestQuality);
}

TEST_F(RenderControls, ALoadThatIsLeftDuringItsQuestionMarksNoOtherSequence)
{
    CHVSSequenceDataset* other = open("S2");
    palette->setResultsModifiedForSequence(false);
    meter->seconds = 1.0;
    const RenderQuestion::Answer no(QMessageBox::No, [&] { palette->onSequenceChanged(other); });
    palette->onLoadVolumeData({writeRaw("b.raw")}, -1, -1);
    EXPECT_EQ(palette->getCurrentSeqID(), QString("S2"));
    EXPECT_FALSE(record("S2").bModified);
}

TEST_F(RenderControls, WithoutAContextNothingIsWaitedFor)
{
    RenderMeter real;
    real.finish(nullptr);
    C3DScene never(sequence->get3DSGManager());
    real.finish(&never);
    real.startTimer();
    real.sleep(3);
    const double seconds = real.readTimer();
    EXPECT_GE(seconds, 0.002);
    EXPECT_LT(seconds, 60.0);
}
