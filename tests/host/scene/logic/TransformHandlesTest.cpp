#include "lib/hvapi/scene/logic/TransformHandles.h"

#include <gtest/gtest.h>

using namespace hvscene;

namespace {

struct TransformHandlesTest : testing::Test
{
    TransformHandlesTest()
    {
        Box box;
        box.add({-10, -10, -10});
        box.add({10, 10, 10});
        camera.setWindow(448, 448);
        camera.setScene(box, true);
    }
    ViewProjection view() const { return ViewProjection(camera, 448, 448); }

    Camera camera;
};

TransformHandle move(int axis)
{
    return {TransformHandle::Move, axis};
}

TransformHandle turn(int axis)
{
    return {TransformHandle::Turn, axis};
}

TEST_F(TransformHandlesTest, SizeOnScreenIsTheSameAtEveryZoom)
{
    for (const double zoom : {1.0, 3.0, 0.2}) {
        camera.zoom(zoom, 0, 0);
        const ViewProjection v = view();
        const TransformHandles handles(v, {1, 2, 3}, 1.0);
        const Pixel c = v.toPixels({1, 2, 3});
        EXPECT_NEAR(length(v.toPixels(handles.arrowEnd(0)) - c), 104, 1e-6);
        EXPECT_NEAR(length(v.toPixels(handles.ringPoint(2, 1.234)) - c), 78, 1e-6);
        EXPECT_NEAR(length(v.toPixels(TransformHandles(v, {1, 2, 3}, 2.0).arrowEnd(0)) - c), 208, 1e-6);
    }
}

TEST_F(TransformHandlesTest, FrontViewOffersTheArrowsAcrossAndTheRingsAbout)
{
    const ViewProjection v = view();
    const TransformHandles handles(v, {0, 0, 0}, 1.0);
    EXPECT_EQ(handles.pick({224 + 50, 224}), move(0));
    EXPECT_EQ(handles.pick({224 + 100, 224 + 6}), move(0));
    EXPECT_EQ(handles.pick({224, 224 - 60}), move(1));
    EXPECT_FALSE(handles.isArrowShown(2)) << "end on";
    EXPECT_EQ(handles.pick({224, 224}).kind, TransformHandle::Turn) << "the arrows start beside the centre";
    // The ring about z is the circle; at 45 degrees nothing else is near.
    EXPECT_EQ(handles.pick({224 + 78 * 0.70710678, 224 - 78 * 0.70710678}), turn(2));
    EXPECT_EQ(handles.pick({224 - 78 * 0.70710678, 224 + 74 * 0.70710678}), turn(2));
    // Edge on, the ring about x is the vertical line through the centre.
    EXPECT_EQ(handles.pick({224, 224 + 40}), turn(0));
    EXPECT_EQ(handles.pick({224 - 40, 224}), turn(1));
    EXPECT_EQ(handles.pick({224 + 30, 224 + 30}), TransformHandle());
    EXPECT_EQ(handles.pick({224 + 118, 224}), TransformHandle());
}

TEST_F(TransformHandlesTest, OnlyTheFrontOfARingIsPicked)
{
    camera.setPreset(ViewPreset::Iso);
    const ViewProjection v = view();
    const TransformHandles handles(v, {0, 0, 0}, 1.0);
    for (int axis = 0; axis < 3; ++axis) {
        for (int degrees = 0; degrees < 360; degrees += 10) {
            const Vec3 p = handles.ringPoint(axis, degrees * 3.14159265358979 / 180);
            const double depth = dot(p, v.towardsViewer()) / handles.ringRadius();
            if (depth > 0.1) {
                EXPECT_NE(handles.pick(v.toPixels(p)), TransformHandle()) << axis << " " << degrees;
            }
            if (depth < -0.3) {
                EXPECT_NE(handles.pick(v.toPixels(p)), turn(axis)) << axis << " " << degrees;
            }
        }
    }
}

TEST_F(TransformHandlesTest, ArrowsComeBeforeRings)
{
    const ViewProjection v = view();
    EXPECT_EQ(TransformHandles(v, {0, 0, 0}, 1.0).pick({224 + 78, 224 - 5}), move(0));
}

TEST_F(TransformHandlesTest, TheGripLiesOnTheRingUnderTheMouse)
{
    camera.setPreset(ViewPreset::Iso);
    const ViewProjection v = view();
    const TransformHandles handles(v, {2, 0, 1}, 1.0);
    Vec3 p;
    for (int degrees = 0; degrees < 360; degrees += 3) {
        p = handles.ringPoint(1, degrees * 3.14159265358979 / 180);
        if (dot(p - handles.center(), v.towardsViewer()) > 0.5 * handles.ringRadius()) break;
    }
    const Vec3 grip = handles.grip(1, v.toPixels(p));
    EXPECT_LT(length(grip - p), 0.1 * handles.ringRadius());
    EXPECT_NEAR(length(grip - handles.center()), handles.ringRadius(), 1e-9);
}

}  // namespace
