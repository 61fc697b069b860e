#include "hvutils/CHVPreference.h"
#include "hvutils/CHVPreferenceSignalHandler.h"
#include "hvutils/Singleton.h"
#include "slices/CHVMultiVolumeSliceView.h"
#include "support/MarkedVolume.h"
#include "support/MouseMove.h"

#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QSignalSpy>
#include <QtTest>

#include <gmock/gmock.h>

namespace {

struct SliceViewTest : ::testing::Test
{
    SliceViewTest()
        : view(nullptr, volume.graph.get(), "Slices", volume.scene.get())
    {}

    /// On screen, in pixels.
    void show(int width, int height)
    {
        view.resize(width, height);
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    }

    void single(int axis, float position)
    {
        view.setSingleViewMode(true);
        view.setOrientation(axis);
        view.setSingleSlice(position);
    }

    QImage grab()
    {
        QImage image;
        view.grabImage(image);
        return image;
    }

    /// The middle of a tile, as a mouse sees it.
    QPoint middle(int index) const
    {
        const TileRect& rect = view.tile(index)->rect;
        return {static_cast<int>(rect.x + rect.width / 2),
                static_cast<int>(view.height() - rect.y - rect.height / 2)};
    }

    /// The colour of the tile's frame, 1 pixel inside its left edge.
    QString frame(const QImage& image, int index) const
    {
        const TileRect& rect = view.tile(index)->rect;
        return colorName(image.pixelColor(static_cast<int>(rect.x),
                                          static_cast<int>(view.height() - rect.y - rect.height / 2)));
    }

    MarkedVolume volume;
    CHVMultiVolumeSliceView view;
};

TEST_F(SliceViewTest, CoronalShowsXAcrossAndYUp)
{
    show(200, 300);
    single(AxisZ, 0.0F);
    const QImage image = grab();
    EXPECT_EQ(colorAt(image, 0.95, 0.5), "red");
    EXPECT_EQ(colorAt(image, 0.3, 0.95), "green");
    EXPECT_EQ(colorAt(image, 0.3, 0.3), "grey");
}

TEST_F(SliceViewTest, TransaxialShowsXAcrossAndZUp)
{
    show(200, 400);
    single(AxisY, 0.0F);
    const QImage image = grab();
    EXPECT_EQ(colorAt(image, 0.95, 0.5), "red");
    EXPECT_EQ(colorAt(image, 0.3, 0.95), "blue");
    EXPECT_EQ(colorAt(image, 0.3, 0.05), "grey");
}

TEST_F(SliceViewTest, SagittalShowsZAcrossAndYUp)
{
    show(400, 300);
    single(AxisX, 0.0F);
    const QImage image = grab();
    EXPECT_EQ(colorAt(image, 0.95, 0.5), "blue");
    EXPECT_EQ(colorAt(image, 0.3, 0.95), "green");
    EXPECT_EQ(colorAt(image, 0.05, 0.3), "grey");
}

TEST_F(SliceViewTest, ThePositionIsInMillimetresAlongTheAxis)
{
    show(200, 300);
    single(AxisZ, 18.0F);  // the last voxels of z
    EXPECT_EQ(colorAt(grab(), 0.3, 0.3), "blue");
    view.setSinglePosition(10.0F);
    EXPECT_EQ(colorAt(grab(), 0.3, 0.3), "grey");
    view.onSliderMove(18);
    EXPECT_EQ(colorAt(grab(), 0.3, 0.3), "blue");
    EXPECT_EQ(view.singlePosition(), 18.0F);
}

TEST_F(SliceViewTest, ASingleSliceIsCentredOnWhite)
{
    show(300, 300);  // 200 x 300 used
    single(AxisZ, 0.0F);
    const QImage image = grab();
    EXPECT_EQ(colorAt(image, 0.05, 0.5), "white");
    EXPECT_EQ(colorAt(image, 0.97, 0.5), "white");
    EXPECT_EQ(colorAt(image, 0.25, 0.5), "grey");
    EXPECT_EQ(colorAt(image, 0.80, 0.5), "red");
}

TEST_F(SliceViewTest, TheCropNarrowsTheWindowAndShowsItsOwnPart)
{
    show(200, 300);
    Vec3f offsets[8];
    for (int corner : {0, 1, 2, 3})
        offsets[corner].set(0.0, 0.0, 1.0);  // low z to the middle: from 0 to 20 mm
    volume.scene->setCroppingBoxOffset(offsets);
    single(AxisY, 0.0F);
    const QImage image = grab();
    ASSERT_NE(view.tile(0), nullptr);
    EXPECT_NEAR(view.tile(0)->window.bottom, 0.0, 1e-9);
    EXPECT_NEAR(view.tile(0)->window.top, 20.0, 1e-9);
    // 20 x 20 mm, so 200 x 200 pixels from 50 to 250: blue from 12 mm on.
    EXPECT_EQ(colorAt(image, 0.3, 0.79), "blue");
    EXPECT_EQ(colorAt(image, 0.3, 0.5), "grey");
    EXPECT_EQ(colorAt(image, 0.3, 0.2), "grey");
    EXPECT_EQ(colorAt(image, 0.3, 0.1), "white");
}

TEST_F(SliceViewTest, WithoutThe3DViewTheFormerWindowStays)
{
    show(200, 300);
    single(AxisZ, 0.0F);
    volume.scene.reset();
    view.setOrientation(AxisX);
    EXPECT_EQ(view.orientation(), AxisZ);
    EXPECT_EQ(view.tile(0)->window.top, 15.0);
}

TEST_F(SliceViewTest, WithoutTheNodeATileIsBlackWithItsLabel)
{
    show(400, 400);
    view.setOrientation(AxisZ);
    view.setSliceRange(-1.0F, 1.0F, 1.0);
    volume.removeNode();
    const QImage image = grab();
    ASSERT_EQ(view.tileCount(), 3);
    const QPoint centre = middle(0);
    EXPECT_EQ(colorName(image.pixelColor(centre)), "black");
    EXPECT_EQ(view.tile(0)->label, "-1.00");
    EXPECT_TRUE(volume.services.entries().isEmpty()) << "nothing is reported";
    const TileRect& rect = view.tile(0)->rect;
    int written = 0;
    for (int x = 0; x < rect.width; ++x)
        for (int y = 2; y < 25; ++y)
            written +=
                image.pixelColor(static_cast<int>(rect.x) + x, view.height() - static_cast<int>(rect.y) - y)
                    .lightness() > 200;
    EXPECT_GT(written, 20);
}

TEST_F(SliceViewTest, TheNodeMayVanishAndComeBetweenPaints)
{
    show(200, 300);
    single(AxisZ, 0.0F);
    EXPECT_EQ(colorAt(grab(), 0.3, 0.3), "grey");
    volume.removeNode();
    EXPECT_EQ(colorAt(grab(), 0.3, 0.3), "black");
}

TEST_F(SliceViewTest, AMontageShowsEachTilesOwnPosition)
{
    show(600, 300);
    view.setOrientation(AxisZ);
    view.setSliceRange(-18.0F, 18.0F, 18.0);
    const QImage image = grab();
    ASSERT_EQ(view.tileCount(), 3);
    EXPECT_EQ(colorName(image.pixelColor(middle(0))), "grey");
    EXPECT_EQ(colorName(image.pixelColor(middle(1))), "grey");
    EXPECT_EQ(colorName(image.pixelColor(middle(2))), "blue");
    EXPECT_EQ(view.tile(2)->label, "18.00");
    EXPECT_EQ(view.tile(2)->thickness, 18.0);
}

TEST_F(SliceViewTest, AnotherBoxChangesTheShapeOfASliceThatIsThere)
{
    show(300, 300);
    single(AxisZ, 0.0F);  // 20 x 30 mm: white at both sides
    EXPECT_EQ(colorAt(grab(), 0.05, 0.5), "white");
    Coord3d min(-15.0, -15.0, -20.0);
    Coord3d max(15.0, 15.0, 20.0);
    volume.node->setBBox(min, max);
    view.setOrientation(AxisZ);  // and no new slice
    EXPECT_NE(colorAt(grab(), 0.05, 0.5), "white");
}

TEST_F(SliceViewTest, InTheSingleViewTheMouseHoversNothing)
{
    show(600, 300);
    view.setOrientation(AxisZ);
    view.setSliceRange(-10.0F, 10.0F, 10.0);
    viz_test::moveMouse(&view, middle(1));
    view.setSingleViewMode(true);
    viz_test::moveMouse(&view, middle(0));
    view.setSingleViewMode(false);
    EXPECT_EQ(frame(grab(), 1), "blue");
    EXPECT_NE(frame(grab(), 0), "blue");
    viz_test::moveMouse(&view, {1, 1});
    EXPECT_NE(frame(grab(), 1), "blue") << "the mouse has left the tiles";
}

TEST_F(SliceViewTest, BelowTwentyPixelsThereIsOnlyWhite)
{
    show(200, 19);
    single(AxisZ, 0.0F);
    EXPECT_EQ(colorAt(grab(), 0.5, 0.5), "white");
}

TEST_F(SliceViewTest, TheMouseSelectsAndHoversRedOverBlue)
{
    show(600, 300);
    view.setOrientation(AxisZ);
    view.setSliceRange(-10.0F, 10.0F, 10.0);
    viz_test::moveMouse(&view, middle(1));
    QTest::qWait(50);
    EXPECT_EQ(frame(grab(), 1), "blue");
    EXPECT_FALSE(view.hasSelection());
    QTest::mousePress(&view, Qt::LeftButton, {}, middle(1));
    EXPECT_TRUE(view.hasSelection());
    EXPECT_EQ(view.selectedPosition(), 0.0);
    EXPECT_EQ(frame(grab(), 1), "red");
    QTest::mousePress(&view, Qt::LeftButton, {}, {1, 1});
    EXPECT_FALSE(view.hasSelection());
    EXPECT_EQ(frame(grab(), 1), "blue");
}

TEST_F(SliceViewTest, ADoubleClickSelectsInTheGridAndClearsInTheSingleView)
{
    show(600, 300);
    view.setOrientation(AxisZ);
    view.setSliceRange(-10.0F, 10.0F, 10.0);
    QSignalSpy clicked(&view, SIGNAL(signalDoubleMouseButtonClicked()));
    QTest::mouseDClick(&view, Qt::LeftButton, {}, middle(2));
    EXPECT_EQ(clicked.count(), 1);
    EXPECT_TRUE(view.hasSelection());
    EXPECT_EQ(view.selectedPosition(), 10.0);

    view.setSingleViewMode(true);
    QTest::mousePress(&view, Qt::LeftButton, {}, middle(0));
    EXPECT_TRUE(view.hasSelection()) << "a press does nothing in the single view";
    EXPECT_EQ(view.selectedPosition(), 10.0);
    QTest::mouseDClick(&view, Qt::LeftButton, {}, middle(0));
    EXPECT_EQ(clicked.count(), 2);
    EXPECT_FALSE(view.hasSelection());
}

TEST_F(SliceViewTest, TheSingleViewHasItsLabelOnlyWhenAsked)
{
    show(200, 300);
    single(AxisZ, 5.0F);
    const QImage without = grab();
    view.setShowLabel(true);
    EXPECT_NE(grab(), without);
    EXPECT_EQ(view.tile(0)->label, "5.00");
}

TEST_F(SliceViewTest, LabelsLieOverTheSlices)
{
    show(600, 300);
    view.setOrientation(AxisZ);
    volume.node->setSliceMax(255.0F);
    for (const int how : {0, 1, 2}) {
        const bool thick = how == 1;
        volume.node->setSliceUseTransferFunction(how != 2);
        view.setThickSliceMode(thick);
        view.setSliceRange(-10.0F, 10.0F, 10.0);
        const QImage image = grab();
        for (int i = 0; i < 3; ++i) {
            const TileRect& rect = view.tile(i)->rect;
            int white = 0;
            for (int x = static_cast<int>(rect.width) - 60; x < rect.width - 2; ++x)
                for (int y = 2; y < 25; ++y)
                    white +=
                        colorName(image.pixelColor(static_cast<int>(rect.x) + x,
                                                   view.height() - static_cast<int>(rect.y) - y)) == "white";
            EXPECT_GT(white, 20) << "tile " << i << ", way " << how;
        }
    }
}

TEST_F(SliceViewTest, ThePreferencesFontSizeIsTakenWhenItChanges)
{
    show(200, 300);
    single(AxisZ, 5.0F);
    view.setShowLabel(true);
    const QImage before = grab();
    volume.services.settings().setValue("3DView/FontPointSize", 24);
    emit CHVPreference::getSignalHandler()->updatePreferenceSetting();
    EXPECT_NE(grab(), before);
}

TEST_F(SliceViewTest, AThickSlabFindsABrightVoxelInsideAndNotOutside)
{
    volume.load([](int x, int y, int z) -> unsigned char {
        const bool bright = x >= 8 && x < 12 && y >= 8 && y < 12 && z >= 4 && z < 6;
        return bright ? MarkedVolume::kWhite : MarkedVolume::kNothing;
    });
    show(600, 300);
    view.setThickSliceMode(true);
    view.setMIP(true);
    view.setOrientation(AxisZ);
    // The bright voxels lie from -12 to -8 mm; slabs of 8 mm around -10 and 10.
    view.setSliceRange(-10.0F, 10.0F, 10.0);
    const QImage image = grab();
    ASSERT_EQ(view.tileCount(), 3);
    EXPECT_EQ(colorName(image.pixelColor(middle(0))), "white");
    EXPECT_EQ(colorName(image.pixelColor(middle(2))), "black");
}

TEST_F(SliceViewTest, LitSlabsLookTheSameWhicheverViewPaintsFirst)
{
    volume.node->setRenderInBestPerformance(false);
    show(300, 300);
    view.setThickSliceMode(true);
    view.setLighting(true);
    view.setOrientation(AxisZ);
    view.setSliceRange(0.0F, 0.0F, 10.0);
    const QImage first = grab();

    volume.scene->resize(200, 200);
    volume.scene->grabFramebuffer();  // a volume pass with the same settings
    volume.scene->refresh();
    const QImage later = grab();
    for (const QPoint point : {middle(0), middle(0) + QPoint(40, 20)})
        EXPECT_EQ(colorName(later.pixelColor(point)), colorName(first.pixelColor(point)));
    EXPECT_NE(colorName(first.pixelColor(middle(0))), "black");
}

TEST_F(SliceViewTest, ALargeScanIsStillInFrontOfTheFarEnd)
{
    Coord3d min(-300.0, -300.0, -300.0);
    Coord3d max(300.0, 300.0, 300.0);
    volume.node->setBBox(min, max);
    Vec3f offsets[8];
    volume.node->setCropBoxOffset(offsets);
    show(300, 300);
    single(AxisZ, 0.0F);
    EXPECT_EQ(colorAt(grab(), 0.3, 0.3), "grey");
}

TEST_F(SliceViewTest, ViewportAndProjectionAreRecorded)
{
    show(200, 300);
    single(AxisZ, 0.0F);
    grab();
    const Singleton::OrthoData ortho = Singleton::getInstance()->getGLOrthoData();
    EXPECT_EQ(ortho.left, -10.0);
    EXPECT_EQ(ortho.right, 10.0);
    EXPECT_EQ(ortho.bottom, -15.0);
    EXPECT_EQ(ortho.top, 15.0);
    EXPECT_EQ(ortho.zNear, -1.0);
    EXPECT_EQ(ortho.zFar, 1000.0);
    const Singleton::ViewPortData port = Singleton::getInstance()->getGlViewPortData();
    EXPECT_EQ(port.width, 200);
    EXPECT_EQ(port.height, 300);
}

TEST_F(SliceViewTest, RangesThatAreNoneGiveNoTilesAndPaintWhite)
{
    show(300, 300);
    view.setOrientation(AxisZ);
    view.setSliceRange(0.0F, 10.0F, 0.0);
    EXPECT_EQ(view.tileCount(), 0);
    EXPECT_EQ(colorAt(grab(), 0.5, 0.5), "white");
    EXPECT_EQ(view.tile(0), nullptr);
}

TEST_F(SliceViewTest, WithoutAVolumeFromTheStartNothingIsDividedByNothing)
{
    C3DSGManager empty;
    CHVMultiVolumeSliceView lonely(nullptr, &empty, "Empty", nullptr);
    lonely.setOrientation(AxisZ);
    lonely.setSliceRange(0.0F, 10.0F, 1.0);
    lonely.resize(300, 300);
    lonely.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&lonely));
    QImage image;
    lonely.grabImage(image);
    EXPECT_EQ(colorAt(image, 0.5, 0.5), "white");
    lonely.zoomIn();
    lonely.zoomOut();
    lonely.resetZoom();
    lonely.restoreZoom();
}

struct ScrolledSliceViewTest : SliceViewTest
{
    ScrolledSliceViewTest()
    {
        view.setParent(&area);
        area.setWidgetResizable(true);
        area.setWidget(&view);
        area.resize(420, 320);
        area.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&area));
        view.setOrientation(AxisZ);
    }
    ~ScrolledSliceViewTest() override { area.takeWidget(); }

    QScrollArea area;
};

TEST_F(ScrolledSliceViewTest, TilesOffScreenAreDrawnWhenTheyAreScrolledInAndForAPicture)
{
    view.setSliceRange(-19.0F, 19.0F, 0.25);
    view.setMinimumHeight(1500);
    QTest::qWait(100);
    const int last = view.tileCount() - 1;
    ASSERT_EQ(last, 152);
    const QImage all = grab();
    EXPECT_EQ(colorName(all.pixelColor(middle(0))), "grey");
    EXPECT_EQ(colorName(all.pixelColor(middle(last))), "blue");

    area.verticalScrollBar()->setValue(area.verticalScrollBar()->maximum());
    QTest::qWait(100);
    const QImage screen = area.grab().toImage();
    const QPoint shown = view.mapTo(&area, middle(last));
    ASSERT_TRUE(area.rect().contains(shown));
    EXPECT_EQ(colorName(screen.pixelColor(shown)), "blue");
}

TEST_F(ScrolledSliceViewTest, ZoomIsTheMinimumHeightOfEachMode)
{
    view.setSliceRange(-10.0F, 10.0F, 10.0);
    QTest::qWait(50);
    view.setSingleViewMode(true);
    view.restoreZoom();
    const int before = view.height();
    view.zoomIn();
    QTest::qWait(50);
    EXPECT_EQ(view.minimumHeight(), static_cast<int>(before * 1.05));
    EXPECT_GT(view.height(), before);
    view.resetZoom();
    QTest::qWait(50);
    EXPECT_EQ(view.minimumHeight(), area.viewport()->height());
}

TEST_F(ScrolledSliceViewTest, TheGridsZoomIsTestedByTheSingleViewsHeight)
{
    view.setSliceRange(-10.0F, 10.0F, 10.0);
    view.setMinimumHeight(900);
    QTest::qWait(50);
    ASSERT_EQ(view.height(), 900);  // the grid's height
    // The single view has none yet: -1 is below the parent's height, and the grid is reset.
    view.restoreZoom();
    EXPECT_EQ(view.minimumHeight(), area.viewport()->height());
    QTest::qWait(50);

    view.setSingleViewMode(true);
    view.setMinimumHeight(700);
    QTest::qWait(50);
    view.setSingleViewMode(false);
    view.setMinimumHeight(500);
    QTest::qWait(50);
    view.setMinimumHeight(0);
    view.restoreZoom();  // 700 is not below the parent's height: the grid's own 500 comes back
    EXPECT_EQ(view.minimumHeight(), 500);
}

}  // namespace
