#include "lib/hvapi/scene/logic/AxisDrag.h"

#include <gtest/gtest.h>

using namespace hvscene;

namespace {

constexpr double pi = 3.14159265358979323846;

struct AxisDragTest : testing::Test
{
    AxisDragTest()
    {
        Box box;
        box.add({-10, -10, -10});
        box.add({10, 10, 10});
        camera.setWindow(224, 224);
        camera.setScene(box, true);
    }
    ViewProjection view() const { return ViewProjection(camera, 224, 224); }

    Camera camera;  // front view, 0.1 mm a pixel
};

TEST_F(AxisDragTest, AlongAnAxisInThePictureThePointStaysUnderTheMouse)
{
    EXPECT_NEAR(dragAlongAxis(view(), {1, 0, 0}, {100, 100}, {130, 100}), 3.0, 1e-9);
    EXPECT_NEAR(dragAlongAxis(view(), {1, 0, 0}, {100, 100}, {70, 150}), -3.0, 1e-9)
        << "across doesn't count";
    EXPECT_NEAR(dragAlongAxis(view(), {0, 1, 0}, {100, 100}, {100, 80}), 2.0, 1e-9) << "up is +y";
}

TEST_F(AxisDragTest, AForeshortenedAxisGoesFartherForTheSamePixels)
{
    // The axis leans 60 degrees away from the picture: half of it shows.
    const Vec3 leaning{0.5, 0.0, std::sqrt(0.75)};
    EXPECT_NEAR(shownShare(view(), leaning), 0.5, 1e-12);
    EXPECT_NEAR(dragAlongAxis(view(), leaning, {100, 100}, {110, 100}), 2.0, 1e-9);
}

TEST_F(AxisDragTest, EndOnAPixelUpIsAPixelTowardsTheViewer)
{
    EXPECT_NEAR(dragAlongAxis(view(), {0, 0, 1}, {100, 100}, {100, 90}), 1.0, 1e-9);
    EXPECT_NEAR(dragAlongAxis(view(), {0, 0, 1}, {100, 100}, {160, 110}), -1.0, 1e-9);
    camera.orbit(pi, 0.0);  // from behind: +z goes away
    EXPECT_NEAR(dragAlongAxis(view(), {0, 0, 1}, {100, 100}, {100, 90}), -1.0, 1e-9);
}

TEST_F(AxisDragTest, ARingThatIsLookedOntoFollowsTheMouseAboutItsCentre)
{
    // z points at the viewer: from the right to the top is a quarter turn, counter-clockwise.
    EXPECT_NEAR(turnAboutAxis(view(), {0, 0, 0}, {0, 0, 1}, {5, 0, 0}, {162, 112}, {112, 62}), pi / 2, 1e-9);
    EXPECT_NEAR(turnAboutAxis(view(), {0, 0, 0}, {0, 0, 1}, {5, 0, 0}, {112, 62}, {162, 112}), -pi / 2, 1e-9);
    // About another centre, and far from the ring: only the direction counts.
    EXPECT_NEAR(turnAboutAxis(view(), {5, 0, 3}, {0, 0, 1}, {7, 0, 3}, {212, 112}, {262, 62}),
                std::atan2(50, 100), 1e-9);
    camera.orbit(pi, 0.0);
    EXPECT_NEAR(turnAboutAxis(view(), {0, 0, 0}, {0, 0, 1}, {5, 0, 0}, {162, 112}, {112, 62}), -pi / 2, 1e-9)
        << "from behind";
}

TEST_F(AxisDragTest, ARingSeenEdgeOnIsPulledAlongItsTangent)
{
    // The ring about y is a horizontal line; at its front (z = 5 mm) the tangent points to +x.
    const double angle = turnAboutAxis(view(), {0, 0, 0}, {0, 1, 0}, {0, 0, 5}, {112, 112}, {122, 140});
    EXPECT_NEAR(angle, 10 * 0.1 / 5.0, 1e-9);
    EXPECT_EQ(turnAboutAxis(view(), {0, 0, 0}, {0, 1, 0}, {5, 0, 0}, {162, 112}, {170, 112}), 0.0)
        << "at its end the tangent can't be seen";
}

TEST_F(AxisDragTest, ASlantedRingFollowsThePointUnderTheMouse)
{
    camera.setPreset(ViewPreset::Iso);
    const Vec3 center{1, 2, 3};
    const Vec3 from = center + Vec3{6, 0, 0};
    const Vec3 to = center + Vec3{6 * std::cos(0.7), 0, -6 * std::sin(0.7)};  // right-handed about y
    const ViewProjection v = view();
    EXPECT_NEAR(turnAboutAxis(v, center, {0, 1, 0}, from, v.toPixels(from), v.toPixels(to)), 0.7, 1e-9);
}

}  // namespace
