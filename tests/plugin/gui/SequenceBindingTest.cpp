#include "gui/PluginBench.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/values/S3DControls.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVPreference.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "plugin/logic/TempFolders.h"
#include "render/CGLVolume.h"

#include <QDir>

namespace {

class SequenceBinding : public PluginBench
{
protected:
    QTabWidget* tabs() { return palette->VolumeVizTabWidget; }
    void load() { EXPECT_TRUE(palette->onLoadVolumeData({writeRaw("a.raw")}, -1, -1)); }
};

}  // namespace

TEST_F(SequenceBinding, AnAddedSequenceDecidesOnValidity)
{
    open("S1", SequenceKind::Other);
    EXPECT_FALSE(palette->getSequenceValidity());
    open("S2", SequenceKind::Scene3D);
    EXPECT_TRUE(palette->getSequenceValidity());
    SequenceDescription group;
    group.id = "S3";
    group.kind = SequenceKind::Sla;
    group.loadedAsGroup = true;
    SequenceRegistry::instance().open(group);
    EXPECT_FALSE(palette->getSequenceValidity());
}

TEST_F(SequenceBinding, ASequenceWithoutAWindowIsInvalid)
{
    SequenceDescription hidden;
    hidden.id = "S1";
    hidden.kind = SequenceKind::Ct;
    CHVSSequenceDataset* sequence = SequenceRegistry::instance().add(hidden);
    palette->setSequenceValidity(true);
    palette->onSequenceChanged(sequence);
    EXPECT_FALSE(palette->getSequenceValidity());
    EXPECT_TRUE(palette->getCurrentSeqID().isNull());
}

TEST_F(SequenceBinding, AnAddedSequenceGetsARecordWithTheDefaults)
{
    open("S1");
    EXPECT_FALSE(record("S1").bVolumeLoaded);
    EXPECT_EQ(record("S1").nLevelOfDetail, 100);
    EXPECT_EQ(palette->recordOf("S2"), nullptr);
}

TEST_F(SequenceBinding, TheNullSequenceIsNoSequence)
{
    palette->onSequenceAdded(nullptr);
    palette->onSequenceRemoved(nullptr);
    palette->setCurrentSequence(nullptr);
    EXPECT_TRUE(palette->getCurrentSeqID().isNull());
}

TEST_F(SequenceBinding, AChangeOfSequenceShowsItAndGoesToTheFirstPage)
{
    CHVSSequenceDataset* first = open("S1");
    CHVSSequenceDataset* second = open("S2");
    tabs()->setCurrentWidget(palette->sliceTab);
    palette->onSequenceChanged(first);
    EXPECT_EQ(palette->getCurrentSeqID(), QString("S1"));
    EXPECT_EQ(tabs()->currentWidget(), palette->volumeTab);
    tabs()->setCurrentWidget(palette->sliceTab);
    palette->onSequenceChanged(second);
    EXPECT_EQ(palette->getCurrentSeqID(), QString("S2"));
    EXPECT_EQ(tabs()->currentWidget(), palette->volumeTab);
}

TEST_F(SequenceBinding, TheCurrentSequenceAgainChangesNothing)
{
    CHVSSequenceDataset* sequence = openCurrent("S1");
    tabs()->setCurrentWidget(palette->sliceTab);
    palette->m_pCorvaneResultLbl->setText("as it was");
    palette->onSequenceChanged(sequence);
    EXPECT_EQ(tabs()->currentWidget(), palette->sliceTab);
    EXPECT_EQ(palette->m_pCorvaneResultLbl->text(), QString("as it was"));
}

TEST_F(SequenceBinding, AnInvalidSequenceLeavesNoCurrentOne)
{
    openCurrent("S1");
    palette->onSequenceChanged(open("S2", SequenceKind::Other));
    EXPECT_TRUE(palette->getCurrentSeqID().isNull());
    EXPECT_FALSE(palette->getSequenceValidity());
}

TEST_F(SequenceBinding, NoSequenceEmptiesTheResults)
{
    openCurrent("S1");
    load();
    EXPECT_EQ(palette->m_pSavedResultsCB->itemText(0), QString("(new)"));
    palette->onSequenceChanged(nullptr);
    EXPECT_TRUE(palette->getCurrentSeqID().isNull());
    EXPECT_EQ(palette->m_pSavedResultsCB->currentText(), QString("<< No Data available >>"));
    EXPECT_EQ(palette->m_pCorvaneLV->topLevelItemCount(), 0);
    EXPECT_TRUE(palette->getSequenceValidity()) << "what was decided of the last sequence stands";
}

TEST_F(SequenceBinding, ARecordOfAnUnknownIdHasNoVolume)
{
    CHVSSequenceDataset* sequence = openCurrent("S1", SequenceKind::Sla);
    palette->onSequenceRemoved(sequence);
    EXPECT_EQ(palette->recordOf("S1"), nullptr);
    palette->onSequenceChanged(sequence);
    EXPECT_FALSE(record("S1").bVolumeLoaded);
    EXPECT_FALSE(palette->m_pVolumeInfoDialogButton->isEnabled());
    EXPECT_FALSE(palette->m_pVolumeButtonGroup->isChecked());
}

TEST_F(SequenceBinding, AddingAKnownIdThrowsItsRecordAway)
{
    CHVSSequenceDataset* sequence = openCurrent("S1");
    load();
    EXPECT_TRUE(record("S1").bVolumeLoaded);
    palette->onSequenceAdded(sequence);
    EXPECT_FALSE(record("S1").bVolumeLoaded);
    EXPECT_TRUE(palette->getCurrentSeqID().isNull());
}

TEST_F(SequenceBinding, AChangeUnderItsIdMakesTheSequenceCurrent)
{
    CHVSSequenceDataset* first = openCurrent("S1");
    open("S2", SequenceKind::Other);
    EXPECT_FALSE(palette->getSequenceValidity());
    palette->onSequenceChanged(nullptr);
    emit first->updateOnChangeSequence();
    EXPECT_EQ(palette->getCurrentSeqID(), QString("S1"));
    EXPECT_TRUE(palette->getSequenceValidity());
}

TEST_F(SequenceBinding, AGroupIsNotListenedTo)
{
    SequenceDescription group;
    group.id = "S1";
    group.kind = SequenceKind::Sla;
    group.loadedAsGroup = true;
    CHVSSequenceDataset* sequence = SequenceRegistry::instance().open(group);
    emit sequence->updateOnChangeSequence();
    EXPECT_TRUE(palette->getCurrentSeqID().isNull());
}

TEST_F(SequenceBinding, RemovingTheCurrentSequenceOfANormalWindow)
{
    CHVSSequenceDataset* sequence = openCurrent("S1", SequenceKind::Sla);
    load();
    close(sequence);
    EXPECT_TRUE(palette->getCurrentSeqID().isNull());
    EXPECT_EQ(palette->recordOf("S1"), nullptr);
    EXPECT_EQ(palette->m_pSavedResultsCB->currentText(), QString("<< No Data available >>"));
    EXPECT_EQ(palette->m_pCorvaneResultLbl->text(), QString("Volume Information: "));
    EXPECT_FALSE(palette->m_pSaveResultsBtn->isEnabled());
    EXPECT_TRUE(palette->getSequenceValidity()) << "an SLA sequence leaves it as it was";
}

TEST_F(SequenceBinding, RemovingASceneOnlySequenceEndsValidity)
{
    CHVSSequenceDataset* sequence = openCurrent("S1", SequenceKind::Scene3D);
    close(sequence);
    EXPECT_FALSE(palette->getSequenceValidity());
    EXPECT_EQ(palette->recordOf("S1"), nullptr);
}

TEST_F(SequenceBinding, RemovingAnotherSequenceLeavesTheCurrentOne)
{
    openCurrent("S1", SequenceKind::Sla);
    load();
    close(open("S2", SequenceKind::Ct));
    EXPECT_EQ(palette->getCurrentSeqID(), QString("S1"));
    EXPECT_TRUE(record("S1").bVolumeLoaded);
    EXPECT_TRUE(QFile::exists(dumpPath("S1")));
}

TEST_F(SequenceBinding, ARemovedSequenceIsNoTargetForALoad)
{
    CHVSSequenceDataset* sequence = openCurrent("S1");
    close(sequence);
    EXPECT_FALSE(palette->onLoadVolumeData({writeRaw("a.raw")}, -1, -1));
    EXPECT_TRUE(host.asked.isEmpty());
    EXPECT_TRUE(host.entries.isEmpty());
}

TEST_F(SequenceBinding, TheTemporaryFolderGoesWithItsSequence)
{
    CHVSSequenceDataset* first = openCurrent("S1");
    load();
    openCurrent("S2");
    load();
    ASSERT_TRUE(QFile::exists(dumpPath("S1")));
    ASSERT_TRUE(QFile::exists(dumpPath("S2")));
    close(first);
    EXPECT_FALSE(QDir(QFileInfo(dumpPath("S1")).path()).exists());
    EXPECT_TRUE(QFile::exists(dumpPath("S2")));
}

TEST_F(SequenceBinding, TheTemporaryRootGoesAtThePalettesStartAndEnd)
{
    const QString root = tempRoot(CHVPreference::getProgramDataPath());
    ASSERT_TRUE(QDir().mkpath(root + "/OLD"));
    {
        CHVVolumeVizPalette fresh;
        EXPECT_FALSE(QDir(root).exists());
        ASSERT_TRUE(QDir().mkpath(root + "/NEW"));
    }
    EXPECT_FALSE(QDir(root).exists());
}

TEST_F(SequenceBinding, ADatasetOfASequenceShowsTheSequence)
{
    SequenceDescription description;
    description.id = "S1";
    description.kind = SequenceKind::Sla;
    description.clickNumbers = QStringList({"C1", "C2"});
    CHVSSequenceDataset* sequence = SequenceRegistry::instance().open(description);
    ASSERT_EQ(sequence->getDatasets().size(), 2);
    palette->onDatasetChanged(sequence->getDatasets().first());
    EXPECT_EQ(palette->getCurrentSeqID(), QString("S1"));
    EXPECT_TRUE(palette->getSequenceValidity());
}

TEST_F(SequenceBinding, ADatasetOfAnInvalidSequenceLeavesNoCurrentOne)
{
    openCurrent("S1", SequenceKind::Sla);
    SequenceDescription description;
    description.id = "S2";
    description.kind = SequenceKind::Other;
    description.clickNumbers = QStringList("C1");
    CHVSSequenceDataset* other = SequenceRegistry::instance().open(description);
    palette->onDatasetChanged(other->getDatasets().first());
    EXPECT_TRUE(palette->getCurrentSeqID().isNull());
    EXPECT_FALSE(palette->getSequenceValidity());
}

TEST_F(SequenceBinding, ALoneDatasetOrNoneLeavesNoCurrentSequence)
{
    openCurrent("S1");
    tabs()->setCurrentWidget(palette->sliceTab);
    CHVSDataset* dataset = SequenceRegistry::instance().addDataset("C1");
    palette->onDatasetChanged(dataset);
    EXPECT_TRUE(palette->getCurrentSeqID().isNull());
    EXPECT_FALSE(palette->getSequenceValidity());
    EXPECT_EQ(tabs()->currentWidget(), palette->volumeTab);
    SequenceRegistry::instance().removeDataset(dataset);

    openCurrent("S2");
    palette->onDatasetChanged(nullptr);
    EXPECT_TRUE(palette->getCurrentSeqID().isNull());
}

TEST_F(SequenceBinding, TheStatusLineIsLogged)
{
    palette->showStatusMessage("Working");
    palette->showStatusMessage("");
    palette->clearStatusMessage();
    EXPECT_EQ(host.logged(16), QStringList({"Working", "", ""}));
    EXPECT_EQ(host.entries.size(), 3);
    for (const auto& entry : host.entries)
        EXPECT_FALSE(entry.context.isEmpty()) << "the compile time";
}

TEST_F(SequenceBinding, ModifiedResultsCanBeSaved)
{
    openCurrent("S1");
    load();
    EXPECT_TRUE(record("S1").bModified);
    palette->setResultsModifiedForSequence(false);
    EXPECT_FALSE(record("S1").bModified);
    EXPECT_EQ(palette->m_pSavedResultsCB->findText("(new)"), -1);
    palette->setResultsModifiedForSequence(true);
    EXPECT_TRUE(record("S1").bModified);
    EXPECT_NE(palette->m_pSavedResultsCB->findText("(new)"), -1);
}

TEST_F(SequenceBinding, ThePaletteFollowsTheDisplayedState)
{
    CHVSSequenceDataset* sequence = openCurrent("S1");
    load();
    EXPECT_TRUE(palette->m_pVolumeButtonGroup->isChecked());
    nodeOf(sequence)->show(false);
    plugin.onSignal3DViewChanged(false);
    EXPECT_FALSE(record("S1").bEnabled);
    EXPECT_FALSE(palette->m_pVolumeButtonGroup->isChecked());
}

TEST_F(SequenceBinding, ToolButtonsAreReleasedWithTheHostsTool)
{
    CHVSSequenceDataset* sequence = openCurrent("S1");
    load();
    QToolButton* const buttons[] = {palette->m_pTransformToolBtn, palette->m_pCroptoolButton,
                                    palette->m_pFiducialRegistrationButton};
    for (QToolButton* button : buttons)
        button->setChecked(true);
    S3DControls controls;
    emit windowOf(sequence)->update3DToolButtonsStates(&controls);
    for (QToolButton* button : buttons)
        EXPECT_FALSE(button->isChecked()) << button->objectName().toStdString();
}

TEST_F(SequenceBinding, TheNodesLightWinsOverTheRecord)
{
    CHVSSequenceDataset* first = openCurrent("S1");
    load();
    EXPECT_TRUE(palette->m_pLightingCheckBox->isChecked());
    EXPECT_FALSE(palette->m_pMIPCheckBox->isChecked());
    nodeOf(first)->setLighting(false);
    nodeOf(first)->setMIP(true);
    openCurrent("S2");
    palette->onSequenceChanged(first);
    EXPECT_FALSE(palette->m_pLightingCheckBox->isChecked());
    EXPECT_TRUE(palette->m_pMIPCheckBox->isChecked());
    EXPECT_TRUE(record("S1").bLighting);
    EXPECT_FALSE(record("S1").bMIP);
}

TEST_F(SequenceBinding, EachSequenceHasItsOwnState)
{
    CHVSSequenceDataset* first = openCurrent("S1");
    load();
    openCurrent("S2");
    EXPECT_FALSE(palette->m_pVolumeInfoDialogButton->isEnabled());
    EXPECT_EQ(palette->m_pSliceMaxIntensitySpinBox->maximum(), 255.0);
    EXPECT_EQ(palette->m_pSliceMaxIntensitySpinBox->value(), 100.0);
    palette->onSequenceChanged(first);
    EXPECT_TRUE(palette->m_pVolumeInfoDialogButton->isEnabled());
    EXPECT_EQ(palette->m_pSliceMinIntensitySpinBox->minimum(), 10.0);
    EXPECT_EQ(palette->m_pSliceMinIntensitySlider->value(), 11);  // where the fit ended the air
    EXPECT_EQ(palette->m_pSliceMaxIntensitySpinBox->value(), 109.0);
    EXPECT_EQ(palette->m_pSliceMaxIntensitySlider->maximum(), 109);
    EXPECT_EQ(palette->m_pCorvaneResultLbl->text(), QString("Volume Information: "));
}
