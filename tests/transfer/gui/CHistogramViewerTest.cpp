#include "transfer/CHistogramViewer.h"

#include "hvutils/CHVPreference.h"
#include "support/MouseMove.h"
#include "transfer/CTransferFunction1DWidget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <cmath>

namespace {

using Locks = QVector<HoverPoints::LockType>;

class CHistogramViewerTest : public testing::Test
{
protected:
    CHistogramViewerTest()
    {
        QObject::connect(&viewer, &CHistogramViewer::updateTransferFunction, &viewer,
                         [this](const QPolygonF& points, const QVector<QRgb>& colors, const Locks& locks) {
                             edits.append({points, colors, locks});
                         });
        qRegisterMetaType<Qt::CheckState>();
        viewer.resize(700, 500);
        viewer.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&viewer));
        viewer.setReferenceSize({300, 185});
    }

    CTransferFunction1DWidget& widget() { return *viewer.transferWidget(); }

    void giveRamp()
    {
        viewer.setTransferFunction(QPolygonF(QVector<QPointF>{{0, 185}, {150, 92.5}, {300, 0}}),
                                   {qRgb(0, 0, 0), qRgb(99, 9, 9), qRgb(255, 255, 255)},
                                   {HoverPoints::LockToLeft, HoverPoints::NoLock, HoverPoints::LockToRight});
    }

    // Pixels of a widget of its own size, without points.
    QImage picture()
    {
        viewer.setTransferFunction({}, {}, {});
        return widget().grab().toImage();
    }

    static bool isRed(QRgb pixel) { return qRed(pixel) > 200 && qGreen(pixel) < 60 && qBlue(pixel) < 60; }

    struct Edit
    {
        QPolygonF points;
        QVector<QRgb> colors;
        Locks locks;
    };

    CHistogramViewer viewer;
    QList<Edit> edits;
};

QPointF far(double x, double y)
{
    return {x, y};
}

void expectAt(const QPointF& point, const QPointF& expected)
{
    EXPECT_NEAR(point.x(), expected.x(), 1e-9);
    EXPECT_NEAR(point.y(), expected.y(), 1e-9);
}

}  // namespace

TEST_F(CHistogramViewerTest, HasItsTextsAndRanges)
{
    EXPECT_EQ(viewer.windowTitle(), "Histogram Viewer");
    EXPECT_EQ(viewer.objectName(), "Histogram Viewer");
    EXPECT_TRUE(viewer.windowFlags() & Qt::WindowMaximizeButtonHint);
    EXPECT_TRUE(viewer.isModal());
    EXPECT_EQ(viewer.m_pViewerMapGroup->title(), "Color - Opacity Map");
    EXPECT_EQ(viewer.m_pViewerLogHistogramCB->text(), "Logarithmic Histogram");
    EXPECT_EQ(viewer.m_pViewerDonePB->text(), "Done");
    QStringList units;
    for (int i = 0; i < viewer.m_pViewerUnitCB->count(); ++i)
        units.append(viewer.m_pViewerUnitCB->itemText(i));
    EXPECT_EQ(units, (QStringList{"Counts", "Absorption", "Hounsfield"}));
    EXPECT_EQ(viewer.m_pYAxisMaxSpinBox->minimum(), 0.1);
    EXPECT_EQ(viewer.m_pYAxisMaxSpinBox->maximum(), 1.0);
    EXPECT_EQ(viewer.m_pYAxisMaxSpinBox->singleStep(), 0.1);
    EXPECT_EQ(viewer.m_pYAxisMaxSpinBox->value(), 1.0);
}

TEST_F(CHistogramViewerTest, DoneAccepts)
{
    QTest::mouseClick(viewer.m_pViewerDonePB, Qt::LeftButton);
    EXPECT_FALSE(viewer.isVisible());
    EXPECT_EQ(viewer.result(), QDialog::Accepted);
}

TEST_F(CHistogramViewerTest, PointsGrowToTheViewersSize)
{
    giveRamp();
    const QPolygonF points = widget().hoverPoints()->points();
    ASSERT_EQ(points.size(), 3);
    expectAt(points[0], far(0, widget().height()));
    expectAt(points[1], far(widget().width() / 2.0, widget().height() / 2.0));
    expectAt(points[2], far(widget().width(), 0));
    EXPECT_EQ(widget().hoverPoints()->locks(),
              (Locks{HoverPoints::LockToLeft, HoverPoints::NoLock, HoverPoints::LockToRight}));
}

TEST_F(CHistogramViewerTest, AnEditComesBackInThePixelsOfTheReference)
{
    giveRamp();
    const QPoint from(widget().width() / 2, widget().height() / 2);
    const QPoint to(widget().width() / 4, widget().height() / 5);
    QTest::mousePress(&widget(), Qt::LeftButton, Qt::NoModifier, from);
    viz_test::moveMouse(&widget(), to);
    EXPECT_TRUE(edits.isEmpty()) << "told before the edit has ended";
    QTest::mouseRelease(&widget(), Qt::LeftButton, Qt::NoModifier, to);
    ASSERT_EQ(edits.size(), 1);
    const QPolygonF points = edits[0].points;
    ASSERT_EQ(points.size(), 3);
    expectAt(points[0], far(0, 185));
    expectAt(points[1], far(to.x() * 300.0 / widget().width(), to.y() * 185.0 / widget().height()));
    expectAt(points[2], far(300, 0));
    EXPECT_EQ(edits[0].colors.at(1), qRgb(99, 9, 9));
    EXPECT_EQ(edits[0].locks,
              (Locks{HoverPoints::LockToLeft, HoverPoints::NoLock, HoverPoints::LockToRight}));
}

TEST_F(CHistogramViewerTest, AResizeKeepsTheFrameOfTheReference)
{
    giveRamp();
    viewer.resize(900, 700);
    QApplication::processEvents();
    viewer.onPointsCommitted();
    ASSERT_EQ(edits.size(), 1);
    expectAt(edits[0].points.at(1), far(150, 92.5));
}

TEST_F(CHistogramViewerTest, AReferenceWithoutAreaDoesNoHarm)
{
    viewer.setReferenceSize({0, 0});
    giveRamp();
    viewer.onPointsCommitted();
    for (const QPointF& point : widget().hoverPoints()->points())
        EXPECT_TRUE(std::isfinite(point.x()) && std::isfinite(point.y()));
}

TEST_F(CHistogramViewerTest, TheCheckBoxShowsLogarithmsAndTellsOfIt)
{
    HistogramBins bins{};
    bins[0] = 1000.0;
    bins[100] = 10.0;
    viewer.setHistogram(bins, {});
    QSignalSpy told(&viewer, &CHistogramViewer::updateLogHistogramStatus);
    viewer.m_pViewerLogHistogramCB->click();
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0][0].value<Qt::CheckState>(), Qt::Checked);
    EXPECT_TRUE(viewer.m_pViewerLogHistogramCB->hasFocus());
    // log10 of 10 is a third of log10 of 1000.
    const double height = widget().height();
    EXPECT_NEAR(widget().histogramPoints().at(100).y(), height - (height / 3.0 + 0.5), 1e-9);
    viewer.m_pViewerLogHistogramCB->click();
    EXPECT_NEAR(widget().histogramPoints().at(100).y(), height - (height / 100.0 + 0.5), 1e-9);
    EXPECT_EQ(told[1][0].value<Qt::CheckState>(), Qt::Unchecked);
}

TEST_F(CHistogramViewerTest, TakingOverTheCheckIsSilent)
{
    QSignalSpy told(&viewer, &CHistogramViewer::updateLogHistogramStatus);
    viewer.setLogarithmic(true);
    EXPECT_TRUE(viewer.m_pViewerLogHistogramCB->isChecked());
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(CHistogramViewerTest, TheLineGrowsToTheViewersSize)
{
    viewer.setHistogram({}, {{0, 185}, {150, 37}});
    expectAt(widget().histogramPoints().at(1), far(widget().width() / 2.0, widget().height() / 5.0));
}

TEST_F(CHistogramViewerTest, UnitsShowTheirRange)
{
    const SUnitRanges ranges{{0.0F, 65535.0F, 0.0F, 0.25F, -1000.0F, 3095.0F}};
    QSignalSpy told(&viewer, &CHistogramViewer::updateMinMaxUnitCB);
    viewer.setUnits(ranges, {"Counts", "Absorption", "Hounsfield"}, "Hounsfield");
    EXPECT_EQ(viewer.m_pViewerUnitCB->currentText(), "Hounsfield");
    EXPECT_EQ(viewer.m_pViewerMinLabel->text(), "-1.00e3");
    EXPECT_EQ(viewer.m_pViewerMaxLabel->text(), "3.10e3");
    ASSERT_EQ(told.size(), 1);
    EXPECT_EQ(told[0][0].toString(), "Hounsfield");

    viewer.m_pViewerUnitCB->setCurrentIndex(0);
    EXPECT_EQ(viewer.m_pViewerMinLabel->text(), "0.00");
    EXPECT_EQ(viewer.m_pViewerMaxLabel->text(), "6.55e4");
    viewer.m_pViewerUnitCB->setCurrentIndex(1);
    EXPECT_EQ(viewer.m_pViewerMaxLabel->text(), "2.50e-1");
    ASSERT_EQ(told.size(), 3);
    EXPECT_EQ(told[2][0].toString(), "Absorption");
}

TEST_F(CHistogramViewerTest, AUnitThatIsCurrentAlreadyIsShownAndTold)
{
    QSignalSpy told(&viewer, &CHistogramViewer::updateMinMaxUnitCB);
    viewer.setUnits({{0.0F, 255.0F, 0, 0, 0, 0}}, {"Counts"}, "Counts");
    EXPECT_EQ(told.size(), 1);
    EXPECT_EQ(viewer.m_pViewerMaxLabel->text(), "2.55e2");
}

TEST_F(CHistogramViewerTest, AxesStandAtTheRoundedRange)
{
    // 65535 is told as 6.55e4: the tick of 10000 stands at 10000 / 65500 of the width.
    viewer.setUnits({{0.0F, 65535.0F, 0, 0, 0, 0}}, {"Counts"}, "Counts");
    const QImage shown = picture();
    const auto isTick = [&](double value) {
        const int x = static_cast<int>(value / 65500.0 * widget().width());
        for (int column = x - 1; column <= x + 1; ++column)
            if (qGray(shown.pixel(column, widget().height() - 19)) < 60) return true;
        return false;
    };
    for (const double value : {10000.0, 20000.0, 60000.0})
        EXPECT_TRUE(isTick(value)) << value;
    EXPECT_FALSE(isTick(15000.0));
}

TEST_F(CHistogramViewerTest, ARangeOfOneValueHasNoAxes)
{
    viewer.setUnits({{7.0F, 7.0F, 0, 0, 0, 0}}, {"Counts"}, "Counts");
    const QImage shown = picture();
    for (int y = 0; y < shown.height(); y += 3)
        for (int x = 0; x < shown.width(); x += 3)
            ASSERT_EQ(shown.pixel(x, y), QColor(Qt::lightGray).rgb()) << x << ", " << y;
}

TEST_F(CHistogramViewerTest, AFlatHistogramClearsTheRedArea)
{
    HistogramBins bins{};
    bins[3] = 1.0;
    viewer.setHistogram(bins, {});
    viewer.onToggleLogHistogramCB(false);
    EXPECT_FALSE(widget().histogramPoints().isEmpty());
    bins.fill(5.0);
    viewer.setHistogram(bins, widget().histogramPoints());
    viewer.onToggleLogHistogramCB(false);
    EXPECT_TRUE(widget().histogramPoints().isEmpty());
}

TEST_F(CHistogramViewerTest, ZoomDrawsTheUpperPartOffTheTop)
{
    const double half = 185.0 / 2.0;
    viewer.setHistogram({}, {{0, half}, {300, half}});
    QImage shown = picture();
    const int x = widget().width() / 2;
    EXPECT_FALSE(isRed(shown.pixel(x, widget().height() / 4)));
    EXPECT_TRUE(isRed(shown.pixel(x, widget().height() * 3 / 4)));
    viewer.m_pYAxisMaxSpinBox->setValue(0.5);
    shown = picture();
    EXPECT_TRUE(isRed(shown.pixel(x, 3)));
}

TEST(WindowsPreferredSize, DialogsAreSmallerThanTheWorkspace)
{
    int width = 0;
    int height = 0;
    CHVPreference::getWindowsPreferredSize(width, height, true);
    int wholeWidth = 0;
    int wholeHeight = 0;
    CHVPreference::getWindowsPreferredSize(wholeWidth, wholeHeight, false);
    EXPECT_GT(width, 0);
    EXPECT_GT(height, 0);
    EXPECT_GT(wholeWidth, width);
    EXPECT_GT(wholeHeight, height);
}
