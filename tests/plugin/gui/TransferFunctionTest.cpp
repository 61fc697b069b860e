#include "gui/PluginBench.h"

#include "hvapi/scene/C3DScene.h"
#include "render/CGLVolume.h"
#include "transfer/CColorTableWidget.h"
#include "transfer/CTransferFunction1DWidget.h"
#include "transfer/Polygon.h"

#include <QColorDialog>
#include <QMouseEvent>
#include <QTest>

namespace {

constexpr QRgb red = 0xffff0000U;
constexpr QRgb green = 0xff00ff00U;
constexpr QRgb blue = 0xff0000ffU;

/// The transfer function over a loaded volume, as a user works it.
class TransferFunction : public PluginBench
{
protected:
    void SetUp() override
    {
        sequence = openCurrent("S1");
        ASSERT_TRUE(palette->onLoadVolumeData({writeRaw("a.raw")}, -1, -1));
        node = nodeOf(sequence);
        palette->setResultsModifiedForSequence(false);
    }

    CTransferFunction1DWidget* widget() { return palette->transferFunctionWidget(); }
    HoverPoints* editor() { return widget()->hoverPoints(); }
    bool isModified() { return palette->m_pSavedResultsCB->findText("(new)") != -1; }
    double w() { return widget()->width(); }
    double h() { return widget()->height(); }

    /// A clear red edge, a green point in the middle, an opaque blue edge.
    void giveChain()
    {
        palette->onSignalUpdateTransferFunction(polygon({{0, h()}, {100, 100}, {w(), 0}}), {red, green, blue},
                                                {LockToLeft, NoLock, LockToRight});
    }
    void press(int x, int y) { QTest::mousePress(widget(), Qt::LeftButton, {}, QPoint(x, y)); }
    void release(int x, int y) { QTest::mouseRelease(widget(), Qt::LeftButton, {}, QPoint(x, y)); }
    void move(int x, int y)
    {
        QMouseEvent event(QEvent::MouseMove, QPointF(x, y), Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(widget(), &event);
    }
    QByteArray nodeTable()
    {
        return QByteArray(reinterpret_cast<const char*>(node->getVolumeColorTable()), 1024);
    }
    QByteArray widgetTable()
    {
        const std::unique_ptr<unsigned char[]> table(widget()->makeColorTable());
        return QByteArray(reinterpret_cast<const char*>(table.get()), 1024);
    }

    CHVSSequenceDataset* sequence = nullptr;
    CGLVolume* node = nullptr;
};

}  // namespace

TEST_F(TransferFunction, StandsInTheVolumeTabAboveItsStrip)
{
    auto* strip = palette->m_pTransferFnGroup->findChild<CColorTableWidget*>();
    ASSERT_NE(strip, nullptr);
    EXPECT_EQ(widget()->parentWidget(), palette->m_pTransferFnGroup);
    const int hidden = widget()->width();
    palette->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(palette));
    EXPECT_EQ(widget()->height(), 185);
    EXPECT_EQ(strip->geometry(), QRect(0, 185, widget()->width(), 20));
    EXPECT_EQ(palette->m_pTransferFnGroup->height(), 205);
    EXPECT_NEAR(widget()->width(), hidden, 15) << "a hidden palette counts with nearly the same pixels";
    palette->hide();
}

TEST(TransferFunctionPalette, StartsDisabled)
{
    RecordingHost host;
    CHVVolumeVizPalette fresh;
    EXPECT_FALSE(fresh.transferFunctionWidget()->isEnabled());
    EXPECT_FALSE(fresh.transferFunctionWidget()->hoverPoints()->isEnabled());
    EXPECT_TRUE(fresh.transferFunctionWidget()->hoverPoints()->points().isEmpty());
}

TEST_F(TransferFunction, IsEnabledWithTheVolumesDisplay)
{
    EXPECT_TRUE(widget()->isEnabled());
    EXPECT_TRUE(editor()->isEnabled());
    palette->m_pVolumeButtonGroup->setChecked(false);
    EXPECT_FALSE(widget()->isEnabled());
    EXPECT_FALSE(editor()->isEnabled());
    palette->m_pVolumeButtonGroup->setChecked(true);
    EXPECT_TRUE(editor()->isEnabled());
    openCurrent("S2");
    EXPECT_FALSE(editor()->isEnabled());
    plugin.onSignalSequenceChanged(sequence);
    EXPECT_TRUE(editor()->isEnabled());
}

TEST_F(TransferFunction, ALoadEndsWithItsTableOnTheNode)
{
    EXPECT_EQ(nodeTable(), widgetTable());
    EXPECT_EQ(record("S1").transferPoints, editor()->points());
    EXPECT_EQ(record("S1").transferColors, editor()->colors());
    EXPECT_EQ(record("S1").transferLocks, editor()->locks());
    ASSERT_GE(editor()->points().size(), 2);
    EXPECT_EQ(editor()->locks().first(), LockToLeft);
    EXPECT_EQ(editor()->locks().last(), LockToRight);
    EXPECT_NEAR(static_cast<unsigned char>(nodeTable().at(255 * 4 + 3)), 255, 1)
        << "bright voxels are opaque";
    EXPECT_EQ(static_cast<unsigned char>(nodeTable().at(3)), 0) << "the darkest are clear";
}

TEST_F(TransferFunction, ADragReachesTheNodeOnlyWhenItEnds)
{
    giveChain();
    const QByteArray before = nodeTable();
    press(100, 100);
    move(120, 20);
    EXPECT_EQ(nodeTable(), before) << "the picture only";
    EXPECT_NE(widgetTable(), before);
    EXPECT_EQ(record("S1").transferPoints.at(1), QPointF(100, 100));
    release(120, 20);
    EXPECT_EQ(nodeTable(), widgetTable());
    EXPECT_EQ(record("S1").transferPoints.at(1), QPointF(120, 20));
    EXPECT_EQ(record("S1").transferColors, QVector<QRgb>({red, green, blue}));
    EXPECT_EQ(record("S1").transferLocks, QVector<PointLock>({LockToLeft, NoLock, LockToRight}));
}

TEST_F(TransferFunction, AUsersEditMakesTheResultAModifiedOne)
{
    giveChain();
    EXPECT_FALSE(isModified()) << "not the user's";
    EXPECT_FALSE(record("S1").bModified);
    press(100, 100);
    release(100, 100);
    EXPECT_TRUE(isModified());
    EXPECT_TRUE(record("S1").bModified);
}

TEST_F(TransferFunction, AnEditOfAModifiedResultLeavesItsFlags)
{
    giveChain();
    palette->setResultsModifiedForSequence(true);
    const_cast<SVolVizControls&>(record("S1")).bModified = false;
    press(100, 100);
    release(100, 100);
    EXPECT_FALSE(record("S1").bModified);
}

TEST_F(TransferFunction, ACallOfTheProgramLeavesTheFlags)
{
    palette->onTransferFunctionChanged();
    EXPECT_FALSE(isModified());
}

TEST_F(TransferFunction, AChosenColorReachesTheNode)
{
    palette->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(palette));
    giveChain();
    modal.expect([](QWidget* window) {
        auto* dialog = qobject_cast<QColorDialog*>(window);
        ASSERT_NE(dialog, nullptr);
        dialog->setCurrentColor(QColor(200, 100, 50));
        dialog->accept();
    });
    QMouseEvent event(QEvent::MouseButtonDblClick, QPointF(100, 100), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(widget(), &event);
    EXPECT_EQ(record("S1").transferColors.at(1), qRgb(200, 100, 50));
    EXPECT_EQ(nodeTable(), widgetTable());
    EXPECT_TRUE(isModified());
    palette->hide();
}

TEST_F(TransferFunction, ASequenceThatGoesWhileItsColorIsChosenTakesTheChoiceAlong)
{
    giveChain();
    CHVSSequenceDataset* other = open("S2");
    modal.expect([&](QWidget* window) {
        close(sequence);
        plugin.onSignalSequenceChanged(other);
        qobject_cast<QColorDialog*>(window)->setCurrentColor(Qt::magenta);
        qobject_cast<QDialog*>(window)->accept();
    });
    QMouseEvent event(QEvent::MouseButtonDblClick, QPointF(100, 100), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(widget(), &event);
    EXPECT_TRUE(record("S2").transferColors.isEmpty());
    EXPECT_FALSE(record("S2").bModified);
}

TEST_F(TransferFunction, ASequenceThatGoesWithoutASuccessorLeavesNothingToWrite)
{
    giveChain();
    modal.expect([&](QWidget* window) {
        close(sequence);
        qobject_cast<QDialog*>(window)->accept();
    });
    QMouseEvent event(QEvent::MouseButtonDblClick, QPointF(100, 100), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(widget(), &event);
    EXPECT_EQ(palette->recordOf("S1"), nullptr);
}

TEST_F(TransferFunction, ThePaletteMayGoWhileAColorIsChosen)
{
    auto* lonely = new CHVVolumeVizPalette;
    CTransferFunction1DWidget* edited = lonely->transferFunctionWidget();
    lonely->m_pVolumeButtonGroup->setEnabled(true);  // as with a volume
    lonely->m_pVolumeButtonGroup->setChecked(true);
    edited->setEnabled(true);
    edited->hoverPoints()->setPoints(polygon({{0, 185}, {100, 100}, {200, 0}}), {red, green, blue});
    modal.expect([&](QWidget*) { delete lonely; });
    QMouseEvent event(QEvent::MouseButtonDblClick, QPointF(100, 100), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(edited, &event);
}

TEST_F(TransferFunction, TheOpacitySliderScalesTheTable)
{
    palette->onSignalUpdateTransferFunction(polygon({{0, 0}, {w(), 0}}), {red, red},
                                            {LockToLeft, LockToRight});
    EXPECT_EQ(static_cast<unsigned char>(nodeTable().at(3)), 255);
    palette->m_pOpacitySlider->setValue(40);
    EXPECT_EQ(static_cast<unsigned char>(nodeTable().at(3)), 255) << "until it is let go";
    emit palette->m_pOpacitySlider->sliderReleased();
    EXPECT_EQ(record("S1").nOpacitySlider, 40);
    EXPECT_FLOAT_EQ(widget()->maxOpacity(), 102.0F);
    EXPECT_EQ(static_cast<unsigned char>(nodeTable().at(3)), 102);
    EXPECT_FALSE(isModified()) << "not an edit of the points";
    palette->m_pOpacitySlider->setValue(100);
    emit palette->m_pOpacitySlider->sliderReleased();
    EXPECT_EQ(widget()->maxOpacity(), 255.0F);
}

TEST_F(TransferFunction, ALoadIsOpaqueAgain)
{
    palette->m_pOpacitySlider->setValue(40);
    emit palette->m_pOpacitySlider->sliderReleased();
    ASSERT_TRUE(palette->onLoadVolumeData({writeRaw("b.raw")}, -1, -1));
    EXPECT_EQ(record("S1").nOpacitySlider, 100);
    EXPECT_EQ(palette->m_pOpacitySlider->value(), 100);
    EXPECT_EQ(widget()->maxOpacity(), 255.0F);
}

TEST_F(TransferFunction, EachSequenceHasItsPointsAndItsOpacity)
{
    giveChain();
    palette->m_pOpacitySlider->setValue(40);
    emit palette->m_pOpacitySlider->sliderReleased();
    openCurrent("S2");
    EXPECT_TRUE(editor()->points().isEmpty());
    EXPECT_EQ(widget()->maxOpacity(), 255.0F);
    plugin.onSignalSequenceChanged(sequence);
    EXPECT_EQ(editor()->points(), polygon({{0, h()}, {100, 100}, {w(), 0}}));
    EXPECT_EQ(editor()->colors(), QVector<QRgb>({red, green, blue}));
    EXPECT_EQ(editor()->locks(), QVector<PointLock>({LockToLeft, NoLock, LockToRight}));
    EXPECT_FLOAT_EQ(widget()->maxOpacity(), 102.0F);
    press(5, 5);
    EXPECT_EQ(editor()->points().at(1), QPointF(5, 5)) << "kept in the order of x";
    release(5, 5);
}

TEST_F(TransferFunction, WithoutAVolumeNothingIsWritten)
{
    openCurrent("S2");
    palette->onSignalUpdateTransferFunction(polygon({{0, h()}, {w(), 0}}), {red, blue},
                                            {LockToLeft, LockToRight});
    EXPECT_EQ(editor()->points().size(), 2);
    EXPECT_TRUE(record("S2").transferPoints.isEmpty());
    plugin.onSignalSequenceChanged(nullptr);
    palette->onTransferFunctionChanged();
    palette->onOpacitySliderReleased();
    palette->onHistogramYAxisMaxValueChanged(0.5);
}

TEST_F(TransferFunction, TheZoomOfTheHistogramIsNamedAndKept)
{
    palette->onHistogramYAxisMaxValueChanged(0.5);
    EXPECT_EQ(palette->label->text(), QString("0.5 <b> Opacity </b>"));
    EXPECT_FLOAT_EQ(record("S1").fHistogramYAxisMax, 0.5F);
    palette->onHistogramYAxisMaxValueChanged(1.0);
    EXPECT_EQ(palette->label->text(), QString("1 <b> Opacity </b>"));
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(palette, &change);
    EXPECT_EQ(palette->label->text(), QString("1 <b> Opacity </b>")) << "also in another language";
}

TEST_F(TransferFunction, PointsOfEverySequenceFollowTheWidgetsSize)
{
    giveChain();
    const double hidden = w();
    openCurrent("S2");
    palette->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(palette));
    const double shown = w();
    plugin.onSignalSequenceChanged(sequence);
    ASSERT_EQ(editor()->points().size(), 3);
    EXPECT_NEAR(editor()->points().at(1).x(), 100 * shown / hidden, 1e-9);
    EXPECT_NEAR(editor()->points().at(2).x(), shown, 1e-9);
    palette->hide();
}
