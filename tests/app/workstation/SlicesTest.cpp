// Slices in the real workstation, by mouse and keys: the viewer of the palette, a montage, slabs, one slice,
// a picture and a movie.

#include "MovieFile.h"
#include "WorkstationFixture.h"

#include "phantom/CommandLine.h"
#include "support/ModalWatcher.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QOpenGLWidget>
#include <QPointer>
#include <QSet>
#include <QSlider>
#include <QTabWidget>

namespace {

class SlicesTest : public WorkstationFixture
{
protected:
    void open()
    {
        const QString file = m_folder.filePath("mouse.raw");
        std::string out;
        std::string error;
        ASSERT_EQ(phantom::runPhantom({"--size=80", file.toStdString()}, out, error), 0) << error;
        m_window->resize(900, 700);
        m_window->newScene();
        ASSERT_TRUE(drop({file}));
        ASSERT_TRUE(volume());
        auto* tabs = palette()->findChild<QTabWidget*>("VolumeVizTabWidget");
        tabs->setCurrentWidget(palette()->findChild<QWidget*>("sliceTab"));
        QTest::qWait(50);
    }

    template <class Widget>
    Widget* inPalette(const char* name) const
    {
        return palette()->findChild<Widget*>(name);
    }
    QOpenGLWidget* preview() const { return inPalette<QOpenGLWidget>("SliceView"); }

    /// How many different greys a picture has: an empty one has two or three.
    static int greys(const QImage& picture)
    {
        QSet<int> seen;
        for (int y = 0; y < picture.height(); y += 3)
            for (int x = 0; x < picture.width(); x += 3)
                seen.insert(qGray(picture.pixel(x, y)));
        return seen.size();
    }

    /// White pixels of the label at the foot of the first tile, which lies in the air and is black.
    static int labelOfFirstTile(const QImage& montage)
    {
        constexpr int x = 6;
        int top = 0;
        while (top < montage.height() && qGray(montage.pixel(x, top)) > 100)
            ++top;
        int bottom = top;
        while (bottom < montage.height() && qGray(montage.pixel(x, bottom)) < 100)
            ++bottom;
        int white = 0;
        for (int y = bottom - 25; y < bottom - 2; ++y)
            for (int i = x; i < bottom - top - 4; ++i)
                white += qGray(montage.pixel(i, y)) > 200 ? 1 : 0;
        return white;
    }

    /// The user types this path into the file dialog, and accepts.
    void answerPath(const QString& path)
    {
        m_modal.expect([path](QWidget* window) {
            window->findChild<QLineEdit*>("fileNameEdit")->setText(path);
            static_cast<QDialog*>(qobject_cast<QFileDialog*>(window))->accept();
        });
    }

    viz_test::ModalWatcher m_modal;
};

TEST_F(SlicesTest, ThePalettesViewerFollowsItsSliderAndOrientation)
{
    open();
    ASSERT_TRUE(preview());
    EXPECT_TRUE(preview()->isVisible());
    EXPECT_GT(greys(preview()->grabFramebuffer()), 10);
    const QImage middle = preview()->grabFramebuffer();
    auto* slider = inPalette<QSlider>("m_pSliceViewerSlider");
    slider->setFocus();
    for (int i = 0; i < 4; ++i)
        QTest::keyClick(slider, Qt::Key_PageUp);
    EXPECT_EQ(slider->value(), 7000);
    EXPECT_NE(preview()->grabFramebuffer(), middle);
    EXPECT_TRUE(inPalette<QLabel>("m_pSliceViewerPositionLabel")->text().startsWith("Position:"));
    QTest::keyClick(inPalette<QComboBox>("m_pSliceOrientation"), Qt::Key_Down);
    EXPECT_GT(greys(preview()->grabFramebuffer()), 10);
}

TEST_F(SlicesTest, MontageSlabSingleSlicePictureAndMovie)
{
    open();
    QPointer<QWidget> window;
    m_modal.expect([&window](QWidget* opened) { window = opened; });
    QTest::mouseClick(inPalette<QAbstractButton>("m_pExpandSliceView"), Qt::LeftButton);
    ASSERT_TRUE(QTest::qWaitFor([&window] { return !window.isNull(); }));
    ASSERT_TRUE(window->inherits("CVolumeSliceLayout"));
    EXPECT_EQ(window->windowTitle(), "Volume Slice Viewer");
    auto* view = window->findChild<QOpenGLWidget*>("CHVMultiVolumeSliceView");
    ASSERT_TRUE(view);
    const QImage montage = view->grabFramebuffer();
    EXPECT_GT(greys(montage), 20);
    EXPECT_GT(labelOfFirstTile(montage), 20);

    auto* slab = window->findChild<QGroupBox*>("m_pThickSliceGBox");
    slab->setChecked(true);
    const QImage slabs = view->grabFramebuffer();
    EXPECT_NE(slabs, montage);
    EXPECT_GT(greys(slabs), 10);
    slab->setChecked(false);

    const QString picture = m_folder.filePath("montage.tiff");
    answerPath(picture);
    QTest::mouseClick(window->findChild<QAbstractButton*>("m_pExportTB"), Qt::LeftButton);
    EXPECT_TRUE(QFile::exists(picture));

    QTest::mouseClick(window->findChild<QAbstractButton*>("m_pSingleViewTB"), Qt::LeftButton);
    EXPECT_NE(view->grabFramebuffer(), montage);

    window->findChild<QDoubleSpinBox*>("m_pMinSpinBox")->setValue(-0.5);
    window->findChild<QDoubleSpinBox*>("m_pMaxSpinBox")->setValue(0.5);
    window->findChild<QDoubleSpinBox*>("m_pSpacingSpinBox")->setValue(0.5);
    const QString movie = m_folder.filePath("slices.avi");
    answerPath(movie);
    QTest::mouseClick(window->findChild<QAbstractButton*>("m_pExportTB"), Qt::LeftButton);
    const MovieFile written = MovieFile::read(movie);
    ASSERT_TRUE(written.isReadable);
    ASSERT_EQ(written.frames.size(), 45) << "three slices, a second each";
    EXPECT_DOUBLE_EQ(written.framesPerSecond, 15.0);
    EXPECT_EQ(written.frames.first().size(), view->size());
    EXPECT_GT(greys(written.frames.first()), 10);
    EXPECT_NE(written.frames.first(), written.frames.last());
    window->close();
}

}  // namespace
