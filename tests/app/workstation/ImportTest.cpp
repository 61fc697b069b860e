// The import dialog in the workstation, with mouse and keyboard, from an empty window to a drawn volume.

#include "WorkstationFixture.h"

#include "hvapi/windows/CHVSSequenceWindow.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvapi/windows/WindowRegistry.h"
#include "phantom/CommandLine.h"
#include "support/ModalWatcher.h"

#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QToolBar>
#include <QTreeView>

namespace {

const QString actionText = QStringLiteral("Browse 3D Volumetric data...");

/// Closes the window when the browse enters its first folder.
class CloseDuringBrowse : public QObject
{
public:
    explicit CloseDuringBrowse(QMainWindow& window)
        : m_window(window)
    {}

    int refused = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        constexpr int folderEntered = 1101;
        if (event->type() == folderEntered && !m_isTried) {
            m_isTried = true;
            refused += m_window.close() ? 0 : 1;
        }
        return false;
    }

private:
    QMainWindow& m_window;
    bool m_isTried = false;
};

class ImportTest : public WorkstationFixture
{
protected:
    /// Scans of 40 frames: a series, and a sequence that keeps its own in "CT Data".
    QString scans() const
    {
        const QString root = m_folder.filePath("scans");
        QDir().mkpath(root + "/deep");
        std::string out;
        std::string error;
        EXPECT_EQ(phantom::runPhantom({"--format=dicom", "--size=40", (root + "/deep/mouse").toStdString()},
                                      out, error),
                  0)
            << error;
        EXPECT_EQ(phantom::runPhantom({"--format=sequence", "--size=40", (root + "/ct mouse").toStdString()},
                                      out, error),
                  0)
            << error;
        return root;
    }

    QDialog* dialog() const { return m_window->findChild<QDialog*>("Corvane Browser"); }
    template <class Widget>
    Widget* part(const char* name) const
    {
        auto* widget = dialog() ? dialog()->findChild<Widget*>(name) : nullptr;
        EXPECT_TRUE(widget) << name;
        return widget;
    }

    /// The action by the mouse: a click on "File", a click on its entry.
    void openByMenu() const
    {
        QMenuBar* bar = m_window->menuBar();
        QAction* file = bar->actions().first();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(file).center());
        QMenu* menu = file->menu();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(menu));
        for (QAction* action : menu->actions()) {
            if (action->text() != actionText) continue;
            QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(action).center());
            return;
        }
        ADD_FAILURE() << "the action is not in the menu";
    }

    void browse(const QString& folder)
    {
        m_modal.expect([folder](QWidget* window) {
            auto* chooser = qobject_cast<QFileDialog*>(window);
            ASSERT_TRUE(chooser);
            chooser->findChild<QLineEdit*>()->setText(folder);
            QTest::keyClick(chooser->findChild<QLineEdit*>(), Qt::Key_Return);
        });
        QTest::mouseClick(part<QPushButton>("m_pBrowseButton"), Qt::LeftButton);
        QTest::qWait(20);
    }

    QTreeView* rows() const { return part<QTreeView>("m_pCompatibleDataList"); }

    /// Clicks the row of a data set.
    void choose(const QString& name) const
    {
        for (int row = 0; row < rows()->model()->rowCount(); ++row) {
            const QModelIndex index = rows()->model()->index(row, 0);
            if (index.data().toString() != name) continue;
            QTest::mouseClick(rows()->viewport(), Qt::LeftButton, {}, rows()->visualRect(index).center());
            return;
        }
        ADD_FAILURE() << name.toStdString() << " is not in the list";
    }

    void type(const char* spinBox, const char* value) const
    {
        auto* box = part<QSpinBox>(spinBox);
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, value);
        QTest::keyClick(box, Qt::Key_Tab);
    }

    QString status() const { return part<QLabel>("m_pStatusLabel")->text(); }
    void load() const { QTest::mouseClick(part<QPushButton>("m_pLoadButton"), Qt::LeftButton); }
    void picture(const char* name) const
    {
        const QByteArray folder = qgetenv("IMPORT_PICTURES");
        if (!folder.isEmpty()) m_window->grab().save(QString(folder) + '/' + name);
    }

    viz_test::ModalWatcher m_modal;
};

TEST_F(ImportTest, TheActionStandsInMenuAndToolBar)
{
    const QList<QAction*> tools = m_window->findChild<QToolBar*>("MainToolBar")->actions();
    QStringList texts;
    for (const QAction* action : tools)
        texts << action->text();
    EXPECT_TRUE(texts.contains(actionText));
    openByMenu();
    ASSERT_TRUE(dialog());
    EXPECT_TRUE(dialog()->isVisible());
    EXPECT_EQ(dialog()->windowTitle(), QString::fromUtf8("Browse 3D Volumetric Data\xe2\x80\xa6"));
}

TEST_F(ImportTest, FromAnEmptyWorkstationToARenderedRangeOfFrames)
{
    openByMenu();
    ASSERT_TRUE(dialog());
    picture("1-empty.png");
    browse(scans());
    ASSERT_EQ(rows()->model()->rowCount(), 2);
    choose("mouse");
    EXPECT_EQ(part<QListWidget>("m_pFileList")->count(), 40);
    EXPECT_EQ(part<QListWidget>("m_pFileList")->item(39)->text(), QString("slice-0040.dcm"));
    EXPECT_EQ(status(), QString("No valid 3D Scene. Data will be loaded in a new window."));
    part<QSlider>("m_pFrameSlider")->setFocus();
    for (int i = 0; i < 18; ++i)
        QTest::keyClick(part<QSlider>("m_pFrameSlider"), Qt::Key_Right);
    EXPECT_EQ(part<QLabel>("m_pFrameLabel")->text(), QString("19"));
    type("m_pStartSpinBox", "11");
    type("m_pEndSpinBox", "30");
    picture("2-chosen.png");
    EXPECT_FALSE(m_window->workspace().activeSequence());
    load();
    CHVSSequenceDataset* sequence = m_window->workspace().activeSequence();
    ASSERT_TRUE(sequence);
    EXPECT_TRUE(sequence->is3DSceneOnlySequence());
    EXPECT_TRUE(sequence->getSequenceID().endsWith("_3DS"));
    ASSERT_TRUE(volume());
    EXPECT_EQ(volume()->getHeight(), 20) << "frames 11 to 30 of an axial series";
    EXPECT_TRUE(volume()->isDisplayed());
    QTest::qWait(300);
    picture("3-loaded.png");
    const QImage drawn = frontPicture(QSize(160, 160));
    volume()->show(false);
    EXPECT_NE(drawn, frontPicture(QSize(160, 160)));
    EXPECT_EQ(m_services->lastComplaint(), QString());
}

TEST_F(ImportTest, AnExistingSceneTakesTheVolumeUnlessTheBoxSaysOtherwise)
{
    CHVSSequenceDataset* scene = m_window->newScene();
    m_window->findChild<QToolBar*>("MainToolBar")->actions().last()->trigger();
    browse(scans() + "/deep");
    EXPECT_EQ(status(), "Data will be loaded in " + scene->getSequenceID() + ".");
    load();
    ASSERT_EQ(m_window->workspace().activeSequence(), scene);
    ASSERT_TRUE(volume());
    EXPECT_EQ(volume()->getHeight(), 40);
    auto* box = part<QCheckBox>("m_pNewWindowCheckBox");
    QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
    EXPECT_EQ(status(), QString());
    load();
    EXPECT_EQ(SequenceRegistry::instance().sequences().size(), 2);
    EXPECT_NE(m_window->workspace().activeSequence(), scene);
    EXPECT_TRUE(volume());
}

TEST_F(ImportTest, TheCtEntryOpensItsSequence)
{
    openByMenu();
    browse(scans());
    choose("ct mouse");
    EXPECT_EQ(status(), QString());
    load();
    CHVSSequenceDataset* sequence = m_window->workspace().activeSequence();
    ASSERT_TRUE(sequence);
    EXPECT_EQ(sequence->getSequenceID(), QString("ct mouse"));
    EXPECT_TRUE(sequence->isCTSequence(false));
    EXPECT_EQ(SequenceRegistry::instance().sequences().size(), 1);
}

TEST_F(ImportTest, TheWorkstationStaysOpenDuringABrowseAndClosesAfterIt)
{
    const QString root = scans();
    for (int i = 0; i < 400; ++i)
        QDir().mkpath(root + QString("/f%1/a/b").arg(i));
    openByMenu();
    CloseDuringBrowse closing(*m_window);
    dialog()->installEventFilter(&closing);
    browse(root);
    EXPECT_EQ(closing.refused, 1);
    EXPECT_TRUE(HostServices::instance().canClose());
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_TRUE(m_window->close());
    EXPECT_TRUE(m_window->plugins().plugins().empty());
}

TEST_F(ImportTest, ClosingTheDialogGivesTheWorkspaceBack)
{
    CHVSSequenceDataset* scene = m_window->newScene();
    openByMenu();
    auto* frame = qobject_cast<QMdiSubWindow*>(dialog()->parentWidget());
    ASSERT_TRUE(frame);
    EXPECT_EQ(m_window->workspace().activeSubWindow(), frame);
    QTest::keyClick(dialog(), Qt::Key_Escape);
    EXPECT_TRUE(frame->isVisible());
    frame->close();
    EXPECT_FALSE(frame->isVisible());
    EXPECT_EQ(m_window->workspace().activeSequence(), scene);
    openByMenu();
    EXPECT_TRUE(frame->isVisible());
}

}  // namespace
