#include "gui/PluginBench.h"

#include "hvutils/CHVProcess.h"
#include "render/CGLVolume.h"
#include "support/MouseMove.h"
#include "transfer/CHistogramViewer.h"
#include "transfer/CTransferFunction1DWidget.h"

#include <QPointer>
#include <QScreen>
#include <QTest>

#include <cmath>
#include <functional>
#include <numeric>
#include <utility>

namespace {

using Locks = QVector<HoverPoints::LockType>;

/// Records what the plug-in tells of its long processes, and can take the voxels away under it.
class WatchedHost : public RecordingHost
{
public:
    void processChanged(const HostProcessState& state) override
    {
        states.append(state);
        if (state.message != QLatin1String("Computing volume histogram...")) return;
        if (lastVoxels) lastVoxels->freeVoxelData();
        if (whileCounting) std::exchange(whileCounting, nullptr)();
    }

    bool told(const QString& message) const
    {
        return std::any_of(states.begin(), states.end(),
                           [&](const HostProcessState& state) { return state.message == message; });
    }

    QList<HostProcessState> states;
    QPointer<CGLVolume> lastVoxels;
    std::function<void()> whileCounting;
};

/// Voxels of a volume of 20 x 20 x 6 over the whole range of bytes, which loads as it is: the peak of air at
/// 20, noise up to the valley at 60, tissue, bone.
QByteArray scan()
{
    QByteArray voxels;
    const auto add = [&](int value, int count) { voxels.append(count, static_cast<char>(value)); };
    add(0, 10);
    add(20, 900);
    for (int value = 21; value <= 60; ++value)
        add(value, 20);
    for (int value = 61; value <= 70; ++value)
        add(value, 30);
    add(100, 380);
    add(255, 10);
    return voxels;
}

class PaletteHistogram : public PluginBench
{
protected:
    void SetUp() override
    {
        sequence = openCurrent("S1");
        ASSERT_TRUE(load(scan()));
        node = nodeOf(sequence);
    }

    bool load(const QByteArray& voxels)
    {
        EXPECT_EQ(voxels.size(), 2400);
        return palette->onLoadVolumeData(
            {writeFile("a.raw",
                       "VolumeSize 20 20 6\nVoxelSize 8\nVolumeScale 0.1 0.2 0.3\nField 1 Format u\n##\f\n" +
                           voxels)},
            -1, -1);
    }

    CTransferFunction1DWidget& widget() { return *palette->transferFunctionWidget(); }
    HoverPoints& editor() { return *widget().hoverPoints(); }
    bool isModified() { return palette->m_pSavedResultsCB->findText("(new)") != -1; }

    CHistogramViewer* openViewer()
    {
        palette->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(palette));
        modal.expect([](QWidget*) {});  // it is closed by the test
        QTest::mouseClick(palette->m_pHistogramWindowTB, Qt::LeftButton);
        auto* viewer = palette->findChild<CHistogramViewer*>();
        EXPECT_TRUE(viewer && QTest::qWaitForWindowExposed(viewer));
        QTest::qWait(60);  // the watcher of modal windows has looked
        return viewer;
    }

    CHVSSequenceDataset* sequence = nullptr;
    CGLVolume* node = nullptr;
};

}  // namespace

TEST_F(PaletteHistogram, IsCountedOverTheVoxelsOfALoad)
{
    const auto& bins = record("S1").histogram;
    EXPECT_EQ(std::accumulate(bins.begin(), bins.end(), 0.0), 2400.0);
    // 0 to 255 in 255 bins: every value has its own, but 255 shares the last with 254.
    EXPECT_EQ(bins[0], 10.0);
    EXPECT_EQ(bins[20], 900.0);
    EXPECT_EQ(bins[65], 30.0);
    EXPECT_EQ(bins[100], 380.0);
    EXPECT_EQ(bins[254], 10.0);
}

TEST_F(PaletteHistogram, IsShownBehindTheTransferFunction)
{
    // The record starts with the logarithmic view: 900 voxels stand at the top, 380 at log 380 / log 900.
    const auto line = widget().histogramPoints();
    ASSERT_EQ(line.size(), 255);
    EXPECT_NEAR(line[20].y(), -0.5, 1e-9);
    EXPECT_NEAR(line[100].y(), 185.0 - (185.0 * std::log10(380.0) / std::log10(900.0) + 0.5), 1e-6);
    EXPECT_NEAR(line[100].x(), 100.0 * widget().width() / 255.0, 1e-9);
}

TEST_F(PaletteHistogram, TheCheckBoxTakesTheLogarithmAway)
{
    palette->m_pLogarithmicHistogramCheckBox->click();
    EXPECT_FALSE(record("S1").bLogHistogram);
    EXPECT_NEAR(widget().histogramPoints()[100].y(), 185.0 - (185.0 * 380.0 / 900.0 + 0.5), 1e-6);
    palette->m_pLogarithmicHistogramCheckBox->click();
    EXPECT_TRUE(record("S1").bLogHistogram);
}

TEST_F(PaletteHistogram, ALoadFitsTheStepBehindTheAir)
{
    EXPECT_EQ(editor().locks(), (Locks{HoverPoints::LockToLeft, HoverPoints::LockToBottom,
                                       HoverPoints::LockToTop, HoverPoints::LockToRight}));
    const QPolygonF points = editor().points();
    EXPECT_EQ(points[1], QPointF(60, 185));
    EXPECT_EQ(points[2], QPointF(61, 0));
    EXPECT_EQ(record("S1").transferPoints, points);
    EXPECT_EQ(record("S1").transferLocks, editor().locks());
}

TEST_F(PaletteHistogram, TheAirIsClearInTheVolumesTable)
{
    const unsigned char* table = node->getVolumeColorTable();
    // Entry i lies in column i (width - 1) / 255 of the picture, the step in column 60.
    const int step = static_cast<int>(60.0 * 255.0 / (widget().width() - 1));
    for (int i = 0; i < step - 1; ++i)
        ASSERT_LE(table[4 * i + 3], 1) << i;
    for (int i = step + 4; i < 250; ++i)
        ASSERT_GE(table[4 * i + 3], 250) << i;
}

TEST_F(PaletteHistogram, TheButtonFitsAnewAndReplacesTheStep)
{
    QPolygonF points = editor().points();
    points[1].setX(120);
    points[2].setX(121);
    const Locks locks = editor().locks();
    editor().setPoints(points);
    editor().setLocks(locks);
    palette->m_pAutoFitToolButton->click();
    ASSERT_EQ(editor().points().size(), 4);
    EXPECT_EQ(editor().points()[1], QPointF(60, 185));
    EXPECT_EQ(record("S1").transferPoints[1], QPointF(60, 185));
}

TEST_F(PaletteHistogram, ALoadForAResultLeavesTheFitToItsEnd)
{
    palette->loadDicomResult(writeFile("no.raw", "VolumeSize 20 20 6\nVoxelSize 8\nVolumeScale 0.1 0.2 0.3\n"
                                                 "Field 1 Format u\n##\f\n" +
                                                     scan()));
    EXPECT_FALSE(record("S1").bAutoFit);
    EXPECT_TRUE(record("S1").transferLocks.contains(HoverPoints::LockToBottom));
}

TEST_F(PaletteHistogram, ASequenceBringsItsOwn)
{
    openCurrent("S2");
    EXPECT_TRUE(widget().histogramPoints().isEmpty());
    EXPECT_TRUE(editor().points().isEmpty());
    plugin.onSignalSequenceChanged(sequence);
    EXPECT_EQ(widget().histogramPoints().size(), 255);
    EXPECT_EQ(editor().points().size(), 4);
}

TEST_F(PaletteHistogram, IsNotCountedAgainWithoutANewVolume)
{
    WatchedHost watched;
    palette->m_pLogarithmicHistogramCheckBox->click();
    openCurrent("S2");
    plugin.onSignalSequenceChanged(sequence);
    EXPECT_TRUE(watched.states.isEmpty());
}

TEST_F(PaletteHistogram, CountingIsALongProcessWithItsMessage)
{
    WatchedHost watched;
    ASSERT_TRUE(load(scan()));
    ASSERT_TRUE(watched.told("Computing volume histogram..."));
    EXPECT_EQ(watched.states.first().running, eProcessGeneral);
    EXPECT_TRUE(watched.states.first().abortable);
    EXPECT_EQ(watched.states.first().abortText, "Aborting...");
    EXPECT_EQ(watched.states.last().running, 0);
    EXPECT_EQ(watched.cursorDepth, 0);
}

TEST_F(PaletteHistogram, ARunningProcessIsUsed)
{
    WatchedHost watched;
    CHVProcess::startLongProcess(0, eProcessReconstruction, false, QString());
    ASSERT_TRUE(load(scan()));
    EXPECT_TRUE(watched.told("Computing volume histogram..."));
    for (const HostProcessState& state : watched.states)
        EXPECT_EQ(state.running, eProcessReconstruction);
    CHVProcess::endLongProcess(eProcessReconstruction);
}

TEST_F(PaletteHistogram, WithoutMemoryItIsLoggedAndTriedAgain)
{
    WatchedHost watched;
    watched.lastVoxels = node;
    const auto before = record("S1").histogram;
    ASSERT_TRUE(load(QByteArray(2399, 7) + char(9)));
    const QString message = "Very low memory encountered - unable to calculate histogram.";
    QStringList logged = watched.logged(3);
    EXPECT_EQ(logged.count(message), logged.size());
    EXPECT_GE(logged.size(), 1);
    EXPECT_EQ(record("S1").histogram, before);
    EXPECT_EQ(watched.cursorDepth, 0);
    EXPECT_EQ(watched.states.last().running, 0);
    // The next call tries once more.
    const int times = logged.size();
    palette->onLogarithmicHistogramCheckBox(false);
    EXPECT_EQ(watched.logged(3).size(), times + 1);
}

TEST_F(PaletteHistogram, ASequenceThatGoesMeanwhileEndsTheLoad)
{
    WatchedHost watched;
    watched.whileCounting = [this] { close(sequence); };
    EXPECT_FALSE(load(scan()));
    EXPECT_EQ(palette->recordOf("S1"), nullptr);
    EXPECT_EQ(watched.states.last().running, 0);
    EXPECT_EQ(watched.cursorDepth, 0);
}

TEST_F(PaletteHistogram, OneValueThroughoutHasOneFullBin)
{
    ASSERT_TRUE(load(QByteArray(2400, 7)));
    const auto& bins = record("S1").histogram;
    EXPECT_EQ(bins[0], 2400.0);
    EXPECT_EQ(std::accumulate(bins.begin(), bins.end(), 0.0), 2400.0);
    for (const QPointF& point : widget().histogramPoints())
        EXPECT_TRUE(std::isfinite(point.y()));
}

TEST_F(PaletteHistogram, UnitsShowTheRange)
{
    EXPECT_TRUE(palette->m_pMinMaxUnitCB->isEnabled());
    EXPECT_EQ(palette->m_pHistogramMinLabel->text(), "0.00");
    EXPECT_EQ(palette->m_pHistogramMaxLabel->text(), "2.55e2");
    EXPECT_EQ(record("S1").strUnit, "Counts");
    palette->onMinMaxUnitCBIndexChanged("mm");
    EXPECT_EQ(palette->m_pHistogramMaxLabel->text(), "0.00");
    EXPECT_EQ(record("S1").strUnit, "mm");
}

TEST_F(PaletteHistogram, TheViewerShowsWhatThePaletteShows)
{
    CHistogramViewer* viewer = openViewer();
    ASSERT_TRUE(viewer);
    EXPECT_TRUE(viewer->isVisible());
    const CTransferFunction1DWidget& shown = *viewer->transferWidget();
    EXPECT_EQ(shown.minimumSize(), widget().size());
    ASSERT_EQ(shown.hoverPoints()->points().size(), 4);
    EXPECT_NEAR(shown.hoverPoints()->points()[1].x(),
                editor().points()[1].x() * shown.width() / widget().width(), 1e-9);
    EXPECT_EQ(shown.hoverPoints()->locks(), editor().locks());
    EXPECT_EQ(shown.histogramPoints().size(), 255);
    EXPECT_TRUE(viewer->m_pViewerLogHistogramCB->isChecked());
    EXPECT_EQ(viewer->m_pViewerMaxLabel->text(), "2.55e2");
    const QPoint middle = palette->screen()->availableGeometry().center();
    EXPECT_LE((viewer->geometry().center() - middle).manhattanLength(), 60);
    viewer->accept();
}

TEST_F(PaletteHistogram, AnEditInTheViewerComesBackInThePalettesPixels)
{
    CHistogramViewer* viewer = openViewer();
    ASSERT_TRUE(viewer);
    CTransferFunction1DWidget& shown = *viewer->transferWidget();
    const double step = editor().points()[1].x();
    // The left end goes half way up.
    const int y = shown.height() / 2;
    QTest::mousePress(&shown, Qt::LeftButton, {}, QPoint(1, shown.height() - 1));
    viz_test::moveMouse(&shown, QPoint(1, y));
    QTest::mouseRelease(&shown, Qt::LeftButton, {}, QPoint(1, y));
    EXPECT_NEAR(editor().points()[0].y(), y * 185.0 / shown.height(), 1.0);
    EXPECT_NEAR(editor().points()[1].x(), step, 1e-6);
    EXPECT_EQ(record("S1").transferPoints, editor().points());
    EXPECT_GT(node->getVolumeColorTable()[4 * 10 + 3], 100);
    viewer->accept();
}

TEST_F(PaletteHistogram, CheckBoxesUnitsAndZoomGoTogether)
{
    CHistogramViewer* viewer = openViewer();
    ASSERT_TRUE(viewer);
    viewer->m_pViewerLogHistogramCB->click();
    EXPECT_FALSE(palette->m_pLogarithmicHistogramCheckBox->isChecked());
    EXPECT_FALSE(record("S1").bLogHistogram);
    viewer->m_pYAxisMaxSpinBox->setValue(0.3);
    EXPECT_EQ(palette->label->text(), "0.3 <b> Opacity </b>");
    EXPECT_FLOAT_EQ(record("S1").fHistogramYAxisMax, 0.3F);
    palette->m_pMinMaxUnitCB->addItem("Absorption");
    palette->m_pMinMaxUnitCB->addItem("Hounsfield");
    viewer->m_pViewerUnitCB->addItem("Hounsfield");
    viewer->m_pViewerUnitCB->setCurrentText("Hounsfield");
    EXPECT_EQ(palette->m_pMinMaxUnitCB->currentText(), "Hounsfield");
    EXPECT_EQ(record("S1").strUnit, "Hounsfield");
    viewer->accept();
}

TEST_F(PaletteHistogram, TheViewerIsMadeOnce)
{
    CHistogramViewer* first = openViewer();
    ASSERT_TRUE(first);
    QTest::mouseClick(first->m_pViewerDonePB, Qt::LeftButton);
    QTest::mouseClick(palette->m_pHistogramWindowTB, Qt::LeftButton);
    EXPECT_TRUE(first->isVisible());
    EXPECT_EQ(palette->findChildren<CHistogramViewer*>().size(), 1);
    first->accept();
}

TEST_F(PaletteHistogram, ASequenceThatGoesClosesTheViewer)
{
    CHistogramViewer* viewer = openViewer();
    ASSERT_TRUE(viewer);
    close(sequence);
    EXPECT_FALSE(viewer->isVisible());
    // What still comes from it finds nobody.
    viewer->onPointsCommitted();
    viewer->onToggleLogHistogramCB(true);
    QTest::mouseClick(palette->m_pHistogramWindowTB, Qt::LeftButton);
    EXPECT_FALSE(viewer->isVisible());
}

TEST_F(PaletteHistogram, AnotherSequenceClosesTheViewer)
{
    CHistogramViewer* viewer = openViewer();
    ASSERT_TRUE(viewer);
    openCurrent("S2");
    EXPECT_FALSE(viewer->isVisible());
}

TEST_F(PaletteHistogram, NoSequenceAtAllClosesTheViewer)
{
    CHistogramViewer* viewer = openViewer();
    ASSERT_TRUE(viewer);
    plugin.onSignalSequenceChanged(nullptr);
    EXPECT_FALSE(viewer->isVisible());
}

TEST_F(PaletteHistogram, WithoutASequenceNothingHappens)
{
    plugin.onSignalSequenceChanged(nullptr);
    palette->m_pHistogramWindowTB->click();
    palette->onClickHistogramWindowTB();
    palette->onClickAutoFitTB();
    palette->onLogarithmicHistogramCheckBox(true);
    palette->onMinMaxUnitCBIndexChanged("Counts");
    EXPECT_FALSE(palette->findChild<CHistogramViewer*>());
}
