#include "SceneHelpers.h"

#include "hvapi/scene/C3DSGManager.h"
#include "hvapi/scene/C3DScene.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QWheelEvent>

using namespace viz_test;
using hvscene::ViewPreset;

namespace {

/// A picture of 400 by 300 pixels of a scene of 20 mm, with a plate of 6 by 2 mm near the viewer on top and a
/// like one far away at the bottom.
struct ScaleBarViewTest : testing::Test
{
    void SetUp() override
    {
        scene.resize(size);
        control.showBoundingBox(false);
        addPlate("room", 10.0, 10.0, 10.0)->show(false);
        place(addPlate("near", 3.0, 1.0, 0.5), 2.0, 9.0);
        place(addPlate("far", 3.0, 1.0, 0.5), -2.0, -9.0);
        scene.updateScene();
        control.setPreset(ViewPreset::Front);
    }
    ColouredBox* addPlate(const QString& name, double halfX, double halfY, double halfZ)
    {
        auto* plate = new ColouredBox(name, halfX, halfY, halfZ);
        EXPECT_TRUE(manager.addChild(manager.getRootNode(), plate));
        scene.addToScene(plate);
        return plate;
    }
    static void place(ColouredBox* plate, double y, double z)
    {
        matrix m;
        m(1, 3) = y;
        m(2, 3) = z;
        plate->setTransformation(m);
    }
    /// Pixels between the outermost ones of a row band that differ in the two pictures.
    static int widthOfChange(const QImage& a, const QImage& b)
    {
        int first = a.width();
        int last = -1;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x)
                if (a.pixel(x, y) != b.pixel(x, y)) {
                    first = std::min(first, x);
                    last = std::max(last, x);
                }
        return last - first + 1;
    }
    static int blueWidth(const QImage& picture, bool upperHalf)
    {
        int widest = 0;
        const int middle = picture.height() / 2;
        for (int y = upperHalf ? 0 : middle; y < (upperHalf ? middle : picture.height()); ++y) {
            int blue = 0;
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixelColor(x, y) == QColor(0, 0, 240)) ++blue;
            widest = std::max(widest, blue);
        }
        return widest;
    }
    int barWidth()
    {
        control.showAxes(false);
        control.showScaleBar(false);
        const QImage without = control.picture(size);
        control.showScaleBar(true);
        return widthOfChange(control.picture(size), without);
    }
    void zoomIn(int steps)
    {
        const QPointF middle(size.width() / 2.0, size.height() / 2.0);
        QWheelEvent wheel(middle, scene.mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, 120 * steps),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&scene, &wheel);
    }

    const QSize size{400, 300};
    RecordingServices host;
    C3DSGManager manager;
    C3DScene scene{&manager};
    ViewControl control{scene};
};

TEST_F(ScaleBarViewTest, TheBarIsTrueAtEveryDepth)
{
    const QImage picture = control.picture(size);
    const int near = blueWidth(picture, true);
    const int far = blueWidth(picture, false);
    EXPECT_EQ(near, far);
    // 22.4 mm in 300 pixels: 6 mm are 80 pixels, and a fifth of the window's width takes a bar of 5 mm.
    EXPECT_NEAR(near, 80, 1);
    EXPECT_NEAR(barWidth(), 5.0 / 6.0 * near, 4.0);
}

TEST_F(ScaleBarViewTest, TheBarFollowsTheZoomByRoundLengths)
{
    zoomIn(4);  // 1.15 to the power of 4: 1.749
    const int near = blueWidth(control.picture(size), true);
    EXPECT_NEAR(near, 140, 2);
    EXPECT_NEAR(barWidth(), 2.0 / 6.0 * near, 4.0) << "5 mm would be more than a fifth of the width";
    zoomIn(-14);  // 1.15 to the power of -10 in all: 0.247
    EXPECT_NEAR(barWidth(), 20.0 / 6.0 * 80 * 0.2472, 4.0);
}

TEST_F(ScaleBarViewTest, BothEndsOfAnAxisHaveALetter)
{
    control.showScaleBar(false);
    control.showAxes(false);
    const QImage without = control.picture(size);
    control.showAxes(true);
    const QImage with = control.picture(size);
    // The middle of the triad is 6 + 46 pixels from the corner; its ends are 32 pixels away.
    const auto changed = [&](QPoint middle) {
        int count = 0;
        for (int y = -7; y <= 7; ++y)
            for (int x = -7; x <= 7; ++x)
                if (with.pixel(middle + QPoint(x, y)) != without.pixel(middle + QPoint(x, y))) ++count;
        return count;
    };
    const QPoint triad(52, 248);
    for (const QPoint& end : {QPoint(32, 0), QPoint(-32, 0), QPoint(0, 32), QPoint(0, -32)})
        EXPECT_GT(changed(triad + end), 100) << end.x() << "," << end.y();
    // Only the positive ends are filled, and joined with the middle.
    EXPECT_NE(with.pixel(triad + QPoint(16, 0)), without.pixel(triad + QPoint(16, 0)));
    EXPECT_EQ(with.pixel(triad - QPoint(16, 0)), without.pixel(triad - QPoint(16, 0)));
    EXPECT_GT(with.pixelColor(triad + QPoint(38, 0)).red(), 120);
    EXPECT_LT(with.pixelColor(triad + QPoint(-38, 1)).red(), 90);
}

}  // namespace
