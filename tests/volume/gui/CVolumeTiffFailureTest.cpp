#include "support/TiffDamage.h"
#include "volume/support/ProgressWatcher.h"
#include "volume/support/VolumeTiff.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <random>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;
using viz_test::columns;
using viz_test::constant;
using viz_test::frameOf;
using viz_test::kindOf;
using viz_test::ProgressWatcher;
using viz_test::rows;
using viz_test::TiffKind;
using viz_test::Values;
using Entry = viz_test::RecordingHost::Entry;

const Entry canceled{16, "Open Volume action canceled by user."};
const Entry lowMemory{3, "Volume loading aborted. Low memory encountered."};
const Entry aborted{3, "Loading of TIFF frame data aborted."};
const Entry notCompatible{3, "Unable to load volume. TIFF file not compatible."};
const Entry noMemory{3, "Unable to allocate memory for Volume data."};

class VolumeTiffFailure : public viz_test::VolumeTiff
{};

// ---- the dialog ----

TEST_F(VolumeTiffFailure, ShortMemoryAsksOnceForAStack)
{
    TiffKind kind = kindOf(8);
    kind.xResolution = 2;
    kind.yResolution = 3;
    write("a.tif", kind, frameOf(0));
    write("b.tif", kind, frameOf(1));
    modal.expect(afterShortMemory([this](CVolumeInfoDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), "Volume File Information");
        EXPECT_FALSE(dialog.fileGroup->isVisible());
        EXPECT_FALSE(dialog.orientationGroup->isVisible());
        EXPECT_TRUE(dialog.fileLabel->toolTip().endsWith("b.tif"));
        EXPECT_EQ(dialog.getColumns(), 20);
        EXPECT_EQ(dialog.getRows(), 40);
        EXPECT_EQ(dialog.getFrames(), 3) << "names in the list";
        EXPECT_EQ(dialog.getHeaderOffset(), 0);
        EXPECT_EQ(dialog.getRowSpacing(), 2.0F);
        EXPECT_EQ(dialog.getColumnSpacing(), 3.0F);
        EXPECT_EQ(dialog.getSliceSpacing(), 2.0F);
        EXPECT_EQ(dialog.getResolution(), 100);
        dialog.setRowSpacing(0.5);
        dialog.setColumnSpacing(0.25);
        dialog.setSliceSpacing(4);
        EXPECT_EQ(host.cursorsRestored, 1);
        EXPECT_THAT(host.cursorsSet, IsEmpty());
    }));
    ASSERT_TRUE(loadStack({"a.tif", "b.tif", "a.tif"}));
    EXPECT_FLOAT_EQ(reader.getExtent()[0], 0.25F * columns);
    EXPECT_FLOAT_EQ(reader.getExtent()[1], 0.5F * rows);
    EXPECT_FLOAT_EQ(reader.getExtent()[2], 12.0F);
    EXPECT_EQ(info("PixelSpacing"), "3, 2") << "as the file says";
    EXPECT_EQ(info("SpacingBetweenSlices"), "4");
}

TEST_F(VolumeTiffFailure, AsLongAsThereIsOneFrameTheQuestionIsNotRepeated)
{
    write("a.tif", kindOf(8), frameOf(0));
    write("wide.tif", kindOf(8, 40, 40), constant(kindOf(8, 40, 40), 3));
    write("c.tif", kindOf(8), frameOf(1));
    modal.expect(afterShortMemory([](CVolumeInfoDialog& dialog) {
        dialog.setRowSpacing(0.5);
        dialog.setSliceSpacing(4);
    }));
    ASSERT_TRUE(loadStack({"a.tif", "wide.tif", "c.tif"}));
    EXPECT_EQ(host.cursorsRestored, 2);
    EXPECT_FLOAT_EQ(reader.getSliceSpacing(), 0.5F) << "set to the X spacing before each candidate";
}

TEST_F(VolumeTiffFailure, ShortMemoryAsksForPages)
{
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1)});
    modal.expect(afterShortMemory([](CVolumeInfoDialog& dialog) {
        EXPECT_EQ(dialog.getFrames(), 2);
        EXPECT_TRUE(dialog.fileLabel->toolTip().endsWith("v.tif"));
        dialog.setSliceSpacing(4);
    }));
    ASSERT_TRUE(loadPages("v.tif"));
    expectVoxels({0, 1});
    EXPECT_FLOAT_EQ(reader.getExtent()[2], 8.0F);
    EXPECT_EQ(info("SpacingBetweenSlices"), "0.1") << "as the file says";
}

TEST_F(VolumeTiffFailure, CancelIsLoggedForTheStatusLine)
{
    host.memoryIsFull = true;
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1)});
    write("a.tif", kindOf(8), frameOf(0));
    modal.expectButton("Cancel");
    modal.expectButton("Cancel");
    EXPECT_FALSE(loadPages("v.tif"));
    EXPECT_FALSE(loadStack({"a.tif", "a.tif"}));
    EXPECT_THAT(host.failures(), ElementsAre(canceled, canceled));
    EXPECT_EQ(reader.getVoxels(), nullptr);
    EXPECT_EQ(host.cursorsRestored, 2);
    EXPECT_THAT(host.cursorsSet, IsEmpty());
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->inherits("CHVSProgressBar")) << "closed and deleted";
}

TEST_F(VolumeTiffFailure, AcceptingWithShortMemoryIsRefused)
{
    host.memoryIsFull = true;
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1)});
    modal.expect(answering([](CVolumeInfoDialog& dialog) { dialog.accept(); }));
    EXPECT_FALSE(loadPages("v.tif"));
    EXPECT_THAT(host.failures(), ElementsAre(lowMemory));
}

// ---- failures ----

TEST_F(VolumeTiffFailure, AListWithoutTiffFilesIsRefused)
{
    folder.write("a.txt", "no picture");
    folder.write("empty.tif", {});
    EXPECT_FALSE(loadStack({"a.txt", "empty.tif", "missing.tif"}));
    EXPECT_THAT(host.failures(), ElementsAre(notCompatible));
    EXPECT_EQ(reader.getVoxels(), nullptr);
}

TEST_F(VolumeTiffFailure, AFileThatIsNoTiffIsRefused)
{
    folder.write("a.txt", "no picture");
    EXPECT_FALSE(loadPages("a.txt"));
    EXPECT_FALSE(loadPages("missing.tif"));
    EXPECT_THAT(host.failures(), ElementsAre(notCompatible, notCompatible));
}

TEST_F(VolumeTiffFailure, UnknownKindsOfSamplesAreRefusedWithAReason)
{
    TiffKind real = kindOf(32);
    real.format = SAMPLEFORMAT_IEEEFP;
    TiffKind colour = kindOf(8);
    colour.samples = 3;
    colour.photometric = PHOTOMETRIC_RGB;
    write("float.tif", real, constant(real, 0x3F800000U));
    write("rgb.tif", colour, Values(std::size_t{columns} * rows * 3, 5));
    write("good.tif", kindOf(8), frameOf(0));

    EXPECT_FALSE(loadPages("float.tif"));
    EXPECT_THAT(host.failures(), ElementsAre(notCompatible));
    EXPECT_THAT(host.entries, Contains(Pair(2, HasSubstr("float.tif: the picture has floating-point"))));
    EXPECT_FALSE(loadPages("rgb.tif"));
    EXPECT_FALSE(loadStack({"float.tif", "good.tif"}));
    EXPECT_FALSE(loadStack({"good.tif", "rgb.tif"}));
    EXPECT_FALSE(loadStack({"good.tif", "good.tif", "float.tif"}));
    EXPECT_THAT(host.failures(),
                ElementsAre(notCompatible, notCompatible, notCompatible, notCompatible, notCompatible));
}

TEST_F(VolumeTiffFailure, OneUnreadablePageSpoilsTheLoad)
{
    TIFF* const file = TIFFOpen(folder.encoded("v.tif").constData(), "w");
    viz_test::writeTiffPage(file, kindOf(32), frameOf(0));
    TIFFWriteDirectory(file);
    TiffKind real = kindOf(32);
    real.format = SAMPLEFORMAT_IEEEFP;
    viz_test::writeTiffPage(file, real, frameOf(1));
    TIFFWriteDirectory(file);
    TIFFClose(file);
    EXPECT_FALSE(loadPages("v.tif"));
    EXPECT_THAT(host.failures(), ElementsAre(notCompatible));
    ASSERT_TRUE(loadPages("v.tif", 0, 0)) << "pages that are not asked for do not matter";
}

TEST_F(VolumeTiffFailure, AFileThatVanishesBetweenThePassesIsMissed)
{
    for (unsigned f = 0; f < 3; ++f)
        write(QStringLiteral("%1.tif").arg(f), kindOf(8), frameOf(f));
    ProgressWatcher progress;
    progress.onStep = [this](CHVSProgressBar& dialog) {
        if (dialog.windowTitle() == "Loading TIFF frame data...") QFile::remove(path("2.tif"));
    };
    EXPECT_FALSE(loadStack({"0.tif", "1.tif", "2.tif"}));
    EXPECT_THAT(host.failures(), ElementsAre(notCompatible));
}

TEST_F(VolumeTiffFailure, AFileThatChangesItsSizeBetweenThePassesStaysEmpty)
{
    for (unsigned f = 0; f < 2; ++f)
        write(QStringLiteral("%1.tif").arg(f), kindOf(8), frameOf(f));
    ProgressWatcher progress;
    progress.onStep = [this](CHVSProgressBar& dialog) {
        if (dialog.windowTitle() == "Loading TIFF frame data...")
            write("1.tif", kindOf(8, 40, 40), constant(kindOf(8, 40, 40), 3));
    };
    ASSERT_TRUE(loadStack({"0.tif", "1.tif"}));
    EXPECT_TRUE(isEmptyFrame(1));
}

TEST_F(VolumeTiffFailure, PagesAreReadToTheEndThoughTheFileIsRemoved)
{
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1)});
    ProgressWatcher progress;
    progress.onStep = [this](CHVSProgressBar&) { QFile::remove(path("v.tif")); };
    ASSERT_TRUE(loadPages("v.tif"));
    expectVoxels({0, 1});
}

TEST_F(VolumeTiffFailure, PagesThatAreCutBetweenThePassesAreRefused)
{
    const TiffKind kind = kindOf(16, 128, 128);
    viz_test::writeTiff(path("v.tif"), kind, {constant(kind, 1), constant(kind, 2), constant(kind, 3)});
    ProgressWatcher progress;
    progress.onStep = [this](CHVSProgressBar& dialog) {
        if (dialog.windowTitle() == "Loading Tiff frame data...") QFile::resize(path("v.tif"), 100);
    };
    EXPECT_FALSE(loadPages("v.tif"));
    EXPECT_THAT(host.failures(), ElementsAre(notCompatible));
}

TEST_F(VolumeTiffFailure, ABlockBeyondMemoryIsRefused)
{
    // A directory alone: 2147483647 x 2147483647 pixels of 8 bits
    const unsigned char bytes[] = {'I',  'I', 42, 0, 8, 0, 0, 0, 4,    0,                 //
                                   0,    1,   4,  0, 1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0x7F,  //
                                   1,    1,   4,  0, 1, 0, 0, 0, 0xFF, 0xFF, 0xFF, 0x7F,  //
                                   2,    1,   3,  0, 1, 0, 0, 0, 8,    0,    0,    0,     //
                                   0x11, 1,   4,  0, 1, 0, 0, 0, 8,    0,    0,    0,    0, 0, 0, 0};
    folder.write("huge.tif", QByteArray(reinterpret_cast<const char*>(bytes), sizeof bytes));
    EXPECT_FALSE(loadPages("huge.tif"));
    EXPECT_THAT(host.failures(), ElementsAre(noMemory));
    EXPECT_FALSE(loadStack({"huge.tif", "missing.tif"}));
    EXPECT_THAT(host.failures(), ElementsAre(noMemory, noMemory));
}

TEST_F(VolumeTiffFailure, DamagedFilesLoadOrEndWithOneWord)
{
    // a few, unless VIZ_MUTATIONS says more
    const char* const wanted = std::getenv("VIZ_MUTATIONS");
    const unsigned rounds = wanted ? static_cast<unsigned>(std::strtoul(wanted, nullptr, 10)) : 25;
    std::mt19937 random(20);
    unsigned loaded = 0;
    for (const int compression : {COMPRESSION_NONE, COMPRESSION_LZW}) {
        TiffKind kind = kindOf(16);
        kind.compression = compression;
        viz_test::writeTiff(path("good.tif"), kind, {frameOf(0), frameOf(1), frameOf(2)}, "wl");
        const QByteArray good = folder.contents("good.tif");
        for (unsigned i = 0; i < rounds; ++i) {
            QByteArray bytes = good;
            viz_test::damageTiff(bytes, random);
            folder.write("bad.tif", bytes);
            for (const bool stack : {false, true}) {
                host.entries.clear();
                const bool success =
                    stack ? loadStack({"good.tif", "bad.tif", "good.tif"}) : loadPages("bad.tif");
                ASSERT_EQ(host.failures().size(), success ? 0U : 1U) << compression << ", round " << i;
                loaded += success ? 1 : 0;
            }
        }
    }
    EXPECT_GT(loaded, rounds) << "most damage hits nothing that matters";
}

// ---- progress ----

TEST_F(VolumeTiffFailure, ProgressHasTwoTitlesForAStack)
{
    write("a.tif", kindOf(8), frameOf(0));
    ProgressWatcher progress;
    bool modalAndUnowned = true;
    progress.onStep = [&](CHVSProgressBar& dialog) {
        modalAndUnowned = modalAndUnowned && dialog.isModal() && dialog.parent() == nullptr;
    };
    ASSERT_TRUE(loadStack({"a.tif", "a.tif", "a.tif"}));
    EXPECT_EQ(progress.titles, QStringList({"Scanning through TIFF data...", "Loading TIFF frame data..."}));
    EXPECT_TRUE(modalAndUnowned);
    EXPECT_GE(progress.steps, 6);
}

TEST_F(VolumeTiffFailure, ProgressHasTwoOtherTitlesForPages)
{
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1)});
    ProgressWatcher progress;
    ASSERT_TRUE(loadPages("v.tif"));
    EXPECT_EQ(progress.titles, QStringList({"Scanning through Tiff data...", "Loading Tiff frame data..."}));
    EXPECT_GE(progress.steps, 4);
    for (const QWidget* window : QApplication::topLevelWidgets())
        EXPECT_FALSE(window->inherits("CHVSProgressBar")) << "closed and deleted";
}

TEST_F(VolumeTiffFailure, ClosingTheProgressEndsTheLoadAtEveryStep)
{
    write("a.tif", kindOf(8), frameOf(0));
    viz_test::writeTiff(path("v.tif"), kindOf(8), {frameOf(0), frameOf(1), frameOf(2)});
    for (const bool stack : {true, false})
        for (int step = 1; step <= 5; ++step) {
            host.entries.clear();
            ProgressWatcher progress;
            progress.onStep = [&](CHVSProgressBar& dialog) {
                if (progress.steps == step) dialog.close();
            };
            EXPECT_FALSE(stack ? loadStack({"a.tif", "a.tif", "a.tif"}) : loadPages("v.tif")) << step;
            EXPECT_THAT(host.failures(), ElementsAre(aborted));
            EXPECT_EQ(progress.steps, step);
        }
}

}  // namespace
