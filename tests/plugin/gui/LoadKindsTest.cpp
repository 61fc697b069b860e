#include "gui/PluginBench.h"

#include "hvapi/windows/CHVSSequenceWindow.h"
#include "hvutils/CHVSErrorHandler.h"
#include "lib/hvapi/sequence/SequenceRegistry.h"
#include "lib/hvapi/sequence/SequenceStore.h"
#include "lib/hvapi/windows/WindowRegistry.h"
#include "render/CGLVolume.h"
#include "support/DiskSequence.h"
#include "support/TiffFiles.h"
#include "support/dicom/DicomBuilder.h"

#include <QSignalSpy>

namespace {

/// Files of every kind that the palette can be given.
class LoadKinds : public PluginBench
{
protected:
    void SetUp() override { sequence = openCurrent("S1"); }

    QString path(const char* name) const { return files.filePath(name); }
    bool load(const QStringList& paths, int first = -1, int last = -1)
    {
        return palette->onLoadVolumeData(paths, first, last);
    }

    QStringList series(const DicomBuilder& builder, unsigned slices = 3)
    {
        return writeDicomSeries(files.path(), builder, 128, 64, slices, {0, 0, 0}, {0, 0, 2},
                                [](unsigned x, unsigned y, unsigned z) { return x + 10 * y + 1000 * z; });
    }

    /// One slice whose pixels have no width, and no dialog that would ask for one.
    static QStringList withoutWidth(const QString& folder)
    {
        return writeDicomSeries(folder, DicomBuilder().set(0x0028, 0x0030, "1\\0"), 128, 64, 1, {0, 0, 0},
                                {0, 0, 1}, [](unsigned x, unsigned, unsigned) { return x; });
    }

    QString pages(const char* name, unsigned count) const
    {
        viz_test::TiffKind kind;
        kind.width = 128;  // multiples of 64 load at their full size
        kind.height = 64;
        std::vector<std::vector<std::uint32_t>> values;
        for (unsigned page = 0; page < count; ++page) {
            values.emplace_back(128 * 64);
            for (unsigned i = 0; i < 128 * 64; ++i)
                values.back()[i] = i % 20 + 20 * page;
        }
        viz_test::writeTiff(path(name), kind, values);
        return path(name);
    }

    /// The host's own text for a status.
    QString textOf(int status)
    {
        host.answers.prepend(1024);
        CHVSErrorHandler::errorMessage(nullptr, static_cast<tag_estatus>(status), QString());
        return host.asked.takeLast().text;
    }
    void expectRefusal(const QString& file, int status)
    {
        host.answers = {1024};
        EXPECT_FALSE(load({file}));
        ASSERT_EQ(host.asked.size(), 1);
        EXPECT_EQ(host.asked.first().text, textOf(status));
        EXPECT_EQ(nodeOf(sequence), nullptr);
    }
    void expectCounts(int width, int height, int depth)
    {
        CGLVolume* node = nodeOf(sequence);
        ASSERT_NE(node, nullptr);
        EXPECT_EQ(node->getWidth(), width);
        EXPECT_EQ(node->getHeight(), height);
        EXPECT_EQ(node->getDepth(), depth);
    }

    CHVSSequenceDataset* sequence = nullptr;
};

}  // namespace

TEST_F(LoadKinds, PagesOfATiffStandBetweenColumnsAndRows)
{
    const QString file = pages("a.tif", 3);
    EXPECT_TRUE(load({file}));
    expectCounts(128, 3, 64);
    EXPECT_EQ(nodeOf(sequence)->getMin(), 0);
    EXPECT_EQ(nodeOf(sequence)->getMax(), 59);
    EXPECT_EQ(record("S1").fileList, QStringList(file));
}

TEST_F(LoadKinds, LimitsChooseThePages)
{
    EXPECT_TRUE(load({pages("a.tif", 5)}, 1, 2));
    expectCounts(128, 2, 64);
    EXPECT_EQ(nodeOf(sequence)->getMin(), 0) << "the range starts from the file's first page";
    EXPECT_EQ(nodeOf(sequence)->getMax(), 59);
}

TEST_F(LoadKinds, AllPagesAreTakenWhateverLimitsWereBefore)
{
    EXPECT_TRUE(load({pages("a.tif", 5)}, 1, 2));
    EXPECT_TRUE(load({path("a.tif")}));
    expectCounts(128, 5, 64);
}

TEST_F(LoadKinds, AStackKeepsTheFilesThatGaveFrames)
{
    const QString first = pages("a.tif", 1);
    const QString letter = writeFile("b.tif", "Dear reader");
    const QString last = pages("c.tif", 1);
    EXPECT_TRUE(load({first, letter, last}));
    EXPECT_EQ(record("S1").fileList, QStringList({first, last}));
    EXPECT_EQ(SequenceRegistry::instance().loadedVolumetricData(sequence), QStringList({first, last}));
}

TEST_F(LoadKinds, TiffContentCountsUnderTheNameOfARawFile)
{
    EXPECT_TRUE(load({pages("a.raw", 2)}));
    expectCounts(128, 2, 64);
}

TEST_F(LoadKinds, ATiffThatCannotBeReadLeavesTheOldVolume)
{
    EXPECT_TRUE(load({pages("a.tif", 2)}));
    viz_test::TiffKind real;
    real.width = 1;
    real.height = 1;
    real.bits = 32;
    real.format = SAMPLEFORMAT_IEEEFP;
    viz_test::writeTiff(path("real.tif"), real, {{0}});
    QSignalSpy failed(&plugin, &CHVToolPalettePluginBase::loadingFailed);
    QSignalSpy view(&WindowRegistry::instance(), &WindowRegistry::view3DChanged);
    EXPECT_FALSE(load({path("real.tif")}));
    EXPECT_EQ(failed.count(), 0) << "of DICOM only";
    EXPECT_EQ(view.count(), 1);
    EXPECT_EQ(host.cursorDepth, 0);
    expectCounts(128, 2, 64);
}

TEST_F(LoadKinds, AnAxialSeriesStandsUpright)
{
    const QStringList slices = series(DicomBuilder());
    EXPECT_TRUE(load(slices));
    expectCounts(128, 3, 64);
    const Coord3d thickness = nodeOf(sequence)->getThickness();
    EXPECT_NEAR(thickness.x, 1.0, 1e-5);
    EXPECT_NEAR(thickness.y, 2.0, 1e-5);
    EXPECT_NEAR(thickness.z, 1.0, 1e-5);
    QStringList loaded = record("S1").fileList;
    loaded.sort();
    EXPECT_EQ(loaded, slices);
}

// The extents of the columns and of the rows stand crosswise for sagittal slices, and for those only.
TEST_F(LoadKinds, SagittalSlicesOfUnequalSidesComeOutOfProportion)
{
    const DicomBuilder sagittal = DicomBuilder().orientation({0, -1, 0}, {0, 0, -1});
    EXPECT_TRUE(load(writeDicomSeries(files.path(), sagittal, 128, 64, 3, {0, 0, 0}, {2, 0, 0},
                                      [](unsigned x, unsigned y, unsigned z) { return x + 10 * y + z; })));
    expectCounts(3, 64, 128);
    const Coord3d thickness = nodeOf(sequence)->getThickness();
    EXPECT_NEAR(thickness.x, 2.0, 1e-5);
    EXPECT_NEAR(thickness.y, 2.0, 1e-5) << "128 mm over 64 rows, in place of 64";
    EXPECT_NEAR(thickness.z, 0.5, 1e-5) << "64 mm over 128 columns, in place of 128";
}

TEST_F(LoadKinds, CoronalSlicesKeepTheirProportion)
{
    const DicomBuilder coronal = DicomBuilder().orientation({1, 0, 0}, {0, 0, -1}).spacing(0.5, 0.25);
    EXPECT_TRUE(load(writeDicomSeries(files.path(), coronal, 128, 64, 3, {0, 0, 0}, {0, 2, 0},
                                      [](unsigned x, unsigned y, unsigned z) { return x + 10 * y + z; })));
    expectCounts(128, 64, 3);
    const Coord3d thickness = nodeOf(sequence)->getThickness();
    EXPECT_NEAR(thickness.x, 0.25, 1e-5);
    EXPECT_NEAR(thickness.y, 0.5, 1e-5);
    EXPECT_NEAR(thickness.z, 2.0, 1e-5);
}

TEST_F(LoadKinds, ASingleSliceGetsTheThicknessThatItTells)
{
    const QStringList one = series(DicomBuilder().set(0x0018, 0x0050, "3.5"), 1);
    EXPECT_TRUE(load(one));
    EXPECT_NEAR(nodeOf(sequence)->getThickness().y, 3.5, 1e-5);
}

// Feet first takes the x of (1, 0, 1) for what it is and turns the z round, so that the second slice comes to
// lie in the first one. Two scouts of different planes do the same.
TEST_F(LoadKinds, SlicesInOnePlaceGetTheThicknessThatTheyTell)
{
    const DicomBuilder feetFirst = DicomBuilder().set(0x0018, 0x5100, "FFS").set(0x0018, 0x0050, "3.5");
    const QStringList flat = writeDicomSeries(files.path(), feetFirst, 128, 64, 2, {0, 0, 0}, {1, 0, 1},
                                              [](unsigned x, unsigned, unsigned) { return x; });
    EXPECT_TRUE(load(flat));
    expectCounts(128, 2, 64);
    const Coord3d thickness = nodeOf(sequence)->getThickness();
    EXPECT_NEAR(thickness.x, 1.0, 1e-5);
    EXPECT_NEAR(thickness.y, 3.5, 1e-5);
    EXPECT_NEAR(thickness.z, 1.0, 1e-5);
}

TEST_F(LoadKinds, AVolumeWithoutASizeIsToldAndCountsAsModified)
{
    QSignalSpy failed(&plugin, &CHVToolPalettePluginBase::loadingFailed);
    host.answers = {1024};
    EXPECT_FALSE(load(withoutWidth(files.path())));
    ASSERT_EQ(host.asked.size(), 1);
    EXPECT_EQ(host.asked.first().kind, HostQuestion::Error);
    EXPECT_EQ(host.asked.first().parent, palette);
    EXPECT_EQ(host.asked.first().text, textOf(66));
    EXPECT_FALSE(record("S1").bVolumeLoaded);
    EXPECT_TRUE(record("S1").bModified);
    EXPECT_EQ(failed.count(), 0) << "the scan itself was read";
    EXPECT_EQ(host.cursorDepth, 0);
    EXPECT_FALSE(QFile::exists(dumpPath("S1")));
}

TEST_F(LoadKinds, AVolumeWithoutASizeLeavesTheOldOneInPlace)
{
    const QStringList good = series(DicomBuilder());
    EXPECT_TRUE(load(good));
    const QByteArray voxels = readFile(dumpPath("S1"));
    QTemporaryDir other;
    host.answers = {1024};
    EXPECT_FALSE(load(withoutWidth(other.path())));
    expectCounts(128, 3, 64);
    EXPECT_TRUE(nodeOf(sequence)->isDisplayed());
    EXPECT_EQ(readFile(dumpPath("S1")), voxels);
    EXPECT_TRUE(record("S1").bVolumeLoaded);
    QStringList loaded = record("S1").fileList;
    loaded.sort();
    EXPECT_EQ(loaded, good);
}

TEST_F(LoadKinds, TheMakerOfAScanIsKnownByANumber)
{
    const auto loadFrom = [this](const char* maker) {
        EXPECT_TRUE(load(series(DicomBuilder().set(0x0008, 0x0070, maker), 2)));
        return palette->manufacturer();
    };
    EXPECT_EQ(loadFrom("Rigaku Corporation"), 1);
    EXPECT_EQ(loadFrom("BRENTIS"), 2);
    EXPECT_EQ(loadFrom("qualden gmbh"), 3);
    EXPECT_EQ(loadFrom("Qualden for Rigaku"), 3);
    EXPECT_EQ(loadFrom("Somebody"), 0);
}

TEST_F(LoadKinds, TheMakerIsForgottenByTheNextLoad)
{
    EXPECT_TRUE(load(series(DicomBuilder().set(0x0008, 0x0070, "Rigaku"), 2)));
    ASSERT_EQ(palette->manufacturer(), 1);
    EXPECT_TRUE(load({pages("a.tif", 2)}));
    EXPECT_EQ(palette->manufacturer(), 0);
    EXPECT_TRUE(load(series(DicomBuilder().set(0x0008, 0x0070, "Rigaku"), 2)));
    ASSERT_TRUE(DicomBuilder().withoutPixels().write(path("report.dcm")));
    EXPECT_FALSE(load({path("report.dcm")}));
    EXPECT_EQ(palette->manufacturer(), 0) << "also where nothing was loaded";
}

// The name of its own maker would take the whole 16 bits, if it were known before the files are read.
TEST_F(LoadKinds, TheMakersOwnScansHaveTheirOwnRangeToo)
{
    EXPECT_TRUE(load(series(DicomBuilder().set(0x0008, 0x0070, "Brentis").bits(16, 16), 2)));
    EXPECT_EQ(nodeOf(sequence)->getMin(), 0);
    EXPECT_EQ(nodeOf(sequence)->getMax(), 127 + 630 + 1000);
}

// Signed samples with an intercept are decoded to 32-bit numbers around 2^31: -1024 is 2^31 - 1024.
TEST_F(LoadKinds, ASignedScanHasItsLimitsOnBothSidesOfTwoTo31)
{
    const DicomBuilder ct =
        DicomBuilder().bits(16, 16, true).set(0x0028, 0x1052, "0").set(0x0028, 0x1053, "2");
    const QStringList slices =
        writeDicomSeries(files.path(), ct, 128, 64, 2, {0, 0, 0}, {0, 0, 2},
                         [](unsigned x, unsigned, unsigned) { return static_cast<int>(x) * 20 - 1270; });
    EXPECT_TRUE(load(slices));
    CGLVolume* node = nodeOf(sequence);
    ASSERT_NE(node, nullptr);
    const auto lowest = static_cast<std::uint32_t>(node->getMin());
    const auto highest = static_cast<std::uint32_t>(node->getMax());
    EXPECT_LT(lowest, 0x80000000U);
    EXPECT_GT(highest, 0x80000000U);
    EXPECT_LT(node->getMax(), node->getMin()) << "as signed numbers";
    EXPECT_EQ(record("S1").dVolumeMin, double(lowest));
    EXPECT_EQ(record("S1").dVolumeMax, double(highest));
    for (int x = 0; x < 128; ++x)
        EXPECT_NEAR(node->getVolumeData()[x], x * 255.0 / 127.0, 1.0) << x;
    EXPECT_EQ(readFile(dumpPath("S1")).size(), 128 * 64 * 2);
}

TEST_F(LoadKinds, ASeriesInWhichTheFirstFileIsNoVolumeIsRefused)
{
    QStringList list = series(DicomBuilder());
    list.prepend(writeFile("letter.txt", "Dear reader"));
    host.answers = {1024};
    EXPECT_FALSE(load(list));
    EXPECT_EQ(host.asked.first().text, textOf(11));
}

TEST_F(LoadKinds, ThePicturesOfTheHostAreNamed)
{
    DicomBuilder picture;
    picture.implementation("Halvane 1").set(0x0008, 0x0016, "1.2.840.10008.5.1.4.1.1.7");
    picture.set(0x0029, 0x0010, "HALVANE PLANAR IMAGE");
    ASSERT_TRUE(picture.write(path("picture.dcm")));
    expectRefusal(path("picture.dcm"), 87);
}

TEST_F(LoadKinds, NamesAloneMakeNoVolume)
{
    expectRefusal(writeFile("a.tif", "no picture"), 11);
    host.asked.clear();
    expectRefusal(writeFile("a.dcm", "no scan"), 11);
}

TEST_F(LoadKinds, AFailedScanIsToldToTheHost)
{
    ASSERT_TRUE(DicomBuilder().withoutPixels().write(path("report.dcm")));
    QSignalSpy failed(&plugin, &CHVToolPalettePluginBase::loadingFailed);
    QSignalSpy view(&WindowRegistry::instance(), &WindowRegistry::view3DChanged);
    EXPECT_FALSE(load({path("report.dcm")}));
    EXPECT_EQ(failed.count(), 1);
    EXPECT_EQ(view.count(), 1);
    EXPECT_EQ(host.cursorDepth, 0);
    EXPECT_EQ(nodeOf(sequence), nullptr);
}

TEST_F(LoadKinds, AScanAsAResultIsLoadedAndNotModified)
{
    const QStringList one = series(DicomBuilder(), 1);
    plugin.onLoadResultsSignal("results.txt", one.first());
    EXPECT_TRUE(record("S1").bVolumeLoaded);
    EXPECT_FALSE(record("S1").bModified);
    EXPECT_FALSE(record("S1").bAutoFit);
    EXPECT_EQ(palette->lowerLimit(), -1);

    palette->setResultsModifiedForSequence(true);
    plugin.onLoadResultsSignal("results.txt", "a result");
    EXPECT_TRUE(record("S1").bModified) << "no scan, nothing was loaded";
}

// 3001 Hounsfield units stand at 40110 with this calibration: above what the histogram gives, below the top.
TEST_F(LoadKinds, ACalibratedViewKeepsWhatIsDenserThanBone)
{
    std::vector<std::int64_t> samples(2 * 128 * 64, 100);
    samples[5] = samples[6] = 60000;
    DicomBuilder frames;
    frames.bits(16, 16).size(128, 64, 2).samples(samples);
    ASSERT_TRUE(frames.write(path("frames.dcm")));
    windowOf(sequence)->prepare3DView();
    WindowRegistry::instance().setActive(windowOf(sequence));
    ASSERT_TRUE(load({path("frames.dcm")}));
    EXPECT_EQ(nodeOf(sequence)->getMax(), 101) << "without a calibration the histogram decides";

    const QString file = disk_sequence::make(path("ct"), "CT", {});
    ASSERT_TRUE(disk_sequence::put(file, "[Sequence]\nFormat Version = 1\nSequence Type = CT\n"
                                         "[CT Acquisition Parameters]\nReconstructed Volume Min = 0\n"
                                         "Reconstructed Volume Max = 6.5535\n"
                                         "Hounsfield Calibration Air = 0.01\n"
                                         "Hounsfield Calibration Water = 1.01\n"));
    tag_estatus status = eStatusFailed;
    CHVSSequenceDataset* calibrated = SequenceStore::open(path("ct"), status);
    ASSERT_TRUE(calibrated);
    plugin.onSignalSequenceChanged(calibrated);
    windowOf(calibrated)->prepare3DView();
    WindowRegistry::instance().setActive(windowOf(calibrated));
    ASSERT_TRUE(load({path("frames.dcm")}));
    EXPECT_EQ(nodeOf(calibrated)->getMin(), 100);
    EXPECT_EQ(nodeOf(calibrated)->getMax(), 40110);
}
