// The palette's render controls in the whole workstation, by real clicks, and what they do to the picture.

#include "WorkstationFixture.h"

#include "support/ModalWatcher.h"
#include "support/RenderQuestion.h"

#include <QCheckBox>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QSlider>
#include <QToolButton>

namespace {

class RenderControlsWorkstationTest : public WorkstationFixture
{
protected:
    void SetUp() override
    {
        WorkstationFixture::SetUp();
        if (HasFatalFailure()) return;
        // A small view: without a graphics card a frame costs by the pixel.
        m_window->newScene();
        const QList<QMdiSubWindow*> frames = m_window->workspace().subWindowList();
        for (QMdiSubWindow* frame : frames) {
            frame->showNormal();
            frame->resize(240, 220);
        }
        const viz_test::RenderQuestion::Answer yes(QMessageBox::Yes);
        ASSERT_EQ(m_window->openVolume({rawFile("cube.vox", true)}), MainWindow::OpenResult::Loaded);
        // Thin grey matter: neither opacity nor light is at its end.
        unsigned char table[1024] = {};
        for (int value = 100; value < 256; ++value)
            for (int channel = 0; channel < 4; ++channel)
                table[4 * value + channel] = channel == 3 ? 10 : 120;
        volume()->setVolumeColorTable(table);
    }

    QCheckBox* box(const char* name) const { return palette()->findChild<QCheckBox*>(name); }
    void click(const char* name) const
    {
        auto* button = palette()->findChild<QAbstractButton*>(name);
        ASSERT_TRUE(button) << name;
        ASSERT_TRUE(button->isEnabled()) << name;
        const QPoint mark(8, button->height() / 2);  // the rest of a wide check box is no button
        QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, mark);
    }
    QImage picture() const
    {
        ViewControl view(*m_window->activeScene());
        view.setPreset(hvscene::ViewPreset::Iso);
        view.fit();
        return view.picture(QSize(96, 96));
    }
    /// Mean grey of the middle, where the cube is.
    static double brightness(const QImage& image)
    {
        double sum = 0;
        for (int y = 32; y < 64; ++y)
            for (int x = 32; x < 64; ++x)
                sum += qGray(image.pixel(x, y));
        return sum / (32 * 32);
    }
};

TEST_F(RenderControlsWorkstationTest, PerformanceModeIsFainter)
{
    ASSERT_TRUE(box("m_pBestRenderQualityCheckBox")->isChecked());
    const double quality = brightness(picture());
    click("m_pBestRenderQualityCheckBox");
    EXPECT_LT(brightness(picture()), quality - 2.0);
    EXPECT_FALSE(box("m_pMedianFilterDenoiseCheckBox")->isEnabled());
}

TEST_F(RenderControlsWorkstationTest, MaximumIntensityAndLightExcludeEachOther)
{
    const QImage lit = picture();
    click("m_pLightingCheckBox");
    const QImage flat = picture();
    EXPECT_NE(flat, lit);
    click("m_pMIPCheckBox");
    EXPECT_FALSE(box("m_pLightingCheckBox")->isEnabled());
    EXPECT_NE(picture(), flat);
    click("m_pMIPCheckBox");
    EXPECT_EQ(picture(), flat);
    click("m_pLightingCheckBox");
    EXPECT_EQ(picture(), lit);
    EXPECT_FALSE(box("m_pMIPCheckBox")->isEnabled());
}

TEST_F(RenderControlsWorkstationTest, TheEffectsDialogLightsTheVolume)
{
    const QImage before = picture();
    viz_test::ModalWatcher watcher;
    watcher.expect([](QWidget* dialog) {
        EXPECT_EQ(dialog->windowTitle(), QString("Rendering Effects"));
        const QList<QPushButton*> buttons = dialog->findChildren<QPushButton*>();
        for (const char* text : {"High Contrast Mode", "Done"})
            for (QPushButton* button : buttons)
                if (button->text() == text) QTest::mouseClick(button, Qt::LeftButton);
    });
    click("m_pRenderEffectsDlgButton");
    QTRY_VERIFY(!watcher.answeredTitles().isEmpty());
    EXPECT_GT(brightness(picture()), brightness(before));
}

}  // namespace
