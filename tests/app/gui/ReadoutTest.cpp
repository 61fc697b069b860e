#include "AppFixture.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"
#include "hvapi/scene/C3DVolumeData.h"
#include "hvapi/sequence/CHVSSequenceDataset.h"
#include "hvapi/windows/CHVSSequenceWindow.h"
#include "support/MouseMove.h"

#include <QLabel>
#include <QTabWidget>
#include <QTest>

namespace {

/// A scene on screen with a volume of 20 mm, all voxels 200.
struct ReadoutTest : AppFixture
{
    void SetUp() override
    {
        AppFixture::SetUp();
        m_window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(m_window.get()));
        sequence = m_window->newScene();
        ASSERT_TRUE(sequence);
        addVolume(*sequence);
    }
    static void addVolume(CHVSSequenceDataset& dataset)
    {
        C3DScene* scene = CHVSSequenceWindow::getSequenceWindow(&dataset)->get3DScene();
        auto* volume = new C3DVolumeData(QStringLiteral("GLVolume"));
        std::vector<unsigned char> voxels(1000, 200);
        float extent[3] = {20.0F, 20.0F, 20.0F};
        ASSERT_TRUE(volume->loadVolume(voxels.data(), 10, 10, 10, 255, 0, extent));
        ASSERT_TRUE(dataset.get3DSGManager()->addChild(dataset.get3DSGManager()->getRootNode(), volume));
        scene->addToScene(volume);
        scene->updateScene();
        scene->refresh();
    }
    QString text() const { return m_window->findChild<QLabel*>(QStringLiteral("ReadoutLabel"))->text(); }
    /// Moves the mouse a little until the text is there: the window may still be finding its place.
    bool speaks() const
    {
        C3DScene* scene = CHVSSequenceWindow::getSequenceWindow(sequence)->get3DScene();
        int step = 0;
        return QTest::qWaitFor(
            [&] {
                viz_test::moveMouse(scene, scene->rect().center() + QPoint(++step % 2, 0));
                return text().contains(QStringLiteral("voxel 200"));
            },
            5000);
    }

    CHVSSequenceDataset* sequence = nullptr;
};

TEST_F(ReadoutTest, TheStatusBarTellsOfTheVoxelUnderTheMouse)
{
    EXPECT_TRUE(speaks()) << text().toStdString();
    EXPECT_TRUE(text().startsWith(QStringLiteral("x "))) << text().toStdString();
    EXPECT_TRUE(text().endsWith(QStringLiteral("200 Counts, in steps of 1"))) << text().toStdString();
    auto* label = m_window->findChild<QLabel*>(QStringLiteral("ReadoutLabel"));
    EXPECT_EQ(label->accessibleName(), QStringLiteral("Voxel under the mouse"));
    EXPECT_TRUE(label->isVisible());
    EXPECT_LE(label->minimumSizeHint().width() > 0 ? label->minimumWidth() : 0, 1)
        << "a long text does not keep the window wide";
}

TEST_F(ReadoutTest, ASequenceRemovedUnderTheMouseLeavesNothing)
{
    ASSERT_TRUE(speaks());
    ASSERT_TRUE(m_window->workspace().closeSequence(sequence));
    EXPECT_TRUE(text().isEmpty());
    QTest::qWait(100);
    EXPECT_TRUE(text().isEmpty());
}

TEST_F(ReadoutTest, ALookThatWasPromisedDoesNotOutliveItsSequence)
{
    C3DScene* scene = m_window->activeScene();
    viz_test::moveMouse(scene, scene->rect().center() + QPoint(5, 5));
    viz_test::moveMouse(scene, scene->rect().center());
    ASSERT_TRUE(m_window->workspace().closeSequence(sequence));
    QTest::qWait(100);
    EXPECT_TRUE(text().isEmpty());
}

TEST_F(ReadoutTest, AnotherTabOrWindowLeavesNothing)
{
    ASSERT_TRUE(speaks());
    CHVSSequenceWindow::getSequenceWindow(sequence)->findChild<QTabWidget*>()->setCurrentIndex(0);
    EXPECT_TRUE(text().isEmpty());
    CHVSSequenceWindow::getSequenceWindow(sequence)->prepare3DView();
    ASSERT_TRUE(speaks());
    m_window->newScene();
    EXPECT_TRUE(text().isEmpty());
}

}  // namespace
