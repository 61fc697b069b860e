// The whole workstation with the plug-in that its loader found, driven as by a user.

#include "app/ApplicationServices.h"
#include "app/LogDock.h"
#include "app/MainWindow.h"
#include "app/PaletteDock.h"
#include "app/Workspace.h"

#include "hvapi/plugin/CHVToolPalettePluginBase.h"
#include "hvapi/scene/C3DObject.h"
#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVUtilityFns.h"
#include "lib/hvapi/scene/ViewControl.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "support/ModalWatcher.h"

#include <QAction>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QImage>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QSpinBox>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr int side = 40;

/// A cube of bone in air, `side` voxels a side, without a header.
QByteArray cubeVoxels()
{
    QByteArray voxels(side * side * side, '\0');
    for (int z = 10; z < 30; ++z)
        for (int y = 10; y < 30; ++y)
            for (int x = 10; x < 30; ++x)
                voxels[(z * side + y) * side + x] = static_cast<char>(200);
    return voxels;
}

class WorkstationTest : public testing::Test
{
protected:
    void SetUp() override
    {
        qputenv("HALVANE_HOME", m_folder.filePath("home").toLocal8Bit());
        m_services = std::make_unique<ApplicationServices>(ApplicationServices::Mode::Attended);
        HostServices::install(m_services.get());
        m_window = std::make_unique<MainWindow>(*m_services);
        m_window->startPlugins({QStringLiteral(PLUGIN_FOLDER)});
        m_window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
        ASSERT_EQ(m_window->plugins().plugins().size(), 1u);
    }

    void TearDown() override
    {
        m_window.reset();
        HostServices::install(nullptr);
        m_services.reset();
    }

    QWidget* palette() const { return m_window->plugins().plugins()[0].instance->getPaletteWidget(); }

    /// A RAW file whose header says everything but for the number of slices, where `whole` is false.
    QString rawFile(const QString& name, bool whole) const
    {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        if (whole)
            file.write(
                "VolumeSize 40 40 40\nVoxelSize 8\nVolumeScale 1.0 1.0 1.0\nField Density Format u\n##\f\n");
        file.write(cubeVoxels());
        return file.fileName();
    }

    /// Drops files on the palette, as the mouse would; false when the palette refuses the drag.
    bool drop(const QStringList& files) const
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const QString& file : files)
            urls << QUrl::fromLocalFile(file);
        data.setUrls(urls);
        QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.setAccepted(false);
        QApplication::sendEvent(palette(), &enter);
        if (!enter.isAccepted()) return false;
        QDropEvent event(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(palette(), &event);
        EXPECT_TRUE(event.isAccepted());
        return true;
    }

    C3DObject* volume() const
    {
        CHVSSequenceDataset* sequence = m_window->workspace().activeSequence();
        return sequence ? qobject_cast<C3DObject*>(sequence->get3DSGManager()->getNode("GLVolume")) : nullptr;
    }

    /// The middle of the 3D view from the front, against its ground.
    bool isCubeSeen() const
    {
        C3DScene* scene = m_window->activeScene();
        if (!scene) return false;
        ViewControl view(*scene);
        view.reset();
        const QImage picture = view.picture(QSize(120, 120));
        return !picture.isNull() && qGray(picture.pixel(60, 60)) > qGray(picture.pixel(2, 60)) + 40;
    }

    QTemporaryDir m_folder;
    std::unique_ptr<ApplicationServices> m_services;
    std::unique_ptr<MainWindow> m_window;
};

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
    C3DObject* before = volume();
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
    C3DObject* before = volume();
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
