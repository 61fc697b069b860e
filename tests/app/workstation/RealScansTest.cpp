// Every set of the collection of real scans in the real workstation: what loads and how, what the rules show
// badly, and what is refused with which words. Expected sizes come from the files' own headers.

#include "WorkstationFixture.h"

#include "support/ModalWatcher.h"
#include "support/SharedData.h"

#include <QDirIterator>

#include <algorithm>
#include <array>
#include <numeric>

namespace {

enum class Shown
{
    Rightly,
    Badly,  ///< as the rules say: docs/kept-on-purpose.md has a picture of each kind
};

struct Accepted
{
    const char* path;  ///< a folder is a series or a stack
    Shown shown;
    std::array<int, 3> counts;  ///< voxels along x, y, z; 0 where a side is reduced and padded
    std::array<double, 3> mm;   ///< of a voxel along x, y, z; 0 where it is reduced
    std::array<int, 2> range;   ///< lowest and highest value; twice 0 where the pixels decide
};

constexpr std::array<int, 3> padded{};
constexpr std::array<double, 3> scaled{};
constexpr std::array<int, 2> ofPixels{};

const Accepted accepted[] = {
    {"dicom_series/ct_head_neck_picker", Shown::Rightly, {192, 40, 256}, {1, 3, 1}, ofPixels},
    {"dicom_series/ct_headphantom_tilt_philips",
     Shown::Rightly,
     {512, 3, 512},
     {0.40625, 15, 0.40625},
     ofPixels},
    {"dicom_series/ct_feetfirst_ge_3slice", Shown::Rightly, {512, 3, 512}, {0.810547, 1, 0.810547}, ofPixels},
    {"dicom_series/mr_coronal_philips", Shown::Rightly, {256, 256, 5}, {1.75781, 1.75781, 25}, ofPixels},
    {"dicom_series/mr_noise_encodings/none", Shown::Rightly, {3, 256, 256}, {1, 1, 1}, ofPixels},
    {"dicom_series/mr_noise_encodings/rle", Shown::Rightly, {3, 256, 256}, {1, 1, 1}, ofPixels},
    {"dicom_series/mr_noise_encodings/jpeg_lossless", Shown::Rightly, {3, 256, 256}, {1, 1, 1}, ofPixels},
    {"dicom_series/mr_noise_encodings/jpeg2000", Shown::Rightly, {3, 256, 256}, {1, 1, 1}, ofPixels},
    {"dicom_multiframe/mr_enhanced_hyperfine/001.dcm", Shown::Rightly, padded, scaled, ofPixels},
    {"dicom_single/ct_feetfirst_single_ge/CT_small.dcm",
     Shown::Rightly,
     {128, 1, 128},
     {0.661468, 5, 0.661468},
     ofPixels},
    {"dicom_bad/odd_encoding/image_dfl.dcm", Shown::Rightly, {512, 1, 512}, {0.1, 0.1, 0.1}, ofPixels},
    {"dicom_bad/odd_encoding/liver_1frame.dcm", Shown::Rightly, {512, 1, 512}, {0.1, 0.1, 0.1}, ofPixels},
    {"dicom_bad/odd_encoding/badVR.dcm", Shown::Rightly, padded, scaled, ofPixels},
    {"tiff_multipage/cells_16bit/cancer_cell_migration_crop_every2nd.tif", Shown::Rightly, padded, scaled,
     ofPixels},
    {"tiff_odd/16bit.deflate.tif", Shown::Rightly, {64, 1, 64}, {0.1, 0.1, 0.1}, ofPixels},
    {"tiff_odd/hopper4.tif", Shown::Rightly, {128, 1, 128}, {0.1, 0.1, 0.1}, ofPixels},
    {"tiff_odd/16bit.s.tif", Shown::Rightly, padded, scaled, ofPixels},
    {"raw/human_head_16bit/headsq_quarter.raw", Shown::Rightly, {64, 64, 93}, {3.2, 3.2, 1.5}, ofPixels},
    {"raw/mouse_head_8bit/mouse_129X1_SVJ.vox", Shown::Rightly, padded, scaled, ofPixels},

    // range tags on another scale than the decoded values
    {"dicom_series/mr_phantom_feetfirst_ge", Shown::Badly, {64, 10, 64}, {3.75, 3, 3.75}, {0, 9325}},
    {"dicom_series/mr_phantom_headfirst_ge", Shown::Badly, {64, 10, 64}, {3.75, 3, 3.75}, {0, 10395}},
    {"dicom_series/mr_sagittal_prone_siemens",
     Shown::Badly,
     {5, 256, 256},
     {21.6, 1.015625, 1.015625},
     {0, 1834}},
    {"dicom_single/mr_small_encodings/MR_small.dcm",
     Shown::Badly,
     {64, 1, 64},
     {0.3125, 0.8, 0.3125},
     {0, 4000}},
    {"dicom_single/mr_small_encodings/MR_small_RLE.dcm",
     Shown::Badly,
     {64, 1, 64},
     {0.3125, 0.8, 0.3125},
     {0, 4000}},
    {"dicom_single/mr_small_encodings/MR_small_bigendian.dcm",
     Shown::Badly,
     {64, 1, 64},
     {0.3125, 0.8, 0.3125},
     {0, 4000}},
    {"dicom_single/mr_small_encodings/MR_small_expb.dcm",
     Shown::Badly,
     {64, 1, 64},
     {0.3125, 0.8, 0.3125},
     {0, 4000}},
    {"dicom_single/mr_small_encodings/MR_small_implicit.dcm",
     Shown::Badly,
     {64, 1, 64},
     {0.3125, 0.8, 0.3125},
     {0, 4000}},
    {"dicom_single/mr_small_encodings/MR_small_jp2klossless.dcm",
     Shown::Badly,
     {64, 1, 64},
     {0.3125, 0.8, 0.3125},
     {0, 4000}},
    {"dicom_single/mr_small_encodings/MR_small_jpeg_ls_lossless.dcm",
     Shown::Badly,
     {64, 1, 64},
     {0.3125, 0.8, 0.3125},
     {0, 4000}},
    {"dicom_single/mr_small_encodings/MR_small_padded.dcm",
     Shown::Badly,
     {64, 1, 64},
     {0.3125, 0.8, 0.3125},
     {0, 4000}},
    {"dicom_single/cr_monochrome1_tiny/6154", Shown::Badly, padded, scaled, ofPixels},
    // the upper clip knows 16 bits
    {"dicom_multiframe/rtdose_32bit/rtdose.dcm", Shown::Badly, padded, scaled, {795000, 65534}},
    // no place, plane or spacing but in the functional groups
    {"dicom_multiframe/ct_enhanced_2frames/CT0012_crop256.dcm",
     Shown::Badly,
     {2, 256, 256},
     {0.1, 0.1, 0.1},
     ofPixels},
    {"dicom_multiframe/ct_enhanced_2frames/CT0012.not_fragmented_bot_rle.dcm",
     Shown::Badly,
     {2, 512, 512},
     {0.1, 0.1, 0.1},
     ofPixels},
    {"dicom_multiframe/ct_enhanced_2frames/CT0012.fragmented_no_bot_jpeg_lossless.70.dcm",
     Shown::Badly,
     {2, 512, 512},
     {0.1, 0.1, 0.1},
     ofPixels},
    {"dicom_multiframe/mr_cardiac_8bit_philips/explicit_little.dcm",
     Shown::Badly,
     {16, 256, 256},
     {10, 0.1, 0.1},
     ofPixels},
    {"dicom_multiframe/mr_enhanced_small/emri_small.dcm",
     Shown::Badly,
     {10, 64, 64},
     {1.2, 0.1, 0.1},
     ofPixels},
    {"dicom_multiframe/mr_enhanced_small/emri_small_RLE.dcm",
     Shown::Badly,
     {10, 64, 64},
     {1.2, 0.1, 0.1},
     ofPixels},
    {"dicom_multiframe/mr_knee_feetfirst_sagittal/MOVEKNEE.dcm",
     Shown::Badly,
     {19, 256, 256},
     {0.1, 0.1, 0.1},
     ofPixels},
    {"dicom_multiframe/ct_legacy_converted/mf.dcm", Shown::Badly, padded, scaled, ofPixels},
    // slices with gaps, slices askew to all axes
    {"dicom_series/ct_tiny_ge_dicomdir/77654033/CT2", Shown::Badly, padded, scaled, ofPixels},
    {"dicom_series/mr_oblique_hitachi", Shown::Badly, {64, 4, 64}, {2.34375, 4, 2.34375}, ofPixels},
    // scouts of two planes, which come to lie in one place
    {"dicom_series/ct_scouts_feetfirst_tiny", Shown::Badly, padded, scaled, ofPixels},
    // resolutions taken as millimetres, and slices as far apart as columns
    {"tiff_stack/mr_banana_16bit", Shown::Badly, {384, 7, 384}, {2.56, 2.56, 2.56}, ofPixels},
    {"tiff_multipage/confocal_grid_8bit_palette/DeconvolutionSampleVerticalGrid1AU-crop_every2nd.tif",
     Shown::Badly, padded, scaled, ofPixels},
    {"tiff_multipage/mouse_8bit_grey/mouse_AKR_20pages.tif", Shown::Badly, padded, scaled, ofPixels},
    {"tiff_odd/12bit.cropped.tif", Shown::Badly, {100, 1, 100}, {72, 72, 72}, ofPixels},
    {"tiff_odd/16bit.MM.cropped.tif", Shown::Badly, {64, 1, 64}, {72, 72, 72}, ofPixels},
    {"tiff_odd/g4-multi.tiff", Shown::Badly, padded, scaled, ofPixels},
    {"tiff_bad/crash-0da013a13571cc8eb457a39fee8db18f8a3c7127.tif", Shown::Badly, padded, scaled, ofPixels},
    // one value everywhere: nothing is to be seen
    {"tiff_odd/multipage.tiff", Shown::Badly, padded, scaled, ofPixels},
    {"tiff_odd/multipage-mmap.tiff", Shown::Badly, padded, scaled, ofPixels},
    {"tiff_odd/uint16_1_4660.tif", Shown::Badly, padded, scaled, ofPixels},
    {"tiff_bad/multipage_single_frame_loop.tiff", Shown::Badly, padded, scaled, ofPixels},
    // signed: every frame stretched for itself
    {"raw/ct_hounsfield_signed16/ct_head_crop_hu.raw", Shown::Badly, padded, scaled, ofPixels},
};

struct Refused
{
    const char* path;
    const char* words;
    bool box = false;  ///< told in a box; the readers' own words stand in the log
};

constexpr const char* notMonochrome = "Application supports only Monochrome1 and Monochrome2 type";
constexpr const char* noColumns = "Loading aborted. Unable to find Column information.";
constexpr const char* noTiff = "Unable to load volume. TIFF file not compatible.";
constexpr const char* noVolume = "This file cannot be opened as a volume.";

const Refused refused[] = {
    {"dicom_series/ct_tiny_ge_dicomdir/DICOMDIR", noColumns},
    {"dicom_bad/not_an_image/rtstruct.dcm", noColumns},
    {"dicom_bad/not_an_image/rtplan.dcm", noColumns},
    {"dicom_bad/not_an_image/reportsi.dcm", noColumns},
    {"dicom_bad/colour/ExplVR_BigEnd.dcm", notMonochrome},
    {"dicom_bad/colour/color-px.dcm", notMonochrome},
    {"dicom_bad/colour/OBXXXX1A_rle_2frame.dcm", notMonochrome},
    {"dicom_bad/missing_tags/no-pixel-spacing.dcm", notMonochrome},
    {"dicom_bad/missing_tags/dwv-test_no-number-rows.dcm",
     "Loading aborted. Unable to find Row information."},
    {"dicom_bad/truncated/MR_truncated.dcm", "Unable to load volume. DICOM not compatible."},
    {"dicom_bad/odd_encoding/meta_missing_tsyntax.dcm", noColumns},
    {"dicom_bad/odd_encoding/ExplVR_LitEndNoMeta.dcm", noColumns},
    {"dicom_bad/odd_encoding/no_meta.dcm", noVolume, true},
    {"tiff_odd/hopper_lzw.tif", noTiff},
    {"tiff_odd/hopper_bigtiff.tif", noTiff},
    {"tiff_odd/10ct_32bit_128.tiff", noTiff},
    {"tiff_bad/crash-0c7e0e8e11ce787078f00b5b0ca409a167f070e0.tif", noTiff},
    {"tiff_bad/crash-1152ec2d1a1a71395b6f2ce6721c38924d025bf3.tif", noTiff},
    {"tiff_bad/crash-63b1dffefc8c075ddc606c0a2f5fdc15ece78863.tif", noTiff},
    {"tiff_bad/crash-2020-10-test.tif", noTiff},
    {"tiff_bad/oom-225817ca0f8c663be7ab4b9e717b02c661e66834.tif", noVolume, true},
    {"tiff_bad/seek_too_large.tif", noVolume, true},
};

constexpr const char* askedFor = "raw/mouse_crop_headerless/mouse_AKR_crop_64x80x48_8bit.raw";

class RealScansTest : public WorkstationFixture
{
protected:
    void SetUp() override
    {
        if (viz_test::sharedData("raw").isEmpty()) GTEST_SKIP() << "no collection of real scans";
        WorkstationFixture::SetUp();
        m_window->hide();  // what is shown is drawn anew, and measured, by each of many loads
    }
    void TearDown() override
    {
        if (m_window) WorkstationFixture::TearDown();
    }

    MainWindow::OpenResult open(const char* path) const
    {
        return m_window->openVolume({viz_test::sharedData(path)});
    }
    qint64 voxelCount() const
    {
        return qint64(volume()->getWidth()) * volume()->getHeight() * volume()->getDepth();
    }
    /// Mean of the voxels of one plane across y, from 0 to 255.
    double meanOfPlane(int y) const
    {
        const int width = volume()->getWidth(), height = volume()->getHeight();
        double sum = 0;
        for (int z = 0; z < volume()->getDepth(); ++z)
            for (int x = 0; x < width; ++x)
                sum += volume()->getVolumeData()[(qint64(z) * height + y) * width + x];
        return sum / width / volume()->getDepth();
    }
};

TEST_F(RealScansTest, WhatTheRulesAcceptLoadsInItsSize)
{
    for (const Accepted& scan : accepted) {
        SCOPED_TRACE(scan.path);
        const viz_test::ModalWatcher modal;
        ASSERT_EQ(open(scan.path), MainWindow::OpenResult::Loaded)
            << m_services->lastComplaint().toStdString();
        ASSERT_TRUE(volume());
        if (scan.counts != padded) {
            EXPECT_EQ(volume()->getWidth(), scan.counts[0]);
            EXPECT_EQ(volume()->getHeight(), scan.counts[1]);
            EXPECT_EQ(volume()->getDepth(), scan.counts[2]);
            const Coord3d mm = volume()->getThickness();
            EXPECT_NEAR(mm.x, scan.mm[0], 1e-4);
            EXPECT_NEAR(mm.y, scan.mm[1], 1e-4);
            EXPECT_NEAR(mm.z, scan.mm[2], 1e-4);
        }
        if (scan.range != ofPixels) {
            EXPECT_EQ(volume()->getMin(), scan.range[0]);
            EXPECT_EQ(volume()->getMax(), scan.range[1]);
        }
        if (scan.shown == Shown::Rightly) {
            const auto [low, high] =
                std::minmax_element(volume()->getVolumeData(), volume()->getVolumeData() + voxelCount());
            // reducing takes a little off the ends
            EXPECT_LE(*low, scan.counts == padded ? 8 : 0);
            EXPECT_GE(*high, scan.counts == padded ? 192 : 255) << "the whole range is used";
        }
    }
}

TEST_F(RealScansTest, OthersAreRefusedWithTheRightWords)
{
    for (const Refused& file : refused) {
        SCOPED_TRACE(file.path);
        viz_test::ModalWatcher modal;
        if (file.box) modal.expectButton("OK");
        EXPECT_EQ(open(file.path), MainWindow::OpenResult::Failed);
        EXPECT_TRUE(m_services->lastComplaint().contains(file.words))
            << m_services->lastComplaint().toStdString();
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    }
}

TEST_F(RealScansTest, WhatHasNoHeaderIsAskedFor)
{
    viz_test::ModalWatcher modal;
    modal.expectButton("Cancel");
    EXPECT_EQ(open(askedFor), MainWindow::OpenResult::Failed);
}

/// The files go from the crown down; the folder's order is that of the slices' places.
TEST_F(RealScansTest, AHeadStandsUprightWhicheverWayItsFilesAreNumbered)
{
    ASSERT_EQ(open("dicom_series/ct_head_neck_picker"), MainWindow::OpenResult::Loaded);
    const int height = volume()->getHeight();
    EXPECT_LT(meanOfPlane(height - 1), 0.8 * meanOfPlane(height / 2)) << "the crown is on top";
}

/// The other way round, as a list that somebody gives.
TEST_F(RealScansTest, AGivenListOfAHeadFromItsCrownDownStandsOnIt)
{
    const QDir folder(viz_test::sharedData("dicom_series/ct_head_neck_picker"));
    QStringList files;
    for (const QString& name : folder.entryList(QDir::Files, QDir::Name))
        files << folder.absoluteFilePath(name);
    ASSERT_EQ(m_window->openVolume(files), MainWindow::OpenResult::Loaded);
    EXPECT_LT(meanOfPlane(0), 0.8 * meanOfPlane(volume()->getHeight() / 2)) << "the crown is at the bottom";
}

TEST_F(RealScansTest, ADoseOf32BitsIsNotSeen)
{
    ASSERT_EQ(open("dicom_multiframe/rtdose_32bit/rtdose.dcm"), MainWindow::OpenResult::Loaded);
    const auto [low, high] =
        std::minmax_element(volume()->getVolumeData(), volume()->getVolumeData() + voxelCount());
    EXPECT_EQ(*low, *high);
}

TEST_F(RealScansTest, EverySetIsOnOneOfTheLists)
{
    QStringList listed{askedFor};
    for (const Accepted& scan : accepted)
        listed << scan.path;
    for (const Refused& file : refused)
        listed << file.path;
    const QDir root(QString::fromLocal8Bit(qgetenv("VIZ_SHARED_DATA")));
    QDirIterator files(root.path(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString file = root.relativeFilePath(files.next());
        if (file.startsWith("LICENSES/") || file == "README.md") continue;
        EXPECT_TRUE(std::any_of(listed.cbegin(), listed.cend(), [&](const QString& name) {
            return file.startsWith(name);
        })) << file.toStdString();
    }
}

}  // namespace
