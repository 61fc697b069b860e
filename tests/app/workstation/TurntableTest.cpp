// The turntable movie of the 3D view, asked for and stopped as a user would, and read back.

#include "MovieFile.h"
#include "WorkstationFixture.h"

#include "app/LogModel.h"
#include "app/LongProcessDialog.h"
#include "app/TurntableCommand.h"

#include "hvutils/CHVProcess.h"
#include "support/ModalWatcher.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTimer>

#include <array>
#include <functional>
#include <optional>

namespace {

using Direction = std::array<double, 6>;  ///< towards the viewer, and up

/// A cube of bone, 20 mm in a volume of 40 mm, opaque in clear air, in a small view.
class TurntableTest : public WorkstationFixture
{
protected:
    void SetUp() override
    {
        WorkstationFixture::SetUp();
        QDir().mkpath(m_folder.filePath("movies"));
    }
    void load()
    {
        ASSERT_TRUE(drop({rawFile("cube.raw", true)}));
        ASSERT_TRUE(volume());
        unsigned char table[1024] = {};
        for (int value = 100; value < 256; ++value)
            for (int channel = 0; channel < 4; ++channel)
                table[4 * value + channel] = channel == 3 ? 255 : 180;
        volume()->setVolumeColorTable(table);
        ViewControl(*scene()).showBoundingBox(false);
        QMdiSubWindow* frame = m_window->workspace().activeSubWindow();
        ASSERT_TRUE(frame);
        frame->showNormal();
        frame->resize(320, 300);
        QTest::qWait(50);
    }
    C3DScene* scene() const { return m_window->activeScene(); }
    QAction* action() const { return m_window->turntable().action(); }
    QString movie(const QString& name) const { return m_folder.filePath("movies/" + name); }
    QStringList moviesLeft() const { return QDir(m_folder.filePath("movies")).entryList(QDir::Files); }
    QString statusLine() const
    {
        LogModel& log = m_window->log();
        for (int row = log.rowCount() - 1; row >= 0; --row)
            if (log.entry(row).severity == 16) return log.entry(row).message;
        return {};
    }

    /// The user types `path` into the dialog of the file and accepts.
    void answerPath(const QString& path)
    {
        watcher.expect([path](QWidget* window) {
            auto* files = qobject_cast<QFileDialog*>(window);
            ASSERT_TRUE(files);
            files->findChild<QLineEdit*>("fileNameEdit")->setText(path);
            static_cast<QDialog*>(files)->accept();
        });
    }
    /// The keys of the command, and the file.
    void exportTo(const QString& path)
    {
        answerPath(path);
        QApplication::setActiveWindow(m_window.get());
        QTest::keyClick(m_window.get(), Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
    }
    /// Does this once, from an event of its own, when the export has come to `step`.
    void atStep(int step, std::function<void()> act)
    {
        auto done = std::make_shared<bool>(false);
        QObject::connect(m_services.get(), &ApplicationServices::processStateChanged, m_window.get(),
                         [this, step, done, act = std::move(act)] {
                             const HostProcessState state = m_services->processState();
                             if (*done || state.step < step) return;
                             *done = true;
                             EXPECT_TRUE(CHVProcess::isProcessInProgress(eProcessAnimationExport));
                             QTimer::singleShot(0, act);
                         });
    }
    /// Nothing of the export is left behind.
    static void expectOver()
    {
        EXPECT_FALSE(CHVProcess::isProcessInProgress(eProcessAny));
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    }
    void expectUsersCamera(const Direction& before) const
    {
        EXPECT_EQ(cameraDirection(), before);
        // The windows listen again: the keys of the top view.
        QApplication::setActiveWindow(m_window.get());
        QTest::keyClick(m_window.get(), Qt::Key_3, Qt::ControlModifier);
        EXPECT_NE(cameraDirection(), before);
    }
    Direction cameraDirection() const
    {
        ViewControl view(*scene());
        const hvscene::Camera camera = view.turntableCamera(view.pixels());  // starts where the view's stands
        const hvscene::Vec3 back = camera.back();
        const hvscene::Vec3 up = camera.up();
        return {back.x, back.y, back.z, up.x, up.y, up.z};
    }

    viz_test::ModalWatcher watcher;
};

/// Width in pixels of the cube in the middle row: its edges, and faces seen askew, are dark, and still
/// brighter than the ground.
int cubeWidth(const QImage& picture)
{
    int count = 0;
    for (int x = 0; x < picture.width(); ++x)
        if (qGray(picture.pixel(x, picture.height() / 2)) > 70) ++count;
    return count;
}

TEST_F(TurntableTest, IsOfferedOnlyWhereThereIsSomethingToTurn)
{
    EXPECT_FALSE(action()->isEnabled());
    EXPECT_TRUE(action()->toolTip().contains("no 3D view")) << action()->toolTip().toStdString();
    ASSERT_TRUE(m_window->newScene());
    EXPECT_FALSE(action()->isEnabled());
    EXPECT_TRUE(action()->toolTip().contains("empty")) << action()->toolTip().toStdString();
    load();
    EXPECT_TRUE(action()->isEnabled());
    EXPECT_TRUE(action()->toolTip().contains("turns once round")) << action()->toolTip().toStdString();
    watcher.expectButton("Discard");
    ASSERT_TRUE(m_window->workspace().closeSequence(m_window->workspace().activeSequence()));
    EXPECT_FALSE(action()->isEnabled());
}

TEST_F(TurntableTest, WithoutAnEncoderTheToolTipTellsWhy)
{
    load();
    TurntableCommand none(*m_window, *m_services, [] { return QStringList(); });
    none.refresh();
    EXPECT_FALSE(none.action()->isEnabled());
    EXPECT_TRUE(none.action()->toolTip().contains("encoder"));
}

TEST_F(TurntableTest, TheMovieShowsTheSceneTurnOnceRound)
{
    load();
    m_window->turntable().setTurn({8, 30});
    const Direction before = cameraDirection();
    QSize pixels = ViewControl(*scene()).pixels();
    QString seen;
    atStep(3, [this, &seen] {
        const HostProcessState state = m_services->processState();
        seen = QStringLiteral("%1 of %2").arg(state.step).arg(state.totalSteps);
        EXPECT_TRUE(state.abortable);
        EXPECT_FALSE(state.message.isEmpty());
    });
    exportTo(movie("turn.avi"));
    EXPECT_TRUE(seen.endsWith(" of 8")) << seen.toStdString();
    EXPECT_TRUE(statusLine().contains("turn.avi")) << statusLine().toStdString();
    EXPECT_EQ(moviesLeft(), QStringList{"turn.avi"});

    const MovieFile written = MovieFile::read(movie("turn.avi"));
    ASSERT_TRUE(written.isReadable);
    ASSERT_EQ(written.frames.size(), 8);
    EXPECT_NEAR(written.framesPerSecond, 30.0, 1e-6);
    EXPECT_LE(written.frames[0].width() - pixels.width(), 1) << "the size of the view, odd sides made even";
    EXPECT_GE(written.frames[0].width(), pixels.width());
    // The whole turn is in the window, so its scale is known: a half height of 20 mm or half a width of the
    // volume's diagonal, and the margin. The cube is 20 mm wide, and across 28.28 mm.
    const double halfWidth = 28.284 * pixels.height() / pixels.width();
    const double mmPerPixel = 2.0 * 1.12 * std::max(20.0, halfWidth) / pixels.height();
    for (int i = 0; i < 8; ++i)
        EXPECT_NEAR(cubeWidth(written.frames[i]) * mmPerPixel, i % 2 == 0 ? 20.0 : 28.28, 1.5) << i;
    expectOver();
    expectUsersCamera(before);
}

TEST_F(TurntableTest, TheUsersZoomStays)
{
    load();
    m_window->turntable().setTurn({4, 30});
    QWheelEvent wheel(QPointF(scene()->rect().center()), scene()->mapToGlobal(scene()->rect().center()),
                      QPoint(), QPoint(0, 360), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(scene(), &wheel);
    const Direction before = cameraDirection();
    ViewControl view(*scene());
    const QImage shown = view.picture(view.pixels());
    exportTo(movie("zoomed.avi"));
    const MovieFile written = MovieFile::read(movie("zoomed.avi"));
    ASSERT_EQ(written.frames.size(), 4);
    EXPECT_NEAR(cubeWidth(written.frames[0]), cubeWidth(shown), 2);
    EXPECT_EQ(view.picture(view.pixels()), shown);
    expectUsersCamera(before);
}

TEST_F(TurntableTest, EveryKindOfMovieIsWritten)
{
    load();
    m_window->turntable().setTurn({6, 30});
    exportTo(movie("a.mpg"));
    exportTo(movie("B.MP4"));
    exportTo(movie("no ending"));
    const QStringList left = moviesLeft();
    ASSERT_EQ(left.size(), 3) << left.join(", ").toStdString();
    for (const QString& name : left) {
        const MovieFile written = MovieFile::read(movie(name));
        EXPECT_EQ(written.frames.size(), 6) << name.toStdString();
        EXPECT_NEAR(written.framesPerSecond, 30.0, 1e-6) << name.toStdString();
    }
}

TEST_F(TurntableTest, TheUserAbortsItByTheButton)
{
    load();
    m_window->turntable().setTurn({100000, 30});
    const Direction before = cameraDirection();
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto* dialog = m_window->findChild<LongProcessDialog*>();
        if (!dialog || !dialog->isVisible()) return;
        timer.stop();
        QTest::mouseClick(dialog->findChild<QPushButton*>(), Qt::LeftButton);
    });
    timer.start(10);
    exportTo(movie("aborted.mp4"));
    EXPECT_EQ(moviesLeft(), QStringList());
    EXPECT_TRUE(statusLine().contains("aborted")) << statusLine().toStdString();
    expectOver();
    expectUsersCamera(before);
}

TEST_F(TurntableTest, AFileThatWasToBeReplacedStaysWhenItIsAborted)
{
    load();
    m_window->turntable().setTurn({100000, 30});
    QFile old(movie("old.mp4"));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly) && old.write("precious") == 8);
    old.close();
    atStep(3, [this] { m_services->requestAbort(); });
    answerPath(movie("old.mp4"));
    watcher.expectButton("Yes");
    action()->trigger();
    EXPECT_EQ(moviesLeft(), QStringList{"old.mp4"});
    ASSERT_TRUE(old.open(QIODevice::ReadOnly));
    EXPECT_EQ(old.readAll(), QByteArray("precious"));
}

TEST_F(TurntableTest, AViewThatIsResizedEndsIt)
{
    load();
    m_window->turntable().setTurn({100000, 30});
    const Direction before = cameraDirection();
    atStep(3, [this] { m_window->workspace().activeSubWindow()->resize(360, 340); });
    exportTo(movie("resized.avi"));
    EXPECT_EQ(moviesLeft(), QStringList());
    EXPECT_TRUE(statusLine().contains("resized")) << statusLine().toStdString();
    expectOver();
    expectUsersCamera(before);
}

TEST_F(TurntableTest, ASequenceThatGoesEndsIt)
{
    load();
    m_window->turntable().setTurn({100000, 30});
    const QPointer<C3DScene> view = scene();
    answerPath(movie("gone.mp4"));
    watcher.expectButton("Discard");  // of the scene, which was never saved
    std::optional<bool> closed;
    atStep(3, [&] { closed = m_window->workspace().closeSequence(m_window->workspace().activeSequence()); });
    action()->trigger();
    EXPECT_TRUE(closed.value_or(false));
    EXPECT_FALSE(view);
    EXPECT_EQ(moviesLeft(), QStringList());
    expectOver();
    EXPECT_FALSE(action()->isEnabled());
}

TEST_F(TurntableTest, AFolderThatCanNotBeWrittenIsTold)
{
    load();
    m_window->turntable().setTurn({4, 30});
    const QString path = movie("missing/turn.avi");
    answerPath(path);
    watcher.expectButton("OK");
    action()->trigger();
    EXPECT_EQ(moviesLeft(), QStringList());
    expectOver();
}

TEST_F(TurntableTest, WithNobodyThereNothingIsAsked)
{
    load();
    ApplicationServices unattended(ApplicationServices::Mode::Unattended);
    TurntableCommand command(*m_window, unattended);
    command.refresh();
    ASSERT_TRUE(command.action()->isEnabled());
    command.action()->trigger();
    EXPECT_TRUE(watcher.answeredTitles().isEmpty());
    EXPECT_TRUE(m_services->lastComplaint().contains("nobody"));
}

}  // namespace
