#include "AppFixture.h"

#include "app/RecentFiles.h"

#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "support/DiskSequence.h"
#include "support/ModalWatcher.h"

#include <QAction>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

namespace {

/// Sequences on disk in the main window.
class SequenceFilesTest : public AppFixture
{
protected:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    QAction* action(const QString& name) const
    {
        const QList<QMenu*> menus = m_window->menuBar()->findChildren<QMenu*>();
        for (const QMenu* menu : menus) {
            const QList<QAction*> actions = menu->actions();
            for (QAction* candidate : actions) {
                if (candidate->objectName() == name) return candidate;
            }
        }
        ADD_FAILURE() << "no action " << name.toStdString();
        return nullptr;
    }

    QTemporaryDir m_folder;
};

TEST_F(SequenceFilesTest, ASequenceIsOpenedByItsFolderAndItsVolumeIsLoadedIntoIt)
{
    const QString file = disk_sequence::make(path("mouse"), "CT", {"M1"});
    EXPECT_EQ(m_window->open({path("mouse")}), MainWindow::OpenResult::Loaded);
    CHVSSequenceDataset* sequence = m_window->workspace().activeSequence();
    ASSERT_TRUE(sequence);
    EXPECT_EQ(sequence->getSequenceInfoPath(), path("mouse/"));
    EXPECT_EQ(takeRecord().filter("load"),
              QStringList(QStringLiteral("load %1|%2 -1 -1 into mouse")
                              .arg(path("mouse/CT Data/a.dcm"), path("mouse/CT Data/b.dcm"))));
    const RecentFiles recent(m_services->settings());
    EXPECT_EQ(recent.volumes(), QList<QStringList>{{file}});
    EXPECT_EQ(RecentFiles::title({file}), "mouse (sequence)  -  " + m_folder.path());
}

TEST_F(SequenceFilesTest, ASequenceThatIsOpenComesToTheFront)
{
    const QString file = disk_sequence::make(path("mouse"), "CT", {});
    m_window->open({file});
    CHVSSequenceDataset* sequence = m_window->workspace().activeSequence();
    m_window->newScene();
    ASSERT_NE(m_window->workspace().activeSequence(), sequence);
    takeRecord();
    EXPECT_EQ(m_window->open({file}), MainWindow::OpenResult::Loaded);
    EXPECT_EQ(m_window->workspace().activeSequence(), sequence);
    EXPECT_TRUE(takeRecord().filter("load").isEmpty());
}

TEST_F(SequenceFilesTest, ABrokenSequenceIsRefusedWithABox)
{
    QDir().mkpath(path("broken"));
    disk_sequence::put(path("broken/SequenceInfo.txt"), "nothing");
    viz_test::ModalWatcher watcher;
    watcher.expectButton("OK");
    EXPECT_EQ(m_window->open({path("broken")}), MainWindow::OpenResult::Failed);
    EXPECT_EQ(m_window->workspace().activeSequence(), nullptr);
    EXPECT_TRUE(RecentFiles(m_services->settings()).volumes().isEmpty());
}

TEST_F(SequenceFilesTest, APluginOpensASequenceAndHearsTheStatus)
{
    const QString file = disk_sequence::make(path("mouse"), "CT", {});
    tag_estatus status = eStatusFailed;
    plugin()->signalLoadFile(file, true, &status, nullptr);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(m_window->workspace().activeSequence()->getSequenceID(), "mouse");
    disk_sequence::put(file, "nothing");
    m_window->workspace().closeAll();
    viz_test::ModalWatcher watcher;
    watcher.expectButton("OK");
    plugin()->signalLoadFile(file, true, &status, nullptr);
    EXPECT_NE(status, 0);
}

TEST_F(SequenceFilesTest, SaveAsksForThePlaceOnceAndSettlesResultsFirst)
{
    EXPECT_FALSE(action("ActionSaveSequence")->isEnabled());
    CHVSSequenceDataset* sequence = m_window->newScene();
    QAction* save = action("ActionSaveSequence");
    EXPECT_TRUE(save->isEnabled());
    takeRecord();
    viz_test::ModalWatcher watcher;
    watcher.expect([this](QWidget* w) {
        auto* dialog = qobject_cast<QFileDialog*>(w);
        ASSERT_TRUE(dialog);
        dialog->setDirectory(m_folder.path());
        dialog->selectFile(m_folder.path());
        QMetaObject::invokeMethod(dialog, "accept");
    });
    save->trigger();
    const QString folder = path(sequence->getSequenceID()) + '/';
    EXPECT_EQ(sequence->getSequenceInfoPath(), folder);
    EXPECT_EQ(takeRecord().filter("save"), QStringList("save 3D Scene 1"));
    sequence->setLoadedVolumetricData({"/data/a.vox"});
    save->trigger();
    EXPECT_TRUE(disk_sequence::bytesOf(folder + "SequenceInfo.txt").contains("File 1 = /data/a.vox"));
    EXPECT_EQ(RecentFiles(m_services->settings()).volumes(),
              QList<QStringList>{{folder + "SequenceInfo.txt"}});
}

TEST_F(SequenceFilesTest, OpenSequenceAsksForTheFile)
{
    const QString file = disk_sequence::make(path("mouse"), "SLA", {"M1"});
    viz_test::ModalWatcher watcher;
    watcher.expect([this, file](QWidget* w) {
        auto* dialog = qobject_cast<QFileDialog*>(w);
        ASSERT_TRUE(dialog);
        dialog->setDirectory(path("mouse"));
        dialog->selectFile(file);
        QMetaObject::invokeMethod(dialog, "accept");
    });
    action("ActionOpenSequence")->trigger();
    ASSERT_TRUE(m_window->workspace().activeSequence());
    EXPECT_EQ(m_window->workspace().activeSequence()->getSequenceID(), "mouse");
}

/// Sequences that are closed with changes that are not on disk.
class UnsavedSequenceTest : public SequenceFilesTest
{
protected:
    CHVSSequenceDataset* openMouse()
    {
        disk_sequence::make(path("mouse"), "CT", {"M1"});
        EXPECT_EQ(m_window->open({path("mouse")}), MainWindow::OpenResult::Loaded);
        return m_window->workspace().activeSequence();
    }
    QByteArray info(const QString& folder) const
    {
        return disk_sequence::bytesOf(path(folder) + "/SequenceInfo.txt");
    }
    bool isOpen(CHVSSequenceDataset* sequence) const
    {
        return SequenceRegistry::instance().contains(sequence);
    }
    static void press(QWidget* window, QMessageBox::StandardButton button)
    {
        auto* box = qobject_cast<QMessageBox*>(window);
        ASSERT_TRUE(box);
        EXPECT_EQ(box->defaultButton(), box->button(QMessageBox::Save));
        ASSERT_TRUE(box->button(button));
        box->button(button)->click();
    }
    /// The next box is the question whether to save this sequence.
    static void answer(viz_test::ModalWatcher& watcher, const QString& id, QMessageBox::StandardButton button)
    {
        watcher.expect([id, button](QWidget* window) {
            auto* box = qobject_cast<QMessageBox*>(window);
            ASSERT_TRUE(box);
            EXPECT_TRUE(box->text().startsWith(QStringLiteral("Save '%1' before it is closed?").arg(id)))
                << box->text().toStdString();
            press(window, button);
        });
    }
};

TEST_F(UnsavedSequenceTest, WhatWasOnlyOpenedClosesWithoutAQuestion)
{
    CHVSSequenceDataset* mouse = openMouse();
    EXPECT_TRUE(m_window->workspace().closeSequence(mouse));
    CHVSSequenceDataset* scene = m_window->newScene();
    EXPECT_TRUE(m_window->workspace().closeSequence(scene));
}

TEST_F(UnsavedSequenceTest, ItsOwnVolumeLoadedOnceMoreIsNoChange)
{
    CHVSSequenceDataset* mouse = openMouse();
    m_window->openVolume({path("mouse/CT Data")});
    EXPECT_TRUE(m_window->workspace().closeSequence(mouse));
}

TEST_F(UnsavedSequenceTest, AVolumeThatDidNotLoadIsNoChange)
{
    CHVSSequenceDataset* mouse = openMouse();
    mouse->setLoadedVolumetricData({});  // what a failed load leaves
    EXPECT_TRUE(m_window->workspace().closeSequence(mouse));
}

TEST_F(UnsavedSequenceTest, SaveWritesTheOtherVolumeAndCloses)
{
    CHVSSequenceDataset* mouse = openMouse();
    m_window->openVolume({"/data/other.vox"});
    viz_test::ModalWatcher watcher;
    answer(watcher, "mouse", QMessageBox::Save);
    EXPECT_TRUE(m_window->workspace().closeSequence(mouse));
    EXPECT_FALSE(isOpen(mouse));
    EXPECT_TRUE(info("mouse").contains("File 1 = /data/other.vox"));
}

TEST_F(UnsavedSequenceTest, DiscardClosesAndLeavesTheFile)
{
    CHVSSequenceDataset* mouse = openMouse();
    const QByteArray before = info("mouse");
    m_window->openVolume({"/data/other.vox"});
    viz_test::ModalWatcher watcher;
    answer(watcher, "mouse", QMessageBox::Discard);
    EXPECT_TRUE(m_window->workspace().closeSequence(mouse));
    EXPECT_EQ(info("mouse"), before);
}

TEST_F(UnsavedSequenceTest, CancelAndEscapeKeepItOpen)
{
    CHVSSequenceDataset* mouse = openMouse();
    m_window->openVolume({"/data/other.vox"});
    const QByteArray before = info("mouse");
    viz_test::ModalWatcher watcher;
    answer(watcher, "mouse", QMessageBox::Cancel);
    watcher.expect([](QWidget* window) { window->close(); });
    for (int i = 0; i < 2; ++i) {
        EXPECT_FALSE(m_window->workspace().closeSequence(mouse));
        EXPECT_TRUE(isOpen(mouse));
        EXPECT_EQ(info("mouse"), before);
    }
    answer(watcher, "mouse", QMessageBox::Discard);
    EXPECT_TRUE(m_window->workspace().closeSequence(mouse));
}

TEST_F(UnsavedSequenceTest, ASaveThatFailsKeepsItOpen)
{
    CHVSSequenceDataset* mouse = openMouse();
    m_window->openVolume({"/data/other.vox"});
    ASSERT_TRUE(QDir(path("mouse")).removeRecursively());
    viz_test::ModalWatcher watcher;
    answer(watcher, "mouse", QMessageBox::Save);
    watcher.expectButton("OK");  // the failure
    EXPECT_FALSE(m_window->workspace().closeSequence(mouse));
    EXPECT_TRUE(isOpen(mouse));
}

TEST_F(UnsavedSequenceTest, ANewSceneWithAVolumeIsAskedForAndSavedWhereTheUserSays)
{
    CHVSSequenceDataset* scene = m_window->newScene();
    m_window->openVolume({"/data/a.vox"});
    viz_test::ModalWatcher watcher;
    answer(watcher, "3D Scene 1", QMessageBox::Save);
    watcher.expect([](QWidget* dialog) { dialog->close(); });  // no place: it stays
    EXPECT_FALSE(m_window->workspace().closeSequence(scene));
    EXPECT_TRUE(isOpen(scene));
    answer(watcher, "3D Scene 1", QMessageBox::Save);
    watcher.expect([this](QWidget* w) {
        auto* dialog = qobject_cast<QFileDialog*>(w);
        ASSERT_TRUE(dialog);
        dialog->setDirectory(m_folder.path());
        dialog->selectFile(m_folder.path());
        QMetaObject::invokeMethod(dialog, "accept");
    });
    EXPECT_TRUE(m_window->workspace().closeSequence(scene));
    EXPECT_TRUE(info("3D Scene 1").contains("File 1 = /data/a.vox"));
}

TEST_F(UnsavedSequenceTest, TheWindowsOwnCloseButtonAsksToo)
{
    m_window->show();
    CHVSSequenceDataset* scene = m_window->newScene();
    m_window->openVolume({"/data/a.vox"});
    viz_test::ModalWatcher watcher;
    answer(watcher, "3D Scene 1", QMessageBox::Discard);
    CHVSSequenceWindow::getSequenceWindow(scene)->parentWidget()->close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isOpen(scene); }));
}

TEST_F(UnsavedSequenceTest, ExitAsksForEachAndACancelClosesNone)
{
    m_window->show();
    CHVSSequenceDataset* mouse = openMouse();
    m_window->openVolume({"/data/other.vox"});
    CHVSSequenceDataset* scene = m_window->newScene();
    m_window->openVolume({"/data/a.vox"});
    viz_test::ModalWatcher watcher;
    answer(watcher, "mouse", QMessageBox::Discard);
    answer(watcher, "3D Scene 1", QMessageBox::Cancel);
    EXPECT_FALSE(m_window->close());
    EXPECT_TRUE(isOpen(mouse));
    EXPECT_TRUE(isOpen(scene));
    EXPECT_FALSE(info("mouse").contains("other.vox"));
    answer(watcher, "mouse", QMessageBox::Save);
    answer(watcher, "3D Scene 1", QMessageBox::Discard);
    EXPECT_TRUE(m_window->close());
    EXPECT_TRUE(SequenceRegistry::instance().sequences().isEmpty());
    EXPECT_TRUE(info("mouse").contains("other.vox"));
}

TEST_F(UnsavedSequenceTest, WhileTheQuestionIsOpenNothingElseCloses)
{
    CHVSSequenceDataset* mouse = openMouse();
    m_window->openVolume({"/data/other.vox"});
    CHVSSequenceDataset* scene = m_window->newScene();
    viz_test::ModalWatcher watcher;
    watcher.expect([&](QWidget* window) {
        EXPECT_FALSE(m_window->workspace().closeSequence(scene));
        EXPECT_FALSE(m_window->close());
        press(window, QMessageBox::Cancel);
    });
    EXPECT_FALSE(m_window->workspace().closeSequence(mouse));
    EXPECT_TRUE(isOpen(scene));
}

TEST_F(UnsavedSequenceTest, WithNobodyThereItClosesUnasked)
{
    TearDown();
    m_services = std::make_unique<ApplicationServices>(ApplicationServices::Mode::Unattended);
    HostServices::install(m_services.get());
    makeWindow();
    m_window->openVolume({"/data/a.vox"});
    EXPECT_TRUE(m_window->shutDown());
    EXPECT_EQ(m_services->lastComplaint(), QString());
}

}  // namespace
