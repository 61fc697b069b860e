#include "transfer/CTransferFunction1DWidget.h"

#include "transfer/CColorTableWidget.h"
#include "transfer/Polygon.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

namespace {

constexpr QRgb red = 0xffff0000U;
constexpr QRgb green = 0xff00ff00U;
constexpr QRgb blue = 0xff0000ffU;
constexpr QRgb white = 0xffffffffU;
constexpr QRgb black = 0xff000000U;

using Entry = std::array<int, 4>;

/// A widget of its own, shown or not.
class TransferWidget : public testing::Test
{
protected:
    void build(int width, int height, bool shown)
    {
        widget.resize(width, height);
        if (!shown) return;
        widget.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
        ASSERT_EQ(widget.size(), QSize(width, height));
    }

    void give(const QPolygonF& points, const QVector<QRgb>& colors, QVector<PointLock> locks = {})
    {
        widget.hoverPoints()->setPoints(points, colors);
        if (!locks.isEmpty()) widget.hoverPoints()->setLocks(locks);
        widget.hoverPoints()->setSortType(HoverPoints::XSort);
        widget.pointsUpdated();
    }

    std::vector<Entry> table()
    {
        const std::unique_ptr<unsigned char[]> bytes(widget.makeColorTable());
        std::vector<Entry> entries(256);
        for (int i = 0; i < 256; ++i)
            for (int c = 0; c < 4; ++c)
                entries[i][c] = bytes[i * 4 + c];
        return entries;
    }

    void move(int x, int y)
    {
        QMouseEvent event(QEvent::MouseMove, QPointF(x, y), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&widget, &event);
    }

    QRgb pixel(int x, int y) { return widget.grab().toImage().pixel(x, y); }

    CTransferFunction1DWidget widget{CTransferFunction1DWidget::colorAndAlpha};
};

void expectNear(const Entry& entry, const Entry& wanted, int tolerance, int index)
{
    for (int c = 0; c < 4; ++c)
        EXPECT_NEAR(entry[c], wanted[c], tolerance) << "entry " << index << " channel " << c;
}

/// What stands in column `c` of a gradient between two stops, from the colour and opacity (0 to 1) at each;
/// colours multiplied with their opacity.
Entry between(double share, const QColor& from, const QColor& to)
{
    const auto mixed = [share](double a, double b) { return a + (b - a) * share; };
    const double a = mixed(from.alphaF(), to.alphaF());
    const auto channel = [&](double f, double t) {
        return static_cast<int>(std::lround(255 * mixed(f * from.alphaF(), t * to.alphaF())));
    };
    return {channel(from.redF(), to.redF()), channel(from.greenF(), to.greenF()),
            channel(from.blueF(), to.blueF()), static_cast<int>(std::lround(255 * a))};
}

}  // namespace

TEST_F(TransferWidget, StartsAsItShould)
{
    EXPECT_EQ(widget.sizeHint(), QSize(150, 100));
    EXPECT_TRUE(widget.hasMouseTracking());
    EXPECT_TRUE(widget.autoFillBackground());
    EXPECT_EQ(widget.maxOpacity(), 255.0F);
    EXPECT_TRUE(widget.histogramPoints().isEmpty());
    ASSERT_NE(widget.hoverPoints(), nullptr);
    EXPECT_EQ(widget.hoverPoints()->parent(), &widget);
    EXPECT_EQ(pixel(20, 20), QColor(Qt::lightGray).rgb());
}

TEST_F(TransferWidget, AnEditIsToldWhenItEnds)
{
    build(200, 100, true);
    give(polygon({{0, 100}, {50, 60}, {200, 0}}), {red, green, blue}, {LockToLeft, NoLock, LockToRight});
    QSignalSpy ended(&widget, SIGNAL(colorsChanged()));
    QTest::mousePress(&widget, Qt::LeftButton, {}, QPoint(50, 60));
    const std::vector<Entry> before = table();
    move(60, 20);
    EXPECT_EQ(ended.count(), 0);
    EXPECT_NE(table(), before) << "the picture follows the drag";
    QTest::mouseRelease(&widget, Qt::LeftButton, {}, QPoint(60, 20));
    EXPECT_EQ(ended.count(), 1);
}

TEST_F(TransferWidget, AConstantOpaqueChainGivesItsColourInEveryEntry)
{
    for (const int width : {1, 2, 100, 233, 256, 290, 1000}) {
        build(width, 100, false);
        give(polygon({{0, 0}, {double(width), 0}}), {qRgb(12, 200, 77), qRgb(12, 200, 77)});
        const std::vector<Entry> entries = table();
        for (int i = 0; i < 256; ++i)
            EXPECT_EQ(entries[i], (Entry{12, 200, 77, 255})) << width << ": " << i;
    }
}

TEST_F(TransferWidget, EntriesAreMultipliedWithTheirOpacity)
{
    build(290, 100, false);
    give(polygon({{0, 50}, {290, 50}}), {qRgb(255, 100, 0), qRgb(255, 100, 0)});
    // Half of 100 pixels is an opacity of 127: 255 * 127 / 255 and 100 * 127 / 255 = 49.8.
    const std::vector<Entry> entries = table();
    for (int i = 0; i < 256; ++i)
        expectNear(entries[i], {127, 50, 0, 127}, 1, i);
}

TEST_F(TransferWidget, ARampOfTwoPointsIsLinear)
{
    for (const int width : {100, 256, 290, 700}) {
        build(width, 200, false);
        give(polygon({{0, 0}, {double(width), 0}}), {black, white});
        const std::vector<Entry> entries = table();
        for (int i = 0; i < 256; ++i) {
            const double share = (std::floor(i * (width - 1) / 255.0 + 0.5) + 0.5) / width;
            expectNear(entries[i], between(share, Qt::black, Qt::white), 1, i);
        }
    }
}

TEST_F(TransferWidget, TheDiagonalRampGrowsInOpacity)
{
    build(256, 255, false);
    give(polygon({{0, 255}, {256, 0}}), {white, white});
    const std::vector<Entry> entries = table();
    for (int i = 0; i < 256; ++i)
        expectNear(entries[i], between((i + 0.5) / 256, QColor(255, 255, 255, 0), Qt::white), 1, i);
}

TEST_F(TransferWidget, AChainOfThreePointsIsTwoRamps)
{
    build(300, 100, false);
    give(polygon({{0, 100}, {90, 20}, {300, 0}}), {red, green, blue});
    const QColor middle(0, 255, 0, 204);
    const std::vector<Entry> entries = table();
    for (int i = 0; i < 256; ++i) {
        const double x = std::floor(i * 299 / 255.0 + 0.5) + 0.5;
        const Entry wanted = x < 90 ? between(x / 90, QColor(255, 0, 0, 0), middle)
                                    : between((x - 90) / 210, middle, Qt::blue);
        expectNear(entries[i], wanted, 2, i);
    }
}

TEST_F(TransferWidget, AStepIsSteepInTheTable)
{
    build(256, 100, false);
    give(polygon({{0, 100}, {100, 100}, {101, 0}, {256, 0}}), {red, red, red, red},
         {LockToLeft, LockToBottom, LockToTop, LockToRight});
    const std::vector<Entry> entries = table();
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(entries[i], (Entry{0, 0, 0, 0})) << i;
    for (int i = 101; i < 256; ++i)
        EXPECT_EQ(entries[i], (Entry{255, 0, 0, 255})) << i;
}

TEST_F(TransferWidget, MaximumOpacityScalesTheTable)
{
    build(290, 100, false);
    widget.setMaxOpacity(102.0F);
    give(polygon({{0, 0}, {290, 0}}), {white, white});
    for (const Entry& entry : table())
        EXPECT_EQ(entry, (Entry{102, 102, 102, 102}));
    for (const float outside : {-1.0F, 255.5F, std::nanf("")}) {
        widget.setMaxOpacity(outside);
        EXPECT_EQ(widget.maxOpacity(), 102.0F);
    }
    widget.setMaxOpacity(0.0F);
    EXPECT_EQ(widget.maxOpacity(), 0.0F);
}

TEST_F(TransferWidget, AnEmptyChainIsQtsOwnGradient)
{
    build(256, 100, false);
    give(QPolygonF(), {});
    const std::vector<Entry> entries = table();
    expectNear(entries[0], {0, 0, 0, 255}, 1, 0);
    expectNear(entries[255], {255, 255, 255, 255}, 1, 255);
    give(polygon({{80, 0}}), {red});
    for (const Entry& entry : table())
        EXPECT_EQ(entry, (Entry{255, 0, 0, 255})) << "a single point is a colour";
}

TEST_F(TransferWidget, APointRightOfTheWidgetLeavesTheGradientAsItWas)
{
    build(290, 100, false);
    give(polygon({{0, 0}, {290, 0}}), {red, red});
    widget.resize(200, 100);
    widget.hoverPoints()->setColors({blue, blue});
    widget.pointsUpdated();
    for (const Entry& entry : table())
        EXPECT_EQ(entry, (Entry{255, 0, 0, 255}));
}

TEST_F(TransferWidget, AWidgetOfNoneOrOnePixelDoesNoHarm)
{
    for (const QSize size : {QSize(0, 0), QSize(0, 100), QSize(100, 0), QSize(1, 1)}) {
        CTransferFunction1DWidget small(CTransferFunction1DWidget::colorAndAlpha);
        small.resize(size);
        small.hoverPoints()->setPoints(polygon({{0, 100}, {50, 20}, {100, 0}}), {red, green, blue});
        small.pointsUpdated();
        small.setTransferStops({{0.0, QColor(1, 2, 3, 0)}, {0.9, QColor(4, 5, 6, 255)}});
        const std::array<double, 3> values{1, 5, 2};
        small.setHistogram(values.data(), 3);
        small.grab();
        const std::unique_ptr<unsigned char[]> table(small.makeColorTable());
    }
}

TEST_F(TransferWidget, WithoutAnAreaTheTableStaysTheLastOne)
{
    build(290, 100, false);
    give(polygon({{0, 0}, {290, 0}}), {red, red});
    widget.resize(0, 100);
    for (const Entry& entry : table())
        EXPECT_EQ(entry, (Entry{255, 0, 0, 255}));
}

TEST_F(TransferWidget, AnotherTypeHasNoGradient)
{
    CTransferFunction1DWidget other(3);
    other.resize(100, 100);
    other.hoverPoints()->setPoints(polygon({{0, 0}, {100, 0}}), {red, red});
    other.pointsUpdated();
    other.setGradientStops({{0.0, Qt::red}});
    other.grab();
    const std::unique_ptr<unsigned char[]> table(other.makeColorTable());
    EXPECT_EQ(std::count(table.get(), table.get() + 1024, 0), 1024);
}

TEST_F(TransferWidget, StopsOutsideTheGradientAreLeftOut)
{
    build(256, 100, false);
    widget.setGradientStops({{-0.5, Qt::green}, {0.5, Qt::red}, {1.5, Qt::blue}, {std::nan(""), Qt::white}});
    for (const Entry& entry : table())
        EXPECT_EQ(entry, (Entry{255, 0, 0, 255}));
}

TEST_F(TransferWidget, StopsBecomePointsLockedAtTheEnds)
{
    build(200, 100, false);
    QSignalSpy changed(widget.hoverPoints(), SIGNAL(pointsChanged(QPolygonF)));
    widget.setTransferStops(
        {{0.0, QColor(10, 20, 30, 0)}, {0.5, QColor(40, 50, 60, 255)}, {0.9, QColor(1, 1, 1, 255)}});
    EXPECT_EQ(widget.hoverPoints()->points(), polygon({{0, 100}, {100, 0}, {180, 0}}));
    EXPECT_EQ(widget.hoverPoints()->locks(), QVector<PointLock>({LockToLeft, NoLock, LockToRight}));
    EXPECT_EQ(widget.hoverPoints()->colors().at(1), qRgba(40, 50, 60, 255));
    EXPECT_EQ(changed.count(), 0);
    expectNear(table()[128], {40, 50, 60, 255}, 2, 128);
}

TEST_F(TransferWidget, StopsThatRunBackwardsArePutIntoOrder)
{
    build(200, 100, false);
    widget.setTransferStops(
        {{0.9, QColor(1, 1, 1, 255)}, {0.5, QColor(2, 2, 2, 255)}, {0.1, QColor(3, 3, 3, 255)}});
    EXPECT_EQ(widget.hoverPoints()->points(), polygon({{20, 0}, {100, 0}, {180, 0}}));
    EXPECT_EQ(widget.hoverPoints()->locks(), QVector<PointLock>({LockToRight, NoLock, LockToLeft}));
    EXPECT_EQ(widget.hoverPoints()->colors().first(), qRgba(3, 3, 3, 255));
}

TEST_F(TransferWidget, AShownWidgetTakesItsPointsAlongWhenResized)
{
    build(200, 100, true);
    give(polygon({{0, 100}, {50, 60}, {200, 0}}), {red, green, blue}, {LockToLeft, NoLock, LockToRight});
    widget.setHistogramPoints({{10, 90}, {100, 20}});
    QSignalSpy scaled(&widget, SIGNAL(pointsScaled(double, double)));
    widget.resize(400, 150);
    QTRY_COMPARE(widget.hoverPoints()->points(), polygon({{0, 150}, {100, 90}, {400, 0}}));
    EXPECT_EQ(widget.hoverPoints()->locks(), QVector<PointLock>({LockToLeft, NoLock, LockToRight}));
    EXPECT_EQ(widget.hoverPoints()->colors(), QVector<QRgb>({red, green, blue}));
    EXPECT_EQ(widget.histogramPoints(), QVector<QPointF>({{20, 135}, {200, 30}}));
    ASSERT_EQ(scaled.count(), 1);
    EXPECT_EQ(scaled.first().at(0).toDouble(), 2.0);
    EXPECT_EQ(scaled.first().at(1).toDouble(), 1.5);
    EXPECT_NEAR(table()[255][2], 255, 2) << "the gradient is as wide as the widget";
}

TEST_F(TransferWidget, AHiddenWidgetTakesThemAlongWhenItIsShown)
{
    build(200, 100, false);
    give(polygon({{0, 100}, {50, 60}, {200, 0}}), {red, green, blue});
    widget.setHistogramPoints({{10, 90}, {100, 20}});
    widget.resize(400, 150);
    EXPECT_EQ(widget.hoverPoints()->points(), polygon({{0, 100}, {50, 60}, {200, 0}}));
    widget.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
    EXPECT_EQ(widget.hoverPoints()->points(), polygon({{0, 150}, {100, 90}, {400, 0}}));
    EXPECT_EQ(widget.histogramPoints(), QVector<QPointF>({{20, 135}, {200, 30}}));
}

TEST_F(TransferWidget, ARefreshBetweenKeepsWhatTheyArePixelsOf)
{
    build(200, 100, false);
    give(polygon({{0, 100}, {50, 60}, {200, 0}}), {red, green, blue});
    widget.resize(400, 150);
    widget.pointsUpdated();
    widget.followSize();
    EXPECT_EQ(widget.hoverPoints()->points(), polygon({{0, 150}, {100, 90}, {400, 0}}));
    widget.followSize();
    EXPECT_EQ(widget.hoverPoints()->points(), polygon({{0, 150}, {100, 90}, {400, 0}})) << "once";
}

TEST_F(TransferWidget, PointsSurviveAWidgetThatIsSqueezedToNothing)
{
    QWidget window;
    auto* squeezed = new CTransferFunction1DWidget(CTransferFunction1DWidget::colorAndAlpha, &window);
    squeezed->resize(200, 100);
    window.resize(300, 300);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    squeezed->hoverPoints()->setPoints(polygon({{0, 100}, {50, 60}, {200, 0}}), {red, green, blue});
    squeezed->pointsUpdated();
    squeezed->resize(0, 100);
    squeezed->resize(0, 0);
    squeezed->resize(100, 200);
    EXPECT_EQ(squeezed->hoverPoints()->points(), polygon({{0, 200}, {25, 120}, {100, 0}}));
}

TEST_F(TransferWidget, TheHistogramIsARedAreaFromTheBottom)
{
    build(200, 100, true);
    const std::array<double, 4> values{0, 10, 5, 0};
    widget.setHistogram(values.data(), 4);
    EXPECT_EQ(widget.histogramPoints(), QVector<QPointF>({{0, 99.5}, {50, -0.5}, {100, 49.5}, {150, 99.5}}));
    EXPECT_EQ(pixel(50, 20), red);
    EXPECT_EQ(pixel(100, 60), red);
    EXPECT_EQ(pixel(100, 40), QColor(Qt::lightGray).rgb());
    EXPECT_EQ(pixel(10, 50), QColor(Qt::lightGray).rgb());
}

TEST_F(TransferWidget, AZoomOfHalfDrawsTheUpperHalfOffTheTop)
{
    build(200, 100, true);
    const std::array<double, 4> values{0, 10, 5, 0};
    widget.setHistogram(values.data(), 4);
    widget.onYAxisMaxValueChanged(0.5);
    EXPECT_EQ(pixel(100, 10), red) << "half as high as the peak fills the widget";
    EXPECT_EQ(pixel(125, 60), red);
    EXPECT_EQ(pixel(125, 40), QColor(Qt::lightGray).rgb());
    for (const double none : {0.0, -1.0, std::nan("")})
        widget.onYAxisMaxValueChanged(none);
    EXPECT_EQ(pixel(125, 60), red) << "no zoom";
}

TEST_F(TransferWidget, EqualBinsClearTheHistogram)
{
    build(200, 100, true);
    const std::array<double, 3> values{0, 10, 5};
    widget.setHistogram(values.data(), 3);
    widget.setHistogram(nullptr, 3);
    EXPECT_EQ(widget.histogramPoints().size(), 3) << "null changes nothing";
    const std::array<double, 3> flat{7, 7, 7};
    widget.setHistogram(flat.data(), 3);
    EXPECT_TRUE(widget.histogramPoints().isEmpty());
    EXPECT_EQ(pixel(66, 60), QColor(Qt::lightGray).rgb());
    const std::array<double, 3> none{std::nan(""), std::nan(""), std::nan("")};
    widget.setHistogram(none.data(), 3);
    EXPECT_TRUE(widget.histogramPoints().isEmpty());
}

TEST_F(TransferWidget, MarkersStandOverTheHistogram)
{
    build(200, 100, true);
    const std::array<double, 2> values{10, 9};
    widget.setHistogram(values.data(), 2);
    give(polygon({{0, 100}, {50, 60}, {200, 0}}), {blue, green, blue});
    EXPECT_EQ(pixel(50, 60), green);
    widget.setEnabled(false);
    EXPECT_NE(pixel(50, 60), green);
    widget.setEnabled(true);
    EXPECT_EQ(pixel(50, 60), green);
}

TEST_F(TransferWidget, TheCursorTellsWhatADragWouldDo)
{
    build(200, 100, true);
    give(polygon({{0, 100}, {50, 60}, {100, 100}, {101, 0}, {200, 0}}), {red, green, blue, blue, white},
         {LockToLeft, NoLock, LockToBottom, LockToTop, LockToRight});
    move(2, 98);
    EXPECT_EQ(widget.cursor().shape(), Qt::SizeVerCursor);
    move(101, 50);
    EXPECT_EQ(widget.cursor().shape(), Qt::SplitHCursor);
    move(97, 98);
    EXPECT_EQ(widget.cursor().shape(), Qt::SizeHorCursor);
    move(30, 20);
    EXPECT_EQ(widget.cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(TransferWidget, ThereIsNoContextMenu)
{
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(20, 20));
    event.ignore();
    QCoreApplication::sendEvent(&widget, &event);
    EXPECT_TRUE(event.isAccepted());
}

TEST_F(TransferWidget, TheStripShowsTheGradientOnACheckerboard)
{
    QWidget window;
    QVBoxLayout layout(&window);
    layout.setContentsMargins(0, 0, 0, 0);
    auto* top = new CTransferFunction1DWidget(CTransferFunction1DWidget::colorAndAlpha);
    auto* strip = new CColorTableWidget;
    EXPECT_EQ(strip->sizeHint(), QSize(150, 20));
    layout.addWidget(top, 1);
    layout.addWidget(strip);
    top->setColorTableWidget(strip);
    strip->setFixedHeight(20);
    window.resize(200, 120);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    top->hoverPoints()->setPoints(polygon({{0, 100}, {99, 100}, {100, 0}, {200, 0}}),
                                  {red, red, green, green});
    top->pointsUpdated();
    const QImage picture = strip->grab().toImage();
    // The clear half shows the squares of 10 by 10, light at the top left.
    EXPECT_EQ(picture.pixel(5, 5), QColor(Qt::lightGray).rgb());
    EXPECT_EQ(picture.pixel(15, 5), QColor(Qt::darkGray).rgb());
    EXPECT_EQ(picture.pixel(5, 15), QColor(Qt::darkGray).rgb());
    EXPECT_EQ(picture.pixel(15, 15), QColor(Qt::lightGray).rgb());
    EXPECT_EQ(picture.pixel(150, 10), green);
    for (const QPoint edge : {QPoint(0, 10), QPoint(199, 10), QPoint(60, 0), QPoint(60, 19)})
        EXPECT_EQ(picture.pixel(edge), qRgb(146, 146, 146));
    delete top;
    EXPECT_EQ(strip->grab().toImage().pixel(155, 5), QColor(Qt::darkGray).rgb()) << "the squares are left";
}
