#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvparser/CPLSection.h"
#include "hvparser/CPLSequenceInfo.h"
#include "lib/hvapi/sequence/SequenceContents.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvapi/windows/WindowRegistry.h"
#include "lib/hvparser/KeyedFile.h"
#include "volume/CVolumeInfoDialog.h"
#include "volume/support/DicomVolume.h"

#include <QLabel>
#include <QSettings>
#include <QTest>

#include <gmock/gmock.h>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using Entry = viz_test::RecordingHost::Entry;

const Entry notCompatible{3, "Unable to load volume. DICOM file not compatible."};

class DicomMultiFrame : public viz_test::DicomVolume
{
protected:
    DicomMultiFrame() { host.settings().remove("3DView/TissueRange"); }
    ~DicomMultiFrame() override { host.settings().remove("3DView/TissueRange"); }

    /// One file of frames of the pattern, 8 bits.
    QStringList multi(unsigned count, DicomBuilder builder = {})
    {
        builder.bits(8, 8).size(width, height, count).samples(frames(count));
        return {write("multi.dcm", builder)};
    }

    /// No value is cut: the pattern comes back as it is.
    void showAllValues() { host.settings().setValue("3DView/TissueRange", "Metal"); }
};

TEST_F(DicomMultiFrame, AxialFrames)
{
    showAllValues();
    ASSERT_TRUE(load(multi(3, DicomBuilder().spacing(0.5, 0.25).set(0x0018, 0x0088, "2"))));
    EXPECT_TRUE(reader.isMultiFrame());
    EXPECT_THAT(counts(), ElementsAre(width, 3U, height));
    expectPattern(2, {0, 1, 2});
    EXPECT_THAT(extent(), ElementsAre(5.0F, 20.0F, 6.0F));
    EXPECT_THAT(reader.getDirection(), ElementsAre(0.0F, 0.0F, 1.0F));
    EXPECT_THAT(loadedNames(), ElementsAre("multi.dcm"));
    EXPECT_EQ(reader.getInfo().value("0028, 0008").value, "3");
    EXPECT_THAT(host.failures(), IsEmpty());
}

TEST_F(DicomMultiFrame, CoronalAndSagittalFrames)
{
    showAllValues();
    ASSERT_TRUE(load(multi(3, DicomBuilder().orientation({1, 0, 0}, {0, 0, -1}))));
    EXPECT_THAT(counts(), ElementsAre(width, height, 3U));
    expectPattern(1, {0, 1, 2}, false, true);
    ASSERT_TRUE(load(multi(3, DicomBuilder().orientation({0, 1, 0}, {0, 0, -1}))));
    EXPECT_THAT(counts(), ElementsAre(3U, height, width));
    expectPattern(0, {0, 1, 2}, false, true);
}

TEST_F(DicomMultiFrame, ARangeOfFrames)
{
    showAllValues();
    ASSERT_TRUE(load(multi(5), 1, 3));
    EXPECT_THAT(counts(), ElementsAre(width, 3U, height));
    expectPattern(2, {1, 2, 3});
    EXPECT_EQ(extent()[2], 3.0F);
    EXPECT_EQ(reader.getInfo().value("0028, 0008").value, "5");
}

TEST_F(DicomMultiFrame, HalfARangeIsAll)
{
    showAllValues();
    ASSERT_TRUE(load(multi(3), 1, viz_test::allFrames));
    expectPattern(2, {0, 1, 2});
    ASSERT_TRUE(load(multi(3), viz_test::allFrames, 1));
    expectPattern(2, {0, 1, 2});
}

TEST_F(DicomMultiFrame, ARangeEndsWithTheFile)
{
    showAllValues();
    ASSERT_TRUE(load(multi(3), 1, 77));
    expectPattern(2, {1, 2});
}

TEST_F(DicomMultiFrame, ARangeBeyondTheFileHasNoFrames)
{
    EXPECT_FALSE(load(multi(3), 5, 7));
    EXPECT_THAT(host.failures(), ElementsAre(Entry(3, "Loading aborted. Unable to find number of frames.")));
}

TEST_F(DicomMultiFrame, SagittalFramesAlwaysComeWhole)
{
    showAllValues();
    ASSERT_TRUE(load(multi(4, DicomBuilder().orientation({0, 1, 0}, {0, 0, -1})), 1, 2));
    expectPattern(0, {0, 1, 2, 3}, false, true);
}

// Without an orientation the axis is the first component of the position that equals the slice location.
TEST_F(DicomMultiFrame, LocationDecidesWithoutAnOrientation)
{
    const std::array<unsigned, 3> expected[] = {
        {3, height, width}, {width, height, 3}, {width, 3, height}, {width, 3, height}};
    const char* const locations[] = {"5", "6", "7", "8"};
    for (std::size_t i = 0; i < 4; ++i) {
        DicomBuilder builder;
        builder.remove(0x0020, 0x0037).position(5, 6, 7).set(0x0020, 0x1041, locations[i]);
        ASSERT_TRUE(load(multi(3, builder)));
        EXPECT_EQ(counts(), expected[i]) << locations[i];
    }
}

TEST_F(DicomMultiFrame, FeetFirstMirrorsFramesOf8Bits)
{
    showAllValues();
    ASSERT_TRUE(load(multi(2, DicomBuilder().set(0x0018, 0x5100, "FFS"))));
    expectPattern(2, {0, 1}, true);
    EXPECT_THAT(reader.getDirection(), ElementsAre(0.0F, 0.0F, -1.0F));
    EXPECT_THAT(host.entries, Contains(testing::Field(&Entry::second, testing::HasSubstr("Feet First"))));
}

TEST_F(DicomMultiFrame, FeetFirstDoesNotMirrorDeeperFrames)
{
    showAllValues();
    DicomBuilder builder;
    builder.bits(16, 16).size(width, height, 2).samples(frames(2)).set(0x0018, 0x5100, "FFS");
    ASSERT_TRUE(load({write("multi.dcm", builder)}));
    EXPECT_TRUE(reader.isFeetFirst());
    expectPattern(2, {0, 1}, false);
}

// ---- upper clip ----

// 2 of 1600 samples are less than 0.15 percent: the limit is found at 100, the margin is 1 + 1 * 35 / 130.
TEST_F(DicomMultiFrame, AFewBrightSamplesAreCut)
{
    std::vector<std::int64_t> samples(1600, 100);
    samples[5] = samples[6] = 60000;
    DicomBuilder builder;
    builder.bits(16, 16).size(width, height, 2).samples(samples);
    const QString path = write("multi.dcm", builder);
    ASSERT_TRUE(load({path}));
    EXPECT_EQ(reader.getMinValue(), 100);
    EXPECT_EQ(reader.getMaxValue(), 101);
    const unsigned char* const top = reader.getVoxels() + (height - 1) * width * 2;
    EXPECT_THAT(std::vector<int>(top + 4, top + 8), ElementsAre(0, 255, 255, 0));

    showAllValues();
    ASSERT_TRUE(load({path}));
    EXPECT_EQ(reader.getMaxValue(), 60000);
}

// Ten thousand stored values a unit from -0.5 on, air at 0.01 and water at 1.01: 3001 Hounsfield units
// are 4.011, which is stored as 45110.
TEST_F(DicomMultiFrame, ACalibratedViewRaisesTheLimitToDenseTissue)
{
    SequenceContents contents;
    contents.info = std::make_unique<CPLSequenceInfo>();
    CPLSection* const section =
        CPLSequenceInfo::Private::fileOf(*contents.info).findOrAdd("CT Acquisition Parameters");
    ASSERT_NE(section, nullptr);
    section->addKeyValue("Reconstructed Volume Min", "-0.5");
    section->addKeyValue("Reconstructed Volume Max", "6.0535");
    section->addKeyValue("Hounsfield Calibration Air", "0.01");
    section->addKeyValue("Hounsfield Calibration Water", "1.01");
    SequenceRegistry& registry = SequenceRegistry::instance();
    CHVSSequenceDataset* const sequence =
        registry.open({"calibrated", SequenceKind::Ct, false, {}, {}}, std::move(contents));
    ASSERT_NE(sequence, nullptr);
    CHVSSequenceWindow* const window = CHVSSequenceWindow::getSequenceWindow(sequence);
    window->prepare3DView();
    const auto highestWith = [this](std::int64_t brightest) {
        std::vector<std::int64_t> samples(1600, 100);
        samples[5] = samples[6] = brightest;
        DicomBuilder builder;
        EXPECT_TRUE(load({write("multi.dcm", builder.bits(16, 16).size(width, height, 2).samples(samples))}));
        return reader.getMaxValue();
    };
    WindowRegistry::instance().setActive(window);
    EXPECT_EQ(highestWith(60000), 45110);
    EXPECT_EQ(highestWith(30000), 30000) << "not above what is there";
    WindowRegistry::instance().setActive(nullptr);
    EXPECT_EQ(highestWith(60000), 101) << "without a view the histogram decides";
    registry.close(sequence);
}

TEST_F(DicomMultiFrame, RangeTagsSkipTheScan)
{
    viz_test::ProgressWatcher progress;
    DicomBuilder builder;
    builder.set(0x0028, 0x0106, "0").set(0x0028, 0x0107, "255");
    ASSERT_TRUE(load(multi(3, builder)));
    EXPECT_EQ(reader.getMinValue(), 0);
    EXPECT_EQ(reader.getMaxValue(), 65534);  // of an empty histogram
    EXPECT_THAT(host.failures(), IsEmpty());

    showAllValues();
    ASSERT_TRUE(load(multi(3, builder)));
    EXPECT_EQ(reader.getMaxValue(), 255);
    expectPattern(2, {0, 1, 2});
}

TEST_F(DicomMultiFrame, MakerDataTakesTheWholeRangeOfTheDepth)
{
    showAllValues();
    DicomBuilder builder;
    builder.bits(16, 16).size(width, height, 2).samples(frames(2));
    ASSERT_TRUE(load({write("multi.dcm", builder)}, viz_test::allFrames, viz_test::allFrames, true));
    EXPECT_EQ(reader.getMinValue(), 0);
    EXPECT_EQ(reader.getMaxValue(), 65535);
}

TEST_F(DicomMultiFrame, SamplesOf32Bits)
{
    showAllValues();
    std::vector<std::int64_t> samples(1600, 0);
    samples[1] = 4294967295;
    samples[2] = 2147483648;
    DicomBuilder builder;
    builder.bits(32, 32).size(width, height, 2).samples(samples);
    ASSERT_TRUE(load({write("multi.dcm", builder)}));
    EXPECT_EQ(reader.getMinValue(), 0);
    EXPECT_EQ(static_cast<std::uint32_t>(reader.getMaxValue()), 4294967295U);
    const unsigned char* const top = reader.getVoxels() + (height - 1) * width * 2;
    EXPECT_THAT(std::vector<int>(top, top + 3), ElementsAre(0, 255, 128));
}

TEST_F(DicomMultiFrame, MakerDataOf8BitsTakesTheirRange)
{
    showAllValues();
    DicomBuilder builder;
    builder.bits(8, 8).size(width, height, 2).samples(std::vector<std::int64_t>(1600, 100));
    ASSERT_TRUE(load({write("multi.dcm", builder)}, viz_test::allFrames, viz_test::allFrames, true));
    EXPECT_EQ(reader.getMinValue(), 0);
    EXPECT_EQ(reader.getMaxValue(), 255);
}

// What stands behind it in the list is no volume of its own: the first name counts.
TEST_F(DicomMultiFrame, TheOnlyUsableFileOfAList)
{
    showAllValues();
    const QStringList files = multi(3);
    ASSERT_TRUE(load(files + QStringList{folder.filePath("missing.dcm")}));
    EXPECT_TRUE(reader.isMultiFrame());
    expectPattern(2, {0, 1, 2});
    EXPECT_THAT(loadedNames(), ElementsAre("multi.dcm"));
}

// Beside another slice of its size, a file of many frames is one slice: its first frame.
TEST_F(DicomMultiFrame, InASeriesTheFirstFrameCounts)
{
    const QStringList slices = series(1);
    ASSERT_TRUE(load(slices + multi(3, DicomBuilder().position(0, 0, 1))));
    EXPECT_FALSE(reader.isMultiFrame());
    expectPattern(2, {0, 0});
}

// ---- dialog, progress ----

TEST_F(DicomMultiFrame, DialogShowsTheFramesOfTheFile)
{
    host.memoryIsFull = true;
    modal.expect([](QWidget* window) {
        auto* const dialog = qobject_cast<CVolumeInfoDialog*>(window);
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->getFrames(), 4);
        EXPECT_EQ(dialog->getSliceSpacing(), 1.0F);
        dialog->reject();
    });
    EXPECT_FALSE(load(multi(4)));
    EXPECT_THAT(host.entries, ElementsAre(Entry(16, "Open Volume action canceled by user.")));
}

TEST_F(DicomMultiFrame, ProgressTitlesAndLabels)
{
    QStringList labels;
    viz_test::ProgressWatcher progress;
    progress.onStep = [&labels](CHVSProgressBar& dialog) {
        labels << dialog.findChild<QLabel*>("activity")->text();
        QTest::qSleep(45);  // the dialog shows what comes faster than that only later
    };
    ASSERT_TRUE(load(multi(2)));
    EXPECT_THAT(progress.titles,
                ElementsAre("Scanning through DICOM data...", "Loading DICOM frame data..."));
    for (const char* label : {"Validating Frame 2", "Loading Frame 1", "Loading Frame 2"})
        EXPECT_TRUE(labels.contains(label)) << label;
}

TEST_F(DicomMultiFrame, ClosingTheProgressAbortsBothPasses)
{
    for (const char* title : {"Scanning", "Loading"}) {
        viz_test::ProgressWatcher progress;
        // The dialog that scans the file itself has only one step, after which nobody looks at it.
        progress.onStep = [title](CHVSProgressBar& dialog) {
            if (dialog.windowTitle().startsWith(title)) dialog.close();
        };
        EXPECT_FALSE(load(multi(3))) << title;
        EXPECT_THAT(host.failures(), ElementsAre(Entry(3, "Loading of DICOM Datasets aborted."))) << title;
        host.entries.clear();
    }
}

// ---- failures ----

TEST_F(DicomMultiFrame, ColourIsRefused)
{
    DicomBuilder builder;
    builder.photometric("RGB", 3).bits(8, 8).size(width, height, 2);
    EXPECT_FALSE(load({write("colour.dcm", builder)}));
    EXPECT_THAT(host.failures(),
                ElementsAre(Entry(3, "DICOM file not compatible. Application supports only Monochrome1 and "
                                     "Monochrome2 type DICOM photometric interpretation.")));
}

TEST_F(DicomMultiFrame, MoreFramesThanDataAreRefused)
{
    for (const char* count : {"4", "1000000", "2147483647"}) {
        EXPECT_FALSE(load(multi(3, DicomBuilder().set(0x0028, 0x0008, count)))) << count;
        EXPECT_THAT(host.failures(), ElementsAre(notCompatible)) << count;
        host.entries.clear();
    }
}

// With the range told, nothing is decoded before the file's own path.
TEST_F(DicomMultiFrame, MoreFramesThanDataAreRefusedWithARange)
{
    DicomBuilder builder;
    builder.set(0x0028, 0x0106, "0").set(0x0028, 0x0107, "255").set(0x0028, 0x0008, "1000000");
    EXPECT_FALSE(load(multi(3, builder)));
    EXPECT_THAT(host.failures(), ElementsAre(notCompatible));
}

}  // namespace
