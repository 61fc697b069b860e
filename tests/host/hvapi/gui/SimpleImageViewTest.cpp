#include "hvapi/windows/CHVSSimpleImageView.h"

#include "hvimage/CILImage.h"
#include "lib/hvapi/windows/logic/PalettePicture.h"
#include "support/ModalWatcher.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QHash>
#include <QLineEdit>
#include <QMenu>
#include <QTemporaryDir>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace {

/// 16-bit picture whose left half is `dark` and right half `bright`.
CILImage halves(long width, long height, std::uint16_t dark, std::uint16_t bright)
{
    std::vector<std::uint16_t> values;
    for (long y = 0; y < height; ++y) {
        for (long x = 0; x < width; ++x)
            values.push_back(x < width / 2 ? dark : bright);
    }
    CILImage image;
    EXPECT_TRUE(image.InitWithType(eTypeUInt16, width, height) && image.setImageData(values.data()));
    CILPalette palette = image.getPalette();
    palette.SetImageMinMax(1000.0, 3000.0);
    image.setPalette(palette);
    return image;
}

class ImageView : public testing::Test
{
protected:
    void show(CILImage* image, QSize const& size = QSize(400, 400))
    {
        view = std::make_unique<CHVSSimpleImageView>(nullptr, "preview", image);
        view->resize(size);
        view->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(view.get()));
        view->activateWindow();
        view->setFocus();
    }

    int gray(int x, int y) const { return qGray(view->grab().toImage().pixel(x, y)); }

    void turnWheel(QPoint const& at, int notches) const
    {
        QWheelEvent event(at, view->mapToGlobal(at), QPoint(), QPoint(0, 120 * notches), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view.get(), &event);
    }

    void drag(QPoint const& from, QPoint const& to) const
    {
        QTest::mousePress(view.get(), Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, to, view->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(view.get(), &move);
        QTest::mouseRelease(view.get(), Qt::LeftButton, {}, to);
    }

    std::unique_ptr<CHVSSimpleImageView> view;
};

TEST(PalettePicture, ValuesGetTheColoursOfThePalettesRange)
{
    CILImage const image = halves(4, 1, 1000, 2000);
    QImage const picture = hvwindows::palettePicture(image);
    ASSERT_EQ(picture.size(), QSize(4, 1));
    EXPECT_EQ(qGray(picture.pixel(0, 0)), 0);
    EXPECT_EQ(qGray(picture.pixel(3, 0)), 128);  // the middle of the range: 0.5 * 255 + 0.5
}

template <class T>
void expectDarkAndBright(HVSDataTypes type)
{
    T values[] = {T(0), T(100)};
    CILImage image;
    ASSERT_TRUE(image.initWithData(type, 2, 1, values));
    CILPalette palette = image.getPalette();
    palette.SetImageMinMax(0.0, 100.0);
    image.setPalette(palette);
    QImage const picture = hvwindows::palettePicture(image);
    EXPECT_EQ(qGray(picture.pixel(0, 0)), 0) << type;
    EXPECT_EQ(qGray(picture.pixel(1, 0)), 255) << type;
}

TEST(PalettePicture, EveryKindOfSampleIsShown)
{
    expectDarkAndBright<std::uint8_t>(eTypeUInt8);
    expectDarkAndBright<std::uint16_t>(eTypeUInt16);
    expectDarkAndBright<std::uint32_t>(eTypeUInt32);
    expectDarkAndBright<float>(eTypeFloat);
    expectDarkAndBright<double>(eTypeDouble);
    expectDarkAndBright<std::int8_t>(eTypeInt8);
    expectDarkAndBright<std::int16_t>(eTypeInt16);
}

TEST(PalettePicture, VeryLargeImagesAreThinnedOutAndNothingGivesNothing)
{
    CILImage wide;
    ASSERT_TRUE(wide.InitWithType(eTypeUInt8, 10000, 2));
    EXPECT_EQ(hvwindows::palettePicture(wide).size(), QSize(3334, 1));
    EXPECT_TRUE(hvwindows::palettePicture(CILImage()).isNull());
}

TEST_F(ImageView, ThePictureIsFittedAndCentred)
{
    CILImage image = halves(20, 10, 3000, 3000);
    show(&image);
    EXPECT_EQ(gray(200, 200), 255);
    EXPECT_EQ(gray(5, 200), 255);
    EXPECT_EQ(gray(395, 200), 255);
    EXPECT_EQ(gray(200, 90), 0) << "a picture twice as wide as high leaves a quarter free above";
    EXPECT_EQ(gray(200, 310), 0);
    EXPECT_EQ(gray(200, 110), 255);
}

TEST_F(ImageView, PixelsHaveTheProportionsOfTheirSpacing)
{
    CILImage image = halves(20, 10, 3000, 3000);
    show(&image);
    view->setPixelSpacingForImage(0.1F, 0.2F);
    EXPECT_EQ(gray(200, 5), 255);
    EXPECT_EQ(gray(200, 395), 255);
    view->setPixelSpacingForImage(0.1F, 0.4F);
    EXPECT_EQ(gray(50, 200), 0);
    EXPECT_EQ(gray(200, 5), 255);
    view->setPixelSpacingForImage(0.0F, -1.0F);
    EXPECT_EQ(gray(200, 90), 0) << "what is no length counts as 1";
}

TEST_F(ImageView, ANewRangeOrPictureIsSeenAfterAnUpdate)
{
    CILImage image = halves(4, 4, 1000, 2000);
    show(&image);
    EXPECT_EQ(gray(100, 200), 0);
    EXPECT_EQ(gray(300, 200), 128);
    CILPalette palette = image.getPalette();
    palette.SetImageMinMax(0.0, 2000.0);
    image.setPalette(palette);
    view->update();
    EXPECT_EQ(gray(100, 200), 128);
    EXPECT_EQ(gray(300, 200), 255);
    image = halves(4, 4, 3000, 1000);
    view->update();
    EXPECT_EQ(gray(100, 200), 255);
}

TEST_F(ImageView, TheWheelZoomsAroundThePointer)
{
    CILImage image = halves(40, 40, 1000, 3000);
    show(&image);
    turnWheel(QPoint(399, 200), 6);
    EXPECT_EQ(gray(20, 200), 255) << "the dark half has left to the left";
    turnWheel(QPoint(399, 200), -40);
    EXPECT_EQ(gray(20, 200), 0) << "never smaller than fitted";
    EXPECT_EQ(gray(380, 200), 255);
}

TEST_F(ImageView, ADragMovesAnEnlargedPictureAndLeavesNoGap)
{
    CILImage image = halves(40, 40, 2000, 3000);
    show(&image);
    turnWheel(QPoint(399, 200), 6);
    ASSERT_EQ(gray(20, 200), 255);
    drag(QPoint(50, 200), QPoint(350, 200));
    drag(QPoint(50, 200), QPoint(350, 200));
    drag(QPoint(10, 10), QPoint(390, 390));
    drag(QPoint(10, 10), QPoint(390, 390));
    EXPECT_EQ(gray(2, 2), 128) << "its corner stops in the corner of the view";
    drag(QPoint(200, 200), QPoint(100, 200));
    QTest::mouseDClick(view.get(), Qt::LeftButton);
    EXPECT_EQ(gray(20, 200), 128) << "fitted again";
    EXPECT_EQ(gray(380, 200), 255);
}

TEST_F(ImageView, KeysZoomMoveAndFit)
{
    CILImage image = halves(40, 40, 1000, 3000);
    show(&image);
    for (int i = 0; i < 8; ++i)
        QTest::keyClick(view.get(), Qt::Key_Plus);
    for (int i = 0; i < 60; ++i)
        QTest::keyClick(view.get(), Qt::Key_Right);
    EXPECT_EQ(gray(20, 200), 255);
    for (int i = 0; i < 120; ++i)
        QTest::keyClick(view.get(), Qt::Key_Left);
    EXPECT_EQ(gray(380, 200), 0);
    QTest::keyClick(view.get(), Qt::Key_0);
    EXPECT_EQ(gray(380, 200), 255);
    EXPECT_EQ(gray(20, 200), 0);
    QTest::keyClick(view.get(), Qt::Key_Plus);
    QTest::keyClick(view.get(), Qt::Key_Minus);
    EXPECT_EQ(gray(20, 200), 0);
}

TEST_F(ImageView, ArrowsOnAFittedPictureGoOnToTheWindow)
{
    CILImage image = halves(4, 4, 1000, 3000);
    show(&image);
    QKeyEvent right(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
    QApplication::sendEvent(view.get(), &right);
    EXPECT_FALSE(right.isAccepted());
}

TEST_F(ImageView, TheScaleBarIsAsLongAsItSays)
{
    CILImage image = halves(100, 100, 1000, 1000);
    show(&image);
    QImage const bare = view->grab().toImage();
    EXPECT_EQ(qGray(bare.pixel(30, 388)), 0) << "no bar without a unit";
    view->setScaleUnits(SCALEUNIT_PIXELS);
    // 400 pixels for 100 samples: a quarter of the view holds 25, the bar is 20 samples or 80 pixels long.
    QImage const picture = view->grab().toImage();
    int length = 0;
    for (int x = 0; x < picture.width(); ++x)
        length += qGray(picture.pixel(x, 388)) > 200 ? 1 : 0;
    EXPECT_EQ(length, 80);
}

TEST_F(ImageView, WithoutAnImageItIsBlackAndTakesEverything)
{
    show(nullptr);
    turnWheel(QPoint(10, 10), 2);
    drag(QPoint(10, 10), QPoint(90, 90));
    QTest::keyClick(view.get(), Qt::Key_Plus);
    EXPECT_EQ(gray(200, 200), 0);
    CILImage empty;
    show(&empty);
    EXPECT_EQ(gray(200, 200), 0);
}

TEST_F(ImageView, TheMenuCopiesAndSavesThePicture)
{
    CILImage image = halves(4, 4, 1000, 3000);
    show(&image);
    QTemporaryDir folder;
    QContextMenuEvent ask(QContextMenuEvent::Mouse, QPoint(50, 50), view->mapToGlobal(QPoint(50, 50)));
    QApplication::sendEvent(view.get(), &ask);
    QHash<QString, QAction*> actions;
    const QList<QAction*> offered = view->findChild<QMenu*>()->actions();
    for (QAction* action : offered)
        actions.insert(action->text(), action);
    EXPECT_TRUE(actions.contains("&Fit"));
    ASSERT_TRUE(actions.contains("&Copy Picture") && actions.contains("&Save Picture..."));
    actions["&Copy Picture"]->trigger();
    EXPECT_EQ(QApplication::clipboard()->image().size(), QSize(4, 4));
    viz_test::ModalWatcher watcher;
    watcher.expect([&folder](QWidget* window) {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        ASSERT_TRUE(dialog);
        dialog->findChild<QLineEdit*>()->setText(folder.filePath("frame"));
        static_cast<QDialog*>(dialog)->accept();
    });
    actions["&Save Picture..."]->trigger();
    EXPECT_EQ(QImage(folder.filePath("frame.png")).size(), QSize(4, 4));
    view->showMenuItems(RIGHT_POPUP_NONE);
    QContextMenuEvent again(QContextMenuEvent::Mouse, QPoint(50, 50), view->mapToGlobal(QPoint(50, 50)));
    again.ignore();
    QApplication::sendEvent(view.get(), &again);
    EXPECT_FALSE(again.isAccepted());
}

}  // namespace
