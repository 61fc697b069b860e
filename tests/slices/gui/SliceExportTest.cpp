#include "gui/SliceLayoutBench.h"
#include "support/FullDisk.h"

#include "hvapi/export/CHVSMovieExporter.h"
#include "hvutils/CHVProcess.h"
#include "hvutils/CHVSProgressBar.h"

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>

namespace {

struct SliceExportTest : SliceLayoutBench
{
    SliceExportTest() { show(); }

    /// The user types this path into the file dialog, and accepts.
    void answerPath(const QString& path)
    {
        modal.expect([path](QWidget* window) {
            auto* files = qobject_cast<QFileDialog*>(window);
            ASSERT_NE(files, nullptr);
            EXPECT_EQ(files->windowTitle(), "Export Graphics");
            files->findChild<QLineEdit*>("fileNameEdit")->setText(path);
            static_cast<QDialog*>(files)->accept();
        });
    }

    void answerCancel()
    {
        modal.expect([](QWidget* window) { qobject_cast<QDialog*>(window)->reject(); });
    }

    /// Does this once, when the export shows its progress and has come past `position`.
    void onProgress(const std::function<void(CHVSProgressBar*)>& act, float position = -1000.0F)
    {
        auto* timer = new QTimer(dialog);
        QObject::connect(timer, &QTimer::timeout, dialog, [this, timer, act, position] {
            auto* progress = dialog->findChild<CHVSProgressBar*>();
            if (!progress || !progress->isVisible()) return;
            if (dialog->view()->singlePosition() < position) return;
            timer->deleteLater();
            timer->stop();
            shown = true;
            act(progress);
        });
        timer->start(0);
    }

    /// A small range: 3 slices, 45 frames.
    void shortRange()
    {
        dialog->m_pSpacingSpinBox->setValue(2.0);
        dialog->m_pMinSpinBox->setValue(-2.0);
        dialog->m_pMaxSpinBox->setValue(2.0);
        ASSERT_EQ(dialog->m_pTotalSlicesLbl->text(), "Total Slices: 3");
    }

    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files); }

    QTemporaryDir folder;
    bool shown = false;  ///< the progress
};

TEST_F(SliceExportTest, APictureOfTheMontageIsWrittenAsItStands)
{
    answerPath(folder.filePath("montage.png"));
    EXPECT_TRUE(dialog->exportGraphics());
    const QImage picture(folder.filePath("montage.png"));
    EXPECT_EQ(picture.size(), dialog->view()->size());
    EXPECT_EQ(colorName(picture.pixelColor(middle(10))), "grey");
    EXPECT_FALSE(dialog->view()->isSingleView());
}

TEST_F(SliceExportTest, APictureOfASingleSliceHasItsPosition)
{
    dialog->onDoubleClickSingleSlice();
    dialog->view()->setShowLabel(false);
    QTest::qWait(30);
    QImage bare;
    dialog->view()->grabImage(bare);
    answerPath(folder.filePath("single.bmp"));
    EXPECT_TRUE(dialog->exportGraphics());
    const QImage picture(folder.filePath("single.bmp"));
    ASSERT_EQ(picture.size(), bare.size());
    EXPECT_NE(picture.convertToFormat(QImage::Format_RGB32), bare.convertToFormat(QImage::Format_RGB32));
}

TEST_F(SliceExportTest, CancellingIsNoFailure)
{
    answerCancel();
    EXPECT_TRUE(dialog->exportGraphics());
    EXPECT_TRUE(services.entries().isEmpty());
}

TEST_F(SliceExportTest, ANameWithoutASuffixGetsThatOfTheChosenType)
{
    answerPath(folder.filePath("bare"));
    EXPECT_TRUE(dialog->exportGraphics());
    EXPECT_EQ(files(), QStringList("bare.bmp"));
}

TEST_F(SliceExportTest, AnOlderFileIsReplacedOnlyWhenTheUserSaysSo)
{
    const QString path = folder.filePath("old.png");
    QFile old(path);
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();

    answerPath(path);
    services.answerNextBox(65536);  // No: the dialog comes again
    answerCancel();
    EXPECT_TRUE(dialog->exportGraphics());
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), "old");
    old.close();
    ASSERT_EQ(services.boxes().size(), 1);

    answerPath(path);
    services.answerNextBox(16384);
    EXPECT_TRUE(dialog->exportGraphics());
    EXPECT_FALSE(QImage(path).isNull());
}

TEST_F(SliceExportTest, AReadOnlyPlaceIsSaid)
{
    answerPath("/proc/nothing.png");
    services.answerNextBox(1024);
    EXPECT_TRUE(dialog->exportGraphics());
    ASSERT_EQ(services.boxes().size(), 1);
    EXPECT_TRUE(services.boxes().first().question.text.contains("/proc/nothing.png"));
}

TEST_F(SliceExportTest, DuringAnAnimationExportNothingIsAsked)
{
    CHVProcess::startLongProcess(0, eProcessAnimationExport, false, QString());
    EXPECT_FALSE(dialog->exportGraphics());
    CHVProcess::endLongProcess(eProcessAnimationExport);
    EXPECT_EQ(services.messages(2), QStringList("Unable to export, 3D Animation export in progress."));
}

TEST_F(SliceExportTest, AMovieRunsThroughTheRangeAndTheMontageComesBack)
{
    shortRange();
    answerPath(folder.filePath("movie.avi"));
    onProgress([](CHVSProgressBar* progress) {
        EXPECT_EQ(progress->windowTitle(), "Exporting Movie...");
        EXPECT_TRUE(progress->isModal());
    });
    EXPECT_TRUE(dialog->exportGraphics());
    EXPECT_EQ(services.messages(16), QStringList("File exported successfully..!"));
    EXPECT_EQ(files(), QStringList("movie.avi"));
    EXPECT_TRUE(shown);
    EXPECT_FALSE(dialog->view()->isSingleView());
    EXPECT_EQ(services.cursorDepth(), 0);
    // The last frame stands one step before the end of the range and one spacing more: 2 + 2 - 6 / 45.
    EXPECT_NEAR(dialog->view()->singlePosition(), 4.0 - 6.0 / 45.0, 1e-4);
}

TEST_F(SliceExportTest, ClosingTheProgressLeavesNoFile)
{
    shortRange();
    answerPath(folder.filePath("movie.avi"));
    onProgress([](CHVSProgressBar* progress) { progress->close(); });
    EXPECT_FALSE(dialog->exportGraphics());
    EXPECT_EQ(services.messages(1), QStringList("Movie Export aborted."));
    EXPECT_EQ(services.messages(16), QStringList("Exporting aborted..!"));
    EXPECT_TRUE(files().isEmpty());
    EXPECT_FALSE(dialog->view()->isSingleView());
    EXPECT_EQ(services.cursorDepth(), 0);
}

TEST_F(SliceExportTest, ResizingTheDialogEndsTheMovie)
{
    shortRange();
    answerPath(folder.filePath("movie.mp4"));
    onProgress([this](CHVSProgressBar*) { dialog->resize(dialog->width() + 60, dialog->height() + 40); },
               1.0F);
    EXPECT_FALSE(dialog->exportGraphics());
    EXPECT_EQ(services.messages(3), QStringList("Exported Frame dimension changed..."));
    EXPECT_EQ(services.messages(16), QStringList("Exporting aborted..!"));
    EXPECT_TRUE(files().isEmpty());
}

TEST_F(SliceExportTest, AMovieThatCannotBeCreatedIsSaid)
{
    shortRange();
    answerPath("/proc/movie.avi");
    EXPECT_FALSE(dialog->exportGraphics());
    EXPECT_EQ(
        services.messages(2),
        QStringList("Unable to create the movie file, please verify it is not currently open by another "
                    "program."));
    EXPECT_EQ(services.cursorDepth(), 0);
    EXPECT_FALSE(dialog->view()->isSingleView());
}

TEST_F(SliceExportTest, AMovieThatCannotBeCompletedIsNoSuccess)
{
    shortRange();
    answerPath(folder.filePath("movie.mp4"));
    {
        const FullDisk disk(2000);
        EXPECT_FALSE(dialog->exportGraphics());
    }
    EXPECT_FALSE(services.messages(16).contains("File exported successfully..!"));
    EXPECT_TRUE(files().isEmpty());
    EXPECT_EQ(services.cursorDepth(), 0);
}

TEST_F(SliceExportTest, ASequenceThatGoesDuringTheExportEndsItWithoutACrash)
{
    shortRange();
    answerPath(folder.filePath("movie.avi"));
    onProgress([this](CHVSProgressBar*) { delete dialog; });
    EXPECT_FALSE(dialog->exportGraphics());
    EXPECT_TRUE(files().isEmpty());
    EXPECT_EQ(services.cursorDepth(), 0);
}

}  // namespace
