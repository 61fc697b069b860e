#include "slices/C3DObjectFrameBufferExporter.h"
#include "support/MarkedVolume.h"

#include <gtest/gtest.h>

namespace {

struct FrameBufferExporterTest : ::testing::Test
{
    FrameBufferExporterTest()
        : exporter(nullptr, volume.graph.get(), "FBO", volume.scene.get())
    {
        // Opaque in a single slice, so that colours can be told.
        volume.node->setLighting(false);
    }

    QImage grab(int axis, float fieldOfView = 20.0F, int size = 350)
    {
        QImage image;
        exporter.grabProjection(image, axis, fieldOfView, size);
        return image;
    }

    /// The colour at a place of the window, in millimetres: 225 x 350 in all.
    static QString at(const QImage& image, double x, double y)
    {
        return colorAt(image, (x + 75.0) / 225.0, (y + 100.0) / 350.0);
    }

    MarkedVolume volume;
    C3DObjectFrameBufferExporter exporter;
};

TEST_F(FrameBufferExporterTest, ThePictureIsSquareAndOfTheGivenSize)
{
    EXPECT_EQ(grab(4).size(), QSize(350, 350));
    EXPECT_EQ(grab(4, 20.0F, 64).size(), QSize(64, 64));
}

TEST_F(FrameBufferExporterTest, TheAxisLooksAlongZ)
{
    const QImage image = grab(4);
    EXPECT_EQ(at(image, 8.5, 0.0), "red");
    EXPECT_EQ(at(image, -5.0, 13.0), "green");
    EXPECT_EQ(at(image, -5.0, -5.0), "blue");  // the high end of z is in front
    EXPECT_EQ(at(image, 30.0, 0.0), "black");
    EXPECT_EQ(at(image, -5.0, -30.0), "black");
}

TEST_F(FrameBufferExporterTest, TheFieldOfViewMovesTheCameraAndNotTheWindow)
{
    const QImage narrow = grab(4, 10.0F);
    const double distance = exporter.camera().translation[2];
    const QImage wide = grab(4, 25.0F);
    EXPECT_LT(exporter.camera().translation[2], distance);
    EXPECT_EQ(exporter.camera().window.left, -75.0);
    EXPECT_EQ(exporter.camera().window.right, 150.0);
    EXPECT_EQ(exporter.camera().window.bottom, -100.0);
    EXPECT_EQ(exporter.camera().window.top, 250.0);
    EXPECT_EQ(at(wide, 8.5, 0.0), at(narrow, 8.5, 0.0));
    EXPECT_EQ(at(wide, 15.0, 0.0), "black");
}

TEST_F(FrameBufferExporterTest, ATransformedNodeIsFoundInItsNewPlace)
{
    matrix moved;
    moved(1, 3) = 40.0;
    volume.node->setTransformation(moved);
    const QImage image = grab(4);
    // The camera's own move follows the middle of the box as well.
    EXPECT_EQ(at(image, 8.5, 80.0), "red");
    EXPECT_EQ(at(image, 8.5, 0.0), "black");
}

TEST_F(FrameBufferExporterTest, WithoutTheNodeTheImageStaysAsItWas)
{
    volume.removeNode();
    QImage image(3, 3, QImage::Format_RGB32);
    image.fill(Qt::red);
    const QImage before = image;
    exporter.grabProjection(image, 4, 20.0F, 100);
    EXPECT_EQ(image, before);
    EXPECT_FALSE(exporter.setOrientation(4));
}

TEST_F(FrameBufferExporterTest, SizesThatNoCardDrawsAndAxesThatAreNoneChangeNothing)
{
    QImage image;
    for (const int size : {0, -5, 1 << 30}) {
        exporter.grabProjection(image, 4, 20.0F, size);
        EXPECT_TRUE(image.isNull()) << size;
    }
    exporter.grabProjection(image, 3, 20.0F, 100);
    EXPECT_TRUE(image.isNull());
}

}  // namespace
