// Shaping what is seen in the real workstation, by the mouse alone: what a load hides, and what a user brings
// out with a few drags.

#include "WorkstationFixture.h"

#include "phantom/CommandLine.h"
#include "support/ModalWatcher.h"
#include "support/MouseMove.h"
#include "support/SharedData.h"

#include <QAbstractButton>
#include <QGroupBox>

#include <algorithm>

namespace {

class ShapingTest : public WorkstationFixture
{
protected:
    void open(const QString& file)
    {
        m_window->resize(700, 600);  // every frame of the view costs by its pixels
        m_window->newScene();
        ASSERT_TRUE(drop({file}));
        ASSERT_TRUE(volume());
        display()->setChecked(false);
        m_ground = frontPicture(pictureSize);
        display()->setChecked(true);
    }

    QString phantomFile() const
    {
        const QString file = m_folder.filePath("mouse.raw");
        std::string out;
        std::string error;
        EXPECT_EQ(phantom::runPhantom({"--size=64", file.toStdString()}, out, error), 0) << error;
        return file;
    }

    QGroupBox* display() const { return palette()->findChild<QGroupBox*>("m_pVolumeButtonGroup"); }

    QWidget* transfer() const
    {
        const QList<QWidget*> widgets = palette()->findChildren<QWidget*>();
        const auto found = std::find_if(widgets.begin(), widgets.end(), [](QWidget* widget) {
            return widget->inherits("CTransferFunction1DWidget");
        });
        return found == widgets.end() ? nullptr : *found;
    }

    void drag(QPoint from, QPoint to) const
    {
        QWidget* widget = transfer();
        QTest::mousePress(widget, Qt::LeftButton, {}, from);
        viz_test::moveMouse(widget, (from + to) / 2);
        viz_test::moveMouse(widget, to);
        QTest::mouseRelease(widget, Qt::LeftButton, {}, to);
    }
    void click(QPoint at) const { QTest::mouseClick(transfer(), Qt::LeftButton, {}, at); }

    int alphaOf(int voxel) const { return volume()->getVolumeColorTable()[4 * voxel + 3]; }

    /// Column of the step that the load has put behind the air.
    int stepColumn() const
    {
        for (int value = 0; value < 256; ++value)
            if (alphaOf(value) > 200) return value * (transfer()->width() - 1) / 255;
        return -1;
    }

    bool differs(const QImage& picture, int x, int y) const
    {
        const QRgb a = picture.pixel(x, y);
        const QRgb b = m_ground.pixel(x, y);
        return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b)) >
               9;
    }

    /// Pixels of the front view in which the volume is seen.
    int covered() const
    {
        const QImage picture = frontPicture(pictureSize);
        int count = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                count += differs(picture, x, y) ? 1 : 0;
        return count;
    }

    const QSize pictureSize{160, 160};
    QImage m_ground;
};

TEST_F(ShapingTest, ALoadHidesTheAirOfThePhantomAndNothingElse)
{
    open(phantomFile());
    const unsigned char* voxels = volume()->getVolumeData();
    const int count = 64 * 64 * 64;
    int air = 0;
    for (int i = 0; i < count; ++i) {
        // Noise of the air stays below 5 in the phantom, tissue begins at 30.
        if (voxels[i] < 5) {
            ++air;
            ASSERT_EQ(alphaOf(voxels[i]), 0) << int(voxels[i]);
        } else if (voxels[i] >= 30) {
            ASSERT_GE(alphaOf(voxels[i]), 250) << int(voxels[i]);
        }
    }
    EXPECT_GT(air, count / 4);
    EXPECT_LT(air, count);
}

TEST_F(ShapingTest, ALoadHidesTheAirAroundARealHead)
{
    const QString head = viz_test::sharedData("raw/mouse_head_8bit/mouse_129X1_SVJ.vox");
    if (head.isEmpty()) GTEST_SKIP() << "no collection of real scans";
    open(head);
    const QImage picture = frontPicture(pictureSize);
    // The corners of the volume are air; the fit leaves a margin of an eighth around the volume.
    for (const QPoint corner : {QPoint(26, 26), QPoint(134, 26), QPoint(26, 134), QPoint(134, 134)})
        EXPECT_FALSE(differs(picture, corner.x(), corner.y())) << corner.x() << ", " << corner.y();
    EXPECT_TRUE(differs(picture, 80, 80));
    palette()->findChild<QAbstractButton*>("m_pClearToolButton")->click();
    EXPECT_NE(alphaOf(12), 255);
}

TEST_F(ShapingTest, BoneAndSkinComeOutWithAFewDrags)
{
    open(phantomFile());
    const int all = covered();
    const int step = stepColumn();
    ASSERT_GT(step, 0);
    // One drag: the step behind the air goes in front of bone.
    drag({step, 3}, {120, 3});
    const int bone = covered();
    EXPECT_LT(bone, all / 3);
    EXPECT_GT(bone, all / 50);
    EXPECT_EQ(alphaOf(40), 0);
    EXPECT_GE(alphaOf(200), 250);
    // Three clicks: a peak at the values of skin and muscle.
    click({36, 184});
    click({47, 184});
    click({41, 80});
    EXPECT_GT(alphaOf(43), 60);
    EXPECT_LE(alphaOf(70), 2);
    EXPECT_GT(covered(), bone * 5 / 4);
    EXPECT_GE(alphaOf(200), 250);
}

}  // namespace
