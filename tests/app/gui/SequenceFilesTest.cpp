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

}  // namespace
