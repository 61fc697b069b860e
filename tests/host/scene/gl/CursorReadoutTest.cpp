#include "lib/hvapi/scene/CursorReadout.h"

#include "ToolHelpers.h"
#include "support/MouseMove.h"

using namespace viz_test;

namespace {

/// In the scene of ToolTest a pixel is 0.05 mm and a voxel 2 mm; all voxels have the value 200, and the table
/// of a fresh volume is opaque there.
struct CursorReadoutTest : ToolTest
{
    void SetUp() override
    {
        ToolTest::SetUp();
        QObject::connect(&scene, &C3DScene::voxelUnderMouse, [this](const QString& text) {
            said = text;
            ++looks;
        });
    }
    bool says(const QString& text)
    {
        const bool isSaid = QTest::qWaitFor([&] { return said == text; }, 1000);
        EXPECT_EQ(said.toStdString(), text.toStdString());
        return isSaid;
    }
    void setVoxels(unsigned char value)
    {
        std::vector<unsigned char> voxels(1000, value);
        float extent[3] = {20.0f, 20.0f, 20.0f};
        ASSERT_TRUE(volume->loadVolume(voxels.data(), 10, 10, 10, 2550, 0, extent));
    }

    QString said;
    int looks = 0;
};

const QString atThreeTwo = QString::fromUtf8("x 3.00  y 2.00  z 10.00 mm   |   voxel 200   |   ");

TEST_F(CursorReadoutTest, TellsPlaceValueAndCountsOfTheFirstVoxelThatIsSeen)
{
    hover(284, 184);  // 3 mm right and 2 mm up of the middle; the front of the volume is at 10 mm
    says(atThreeTwo + "200 Counts, in steps of 1");
}

TEST_F(CursorReadoutTest, TheUnitIsThatOfTheVolumesProperties)
{
    volume->setProperty("valueUnit", "Hounsfield");
    volume->setProperty("valueAtLowest", -1000.0);
    hover(284, 184);
    EXPECT_TRUE(says(atThreeTwo + "200 Counts, in steps of 1")) << "two of three are none";
    volume->setProperty("valueAtHighest", 1550.0);
    hover(285, 184);
    hover(284, 184);
    says(atThreeTwo + "1000 Hounsfield, in steps of 10");
    volume->setProperty("valueAtHighest", std::nan(""));
    hover(284, 184);
    says(atThreeTwo + "200 Counts, in steps of 1");
    volume->setProperty("valueAtHighest", "many");
    hover(284, 184);
    says(atThreeTwo + "200 Counts, in steps of 1");
}

TEST_F(CursorReadoutTest, CountsRunFromTheVolumesMinimumToItsMaximum)
{
    setVoxels(200);
    hover(284, 184);
    says(atThreeTwo + "2000 Counts, in steps of 10");
}

TEST_F(CursorReadoutTest, BesideTheVolumeAndWhenTheMouseLeavesThereIsNothing)
{
    hover(284, 184);
    says(atThreeTwo + "200 Counts, in steps of 1");
    hover(3, 3);
    says(QString());
    hover(284, 184);
    says(atThreeTwo + "200 Counts, in steps of 1");
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&scene, &leave);
    EXPECT_EQ(said, QString());
    QTest::qWait(80);
    EXPECT_EQ(said, QString()) << "and no late look";
}

TEST_F(CursorReadoutTest, TheSightGoesThroughClearMatter)
{
    std::vector<unsigned char> voxels(1000, 100);
    for (int z = 0; z < 6; ++z)
        for (int k = 0; k < 100; ++k)
            voxels[static_cast<std::size_t>(100 * z + k)] = 220;
    float extent[3] = {20.0f, 20.0f, 20.0f};
    ASSERT_TRUE(volume->loadVolume(voxels.data(), 10, 10, 10, 255, 0, extent));
    unsigned char table[1024] = {};
    for (int v = 0; v < 256; ++v)
        table[4 * v + 3] = v < 150 ? 25 : 255;  // a little below a tenth of full opacity
    volume->setVolumeColorTable(table);
    hover(284, 184);
    says(QString::fromUtf8("x 3.00  y 2.00  z 2.00 mm   |   voxel 220   |   220 Counts, in steps of 1"));
}

TEST_F(CursorReadoutTest, AShownSliceIsReadWhereItStandsInMatterThatIsClear)
{
    setVoxels(90);
    unsigned char table[1024] = {};
    volume->setVolumeColorTable(table);
    hover(284, 184);
    QTest::qWait(80);
    EXPECT_EQ(said, QString());
    scene.getXYslice()->show(true);
    scene.createSliceDisplayLists();
    hover(284, 184);
    says(QString::fromUtf8("x 3.00  y 2.00  z 0.00 mm   |   voxel 90   |   900 Counts, in steps of 10"));
}

TEST_F(CursorReadoutTest, ManyMovesCostFewLooks)
{
    hover(284, 184);
    EXPECT_EQ(looks, 0) << "nothing is looked for within the event";
    for (int x = 200; x < 300; ++x)
        hover(x, 184);
    EXPECT_EQ(looks, 0);
    says(QString::fromUtf8("x 3.75  y 2.00  z 10.00 mm   |   voxel 200   |   200 Counts, in steps of 1"));
    EXPECT_EQ(looks, 1);
}

TEST_F(CursorReadoutTest, TheSameIsToldAgainForWhoeverHasShownSomethingElseMeanwhile)
{
    hover(284, 184);
    says(atThreeTwo + "200 Counts, in steps of 1");
    said.clear();
    hover(284, 184);
    says(atThreeTwo + "200 Counts, in steps of 1");
    EXPECT_EQ(looks, 2);
}

TEST_F(CursorReadoutTest, WhatComesUnderAMouseThatRestsIsTold)
{
    hover(284, 184);
    says(atThreeTwo + "200 Counts, in steps of 1");
    setVoxels(210);
    scene.grabFramebuffer();
    says(QString::fromUtf8("x 3.00  y 2.00  z 10.00 mm   |   voxel 210   |   2100 Counts, in steps of 10"));
    volume->show(false);
    scene.grabFramebuffer();
    says(QString());
    volume->show(true);
    scene.grabFramebuffer();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !said.isEmpty(); }, 1000));
    delete volume;
    scene.grabFramebuffer();
    says(QString());
}

TEST_F(CursorReadoutTest, ALookThatWasPromisedFindsAVolumeThatHasGone)
{
    hover(284, 184);
    delete volume;
    QTest::qWait(80);
    EXPECT_EQ(said, QString());
}

TEST_F(CursorReadoutTest, ASceneMayGoWithALookPromised)
{
    auto* other = new C3DScene(&manager);
    other->resize(448, 448);
    QMouseEvent event(QEvent::MouseMove, QPoint(224, 224), QPoint(224, 224), Qt::NoButton, Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(other, &event);
    delete other;
    QTest::qWait(80);
}

TEST_F(CursorReadoutTest, AVolumeWithoutVoxelsIsNotRead)
{
    volume->freeVoxelData();
    hover(284, 184);
    QTest::qWait(80);
    EXPECT_EQ(said, QString());
}

TEST_F(CursorReadoutTest, TheMouseIsFollowedWithNoButtonDownAndDrawsNothing)
{
    EXPECT_TRUE(scene.hasMouseTracking());
    scene.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&scene));
    QApplication::processEvents();
    scene.refresh();
    auto* box = new ColouredBox("box");
    manager.addChild(manager.getRootNode(), box);
    scene.addToScene(box);
    QApplication::processEvents();
    box->frames = 0;
    viz_test::moveMouse(&scene, QPoint(230, 190));
    viz_test::moveMouse(&scene, QPoint(284, 184));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !said.isEmpty(); }, 1000));
    EXPECT_EQ(box->frames, 0);
}

}  // namespace
