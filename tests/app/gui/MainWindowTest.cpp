#include "AppFixture.h"

#include "app/LogDock.h"
#include "app/PaletteDock.h"
#include "app/RecentFiles.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSMdiSubWindow.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVSLog.h"
#include "hvutils/CHVUtilityFns.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "support/ModalWatcher.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QDropEvent>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QSettings>
#include <QStatusBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <QUrl>

#include <stdexcept>

namespace {

using MainWindowTest = AppFixture;

/// An action of the menus, a plug-in's own among them.
QAction* actionNamed(const MainWindow& window, const QString& name)
{
    const QList<QMenu*> menus = window.menuBar()->findChildren<QMenu*>();
    for (const QMenu* menu : menus) {
        const QList<QAction*> actions = menu->actions();
        for (QAction* action : actions) {
            if (action->objectName() == name) return action;
        }
    }
    throw std::runtime_error("no action " + name.toStdString());
}

/// Texts of a menu from top to bottom; "-" for a separator.
QStringList textsOf(const QMenu& menu)
{
    QStringList texts;
    const QList<QAction*> actions = menu.actions();
    for (const QAction* action : actions)
        texts << (action->isSeparator() ? QStringLiteral("-") : QString(action->text()).remove('&'));
    return texts;
}

QMenu* menuNamed(const MainWindow& window, const QString& title)
{
    const QList<QMenu*> menus = window.menuBar()->findChildren<QMenu*>();
    for (QMenu* menu : menus) {
        if (QString(menu->title()).remove('&') == title) return menu;
    }
    ADD_FAILURE() << "no menu " << title.toStdString();
    return nullptr;
}

TEST_F(MainWindowTest, OffersThePalettesByRankAndDisabledAtFirst)
{
    EXPECT_EQ(m_window->paletteDock().paletteNames(), (QStringList{"Tools of Rank 3", "Recording Tools"}));
    EXPECT_FALSE(isPaletteEnabled());
}

TEST_F(MainWindowTest, APaletteThatDoesNotWantToBeSeenStartsFolded)
{
    m_window->show();
    const QList<QToolButton*> headings = m_window->paletteDock().findChildren<QToolButton*>("PaletteHeading");
    ASSERT_EQ(headings.size(), 2);
    for (const QToolButton* heading : headings)
        EXPECT_EQ(heading->isChecked(), heading->text() == "Recording Tools");
    EXPECT_FALSE(plugin()->getPaletteWidget()->isHidden());
}

TEST_F(MainWindowTest, ThePluginsActionStandsInItsGroup)
{
    const QStringList texts = textsOf(*menuNamed(*m_window, "File"));
    const int save = texts.indexOf("Save Picture of the 3D View...");
    ASSERT_GE(save, 0) << texts.join('|').toStdString();
    EXPECT_EQ(texts.value(save + 1), QString("Export Turntable Movie..."));
    EXPECT_EQ(texts.value(save + 2), QString("Record..."));
    EXPECT_EQ(texts.value(save + 3), QString("-"));
    takeRecord();
    actionNamed(*m_window, "RecordAction")->trigger();
    EXPECT_EQ(takeRecord(), QStringList{"action"});
}

TEST_F(MainWindowTest, ANewSceneIsAnnouncedBeforeItBecomesTheActiveOne)
{
    m_window->show();
    takeRecord();
    actionNamed(*m_window, "ActionNewScene")->trigger();
    CHVSSequenceDataset* scene = m_window->workspace().activeSequence();
    ASSERT_TRUE(scene);
    EXPECT_TRUE(scene->is3DSceneOnlySequence());
    EXPECT_EQ(takeRecord(), (QStringList{"added 3D Scene 1", "changed 3D Scene 1"}));
    EXPECT_TRUE(isPaletteEnabled());
    EXPECT_EQ(m_window->newScene()->getSequenceID(), QString("3D Scene 2"));
}

TEST_F(MainWindowTest, EverySequenceHasASubWindowOfTheContractsKind)
{
    CHVSSequenceWindow* window = CHVSSequenceWindow::getSequenceWindow(m_window->newScene());
    ASSERT_TRUE(window);
    EXPECT_TRUE(qobject_cast<CHVSMdiSubWindow*>(window->parentWidget()));
    EXPECT_EQ(m_window->workspace().subWindowList().size(), 1);
}

TEST_F(MainWindowTest, AClosedSequenceSettlesItsResultsThenGoesThenTheNextIsActive)
{
    m_window->show();
    CHVSSequenceDataset* first = m_window->newScene();
    CHVSSequenceDataset* second = m_window->newScene();
    ASSERT_TRUE(first && second);
    takeRecord();
    EXPECT_TRUE(m_window->workspace().closeSequence(second));
    EXPECT_EQ(takeRecord(),
              (QStringList{"save 3D Scene 2", "removed 3D Scene 2, sequence alive, window alive",
                           "changed 3D Scene 1"}));
    EXPECT_TRUE(isPaletteEnabled());
    EXPECT_TRUE(m_window->workspace().closeSequence(first));
    EXPECT_EQ(
        takeRecord(),
        (QStringList{"save 3D Scene 1", "removed 3D Scene 1, sequence alive, window alive", "changed none"}));
    EXPECT_FALSE(isPaletteEnabled());
    EXPECT_TRUE(m_window->workspace().subWindowList().isEmpty());
}

TEST_F(MainWindowTest, ClosingTheSubWindowClosesTheSequence)
{
    m_window->show();
    CHVSSequenceDataset* scene = m_window->newScene();
    takeRecord();
    CHVSSequenceWindow::getSequenceWindow(scene)->parentWidget()->close();
    EXPECT_TRUE(QTest::qWaitFor([] { return SequenceRegistry::instance().sequences().isEmpty(); }));
    EXPECT_EQ(takeRecord().last(), QString("changed none"));
}

TEST_F(MainWindowTest, TheLastUsedWindowBecomesActiveNotTheOldest)
{
    m_window->show();
    CHVSSequenceDataset* one = m_window->newScene();
    m_window->newScene();
    CHVSSequenceDataset* three = m_window->newScene();
    auto* frame = qobject_cast<QMdiSubWindow*>(CHVSSequenceWindow::getSequenceWindow(one)->parentWidget());
    m_window->workspace().setActiveSubWindow(frame);
    m_window->workspace().setActiveSubWindow(
        qobject_cast<QMdiSubWindow*>(CHVSSequenceWindow::getSequenceWindow(three)->parentWidget()));
    m_window->workspace().closeSequence(three);
    EXPECT_EQ(m_window->workspace().activeSequence(), one);
}

TEST_F(MainWindowTest, ActivatingAnotherWindowIsTold)
{
    m_window->show();
    CHVSSequenceDataset* one = m_window->newScene();
    m_window->newScene();
    takeRecord();
    m_window->workspace().setActiveSubWindow(
        qobject_cast<QMdiSubWindow*>(CHVSSequenceWindow::getSequenceWindow(one)->parentWidget()));
    EXPECT_EQ(takeRecord(), QStringList{"changed 3D Scene 1"});
}

TEST_F(MainWindowTest, ChangesOfTheTabAreForwardedByName)
{
    m_window->show();
    CHVSSequenceWindow* window = CHVSSequenceWindow::getSequenceWindow(m_window->newScene());
    auto* tabs = window->findChild<QTabWidget*>();
    ASSERT_TRUE(tabs);
    takeRecord();
    tabs->setCurrentIndex(0);
    tabs->setCurrentIndex(1);
    EXPECT_EQ(takeRecord(), (QStringList{"tab Sequence View", "tab 3D View"}));
    EXPECT_TRUE(isPaletteEnabled());
    tabs->setCurrentIndex(0);
    EXPECT_FALSE(isPaletteEnabled());
}

TEST_F(MainWindowTest, ChangesInTheActiveSceneAreForwarded)
{
    m_window->show();
    CHVSSequenceDataset* hidden = m_window->newScene();
    CHVSSequenceDataset* scene = m_window->newScene();
    takeRecord();
    CHVSSequenceWindow::getSequenceWindow(scene)->onSignal3DViewChanged(true);
    scene->get3DSGManager()->informTransformObjectChanged("GLVolume");
    hidden->get3DSGManager()->informTransformObjectChanged("another");
    EXPECT_EQ(takeRecord(), (QStringList{"view 1", "transform GLVolume"}));
}

TEST_F(MainWindowTest, ExitIsRefusedWhileWorkGoesOn)
{
    m_window->show();
    m_window->newScene();
    CHVUtilityFns::setCanClose(false);
    EXPECT_FALSE(m_window->close());
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_EQ(SequenceRegistry::instance().sequences().size(), 1);
    EXPECT_FALSE(m_window->statusBar()->currentMessage().isEmpty()) << "the user is told why";
    CHVUtilityFns::setCanClose(true);
    EXPECT_TRUE(m_window->close());
    EXPECT_TRUE(SequenceRegistry::instance().sequences().isEmpty());
    EXPECT_TRUE(m_window->plugins().plugins().empty());
}

TEST_F(MainWindowTest, NoSequenceIsClosedWhileWorkGoesOn)
{
    CHVSSequenceDataset* scene = m_window->newScene();
    CHVUtilityFns::setCanClose(false);
    EXPECT_FALSE(m_window->workspace().closeSequence(scene));
    EXPECT_TRUE(SequenceRegistry::instance().contains(scene));
    CHVUtilityFns::setCanClose(true);
}

TEST_F(MainWindowTest, APluginGetsTheSceneItAsksFor)
{
    m_window->show();
    takeRecord();
    emit plugin()->signalCreate3DSceneSequence(QStringLiteral("tester20240503140307_3DS"));
    ASSERT_TRUE(CHVSSequenceDataset::getSequenceDataset("tester20240503140307_3DS"));
    EXPECT_EQ(takeRecord(),
              (QStringList{"added tester20240503140307_3DS", "changed tester20240503140307_3DS"}));
}

TEST_F(MainWindowTest, ANameThatCannotBeAFolderMakesNoScene)
{
    emit plugin()->signalCreate3DSceneSequence(QStringLiteral("../outside"));
    EXPECT_TRUE(SequenceRegistry::instance().sequences().isEmpty());
    EXPECT_EQ(logTexts(3).size(), 1);
}

TEST_F(MainWindowTest, ATakenNameGetsANumber)
{
    m_window->workspace().createScene("scene");
    EXPECT_EQ(m_window->workspace().createScene("SCENE")->getSequenceID(), QString("SCENE_2"));
}

TEST_F(MainWindowTest, APluginsDialogIsWrappedOnce)
{
    m_window->show();
    auto* dialog = new QLabel(QStringLiteral("a tool"));
    emit plugin()->addWidgetToWorkspace(dialog);
    auto* frame = qobject_cast<CHVSMdiSubWindow*>(dialog->parentWidget());
    ASSERT_TRUE(frame);
    EXPECT_FALSE(frame->isVisible()) << "the plug-in decides when it is shown";
    emit plugin()->addWidgetToWorkspace(dialog);
    EXPECT_EQ(dialog->parentWidget(), frame);
    frame->showWindow();
    EXPECT_TRUE(dialog->isVisible());
    frame->close();
    EXPECT_FALSE(frame->isVisible());
    EXPECT_EQ(dialog->parentWidget(), frame) << "closing hides it only";
}

TEST_F(MainWindowTest, FilesGoToThePluginInANewSceneWhenNoneIsActive)
{
    takeRecord();
    EXPECT_EQ(m_window->openVolume({"/data/a.vox"}), MainWindow::OpenResult::Loaded);
    EXPECT_EQ(takeRecord(), (QStringList{"added 3D Scene 1", "changed 3D Scene 1",
                                         "load /data/a.vox -1 -1 into 3D Scene 1"}));
    EXPECT_EQ(m_window->openVolume({"/data/1.tif", "/data/2.tif"}), MainWindow::OpenResult::Loaded);
    EXPECT_EQ(takeRecord(), QStringList{"load /data/1.tif|/data/2.tif -1 -1 into 3D Scene 1"});
    EXPECT_EQ(RecentFiles(m_services->settings()).volumes(),
              (QList<QStringList>{{"/data/1.tif", "/data/2.tif"}, {"/data/a.vox"}}));
}

TEST_F(MainWindowTest, RelativePathsAreMadeAbsolute)
{
    takeRecord();
    m_window->openVolume({"a.vox"});
    EXPECT_TRUE(takeRecord().last().startsWith("load " + QDir::currentPath() + "/a.vox"));
}

TEST_F(MainWindowTest, AFolderIsOpenedAsItsFilesByName)
{
    QTemporaryDir folder;
    for (const char* name : {"b.tif", "a.tif"})
        ASSERT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
    takeRecord();
    EXPECT_EQ(m_window->openVolume({folder.path()}), MainWindow::OpenResult::Loaded);
    EXPECT_EQ(takeRecord().last(), QStringLiteral("load %1|%2 -1 -1 into 3D Scene 1")
                                       .arg(folder.filePath("a.tif"), folder.filePath("b.tif")));
}

TEST_F(MainWindowTest, AFailedLoadIsNoRecentFile)
{
    EXPECT_EQ(m_window->openVolume({"/data/a.bad"}), MainWindow::OpenResult::Failed);
    EXPECT_TRUE(RecentFiles(m_services->settings()).volumes().isEmpty());
}

TEST_F(MainWindowTest, AFileThatAPluginAsksForGivesItsStatus)
{
    tag_estatus status = eStatusFailed;
    emit plugin()->signalLoadFile("/data/a.vox", true, &status, nullptr);
    EXPECT_EQ(status, eStatusSuccess);
    emit plugin()->signalLoadFile("/data/a.bad", true, &status, nullptr);
    EXPECT_NE(status, eStatusSuccess);
}

TEST_F(MainWindowTest, WithoutAReaderNothingIsOpened)
{
    MainWindow bare(*m_services);
    EXPECT_EQ(bare.openVolume({"/data/a.vox"}), MainWindow::OpenResult::NoReader);
    EXPECT_TRUE(SequenceRegistry::instance().sequences().isEmpty());
}

TEST_F(MainWindowTest, FilesDroppedOnTheWindowAreOpened)
{
    m_window->show();
    takeRecord();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile("/data/a b.vox")});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_window.get(), &drop);
    EXPECT_EQ(takeRecord().last(), QString("load /data/a b.vox -1 -1 into 3D Scene 1"));
    QMimeData text;
    text.setText("no file");
    QDragEnterEvent refused(QPoint(5, 5), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
    refused.setAccepted(false);
    QApplication::sendEvent(m_window.get(), &refused);
    EXPECT_FALSE(refused.isAccepted());
}

TEST_F(MainWindowTest, TheLogDockShowsEveryEntryAndTheStatusBarTheStatusLine)
{
    m_window->log().clear();
    getLogObject()->log("told", "", 0, "", 1, false);
    getLogObject()->log("warned", "", 0, "", 2, false);
    getLogObject()->log("failed", "", 0, "", 3, false);
    getLogObject()->log("cancelled", "", 0, "", 16, false);
    const QTreeView* view = m_window->logDock().findChild<QTreeView*>("LogView");
    ASSERT_EQ(view->model()->rowCount(), 4);
    const QStringList kinds{"Information", "Warning", "Error", "Status"};
    QList<qint64> icons;
    for (int row = 0; row < 4; ++row) {
        const QModelIndex kind = view->model()->index(row, LogModel::KindColumn);
        EXPECT_EQ(kind.data().toString(), kinds[row]);
        const qint64 icon = kind.data(Qt::DecorationRole).value<QIcon>().cacheKey();
        EXPECT_FALSE(icons.contains(icon)) << "each kind has its own icon";
        icons << icon;
    }
    EXPECT_EQ(m_window->statusBar()->currentMessage(), QString("cancelled"));
    getLogObject()->log("", "", 0, "", 16, false);
    EXPECT_EQ(m_window->statusBar()->currentMessage(), QString());
    EXPECT_EQ(view->model()->rowCount(), 4) << "an empty status line is no entry";
}

TEST_F(MainWindowTest, TheLogDockCanShowProblemsOnly)
{
    m_window->log().clear();
    getLogObject()->log("told", "", 0, "", 1, false);
    getLogObject()->log("warned", "", 0, "", 2, false);
    getLogObject()->log("failed", "", 0, "", 3, false);
    auto* choice = m_window->logDock().findChild<QComboBox*>("LogChoice");
    const QAbstractItemModel* shown = m_window->logDock().findChild<QTreeView*>("LogView")->model();
    choice->setCurrentIndex(1);
    EXPECT_EQ(shown->rowCount(), 2);
    choice->setCurrentIndex(2);
    EXPECT_EQ(shown->rowCount(), 1);
    choice->setCurrentIndex(0);
    EXPECT_EQ(shown->rowCount(), 3);
}

TEST_F(MainWindowTest, AnEntryThatAsksForABoxIsShownInOne)
{
    viz_test::ModalWatcher watcher;
    watcher.expectButton("OK");
    getLogObject()->log("look here", "", 0, "", 2, true);
    EXPECT_TRUE(QTest::qWaitFor([&watcher] { return !watcher.answeredTitles().isEmpty(); }));
}

TEST_F(MainWindowTest, GeometryIsKeptInTheSettingsFile)
{
    m_window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
    m_window->setGeometry(40, 50, 900, 640);
    m_window->logDock().hide();
    QTest::qWait(50);
    const QSize size = m_window->size();
    ASSERT_TRUE(m_window->close());
    EXPECT_TRUE(QFile::exists(m_home.filePath("halvane.ini")));
    makeWindow();
    EXPECT_EQ(m_window->size(), size);
    EXPECT_TRUE(m_window->logDock().isHidden());
}

TEST_F(MainWindowTest, TheWindowMenuListsTheWindows)
{
    m_window->show();
    m_window->newScene();
    m_window->newScene();
    QMenu* menu = menuNamed(*m_window, "Window");
    emit menu->aboutToShow();
    const QStringList texts = textsOf(*menu);
    EXPECT_TRUE(texts.contains("3D Scene 1"));
    EXPECT_TRUE(texts.contains("3D Scene 2"));
    EXPECT_TRUE(menu->actions().last()->isChecked());
}

TEST_F(MainWindowTest, AnEmptyWorkspaceHasNothingToSave)
{
    EXPECT_FALSE(actionNamed(*m_window, "ActionSavePicture")->isEnabled());
    m_window->newScene();
    EXPECT_TRUE(actionNamed(*m_window, "ActionSavePicture")->isEnabled());
}

TEST_F(MainWindowTest, AFolderWithoutPluginsIsAWarning)
{
    MainWindow bare(*m_services);
    bare.startPlugins({m_home.path()});
    EXPECT_EQ(bare.log().entry(bare.log().rowCount() - 1).severity, 2);
}

}  // namespace
