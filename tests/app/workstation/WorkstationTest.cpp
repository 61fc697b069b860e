// The whole workstation with the plug-in that its loader found, driven as by a user.

#include "WorkstationFixture.h"

#include "app/LogDock.h"
#include "app/PaletteDock.h"

#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVUtilityFns.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "support/ModalWatcher.h"

#include <QAction>
#include <QDialogButtonBox>
#include <QDir>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTabWidget>

namespace {

using WorkstationTest = WorkstationFixture;

TEST_F(WorkstationTest, ThePaletteIsDockedAndWaitsForASequence)
{
    EXPECT_EQ(m_window->paletteDock().paletteNames(), QStringList{"3D Corvane Tools"});
    EXPECT_TRUE(m_window->paletteDock().isAncestorOf(palette()));
    EXPECT_TRUE(palette()->isVisible());
    EXPECT_FALSE(palette()->isEnabled());
}

TEST_F(WorkstationTest, ANewSceneEnablesThePaletteOnBothTabs)
{
    m_window->newScene();
    EXPECT_TRUE(palette()->isEnabled());
    auto* tabs = CHVSSequenceWindow::getSequenceWindow(m_window->workspace().activeSequence())
                     ->findChild<QTabWidget*>();
    tabs->setCurrentIndex(0);
    EXPECT_TRUE(palette()->isEnabled());
    tabs->setCurrentIndex(1);
    EXPECT_TRUE(palette()->isEnabled());
}

TEST_F(WorkstationTest, AGroupOfLooseDatasetsDisablesThePalette)
{
    SequenceDescription group;
    group.id = "group";
    group.kind = SequenceKind::Other;
    group.loadedAsGroup = true;
    ASSERT_TRUE(SequenceRegistry::instance().open(group));
    EXPECT_FALSE(palette()->isEnabled());
    m_window->newScene();
    EXPECT_TRUE(palette()->isEnabled());
}

TEST_F(WorkstationTest, TheLastSequenceClosedDisablesThePalette)
{
    CHVSSequenceDataset* scene = m_window->newScene();
    m_window->workspace().closeSequence(scene);
    EXPECT_FALSE(palette()->isEnabled());
}

TEST_F(WorkstationTest, ThePluginsActionStandsInTheFileMenu)
{
    const QList<QMenu*> menus = m_window->menuBar()->findChildren<QMenu*>();
    QStringList texts;
    for (const QMenu* menu : menus) {
        const QList<QAction*> actions = menu->actions();
        for (const QAction* action : actions)
            texts << action->text();
    }
    EXPECT_TRUE(texts.contains("Browse 3D Volumetric data..."));
}

TEST_F(WorkstationTest, ARawFileDroppedOnThePaletteIsDrawn)
{
    m_window->newScene();
    EXPECT_EQ(volume(), nullptr);
    ASSERT_TRUE(drop({rawFile("cube with blanks.vox", true)}));
    ASSERT_TRUE(volume());
    EXPECT_TRUE(volume()->isDisplayed());
    EXPECT_TRUE(isCubeSeen());
    EXPECT_EQ(m_services->lastComplaint(), QString());
}

TEST_F(WorkstationTest, WhatTheHeaderDoesNotSayTheDialogAsks)
{
    m_window->newScene();
    viz_test::ModalWatcher watcher;
    watcher.expect([](QWidget* dialog) {
        EXPECT_EQ(dialog->windowTitle(), QString("Volume Information"));
        // width, height and slices are the three that reach 1024
        int filled = 0;
        const QList<QSpinBox*> boxes = dialog->findChildren<QSpinBox*>();
        for (QSpinBox* box : boxes) {
            if (box->maximum() == 1024) {
                box->setValue(side);
                ++filled;
            }
        }
        EXPECT_EQ(filled, 3);
        auto* buttons = dialog->findChild<QDialogButtonBox*>();
        ASSERT_TRUE(buttons);
        QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    });
    ASSERT_TRUE(drop({rawFile("bare.raw", false)}));
    EXPECT_TRUE(volume());
    EXPECT_TRUE(isCubeSeen());
}

TEST_F(WorkstationTest, ACancelledDialogLoadsNothing)
{
    m_window->newScene();
    viz_test::ModalWatcher watcher;
    watcher.expectButton("Cancel");
    ASSERT_TRUE(drop({rawFile("bare.raw", false)}));
    EXPECT_EQ(volume(), nullptr);
    EXPECT_TRUE(palette()->isEnabled());
}

TEST_F(WorkstationTest, AFileThatIsNoVolumeIsRefusedWithABoxAndTheOldVolumeStays)
{
    m_window->newScene();
    ASSERT_TRUE(drop({rawFile("cube.vox", true)}));
    C3DVolumeData* before = volume();
    QFile letter(m_folder.filePath("letter.txt"));
    ASSERT_TRUE(letter.open(QIODevice::WriteOnly));
    letter.write("Dear reader");
    letter.close();
    viz_test::ModalWatcher watcher;
    watcher.expectButton("OK");
    ASSERT_TRUE(drop({letter.fileName()}));
    EXPECT_EQ(volume(), before);
    EXPECT_TRUE(isCubeSeen());
    EXPECT_FALSE(m_services->lastComplaint().isEmpty());
}

TEST_F(WorkstationTest, AFolderDroppedOnTheWindowIsLoadedIntoANewScene)
{
    ASSERT_TRUE(QDir(m_folder.path()).mkdir("scan"));
    rawFile("scan/cube.vox", true);
    ASSERT_TRUE(drop(m_window.get(), {m_folder.filePath("scan")}));
    ASSERT_TRUE(volume());
    EXPECT_EQ(volume()->getWidth(), side);
}

TEST_F(WorkstationTest, AMeasuredDistanceStandsInTheStatusLine)
{
    m_window->newScene();
    emit m_window->activeScene()->distanceMeasured(12.345);
    EXPECT_EQ(m_window->statusBar()->currentMessage(), QString("Distance: 12.35 mm"));
}

TEST_F(WorkstationTest, FilesOfTheCommandLineOpenInANewScene)
{
    EXPECT_EQ(m_window->openVolume({rawFile("cube.vox", true)}), MainWindow::OpenResult::Loaded);
    ASSERT_TRUE(m_window->workspace().activeSequence());
    EXPECT_TRUE(m_window->workspace().activeSequence()->is3DSceneOnlySequence());
    EXPECT_TRUE(isCubeSeen());
    EXPECT_EQ(
        CHVSSequenceWindow::getSequenceWindow(m_window->workspace().activeSequence())->getCurrentTabName(),
        QString("3D View"));
}

TEST_F(WorkstationTest, ASecondLoadReplacesTheVolumeInTheSameScene)
{
    const QString file = rawFile("cube.vox", true);
    m_window->openVolume({file});
    C3DVolumeData* before = volume();
    EXPECT_EQ(m_window->openVolume({file}), MainWindow::OpenResult::Loaded);
    EXPECT_EQ(volume(), before);
    EXPECT_EQ(SequenceRegistry::instance().sequences().size(), 1);
}

TEST_F(WorkstationTest, TemporaryVoxelsGoWithTheirSequence)
{
    m_window->openVolume({rawFile("cube.vox", true)});
    CHVSSequenceDataset* sequence = m_window->workspace().activeSequence();
    const QString voxels = m_services->programDataPath() + "/3DCVTempData/" + sequence->getSequenceID();
    EXPECT_EQ(QFile(voxels + "/VolumeData.dat").size(), qint64(side) * side * side);
    viz_test::ModalWatcher watcher;
    watcher.expectButton("Discard");
    ASSERT_TRUE(m_window->workspace().closeSequence(sequence));
    EXPECT_FALSE(QDir(voxels).exists());
}

TEST_F(WorkstationTest, TwoScenesKeepTheirOwnVolumes)
{
    m_window->openVolume({rawFile("cube.vox", true)});
    CHVSSequenceDataset* first = m_window->workspace().activeSequence();
    m_window->newScene();
    EXPECT_EQ(volume(), nullptr);
    m_window->workspace().setActiveSubWindow(
        qobject_cast<QMdiSubWindow*>(CHVSSequenceWindow::getSequenceWindow(first)->parentWidget()));
    EXPECT_TRUE(volume());
    EXPECT_TRUE(isCubeSeen());
}

TEST_F(WorkstationTest, ExitIsRefusedWhileBusyAndLeavesNothingBehindAfterwards)
{
    m_window->openVolume({rawFile("cube.vox", true)});
    CHVUtilityFns::setCanClose(false);
    EXPECT_FALSE(m_window->close());
    EXPECT_TRUE(volume());
    CHVUtilityFns::setCanClose(true);
    viz_test::ModalWatcher watcher;
    watcher.expectButton("Discard");
    EXPECT_TRUE(m_window->close());
    EXPECT_TRUE(m_window->plugins().plugins().empty());
    EXPECT_TRUE(SequenceRegistry::instance().sequences().isEmpty());
}

TEST_F(WorkstationTest, NoCursorIsLeftOver)
{
    m_window->openVolume({rawFile("cube.vox", true)});
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

}  // namespace
