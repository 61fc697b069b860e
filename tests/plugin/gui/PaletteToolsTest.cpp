#include "gui/PluginBench.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DSlice.h"
#include "hvapi/scene/C3DToolBase.h"
#include "hvapi/values/sCropBoxOffset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvapi/sequence/SequenceStore.h"
#include "render/CGLVolume.h"
#include "support/DiskSequence.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <array>
#include <cmath>

namespace {

/// The controls over a loaded volume, as a user works them.
class PaletteTools : public PluginBench
{
protected:
    void SetUp() override
    {
        sequence = openCurrent("S1");
        ASSERT_TRUE(palette->onLoadVolumeData({writeRaw("a.raw")}, -1, -1));
        node = nodeOf(sequence);
        scene = sceneOf(sequence);
        host.entries.clear();
        QObject::connect(sequence->get3DSGManager(), &C3DSGManager::transformObjectChanged, &plugin,
                         &CHVVolumeVizPlugin::onSignalTransformObjectChanged);
    }

    QToolButton* move() { return palette->m_pTransformToolBtn; }
    QToolButton* crop() { return palette->m_pCroptoolButton; }
    bool isModified() { return palette->m_pSavedResultsCB->findText("(new)") != -1; }
    static matrix shifted()
    {
        return matrix(std::array<double, 16>{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1}.data(),
                      matrix::COLUMN_MAJOR);
    }
    static double shiftOf(const matrix& m)
    {
        double sum = 0;
        for (int row = 0; row < 4; ++row)
            for (int column = 0; column < 4; ++column)
                sum += std::abs(m(row, column) - (row == column ? 1.0 : 0.0));
        return sum;
    }

    CHVSSequenceDataset* sequence = nullptr;
    CGLVolume* node = nullptr;
    C3DScene* scene = nullptr;
};

}  // namespace

TEST_F(PaletteTools, AreThereWithAVolume)
{
    QWidget* const controls[] = {palette->m_pVolumeButtonGroup, palette->m_pLODSlider,
                                 palette->m_pResetLODButton,    move(),
                                 palette->m_pTransformResetBtn, crop(),
                                 palette->m_pCropResetBtn};
    for (QWidget* control : controls)
        EXPECT_TRUE(control->isEnabled()) << control->objectName().toStdString();
    openCurrent("S2");
    for (QWidget* control : controls)
        EXPECT_FALSE(control->isEnabled()) << control->objectName().toStdString();
}

TEST_F(PaletteTools, AreNotThereBeforeTheFirstSequence)
{
    const CHVVolumeVizPalette fresh;
    for (const QWidget* control :
         {static_cast<QWidget*>(fresh.m_pVolumeButtonGroup), static_cast<QWidget*>(fresh.m_pTransformToolBtn),
          static_cast<QWidget*>(fresh.m_pTransformResetBtn), static_cast<QWidget*>(fresh.m_pCroptoolButton),
          static_cast<QWidget*>(fresh.m_pCropResetBtn),
          static_cast<QWidget*>(fresh.m_pVolumeInfoDialogButton)})
        EXPECT_FALSE(control->isEnabled()) << control->objectName().toStdString();
    EXPECT_FALSE(fresh.m_pVolumeButtonGroup->isChecked());
}

TEST_F(PaletteTools, TheVolumeIsHiddenAndShown)
{
    palette->m_pVolumeButtonGroup->setChecked(false);
    EXPECT_FALSE(node->isDisplayed());
    EXPECT_FALSE(record("S1").bEnabled);
    EXPECT_FALSE(palette->m_pLODSlider->isEnabled());
    palette->m_pVolumeButtonGroup->setChecked(true);
    EXPECT_TRUE(node->isDisplayed());
    EXPECT_TRUE(record("S1").bEnabled);
    EXPECT_TRUE(palette->m_pLODSlider->isEnabled());
    EXPECT_FALSE(palette->m_pTransferPointOpenBtn->isEnabled()) << "it does nothing, and stays so";
}

TEST_F(PaletteTools, LevelOfDetailReachesTheNode)
{
    palette->m_pLODSlider->setValue(220);
    EXPECT_EQ(node->m_nLevelOfDetail, 220);
    EXPECT_EQ(record("S1").nLevelOfDetail, 220);
    palette->m_pResetLODButton->click();
    EXPECT_EQ(palette->m_pLODSlider->value(), 100);
    EXPECT_EQ(node->m_nLevelOfDetail, 100);
    EXPECT_EQ(record("S1").nLevelOfDetail, 100);
}

TEST_F(PaletteTools, TheResetOfDetailReachesANodeThatLeftTheSlider)
{
    node->m_nLevelOfDetail = 60;
    palette->m_pResetLODButton->click();
    EXPECT_EQ(node->m_nLevelOfDetail, 100);
}

TEST_F(PaletteTools, TheTransformToolComesAndGoes)
{
    palette->setResultsModifiedForSequence(false);
    move()->click();
    ASSERT_NE(scene->getCurrentTool(), nullptr);
    EXPECT_EQ(sequence->get3DSGManager()->getTransformedObjectName(), QString("GLVolume"));
    EXPECT_TRUE(record("S1").bTransformTool);
    EXPECT_TRUE(record("S1").bTransformResetEnabled);
    EXPECT_TRUE(record("S1").bModified);
    EXPECT_TRUE(isModified());
    move()->click();
    EXPECT_EQ(scene->getCurrentTool(), nullptr);
    EXPECT_FALSE(record("S1").bTransformTool);
    EXPECT_TRUE(palette->m_pTransformResetBtn->isEnabled());
}

TEST_F(PaletteTools, ATransformToolTakenUpByTheProgramLeavesTheResult)
{
    palette->setResultsModifiedForSequence(false);
    palette->onToggleTransformTool(true);
    EXPECT_NE(scene->getCurrentTool(), nullptr);
    EXPECT_TRUE(record("S1").bModified);
    EXPECT_FALSE(isModified());
}

TEST_F(PaletteTools, TheCropToolComesAndGoes)
{
    palette->setResultsModifiedForSequence(false);
    crop()->click();
    ASSERT_NE(scene->getCurrentTool(), nullptr);
    EXPECT_EQ(sequence->get3DSGManager()->getTransformedObjectName(), QString("Volume Crop"));
    EXPECT_FALSE(palette->m_pCropResetBtn->isEnabled()) << "the tool must be closed first";
    EXPECT_TRUE(record("S1").bCropTool);
    EXPECT_TRUE(record("S1").bModified);
    EXPECT_TRUE(isModified());
    crop()->click();
    EXPECT_EQ(scene->getCurrentTool(), nullptr);
    EXPECT_TRUE(palette->m_pCropResetBtn->isEnabled());
    EXPECT_FALSE(record("S1").bCropTool);
}

TEST_F(PaletteTools, OneToolTakesThePlaceOfTheOther)
{
    move()->click();
    crop()->click();
    EXPECT_TRUE(crop()->isChecked());
    EXPECT_FALSE(move()->isChecked());
    EXPECT_TRUE(record("S1").bCropTool);
    EXPECT_FALSE(record("S1").bTransformTool);
    EXPECT_NE(scene->getCurrentTool(), nullptr);
    move()->click();
    EXPECT_TRUE(move()->isChecked());
    EXPECT_FALSE(crop()->isChecked());
    EXPECT_TRUE(palette->m_pCropResetBtn->isEnabled());
    EXPECT_NE(scene->getCurrentTool(), nullptr);
}

TEST_F(PaletteTools, ATransformToolReleasesTheCropButtonWithoutTheHostsWord)
{
    QObject::disconnect(sequence->get3DSGManager(), nullptr, &plugin, nullptr);
    move()->click();
    crop()->click();
    EXPECT_TRUE(move()->isChecked()) << "the crop tool leaves it to the host's word";
    EXPECT_FALSE(record("S1").bTransformTool);
    move()->setChecked(false);
    move()->click();
    EXPECT_FALSE(crop()->isChecked());
}

TEST_F(PaletteTools, ToolsEndTheHostsOwn)
{
    SWindowControls* controls = windowOf(sequence)->getWindowControls();
    for (QToolButton* button : {move(), crop()}) {
        scene->setCurrentCameraTool(C3DView::PanTool);
        scene->doMeasureVoxels(true);
        controls->m_3DControls.m_bMeasuring = true;
        button->click();
        EXPECT_TRUE(button->isChecked()) << button->objectName().toStdString();
        EXPECT_EQ(scene->getCurrentCameraTool(), C3DView::NoCameraTool);
        EXPECT_FALSE(scene->isMeasuring());
        EXPECT_FALSE(controls->m_3DControls.m_bMeasuring);
        EXPECT_NE(scene->getCurrentTool(), nullptr);
        button->click();
    }
}

TEST_F(PaletteTools, AnotherObjectOfTheHostReleasesTheButtons)
{
    move()->click();
    plugin.onSignalTransformObjectChanged("My GLVolume 2");
    EXPECT_TRUE(move()->isChecked());
    plugin.onSignalTransformObjectChanged("glvolume");
    EXPECT_FALSE(move()->isChecked()) << "case counts";
    crop()->click();
    plugin.onSignalTransformObjectChanged("Volume Crop of it");
    EXPECT_TRUE(crop()->isChecked());
    plugin.onSignalTransformObjectChanged("");
    EXPECT_FALSE(crop()->isChecked());
    EXPECT_EQ(scene->getCurrentTool(), nullptr);
}

TEST_F(PaletteTools, TheResetPutsTheVolumeBack)
{
    node->setTransformation(shifted());
    move()->click();
    palette->m_pTransformResetBtn->click();
    EXPECT_EQ(shiftOf(node->getTransformation()), 0.0);
    EXPECT_FALSE(move()->isChecked());
    EXPECT_TRUE(record("S1").bTransformResetEnabled);
    EXPECT_TRUE(record("S1").bFiducialEnabled);
    EXPECT_TRUE(palette->m_pTransformResetBtn->isEnabled());
}

TEST_F(PaletteTools, AResetThatIsNotAllowedOnlyDrawsAnew)
{
    const_cast<SVolVizControls&>(record("S1")).bTransformResetEnabled = false;
    node->setTransformation(shifted());
    move()->click();
    const_cast<SVolVizControls&>(record("S1")).bTransformResetEnabled = false;
    scene->setSliceDirty(node, C3DScene::ALL_VIEWS, false);
    QCoreApplication::processEvents();
    QSignalSpy frames(scene, &QOpenGLWidget::frameSwapped);
    palette->onToggleTransformReset();
    EXPECT_TRUE(QTest::qWaitFor([&] { return frames.count() > 0; }));
    EXPECT_GT(shiftOf(node->getTransformation()), 0.0);
    EXPECT_TRUE(move()->isChecked());
    EXPECT_FALSE(record("S1").bFiducialEnabled);
}

TEST_F(PaletteTools, TheCropResetOpensTheBox)
{
    Vec3f offsets[8];
    offsets[0].set(0.5, 0.5, 0.5);
    scene->setCroppingBoxOffset(offsets);
    palette->m_pCropResetBtn->click();
    const sCropBoxOffset box = scene->getCroppingBoxOffset();
    const auto* corners = reinterpret_cast<const Vec3f*>(&box);
    for (int i = 0; i < 8; ++i)
        EXPECT_EQ(Vec3f(corners[i]).length(), 0.0) << i;
}

TEST_F(PaletteTools, WithoutASequenceNothingHappens)
{
    palette->onSequenceChanged(nullptr);
    const int known = palette->recordOf(QString()) != nullptr;
    palette->onVolumeButtonGroupToggled(false);
    palette->onReleaseLevelOfDetailSlider(50);
    palette->onLevelOfDetailReset();
    palette->onToggleTransformTool(true);
    palette->onToggleCropTool(true);
    EXPECT_EQ(palette->recordOf(QString()) != nullptr, known) << "no record of nothing";
    EXPECT_FALSE(record("S1").bTransformTool);
    CHVVolumeVizPalette lonely;
    lonely.onToggleTransformReset();
    lonely.onCropReset();
    lonely.syncSliceSliderToScene(0);
    EXPECT_TRUE(host.entries.isEmpty());
}

TEST_F(PaletteTools, WithoutANodeOnlyTheRecordChanges)
{
    openCurrent("S2");
    palette->onToggleTransformTool(true);
    palette->onToggleCropTool(true);
    EXPECT_TRUE(record("S2").bCropTool);
    EXPECT_FALSE(record("S2").bTransformTool);
    palette->onReleaseLevelOfDetailSlider(50);
    EXPECT_EQ(record("S2").nLevelOfDetail, 100);
    palette->onToggleTransformReset();
    palette->onCropReset();
    palette->syncSliceSliderToScene(2);
    EXPECT_TRUE(host.entries.isEmpty());
}

TEST_F(PaletteTools, UnitsGoByTheDescriptionOfTheSequence)
{
    const QTemporaryDir folder;
    disk_sequence::make(folder.filePath("ct"), "CT", {});
    tag_estatus status = eStatusFailed;
    CHVSSequenceDataset* opened = SequenceStore::open(folder.filePath("ct"), status);
    ASSERT_TRUE(opened);
    plugin.onSignalSequenceChanged(opened);
    EXPECT_EQ(palette->m_pMinMaxUnitCB->count(), 2);
    EXPECT_EQ(palette->m_pMinMaxUnitCB->currentText(), QString("Absorption"));
}

TEST_F(PaletteTools, ACalibratedSequenceHasHounsfieldUnits)
{
    const QTemporaryDir folder;
    const QString file = disk_sequence::make(folder.filePath("ct"), "CT", {});
    const auto openWith = [&](const QByteArray& calibration) {
        const QByteArray info = disk_sequence::bytesOf(file);
        const QByteArray mark = "Reconstructed Volume Max = 1.5\n";
        EXPECT_TRUE(disk_sequence::put(file, QByteArray(info).replace(mark, mark + calibration)));
        tag_estatus status = eStatusFailed;
        CHVSSequenceDataset* opened = SequenceStore::open(folder.filePath("ct"), status);
        EXPECT_TRUE(opened);
        plugin.onSignalSequenceChanged(opened);
        QStringList units;
        for (int i = 0; i < palette->m_pMinMaxUnitCB->count(); ++i)
            units << palette->m_pMinMaxUnitCB->itemText(i);
        close(opened);
        EXPECT_TRUE(disk_sequence::put(file, info));
        return units;
    };
    EXPECT_EQ(openWith("Hounsfield Calibration Air = 0.01\nHounsfield Calibration Water = 0.3\n"),
              QStringList({"Counts", "Absorption", "Hounsfield"}));
    EXPECT_EQ(palette->m_pMinMaxUnitCB->currentText(), QString("Hounsfield"));
    EXPECT_EQ(openWith("Hounsfield Calibration Air = 0.01\n"), QStringList({"Counts", "Absorption"}));
    EXPECT_EQ(openWith("Hounsfield Calibration Air = 0.3\nHounsfield Calibration Water = 0.3\n"),
              QStringList({"Counts", "Absorption"}));
}

TEST_F(PaletteTools, TheNodeTellsTheUnitThatThePaletteShows)
{
    EXPECT_EQ(node->property("valueUnit").toString(), QString("Counts"));
    EXPECT_EQ(node->property("valueAtLowest").toDouble(), static_cast<double>(node->getMin()));
    EXPECT_EQ(node->property("valueAtHighest").toDouble(), static_cast<double>(node->getMax()));

    const QTemporaryDir folder;
    const QString file = disk_sequence::make(folder.filePath("ct"), "CT", {});
    const QByteArray mark = "Reconstructed Volume Max = 1.5\n";
    EXPECT_TRUE(disk_sequence::put(
        file, disk_sequence::bytesOf(file).replace(
                  mark, mark + "Hounsfield Calibration Air = -0.5\nHounsfield Calibration Water = 0.5\n")));
    tag_estatus status = eStatusFailed;
    CHVSSequenceDataset* opened = SequenceStore::open(folder.filePath("ct"), status);
    ASSERT_TRUE(opened);
    plugin.onSignalSequenceChanged(opened);
    ASSERT_TRUE(palette->onLoadVolumeData({writeRaw("b.raw", {20, 6, 0})}, -1, -1));
    CGLVolume* calibrated = nodeOf(opened);
    ASSERT_TRUE(calibrated);
    // Counts 0 and 99 (the highest value of the file) are absorptions -0.5 and 1.5, water is 0.5, air -0.5.
    EXPECT_EQ(calibrated->property("valueUnit").toString(), QString("Hounsfield"));
    EXPECT_NEAR(calibrated->property("valueAtLowest").toDouble(), -1000.0, 1e-3);
    EXPECT_NEAR(calibrated->property("valueAtHighest").toDouble(), 1000.0, 1e-3);
    palette->m_pMinMaxUnitCB->setCurrentText("Absorption");
    EXPECT_EQ(calibrated->property("valueUnit").toString(), QString("Absorption"));
    EXPECT_NEAR(calibrated->property("valueAtLowest").toDouble(), -0.5, 1e-6);
    EXPECT_NEAR(calibrated->property("valueAtHighest").toDouble(), 1.5, 1e-6);
    palette->m_pMinMaxUnitCB->setCurrentText("Counts");
    EXPECT_EQ(calibrated->property("valueAtHighest").toDouble(), static_cast<double>(calibrated->getMax()));
    EXPECT_EQ(node->property("valueUnit").toString(), QString("Counts")) << "the other volume keeps its own";
    palette->onShownUnitChanged("Parsecs");
    EXPECT_EQ(calibrated->property("valueUnit").toString(), QString("Counts"));
    close(opened);
    palette->onShownUnitChanged("Counts");
}

TEST_F(PaletteTools, CountsAreTheUnitOnOffer)
{
    EXPECT_EQ(palette->m_pMinMaxUnitCB->count(), 1);
    EXPECT_EQ(palette->m_pMinMaxUnitCB->currentText(), QString("Counts"));
    openCurrent("S2");
    EXPECT_EQ(palette->m_pMinMaxUnitCB->count(), 1);
}

TEST_F(PaletteTools, ToolRequestsBringTheSliderToTheSlice)
{
    // The box is 4 x 2 x 1.8 mm around the origin; the slider goes from 0 to 10000.
    scene->getYZslice()->setPosition(-1.21);
    scene->getXZslice()->setPosition(-0.51);
    scene->getXYslice()->setPosition(0.1);
    plugin.onToolPalettePluginStatusModified(ETOOLPALETTE_SHOW_SLICE_SAGITTAL);
    EXPECT_EQ(palette->m_pSliceViewerSlider->value(), 4475);
    plugin.onToolPalettePluginStatusModified(ETOOLPALETTE_SHOW_SLICE_TRANSAXIAL);
    EXPECT_EQ(palette->m_pSliceViewerSlider->value(), 7450);
    plugin.onToolPalettePluginStatusModified(ETOOLPALETTE_SHOW_SLICE_CORONAL);
    EXPECT_EQ(palette->m_pSliceViewerSlider->value(), 5555);
}

TEST_F(PaletteTools, ASliderWithoutAWindowIsLogged)
{
    SequenceDescription hidden;
    hidden.id = "S2";
    hidden.kind = SequenceKind::Ct;
    CHVSSequenceDataset* windowless = SequenceRegistry::instance().add(hidden);
    emit windowless->updateOnChangeSequence();
    palette->syncSliceSliderToScene(1);
    EXPECT_EQ(host.logged(3), QStringList("Invalid sequence window handle to proceed Slice Preview update."));
}
