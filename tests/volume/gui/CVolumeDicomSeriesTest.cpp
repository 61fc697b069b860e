#include "volume/CVolumeInfoDialog.h"
#include "volume/support/DicomVolume.h"

#include <QFile>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QSet>
#include <QTest>

#include <gmock/gmock.h>

#include <cmath>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

class DicomSeries : public viz_test::DicomVolume
{};

DicomBuilder coronal()
{
    return DicomBuilder().orientation({1, 0, 0}, {0, 0, -1});
}

DicomBuilder sagittal()
{
    return DicomBuilder().orientation({0, 1, 0}, {0, 0, -1});
}

// ---- order, layout, counts, extents ----

TEST_F(DicomSeries, AxialSlicesStandInTheRowsOfThePlanes)
{
    ASSERT_TRUE(load(series(3, DicomBuilder().spacing(0.5, 0.25), {0, 0, 2})));
    EXPECT_THAT(counts(), ElementsAre(width, 3U, height));
    expectPattern(2, {0, 1, 2});
    EXPECT_THAT(extent(), ElementsAre(5.0F, 20.0F, 6.0F));
    EXPECT_EQ(reader.getColumns(), width);
    EXPECT_EQ(reader.getRows(), height);
    EXPECT_EQ(reader.getSliceSpacing(), 2.0F);
    EXPECT_THAT(reader.getDirection(), ElementsAre(0.0F, 0.0F, 1.0F));
    EXPECT_FALSE(reader.isFeetFirst());
    EXPECT_FALSE(reader.isMultiFrame());
    EXPECT_THAT(host.failures(), IsEmpty());
}

TEST_F(DicomSeries, CoronalSlicesAreStackedInReverseOrderAndFlipped)
{
    ASSERT_TRUE(load(series(3, coronal().spacing(0.5, 0.25), {0, 2, 0})));
    EXPECT_THAT(counts(), ElementsAre(width, height, 3U));
    expectPattern(1, {0, 1, 2}, false, true);
    EXPECT_THAT(extent(), ElementsAre(5.0F, 6.0F, 20.0F));
}

TEST_F(DicomSeries, SagittalSlicesStandAcrossAndFlipped)
{
    ASSERT_TRUE(load(series(3, sagittal().spacing(0.5, 0.25), {2, 0, 0})));
    EXPECT_THAT(counts(), ElementsAre(3U, height, width));
    expectPattern(0, {0, 1, 2}, false, true);
    EXPECT_THAT(extent(), ElementsAre(6.0F, 20.0F, 5.0F));
}

TEST_F(DicomSeries, PositionsAndNotTheListGiveTheOrder)
{
    const QStringList files = series(4);
    ASSERT_TRUE(load({files[1], files[2], files[0], files[3]}));
    expectPattern(2, {0, 1, 2, 3});
    EXPECT_EQ(reader.getSliceSpacing(), 1.0F);
}

// The direction runs from the first file of the list to the second.
TEST_F(DicomSeries, AListFromTopToBottomKeepsItsOrder)
{
    const QStringList files = series(3);
    ASSERT_TRUE(load({files[2], files[1], files[0]}));
    EXPECT_THAT(reader.getDirection(), ElementsAre(0.0F, 0.0F, -1.0F));
    expectPattern(2, {2, 1, 0});
}

TEST_F(DicomSeries, SpacingIsTheMeanDistance)
{
    const QStringList near = series(2);
    QVector<QString> files{near[0], near[1]};
    DicomBuilder far;
    far.bits(8, 8).size(width, height).samples(frames(3)).position(0, 0, 7).set(0x0018, 0x0088, "9");
    ASSERT_TRUE(load({files[0], files[1], write("far.dcm", far)}));
    EXPECT_EQ(reader.getSliceSpacing(), 3.5F);
    EXPECT_EQ(extent()[2], 10.5F);
}

TEST_F(DicomSeries, OnePositionForAllFollowsTheListAtTheTagsSpacing)
{
    ASSERT_TRUE(load(series(3, DicomBuilder().set(0x0018, 0x0088, "2.5"), {0, 0, 0})));
    EXPECT_THAT(reader.getDirection(), ElementsAre(0.0F, 0.0F, 1.0F));
    expectPattern(2, {0, 1, 2});
    EXPECT_EQ(reader.getSliceSpacing(), 2.5F);
}

// The second file at the first one's place makes positions up for all; equal ones turn the list round.
TEST_F(DicomSeries, EqualPositionsOfLaterFiles)
{
    const QStringList files = series(2);
    DicomBuilder again;
    std::vector<std::int64_t> samples = frames(3);
    samples.erase(samples.begin(), samples.begin() + 2 * width * height);
    again.bits(8, 8).size(width, height).samples(samples).position(0, 0, 1);
    ASSERT_TRUE(load({files[0], files[1], write("again.dcm", again)}));
    expectPattern(2, {0, 2, 1});
}

// z of the second file becomes the spacing itself: from z = 10 the series so runs down, to 1, and the third
// file, at twice the spacing, comes to lie between the two.
TEST_F(DicomSeries, OnePositionAwayFromTheOriginRunsBackThroughIt)
{
    ASSERT_TRUE(load(series(3, DicomBuilder().set(0x0018, 0x0088, "1"), {0, 0, 0}, {0, 0, 10})));
    EXPECT_THAT(reader.getDirection(), ElementsAre(0.0F, 0.0F, -1.0F));
    expectPattern(2, {0, 2, 1});
    EXPECT_EQ(reader.getSliceSpacing(), 4.5F);
}

TEST_F(DicomSeries, TheDistanceOfSlicesIsToldByThreeAttributesInTurn)
{
    DicomBuilder both;
    both.spacing(0.5, 0.25).set(0x0018, 0x0088, "2.5").set(0x0018, 0x0050, "3");
    ASSERT_TRUE(load(series(3, both, {0, 0, 0})));
    EXPECT_EQ(reader.getSliceSpacing(), 2.5F);
    ASSERT_TRUE(load(series(3, both.remove(0x0018, 0x0088), {0, 0, 0})));
    EXPECT_EQ(reader.getSliceSpacing(), 3.0F);
    ASSERT_TRUE(load(series(3, both.remove(0x0018, 0x0050), {0, 0, 0})));
    EXPECT_EQ(reader.getSliceSpacing(), 0.5F);
}

// Each missing value on its own.
TEST_F(DicomSeries, MissingPositionsAndSpacingsHaveTheirDefaults)
{
    DicomBuilder builder;
    builder.set(0x0028, 0x0030, "0.5");
    const QStringList files = series(2, builder, {0, 0, 3}, {0, 0, 3});
    DicomBuilder nowhere;
    nowhere.bits(8, 8)
        .size(width, height)
        .samples(frames(1))
        .set(0x0028, 0x0030, "0.5")
        .remove(0x0020, 0x0032);
    ASSERT_TRUE(load({write("nowhere.dcm", nowhere), files[1]}));
    EXPECT_EQ(reader.getRowSpacing(), 0.5F);
    EXPECT_EQ(reader.getColumnSpacing(), 0.1F);
    EXPECT_EQ(reader.getSliceSpacing(), 6.0F);  // from 0 to 6
}

// ---- slice axis ----

TEST_F(DicomSeries, ImageTypeDecidesWithoutAnOrientation)
{
    const std::array<unsigned, 3> expected[] = {{3, height, width}, {width, height, 3}, {width, 3, height}};
    const char* const types[] = {"A\\B\\SAGITTAL", "A\\B\\CORONAL", "A\\B\\OTHER"};
    for (std::size_t i = 0; i < 3; ++i) {
        DicomBuilder builder;
        builder.remove(0x0020, 0x0037).set(0x0008, 0x0008, types[i]);
        ASSERT_TRUE(load(series(3, builder)));
        EXPECT_EQ(counts(), expected[i]) << types[i];
    }
}

TEST_F(DicomSeries, AnIncompleteOrientationDoesNotCount)
{
    DicomBuilder builder;
    builder.set(0x0020, 0x0037, "1\\0\\0\\0\\1").set(0x0008, 0x0008, "A\\B\\CORONAL");
    ASSERT_TRUE(load(series(3, builder)));
    EXPECT_THAT(counts(), ElementsAre(width, height, 3U));
}

TEST_F(DicomSeries, ObliqueSlicesCountAsAxial)
{
    ASSERT_TRUE(load(series(3, DicomBuilder().orientation({0.9, 0.1, 0.2}, {0.1, 0.8, 0.3}))));
    EXPECT_THAT(counts(), ElementsAre(width, 3U, height));
}

// ---- feet first ----

TEST_F(DicomSeries, FeetFirstTurnsOrderAndFrames)
{
    ASSERT_TRUE(load(series(3, DicomBuilder().set(0x0018, 0x5100, "FFS"))));
    EXPECT_TRUE(reader.isFeetFirst());
    EXPECT_THAT(reader.getDirection(), ElementsAre(0.0F, 0.0F, -1.0F));
    expectPattern(2, {2, 1, 0}, true);
    EXPECT_EQ(reader.getSliceSpacing(), 1.0F);
    EXPECT_THAT(host.entries,
                Contains(viz_test::RecordingHost::Entry(
                    1, "Original Position is Feet First (FFS  AXIAL  direction 0 0 -1 alignmentAxis 2 ). "
                       "Halvane rotated and realigned view to Head First.")));
}

TEST_F(DicomSeries, FeetFirstSagittalIsMirroredAndFlipped)
{
    ASSERT_TRUE(load(series(2, sagittal().set(0x0018, 0x5100, "FFP"), {1, 0, 0})));
    EXPECT_THAT(reader.getDirection(), ElementsAre(-1.0F, 0.0F, 0.0F));
    expectPattern(0, {1, 0}, true, true);
}

TEST_F(DicomSeries, FeetFirstCoronalTurnsY)
{
    ASSERT_TRUE(load(series(2, coronal().set(0x0018, 0x5100, "FFS"), {0, 1, 0})));
    EXPECT_THAT(reader.getDirection(), ElementsAre(0.0F, -1.0F, 0.0F));
    expectPattern(1, {1, 0}, true, true);
}

TEST_F(DicomSeries, FeetFirstIsToldInCapitals)
{
    ASSERT_TRUE(load(series(2, DicomBuilder().set(0x0018, 0x5100, "ffs"))));
    EXPECT_FALSE(reader.isFeetFirst());
}

// ---- which files count ----

TEST_F(DicomSeries, AnotherSizeIsDroppedAndTheNamesRunOn)
{
    QStringList files = series(3);
    DicomBuilder small;
    small.bits(8, 8).size(width, width).position(0, 0, 9);
    files.insert(1, write("small.dcm", small));
    ASSERT_TRUE(load(files));
    expectPattern(2, {0, 1, 2});
    EXPECT_THAT(loadedNames(), ElementsAre("slice_000.dcm", "small.dcm", "slice_001.dcm"));
}

TEST_F(DicomSeries, FilesThatAreNoDicomOrNotGreyAreDropped)
{
    QStringList files = series(3);
    QFile text(folder.filePath("text.dcm"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no DICOM at all");
    text.close();
    DicomBuilder colour;
    colour.photometric("RGB", 3).bits(8, 8).size(width, height).position(0, 0, 5);
    DicomBuilder shortData;
    shortData.bits(8, 8).size(width, height).setBytes(0x7fe0, 0x0010, "OB", QByteArray(10, 'x'));
    DicomBuilder withoutRows;
    withoutRows.bits(8, 8).size(width, height).remove(0x0028, 0x0010);
    files << text.fileName() << write("colour.dcm", colour) << write("short.dcm", shortData)
          << write("rows.dcm", withoutRows) << folder.filePath("missing.dcm") << folder.path();
    ASSERT_TRUE(load(files));
    expectPattern(2, {0, 1, 2});
    EXPECT_THAT(host.failures(), IsEmpty());
}

TEST_F(DicomSeries, AnUnreadableSecondFileLeavesTheDirectionToTheThird)
{
    QStringList files = series(3);
    files.insert(1, folder.filePath("missing.dcm"));
    ASSERT_TRUE(load(files));
    EXPECT_THAT(reader.getDirection(), ElementsAre(0.0F, 0.0F, 1.0F));
    expectPattern(2, {0, 1, 2});
}

// ---- values ----

TEST_F(DicomSeries, RangeIsThatOfAllFiles)
{
    DicomBuilder builder;
    builder.bits(16, 16);
    const QStringList files =
        writeDicomSeries(folder.path(), builder, width, height, 3, {0, 0, 0}, {0, 0, 1},
                         [](unsigned x, unsigned, unsigned i) { return x == 0 ? 100 + 255 * i : 200; });
    ASSERT_TRUE(load(files));
    EXPECT_EQ(reader.getMinValue(), 100);
    EXPECT_EQ(reader.getMaxValue(), 610);
    EXPECT_EQ(reader.getValueScale(), 0.5F);
    // the first row of the block: slice 0, row height - 1
    EXPECT_EQ(reader.getVoxels()[0], 0);
    EXPECT_EQ(reader.getVoxels()[1], 50);
    EXPECT_EQ(reader.getVoxels()[width], 128);  // 255 * 0.5 + 0.5
    EXPECT_EQ(reader.getVoxels()[2 * width], 255);
}

TEST_F(DicomSeries, RangeTagsAreTakenAsTheyAre)
{
    DicomBuilder builder;
    builder.set(0x0028, 0x0106, "0").set(0x0028, 0x0107, "510");
    ASSERT_TRUE(load(series(2, builder)));
    EXPECT_EQ(reader.getMinValue(), 0);
    EXPECT_EQ(reader.getMaxValue(), 510);
    EXPECT_EQ(int{reader.getVoxels()[(height - 1) * width * 2 + 1]}, 19);  // 37 * 0.5 + 0.5
}

TEST_F(DicomSeries, OneRangeTagAloneDoesNotCount)
{
    ASSERT_TRUE(load(series(2, DicomBuilder().set(0x0028, 0x0106, "7"))));
    EXPECT_EQ(reader.getMinValue(), 0);
    EXPECT_EQ(reader.getMaxValue(), 255);
}

TEST_F(DicomSeries, MakerDataTakesTheWholeRangeOfTheDepth)
{
    DicomBuilder builder;
    builder.bits(16, 16);
    const QStringList files = writeDicomSeries(folder.path(), builder, width, height, 2, {0, 0, 0}, {0, 0, 1},
                                               [](unsigned, unsigned, unsigned) { return 1000; });
    ASSERT_TRUE(load(files, viz_test::allFrames, viz_test::allFrames, true));
    EXPECT_EQ(reader.getMinValue(), 0);
    EXPECT_EQ(reader.getMaxValue(), 65535);
}

TEST_F(DicomSeries, MakerDataOf8BitsTakesTheirRange)
{
    DicomBuilder builder;
    builder.bits(8, 8);
    const QStringList files = writeDicomSeries(folder.path(), builder, width, height, 2, {0, 0, 0}, {0, 0, 1},
                                               [](unsigned, unsigned, unsigned) { return 100; });
    ASSERT_TRUE(load(files, viz_test::allFrames, viz_test::allFrames, true));
    EXPECT_EQ(reader.getMinValue(), 0);
    EXPECT_EQ(reader.getMaxValue(), 255);
    EXPECT_EQ(reader.getVoxels()[0], 100);
}

// Of other depths the pixels count, as ever: the decoder spreads 100 to 100 * 65535 / 4095.
TEST_F(DicomSeries, MakerDataOf12BitsHasTheRangeOfItsPixels)
{
    DicomBuilder builder;
    builder.bits(16, 12);
    const QStringList files = writeDicomSeries(folder.path(), builder, width, height, 2, {0, 0, 0}, {0, 0, 1},
                                               [](unsigned x, unsigned, unsigned) { return 100 + x; });
    ASSERT_TRUE(load(files, viz_test::allFrames, viz_test::allFrames, true));
    EXPECT_EQ(reader.getMinValue(), 1600);
    EXPECT_EQ(reader.getMaxValue(), 1904);
}

// Each file's own tags count where it has them, the pixels of the others.
TEST_F(DicomSeries, RangeTagsOfLaterFilesWidenTheRange)
{
    const QStringList files = series(2, DicomBuilder().set(0x0028, 0x0106, "10").set(0x0028, 0x0107, "20"));
    DicomBuilder later;
    later.bits(8, 8).size(width, height).samples(frames(1)).position(0, 0, 2);
    ASSERT_TRUE(load(
        {files[0], files[1], write("later.dcm", later.set(0x0028, 0x0106, "-5").set(0x0028, 0x0107, "15"))}));
    EXPECT_EQ(reader.getMinValue(), -5);
    EXPECT_EQ(reader.getMaxValue(), 20);
    later.remove(0x0028, 0x0106).remove(0x0028, 0x0107);
    ASSERT_TRUE(load({files[0], files[1], write("later.dcm", later)}));
    EXPECT_EQ(reader.getMinValue(), 0);
    EXPECT_EQ(reader.getMaxValue(), 255);
}

TEST_F(DicomSeries, OneValueThroughout)
{
    DicomBuilder builder;
    builder.bits(16, 16);
    const QStringList files = writeDicomSeries(folder.path(), builder, width, height, 2, {0, 0, 0}, {0, 0, 1},
                                               [](unsigned, unsigned, unsigned) { return 1000; });
    ASSERT_TRUE(load(files));
    EXPECT_EQ(reader.getMinValue(), 1000);
    EXPECT_EQ(reader.getMaxValue(), 1001);
    EXPECT_EQ(reader.getVoxels()[0], 0);
}

// A CT with an intercept: the decoder gives 32-bit numbers on both sides of 2^31.
TEST_F(DicomSeries, SignedSamplesWithAnInterceptMakeAGoodPicture)
{
    DicomBuilder builder;
    builder.bits(16, 16, true).set(0x0028, 0x1052, "-1024").set(0x0028, 0x1053, "1");
    const QStringList files =
        writeDicomSeries(folder.path(), builder, width, height, 2, {0, 0, 0}, {0, 0, 1},
                         [](unsigned x, unsigned, unsigned) { return static_cast<int>(x) * 200 - 1000; });
    ASSERT_TRUE(load(files));
    for (unsigned x = 0; x < width; ++x)
        EXPECT_NEAR(reader.getVoxels()[x], x * 255.0 / (width - 1), 1.0) << x;
}

// ---- spacing from bad tags ----

TEST_F(DicomSeries, SpacingThatIsNoNumberCountsAsMissing)
{
    for (const char* text : {"", "text", "nan\\nan", "inf\\inf"}) {
        ASSERT_TRUE(load(series(2, DicomBuilder().set(0x0028, 0x0030, text)))) << text;
        EXPECT_EQ(reader.getRowSpacing(), 0.1F) << text;
        EXPECT_EQ(reader.getColumnSpacing(), 0.1F) << text;
    }
}

// The dialog's fields end at 0.0001 mm.
TEST_F(DicomSeries, SpacingBelowZeroBecomesTheSmallest)
{
    for (const char* text : {"0\\0", "-2\\-1"}) {
        ASSERT_TRUE(load(series(2, DicomBuilder().set(0x0028, 0x0030, text)))) << text;
        EXPECT_EQ(reader.getRowSpacing(), 0.0001F) << text;
    }
}

// ---- a single file ----

TEST_F(DicomSeries, ASingleFileHasNoSpacingBetweenSlices)
{
    DicomBuilder builder;
    builder.set(0x0018, 0x0050, "3").set(0x0018, 0x5100, "FFS");
    ASSERT_TRUE(load(series(1, builder)));
    EXPECT_TRUE(std::isnan(reader.getSliceSpacing()));
    EXPECT_TRUE(std::isnan(extent()[2]));
    EXPECT_EQ(reader.getNominalSliceSpacing(), 3.0F);
    EXPECT_EQ(host.memoryChecks, 0);
    EXPECT_FALSE(reader.isFeetFirst());
    EXPECT_THAT(counts(), ElementsAre(width, 1U, height));
    expectPattern(2, {0});
}

TEST_F(DicomSeries, NominalSpacingPrefersTheDistance)
{
    ASSERT_TRUE(load(series(1, DicomBuilder().set(0x0018, 0x0088, "4"))));
    EXPECT_EQ(reader.getNominalSliceSpacing(), 4.0F);
    ASSERT_TRUE(load(series(1, DicomBuilder().set(0x0018, 0x0050, "").spacing(0.7, 0.6))));
    EXPECT_EQ(reader.getNominalSliceSpacing(), 0.7F);
}

// ---- info, names, manufacturer ----

TEST_F(DicomSeries, InfoNamesAndManufacturer)
{
    ASSERT_TRUE(load(series(2, DicomBuilder().set(0x0008, 0x0070, "Somebody"))));
    EXPECT_EQ(reader.getManufacturer(), "Somebody");
    EXPECT_EQ(reader.getInfo().value("0028, 0010").value, "40");
    const SGroupElemInfo frames = reader.getInfo().value("0028, 0008");
    EXPECT_EQ(frames.value, "2");
    EXPECT_EQ(frames.group, "0028");
    EXPECT_EQ(frames.element, "0008");
    EXPECT_EQ(frames.name, "NumberOfFrames");
    EXPECT_THAT(loadedNames(), ElementsAre("slice_000.dcm", "slice_001.dcm"));
}

TEST_F(DicomSeries, ASecondLoadStartsClean)
{
    ASSERT_TRUE(load(series(3, DicomBuilder().set(0x0018, 0x5100, "FFS"))));
    ASSERT_TRUE(load(series(2)));
    EXPECT_THAT(loadedNames(), ElementsAre("slice_000.dcm", "slice_001.dcm"));
    expectPattern(2, {0, 1});
}

TEST_F(DicomSeries, FileNamesOfAnyKind)
{
    DicomBuilder builder;
    builder.bits(8, 8).size(width, height).samples(frames(1));
    ASSERT_TRUE(load({write("with blanks, #1 'and' \"quotes\".dcm", builder),
                      write("\xc3\xa4\xc3\xb6\xc3\xbc.dcm", builder.position(0, 0, 1))}));
    EXPECT_EQ(reader.getLoadedFiles().size(), 2);
}

// ---- dialog, progress, cursor ----

TEST_F(DicomSeries, ProgressAndCursor)
{
    viz_test::ProgressWatcher progress;
    ASSERT_TRUE(load(series(3)));
    EXPECT_THAT(progress.titles,
                ElementsAre("Scanning through DICOM data...", "Loading DICOM frame data..."));
    EXPECT_EQ(host.cursorsRestored, 1);
    EXPECT_THAT(host.cursorsSet, ElementsAre(Qt::WaitCursor));
}

// A file that is left out moves the names against the slices: they run on in the order of the list.
TEST_F(DicomSeries, LabelsAreTheNamesInTheOrderOfTheList)
{
    QStringList files = series(2);
    DicomBuilder small;
    small.bits(8, 8).size(width, width);
    files = QStringList{files[1], write("small.dcm", small), files[0]};
    QStringList shown;
    QSet<int> percents;
    viz_test::ProgressWatcher progress;
    progress.onStep = [&](CHVSProgressBar& dialog) {
        const QString step = dialog.windowTitle().section(' ', 0, 0) + ' ' +
                             dialog.findChild<QLabel*>("activity")->text().section('/', -1);
        if (shown.isEmpty() || shown.last() != step) shown << step;
        percents << dialog.findChild<QProgressBar*>("progress")->value();
        QTest::qSleep(45);  // the dialog shows what comes faster than that only later
    };
    ASSERT_TRUE(load(files));
    for (const char* step :
         {"Scanning small.dcm", "Scanning slice_000.dcm", "Loading slice_001.dcm", "Loading small.dcm"})
        EXPECT_TRUE(shown.contains(step)) << step << " in " << shown.join(", ").toStdString();
    EXPECT_FALSE(shown.contains("Loading slice_000.dcm"));
    EXPECT_TRUE(percents.contains(33)) << "one of three";
    EXPECT_TRUE(percents.contains(66)) << "two of three";
}

TEST_F(DicomSeries, ShortMemoryShowsTheDialog)
{
    host.memoryIsFull = true;
    const QString shown = "File: " + folder.path().chopped(1);
    modal.expect([&](QWidget* window) {
        auto* const dialog = qobject_cast<CVolumeInfoDialog*>(window);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->getColumns(), static_cast<int>(width));
        EXPECT_EQ(dialog->getRows(), static_cast<int>(height));
        EXPECT_EQ(dialog->getFrames(), 3);
        EXPECT_EQ(dialog->getRowSpacing(), 0.5F);
        EXPECT_EQ(dialog->getColumnSpacing(), 0.25F);
        EXPECT_EQ(dialog->getSliceSpacing(), 1.0F);
        EXPECT_EQ(dialog->fileLabel->text(), shown);
        EXPECT_FALSE(dialog->fileGroup->isVisible());
        EXPECT_FALSE(dialog->orientationGroup->isVisible());
        EXPECT_TRUE(dialog->resolutionGroup->isVisible());
        dialog->reject();
    });
    EXPECT_FALSE(load(series(3, DicomBuilder().spacing(0.5, 0.25))));
    EXPECT_THAT(host.entries,
                ElementsAre(viz_test::RecordingHost::Entry(16, "Open Volume action canceled by user.")));
    EXPECT_EQ(host.cursorsRestored, 1);
    EXPECT_THAT(host.cursorsSet, IsEmpty());
}

TEST_F(DicomSeries, AcceptingWithShortMemoryIsRefused)
{
    host.memoryIsFull = true;
    modal.expect([](QWidget* window) { qobject_cast<CVolumeInfoDialog*>(window)->accept(); });
    EXPECT_FALSE(load(series(3)));
    EXPECT_THAT(host.entries, ElementsAre(viz_test::RecordingHost::Entry(
                                  3, "Volume loading aborted. Low memory encountered.")));
}

// 20 x 40 at 50 percent: 64 is the smallest side, so the factor becomes 3.2; 64 x 128 needs no padding.
TEST_F(DicomSeries, DialogChangesSpacingAndResolution)
{
    host.memoryIsFull = true;
    modal.expect([this](QWidget* window) {
        auto* const dialog = qobject_cast<CVolumeInfoDialog*>(window);
        dialog->setRowSpacing(2.0);
        dialog->setColumnSpacing(3.0);
        dialog->setResolution(50);
        host.memoryIsFull = false;
        dialog->updateMemoryStatus();
        dialog->accept();
    });
    ASSERT_TRUE(load(series(3)));
    EXPECT_FLOAT_EQ(reader.getResolutionFactor(), 3.2F);
    EXPECT_THAT(counts(), ElementsAre(64U, 3U, 128U));
    EXPECT_THAT(extent(), ElementsAre(60.0F, 80.0F, 3.0F));
}

// 101 x 101 does not load at full resolution: 99 percent are 100 x 100, padded to 120 x 120.
TEST_F(DicomSeries, PaddingKeepsTheSizeOfAPixel)
{
    DicomBuilder builder;
    builder.bits(8, 8);
    const QStringList files =
        writeDicomSeries(folder.path(), builder, 101, 101, 2, {0, 0, 0}, {0, 0, 1},
                         [](unsigned, unsigned, unsigned i) { return i == 0 ? 0 : 200; });
    ASSERT_TRUE(load(files));
    EXPECT_THAT(counts(), ElementsAre(120U, 2U, 120U));
    EXPECT_FLOAT_EQ(extent()[0], 101.0F / 100.0F * 120.0F);
    EXPECT_FLOAT_EQ(extent()[1], 101.0F / 100.0F * 120.0F);
    EXPECT_EQ(extent()[2], 2.0F);
    // Slice 1: 100 pixels of 255 and 20 of padding in the first row of the picture, which is the last plane.
    const unsigned char* const top = reader.getVoxels() + 119 * 120 * 2 + 120;
    EXPECT_EQ(top[99], 255);
    EXPECT_EQ(top[100], 0);
    EXPECT_EQ(reader.getVoxels()[120], 0);
}

}  // namespace
