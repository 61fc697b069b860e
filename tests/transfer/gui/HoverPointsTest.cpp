#include "transfer/HoverPoints.h"

#include "support/ModalWatcher.h"
#include "transfer/Polygon.h"

#include <QColorDialog>
#include <QImage>
#include <QMouseEvent>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>
#include <gtest/gtest.h>

namespace {

constexpr QRgb red = 0xffff0000U;
constexpr QRgb green = 0xff00ff00U;
constexpr QRgb blue = 0xff0000ffU;
constexpr QRgb yellow = 0xffffff00U;
constexpr QRgb cyan = 0xff00ffffU;
constexpr QRgb black = 0xff000000U;

/// A white widget that counts the mouse events that the editor lets through.
class Host : public QWidget
{
public:
    Host()
    {
        QPalette colors = palette();
        colors.setColor(backgroundRole(), Qt::white);
        setPalette(colors);
        setAutoFillBackground(true);
        setMouseTracking(true);
        resize(200, 100);
        show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(this));
    }

    int presses = 0;
    int releases = 0;
    int moves = 0;
    int doubleClicks = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++presses; }
    void mouseReleaseEvent(QMouseEvent*) override { ++releases; }
    void mouseMoveEvent(QMouseEvent*) override { ++moves; }
    void mouseDoubleClickEvent(QMouseEvent*) override { ++doubleClicks; }
};

/// Edge, free, step at 100, free, edge on 200 x 100 pixels.
class HoverPointsEvents : public testing::Test
{
protected:
    HoverPointsEvents()
    {
        editor->setPoints(polygon({{0, 100}, {50, 60}, {100, 100}, {101, 0}, {150, 20}, {200, 0}}),
                          {red, green, blue, yellow, cyan, black});
        editor->setLocks({LockToLeft, NoLock, LockToBottom, LockToTop, NoLock, LockToRight});
        editor->setSortType(HoverPoints::XSort);
    }

    void press(int x, int y, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(host.get(), button, {}, QPoint(x, y));
    }
    void move(int x, int y) { send(QEvent::MouseMove, QPoint(x, y), Qt::NoButton); }
    void send(QEvent::Type type, const QPoint& at, Qt::MouseButton button = Qt::LeftButton)
    {
        QMouseEvent event(type, at, host->mapToGlobal(at), button, Qt::LeftButton, {});
        QCoreApplication::sendEvent(host.get(), &event);
    }
    void release(int x, int y, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseRelease(host.get(), button, {}, QPoint(x, y));
    }
    void rightClick(int x, int y)
    {
        press(x, y, Qt::RightButton);
        release(x, y, Qt::RightButton);
    }
    void drag(QPoint from, QPoint to)
    {
        press(from.x(), from.y());
        move(to.x(), to.y());
        release(to.x(), to.y());
    }
    QPointF point(int index) const { return editor->points().value(index); }

    std::unique_ptr<Host> host = std::make_unique<Host>();
    QPointer<HoverPoints> editor = new HoverPoints(host.get(), HoverPoints::CircleShape);
    QSignalSpy changed{editor, SIGNAL(pointsChanged(QPolygonF))};
    QSignalSpy committed{editor, SIGNAL(pointsCommitted())};
    viz_test::ModalWatcher modal;
};

}  // namespace

TEST_F(HoverPointsEvents, StartAsTheyShould)
{
    HoverPoints fresh(host.get(), HoverPoints::CircleShape);
    EXPECT_TRUE(fresh.points().isEmpty());
    EXPECT_TRUE(fresh.colors().isEmpty());
    EXPECT_TRUE(fresh.locks().isEmpty());
    EXPECT_EQ(fresh.pointSize(), QSizeF(11, 11));
    EXPECT_TRUE(fresh.isEnabled());
    EXPECT_EQ(fresh.parent(), host.get());
}

TEST_F(HoverPointsEvents, LockNumbersAreThoseOfFiles)
{
    EXPECT_EQ(HoverPoints::NoLock, 0);
    EXPECT_EQ(HoverPoints::LockToLeft, 1);
    EXPECT_EQ(HoverPoints::LockToRight, 2);
    EXPECT_EQ(HoverPoints::LockToTop, 4);
    EXPECT_EQ(HoverPoints::LockToBottom, 8);
    EXPECT_EQ(HoverPoints::CircleShape, 0);
    EXPECT_EQ(HoverPoints::XSort, 1);
    EXPECT_EQ(HoverPoints::YSort, 2);
}

TEST_F(HoverPointsEvents, AFreePointIsDragged)
{
    press(50, 60);
    EXPECT_EQ(host->presses, 0) << "consumed";
    move(60, 40);
    EXPECT_EQ(point(1), QPointF(60, 40));
    EXPECT_EQ(host->moves, 1) << "passed on";
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(changed.last().at(0).value<QPolygonF>(), editor->points());
    EXPECT_EQ(committed.count(), 0);
    move(62, 41);
    EXPECT_EQ(changed.count(), 2);
    release(62, 41);
    EXPECT_EQ(committed.count(), 1);
    EXPECT_EQ(host->releases, 1) << "passed on";
    move(70, 50);
    EXPECT_EQ(point(1), QPointF(62, 41)) << "the drag is over";
    EXPECT_EQ(changed.count(), 2);
}

TEST_F(HoverPointsEvents, APointDraggedPastAFreeNeighbourExchangesPlaces)
{
    editor->setPoints(polygon({{0, 100}, {50, 60}, {80, 40}, {200, 0}}), {red, green, blue, black});
    editor->setLocks({LockToLeft, NoLock, NoLock, LockToRight});
    press(50, 60);
    move(70, 60);
    move(95, 60);
    EXPECT_EQ(editor->points(), polygon({{0, 100}, {80, 40}, {95, 60}, {200, 0}}));
    EXPECT_EQ(editor->colors(), QVector<QRgb>({red, blue, green, black}));
    move(110, 30);
    EXPECT_EQ(point(2), QPointF(110, 30)) << "the same point goes on";
    move(30, 30);
    release(30, 30);
    EXPECT_EQ(editor->points(), polygon({{0, 100}, {30, 30}, {80, 40}, {200, 0}}));
    EXPECT_EQ(editor->colors(), QVector<QRgb>({red, green, blue, black}));
}

TEST_F(HoverPointsEvents, ARefusedMoveLeavesTheLastAcceptedPlace)
{
    press(50, 60);
    move(90, 50);
    move(98, 50);
    EXPECT_EQ(point(1), QPointF(90, 50)) << "too close to the step";
    EXPECT_EQ(changed.count(), 1);
    move(2, 50);
    EXPECT_EQ(point(1), QPointF(90, 50)) << "too close to the edge point";
    move(4, 50);
    release(4, 50);
    EXPECT_EQ(point(1), QPointF(4, 50));
}

TEST_F(HoverPointsEvents, EndPointsMoveUpAndDownOnly)
{
    drag({2, 98}, {40, 70});
    EXPECT_EQ(point(0), QPointF(0, 70));
    drag({199, 1}, {40, 30});
    EXPECT_EQ(point(5), QPointF(200, 30));
}

TEST_F(HoverPointsEvents, AStepIsDraggedByEitherPoint)
{
    drag({99, 99}, {120, 50});
    EXPECT_EQ(point(2), QPointF(120, 100));
    EXPECT_EQ(point(3), QPointF(121, 0));
    drag({121, 2}, {90, 50});
    EXPECT_EQ(point(2), QPointF(89, 100));
    EXPECT_EQ(point(3), QPointF(90, 0));
}

TEST_F(HoverPointsEvents, ARightClickRemovesAFreePoint)
{
    rightClick(50, 60);
    EXPECT_EQ(editor->points().size(), 5);
    EXPECT_EQ(editor->colors(), QVector<QRgb>({red, blue, yellow, cyan, black}));
    EXPECT_EQ(host->presses, 0) << "consumed";
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(committed.count(), 1);
}

TEST_F(HoverPointsEvents, ARightClickOnEitherEndOfAStepRemovesBoth)
{
    rightClick(98, 99);
    EXPECT_EQ(editor->points(), polygon({{0, 100}, {50, 60}, {150, 20}, {200, 0}}));
    EXPECT_EQ(editor->colors(), QVector<QRgb>({red, green, cyan, black}));
    EXPECT_EQ(editor->locks(), QVector<PointLock>({LockToLeft, NoLock, NoLock, LockToRight}));

    editor->setPoints(polygon({{0, 100}, {100, 100}, {101, 0}, {200, 0}}), {red, blue, yellow, black});
    editor->setLocks({LockToLeft, LockToBottom, LockToTop, LockToRight});
    rightClick(103, 2);
    EXPECT_EQ(editor->points(), polygon({{0, 100}, {200, 0}}));
    EXPECT_EQ(editor->colors(), QVector<QRgb>({red, black}));
    EXPECT_EQ(editor->locks(), QVector<PointLock>({LockToLeft, LockToRight}));
}

TEST_F(HoverPointsEvents, ARightClickOnAnEdgePointRemovesNothing)
{
    const QPolygonF before = editor->points();
    rightClick(1, 99);
    rightClick(199, 1);
    EXPECT_EQ(editor->points(), before);
    EXPECT_EQ(changed.count(), 2) << "told all the same";
    EXPECT_EQ(host->presses, 0);
}

TEST_F(HoverPointsEvents, ARightClickOnFreeSpaceIsPassedOn)
{
    rightClick(70, 10);
    EXPECT_EQ(host->presses, 1);
    EXPECT_EQ(changed.count(), 0);
    EXPECT_EQ(editor->points().size(), 6);
}

TEST_F(HoverPointsEvents, ARightClickDuringADragEndsIt)
{
    press(50, 60);
    press(50, 60, Qt::RightButton);
    const QPolygonF left = editor->points();
    move(120, 10);
    EXPECT_EQ(editor->points(), left) << "no other point takes the place of the removed one";
}

TEST_F(HoverPointsEvents, AClickOnFreeSpaceInsertsAPointAndDragsIt)
{
    press(25, 80);
    EXPECT_EQ(host->presses, 0) << "consumed";
    EXPECT_EQ(changed.count(), 1);
    ASSERT_EQ(editor->points().size(), 7);
    EXPECT_EQ(point(1), QPointF(25, 80));
    EXPECT_EQ(editor->colors().at(1), qRgb(127, 127, 0)) << "half way from red to green";
    EXPECT_EQ(editor->locks().at(1), NoLock);
    move(30, 70);
    release(30, 70);
    EXPECT_EQ(point(1), QPointF(30, 70));
    EXPECT_EQ(committed.count(), 1);
}

TEST_F(HoverPointsEvents, AClickBesideAStepInsertsNothingAndDragsTheStep)
{
    press(100, 50);
    EXPECT_EQ(editor->points().size(), 6);
    EXPECT_EQ(host->presses, 1) << "passed on";
    EXPECT_EQ(changed.count(), 0);
    move(110, 50);
    release(110, 50);
    EXPECT_EQ(point(2), QPointF(110, 100));
    EXPECT_EQ(point(3), QPointF(111, 0));
    press(108, 50);
    EXPECT_EQ(editor->points().size(), 6);
    move(90, 50);
    release(90, 50);
    EXPECT_EQ(point(2), QPointF(110, 100)) << "from the left the step is not taken hold of";
}

TEST_F(HoverPointsEvents, OtherButtonsArePassedOn)
{
    press(50, 60, Qt::MiddleButton);
    EXPECT_EQ(host->presses, 1);
    release(50, 60, Qt::MiddleButton);
    EXPECT_EQ(committed.count(), 1) << "every release ends an edit";
    EXPECT_EQ(editor->points().size(), 6);
}

TEST_F(HoverPointsEvents, WithoutPointsPressesArePassedOn)
{
    editor->setPoints(QPolygonF(), {});
    press(50, 60);
    press(50, 60, Qt::RightButton);
    EXPECT_EQ(host->presses, 2);
    EXPECT_TRUE(editor->points().isEmpty());
    host->grab();
}

TEST_F(HoverPointsEvents, ASinglePointIsHeldByItsLock)
{
    editor->setPoints(polygon({{0, 50}}), {red});
    editor->setLocks({LockToLeft});
    drag({3, 50}, {60, 20});
    EXPECT_EQ(editor->points(), polygon({{0, 20}}));
    editor->setLocks({NoLock});
    drag({3, 20}, {60, 50});
    EXPECT_EQ(editor->points(), polygon({{0, 20}})) << "an end does not move freely";
}

TEST_F(HoverPointsEvents, TheCornersOfACircleDoNotHit)
{
    drag({46, 56}, {46, 90});
    EXPECT_EQ(editor->points().size(), 7) << "a new point";
    HoverPoints boxes(host.get(), HoverPoints::RectangleShape);
    editor->setEnabled(false);
    boxes.setPoints(polygon({{0, 100}, {50, 60}, {200, 0}}), {red, green, blue});
    drag({46, 56}, {47, 90});
    EXPECT_EQ(boxes.points(), polygon({{0, 100}, {47, 90}, {200, 0}})) << "a rectangle's do";
}

TEST_F(HoverPointsEvents, EndPointsAreHitInALargerArea)
{
    drag({7, 100 - 1}, {7, 60});
    EXPECT_EQ(point(0), QPointF(0, 60)) << "7 pixels off";
    drag({50 + 7, 60}, {57, 30});
    EXPECT_EQ(editor->points().size(), 7) << "no hit on a point in the middle";
}

TEST_F(HoverPointsEvents, TheFirstOfTwoHitPointsWins)
{
    editor->setPoints(polygon({{0, 100}, {50, 60}, {52, 60}, {200, 0}}), {red, green, blue, black});
    drag({51, 60}, {20, 20});
    EXPECT_EQ(point(1), QPointF(20, 20));
    EXPECT_EQ(editor->colors().at(1), green);
}

TEST_F(HoverPointsEvents, WhatIsNotEditableCanBeMovedOnly)
{
    editor->setEditable(false);
    press(25, 80);
    rightClick(50, 60);
    EXPECT_EQ(host->presses, 2);
    EXPECT_EQ(editor->points().size(), 6);
    drag({50, 60}, {55, 55});
    EXPECT_EQ(point(1), QPointF(55, 55));
}

TEST_F(HoverPointsEvents, BoundsLimitTheMoves)
{
    editor->setBounds(QRectF(10, 10, 100, 50));
    drag({50, 60}, {55, 99});
    EXPECT_EQ(point(1), QPointF(55, 60));
}

TEST_F(HoverPointsEvents, ADisabledEditorPassesEverythingOn)
{
    editor->setEnabled(false);
    press(50, 60);
    move(60, 60);
    release(60, 60);
    EXPECT_EQ(host->presses, 1);
    EXPECT_EQ(changed.count() + committed.count(), 0);
    editor->setDisabled(false);
    EXPECT_TRUE(editor->isEnabled());
    drag({50, 60}, {60, 60});
    EXPECT_EQ(point(1), QPointF(60, 60));
}

TEST_F(HoverPointsEvents, ADragDoesNotOutliveTheEditorsOrTheWidgetsSwitch)
{
    press(50, 60);
    editor->setEnabled(false);
    editor->setEnabled(true);
    move(60, 60);
    EXPECT_EQ(point(1), QPointF(50, 60));
    press(50, 60);
    host->setEnabled(false);
    host->setEnabled(true);
    move(60, 60);
    EXPECT_EQ(point(1), QPointF(50, 60));
}

TEST_F(HoverPointsEvents, AnotherChainEndsADrag)
{
    press(50, 60);
    editor->setPoints(polygon({{0, 100}, {70, 60}, {200, 0}}), {red, green, blue});
    move(60, 60);
    EXPECT_EQ(point(1), QPointF(70, 60));
}

TEST_F(HoverPointsEvents, ADoubleClickAsksForAColor)
{
    modal.expect([](QWidget* window) {
        auto* dialog = qobject_cast<QColorDialog*>(window);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), QString("Select Color"));
        EXPECT_EQ(dialog->currentColor(), QColor(0, 255, 0));
        EXPECT_EQ(dialog->options(), QColorDialog::ColorDialogOptions());
        dialog->setCurrentColor(QColor(10, 20, 30, 40));
        dialog->accept();
    });
    QTest::mouseDClick(host.get(), Qt::LeftButton, {}, QPoint(50, 60));
    EXPECT_EQ(editor->colors().at(1), qRgba(10, 20, 30, 255));
    EXPECT_EQ(host->doubleClicks, 1) << "passed on";
    EXPECT_GE(changed.count(), 1);
    EXPECT_EQ(changed.last().at(0).value<QPolygonF>(), editor->points());
    EXPECT_GE(committed.count(), 1);
}

TEST_F(HoverPointsEvents, ACancelledColorChangesNothingAndIsTold)
{
    modal.expect([this](QWidget* window) {
        changed.clear();
        committed.clear();
        qobject_cast<QDialog*>(window)->reject();
    });
    send(QEvent::MouseButtonDblClick, {50, 60});
    EXPECT_EQ(editor->colors().at(1), green);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(committed.count(), 1);
}

TEST_F(HoverPointsEvents, OtherDoubleClicksArePassedOn)
{
    for (const auto& [place, button] :
         {std::make_pair(QPoint(50, 60), Qt::RightButton), std::make_pair(QPoint(70, 20), Qt::LeftButton)}) {
        send(QEvent::MouseButtonDblClick, place, button);
    }
    EXPECT_EQ(host->doubleClicks, 2);
    EXPECT_EQ(changed.count() + committed.count(), 0);
}

TEST_F(HoverPointsEvents, AColorForAChainThatWentIsDropped)
{
    modal.expect([this](QWidget* window) {
        editor->setPoints(polygon({{0, 100}, {70, 60}, {200, 0}}), {red, yellow, blue});
        qobject_cast<QColorDialog*>(window)->setCurrentColor(Qt::magenta);
        qobject_cast<QDialog*>(window)->accept();
    });
    send(QEvent::MouseButtonDblClick, {50, 60});
    EXPECT_EQ(editor->colors(), QVector<QRgb>({red, yellow, blue}));
    EXPECT_EQ(changed.count() + committed.count(), 0);
}

TEST_F(HoverPointsEvents, AColorOutlivesANewSizeOfTheWidget)
{
    modal.expect([this](QWidget* window) {
        host->resize(100, 100);
        EXPECT_EQ(editor->followSize(), QPointF(0.5, 1.0));
        qobject_cast<QColorDialog*>(window)->setCurrentColor(Qt::magenta);
        qobject_cast<QDialog*>(window)->accept();
    });
    send(QEvent::MouseButtonDblClick, {50, 60});
    EXPECT_EQ(editor->colors().at(1), QColor(Qt::magenta).rgb());
    EXPECT_EQ(point(1), QPointF(25, 60));
}

TEST_F(HoverPointsEvents, TheWidgetMayGoWhileItsColorIsChosen)
{
    modal.expect([this](QWidget*) { host.reset(); });
    send(QEvent::MouseButtonDblClick, {50, 60});
    EXPECT_EQ(host, nullptr);
    EXPECT_TRUE(editor.isNull());
}

TEST_F(HoverPointsEvents, ListsOfOtherLengthsDoNoHarm)
{
    editor->setColors({red});
    editor->setLocks({LockToLeft});
    host->grab();
    drag({50, 60}, {70, 50});
    EXPECT_EQ(point(1), QPointF(70, 50));
    drag({25, 20}, {26, 20});
    rightClick(150, 20);
    EXPECT_EQ(editor->points().size(), 6) << "one came, one went";
    modal.expect([](QWidget* window) { qobject_cast<QDialog*>(window)->accept(); });
    send(QEvent::MouseButtonDblClick, {100, 99});
    editor->setPointLock(77, LockToTop);
    editor->setPointLock(-1, LockToTop);
    editor->setLocks(QVector<PointLock>(40, LockToTop));
    editor->setColors(QVector<QRgb>(40, red));
    host->grab();
    drag({60, 20}, {61, 20});
}

TEST_F(HoverPointsEvents, AWidgetOfNoneOrOnePixelDoesNoHarm)
{
    for (const int side : {0, 1}) {
        QWidget small;
        small.resize(side, side);
        HoverPoints points(&small, HoverPoints::CircleShape);
        points.setPoints(polygon({{0, 100}, {50, 60}, {200, 0}}), {red, green, blue});
        points.setLocks({LockToLeft, NoLock, LockToRight});
        points.setSortType(HoverPoints::XSort);
        QMouseEvent pressed(QEvent::MouseButtonPress, QPointF(0, 0), Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&small, &pressed);
        QMouseEvent moved(QEvent::MouseMove, QPointF(5, 5), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&small, &moved);
        small.grab();
        EXPECT_EQ(points.points(),
                  polygon({{0, double(side)}, {double(side), double(side)}, {double(side), 0}}))
            << side;
    }
}

TEST_F(HoverPointsEvents, MarkersAreDrawnInTheirColours)
{
    const QImage picture = host->grab().toImage();
    EXPECT_EQ(picture.pixel(50, 60), green);
    EXPECT_EQ(picture.pixel(150, 20), cyan);
    EXPECT_EQ(picture.pixel(2, 97), red);
    // A circle leaves the corner of its square, a point of a step fills it.
    EXPECT_NE(picture.pixel(46, 56), green);
    EXPECT_EQ(picture.pixel(96, 96), blue);
    EXPECT_EQ(picture.pixel(104, 4), yellow);
    EXPECT_EQ(picture.pixel(20, 10), qRgb(255, 255, 255)) << "the host's own background";
}

TEST_F(HoverPointsEvents, TheAlphaOfAColourIsNotDrawn)
{
    editor->setColors({red, 0x0000ff00U, blue, yellow, cyan, black});
    EXPECT_EQ(host->grab().toImage().pixel(50, 60), green);
}

TEST_F(HoverPointsEvents, WithoutAColourForEachThereAreNoMarkers)
{
    editor->setColors({red, green});
    EXPECT_NE(host->grab().toImage().pixel(50, 60), green);
    EXPECT_NE(host->grab().toImage().pixel(25, 80), qRgb(255, 255, 255)) << "the line stays";
}

TEST_F(HoverPointsEvents, ThePointsAreJoinedByACurve)
{
    editor->setPoints(polygon({{0, 100}, {200, 0}}), {red, black});
    const QImage curve = host->grab().toImage();
    EXPECT_LT(qGray(curve.pixel(100, 50)), 120) << "both meet in the middle";
    // A quarter of the way the curve (x = 3/2 t d, ...) is still near the bottom, the line is not.
    EXPECT_GT(qGray(curve.pixel(40, 80)), 240);
    editor->setConnectionType(HoverPoints::LineConnection);
    EXPECT_LT(qGray(host->grab().toImage().pixel(40, 80)), 120);
    editor->setConnectionType(HoverPoints::NoConnection);
    EXPECT_GT(qGray(host->grab().toImage().pixel(100, 50)), 240);
}

TEST_F(HoverPointsEvents, ADisabledEditorDrawsNothing)
{
    editor->setEnabled(false);
    EXPECT_EQ(host->grab().toImage().pixel(50, 60), qRgb(255, 255, 255));
    editor->setEnabled(true);
    EXPECT_EQ(host->grab().toImage().pixel(50, 60), green);
}
