#include "volume/CVolumeInfoDialog.h"
#include "volume/support/DicomVolume.h"

#include <QFile>

#include <gmock/gmock.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Entry = viz_test::RecordingHost::Entry;

// Files that this workstation wrote.
class DicomNative : public viz_test::DicomVolume
{
protected:
    static DicomBuilder native(const char* version = "Halvane 3")
    {
        return DicomBuilder().implementation(version);
    }

    QStringList multi(unsigned count, DicomBuilder builder)
    {
        builder.bits(8, 8).size(width, height, count).samples(frames(count));
        return {write("multi.dcm", builder)};
    }
};

// Native files are not sorted: that tells them from others.
TEST_F(DicomNative, SeriesInTheOrderOfTheList)
{
    for (const char* version : {"HVS3D_1", "MyHalvane"}) {
        const QStringList files = series(4, native(version).spacing(0.5, 0.25));
        ASSERT_TRUE(load({files[0], files[2], files[1], files[3]}));
        EXPECT_THAT(counts(), ElementsAre(width, 4U, height));
        expectPattern(2, {0, 2, 1, 3});
        // the distance of the first two files, twice that of all
        EXPECT_EQ(reader.getSliceSpacing(), 2.0F);
        EXPECT_THAT(extent(), ElementsAre(5.0F, 20.0F, 8.0F));
        EXPECT_THAT(loadedNames(),
                    ElementsAre("slice_000.dcm", "slice_002.dcm", "slice_001.dcm", "slice_003.dcm"));
        EXPECT_EQ(reader.getInfo().value("0028, 0008").value, "4");
    }
}

TEST_F(DicomNative, TheNameIsToldInItsOwnLetters)
{
    const QStringList files = series(3, native("HALVANE hvs3d"));
    ASSERT_TRUE(load({files[0], files[2], files[1]}));
    expectPattern(2, {0, 1, 2});  // sorted
}

TEST_F(DicomNative, EverySeriesIsAxial)
{
    ASSERT_TRUE(load(series(3, native().orientation({0, 1, 0}, {0, 0, -1}), {1, 0, 0})));
    expectPattern(2, {0, 1, 2});
}

TEST_F(DicomNative, OnePlaceForBothSlicesTakesTheSpacingOfRows)
{
    ASSERT_TRUE(load(series(3, native().spacing(0.5, 0.25).set(0x0018, 0x0088, "9"), {0, 0, 0})));
    EXPECT_EQ(reader.getSliceSpacing(), 0.5F);
    EXPECT_THAT(reader.getDirection(), ElementsAre(0.0F, 0.0F, 1.0F));
}

TEST_F(DicomNative, FeetFirstIsMirroredInTheOrderOfTheList)
{
    ASSERT_TRUE(load(series(3, native().set(0x0018, 0x5100, "FFS"))));
    expectPattern(2, {0, 1, 2}, true);
    EXPECT_THAT(reader.getDirection(), ElementsAre(0.0F, 0.0F, -1.0F));
}

TEST_F(DicomNative, OthersAndOtherSizesAreSkipped)
{
    QStringList files = series(3, native());
    DicomBuilder small = native();
    small.bits(8, 8).size(width, width);
    QFile text(folder.filePath("text.dcm"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("no DICOM");
    text.close();
    files.insert(1, text.fileName());
    files.insert(3, write("small.dcm", small));
    ASSERT_TRUE(load(files));
    expectPattern(2, {0, 1, 2});
    EXPECT_THAT(loadedNames(), ElementsAre("slice_000.dcm", "slice_001.dcm", "slice_002.dcm"));
}

TEST_F(DicomNative, SixteenBits)
{
    DicomBuilder builder = native();
    builder.bits(16, 16);
    const QStringList files = writeDicomSeries(folder.path(), builder, width, height, 2, {0, 0, 0}, {0, 0, 1},
                                               [](unsigned x, unsigned, unsigned) { return 100 + x * 30; });
    ASSERT_TRUE(load(files));
    EXPECT_EQ(reader.getMinValue(), 100);
    EXPECT_EQ(reader.getMaxValue(), 670);
    EXPECT_EQ(reader.getVoxels()[0], 0);
    EXPECT_EQ(reader.getVoxels()[19], 255);
    EXPECT_EQ(reader.getVoxels()[10], 134);  // 300 * 255 / 570 + 0.5
}

TEST_F(DicomNative, DeeperSamplesStayZero)
{
    DicomBuilder builder = native();
    builder.bits(32, 32);
    const QStringList files = writeDicomSeries(folder.path(), builder, width, height, 2, {0, 0, 0}, {0, 0, 1},
                                               [](unsigned x, unsigned, unsigned) { return 100000 * x; });
    ASSERT_TRUE(load(files));
    const std::vector<unsigned char> block(reader.getVoxels(), reader.getVoxels() + width * height * 2);
    EXPECT_THAT(block, testing::Each(0));
}

// 101 x 101 at 99 percent: 16 bits give a picture of 100 x 100 with padding, 8 bits one of 120 x 120.
TEST_F(DicomNative, EightBitsFillThePadding)
{
    for (const unsigned bits : {8U, 16U}) {
        DicomBuilder builder = native();
        builder.bits(bits, bits);
        const QStringList files =
            writeDicomSeries(folder.path(), builder, 101, 101, 2, {0, 0, 0}, {0, 0, 1},
                             [](unsigned, unsigned, unsigned i) { return i == 0 ? 0 : 200; });
        ASSERT_TRUE(load(files));
        EXPECT_THAT(counts(), ElementsAre(120U, 2U, 120U));
        const unsigned char* const top = reader.getVoxels() + 119 * 120 * 2 + 120;
        EXPECT_EQ(int{top[99]}, 255);
        EXPECT_EQ(int{top[119]}, bits == 8 ? 255 : 0);
    }
}

TEST_F(DicomNative, ASingleFileOfOneFrame)
{
    ASSERT_TRUE(load(series(1, native().set(0x0018, 0x0050, "3"))));
    EXPECT_EQ(reader.getSliceSpacing(), 3.0F);
    EXPECT_EQ(extent()[2], 3.0F);
    expectPattern(2, {0});
}

// ---- many frames ----

TEST_F(DicomNative, ManyFramesAlwaysLieAxially)
{
    struct Case
    {
        const char* location;
        std::array<unsigned, 3> counts;
    };
    // The counts follow the axis, the layout and the extents do not.
    for (const Case& one : {Case{"5", {3, height, width}}, Case{"6", {width, height, 3}},
                            Case{"7", {width, 3, height}}, Case{"8", {width, 3, height}}}) {
        DicomBuilder builder = native().position(5, 6, 7).spacing(0.5, 0.25);
        ASSERT_TRUE(load(multi(3, builder.set(0x0020, 0x1041, one.location))));
        EXPECT_TRUE(reader.isMultiFrame());
        EXPECT_EQ(counts(), one.counts) << one.location;
        expectPattern(2, {0, 1, 2});
        EXPECT_THAT(extent(), ElementsAre(5.0F, 20.0F, 3.0F));
    }
}

TEST_F(DicomNative, ARangeOfFramesUnlessAcrossX)
{
    ASSERT_TRUE(load(multi(4, native().position(5, 6, 7).set(0x0020, 0x1041, "7")), 1, 2));
    expectPattern(2, {1, 2});
    ASSERT_TRUE(load(multi(4, native().position(5, 6, 7).set(0x0020, 0x1041, "5")), 1, 2));
    expectPattern(2, {0, 1, 2, 3});
}

TEST_F(DicomNative, ManyFramesKeepTheirBrightestSamples)
{
    std::vector<std::int64_t> samples(1600, 100);
    samples[5] = 60000;
    DicomBuilder builder = native();
    builder.bits(16, 16).size(width, height, 2).samples(samples);
    ASSERT_TRUE(load({write("multi.dcm", builder)}));
    EXPECT_EQ(reader.getMaxValue(), 60000);
}

TEST_F(DicomNative, DialogShowsTheFramesOfTheFile)
{
    host.memoryIsFull = true;
    modal.expect([](QWidget* window) {
        auto* const dialog = qobject_cast<CVolumeInfoDialog*>(window);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->getFrames(), 4);
        dialog->reject();
    });
    EXPECT_FALSE(load(multi(4, native())));
    EXPECT_THAT(host.entries, ElementsAre(Entry(16, "Open Volume action canceled by user.")));
}

// ---- failures ----

TEST_F(DicomNative, ClosingTheProgressAborts)
{
    const QStringList files = series(3, native());
    for (const auto& [title, message] : {std::pair("Scanning", "Loading of DICOM Datasets aborted."),
                                         std::pair("Loading", "Loading of DICOM frame data aborted.")}) {
        viz_test::ProgressWatcher progress;
        progress.onStep = [start = title](CHVSProgressBar& dialog) {
            if (dialog.windowTitle().startsWith(start)) dialog.close();
        };
        EXPECT_FALSE(load(files));
        EXPECT_THAT(host.failures(), ElementsAre(Entry(3, message)));
        host.entries.clear();
    }
}

TEST_F(DicomNative, ClosingTheProgressAbortsBothPassesOfManyFrames)
{
    for (const char* title : {"Scanning", "Loading"}) {
        viz_test::ProgressWatcher progress;
        progress.onStep = [title](CHVSProgressBar& dialog) {
            if (dialog.windowTitle().startsWith(title)) dialog.close();
        };
        EXPECT_FALSE(load(multi(3, native()))) << title;
        EXPECT_THAT(host.failures(), ElementsAre(Entry(3, "Loading of DICOM Datasets aborted."))) << title;
        host.entries.clear();
    }
}

TEST_F(DicomNative, ManyFramesOfAnAnimalThatLiesFeetFirstAreMirrored)
{
    ASSERT_TRUE(
        load(multi(2, native().set(0x0018, 0x5100, "FFS").position(5, 6, 7).set(0x0020, 0x1041, "7"))));
    EXPECT_TRUE(reader.isFeetFirst());
    expectPattern(2, {0, 1}, true);
    EXPECT_THAT(reader.getDirection(), ElementsAre(0.0F, 0.0F, -1.0F));
}

TEST_F(DicomNative, CursorAndDialogAsInOtherSeries)
{
    ASSERT_TRUE(load(series(3, native())));
    EXPECT_EQ(host.cursorsRestored, 1);
    EXPECT_THAT(host.cursorsSet, ElementsAre(Qt::WaitCursor));
    EXPECT_EQ(host.memoryChecks, 1);
}

TEST_F(DicomNative, PixelsThatDoNotDecode)
{
    DicomBuilder builder = native();
    builder.setBytes(0x7fe0, 0x0010, "OB", QByteArray(10, 'x'));
    EXPECT_FALSE(load(series(2, builder)));
    EXPECT_THAT(host.failures(),
                ElementsAre(Entry(3, "Unable to allocate memory for the contents of the volume file.")));
}

}  // namespace
