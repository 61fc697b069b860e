#include "volume/CVolumeDicom.h"

#include "support/ModalWatcher.h"
#include "support/SharedData.h"
#include "volume/support/RecordingHost.h"

#include <QDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using viz_test::sharedData;
using Entry = viz_test::RecordingHost::Entry;

constexpr unsigned allFrames = 0xFFFFFFFF;

QStringList filesOf(const QString& path)
{
    if (!QFileInfo(path).isDir()) return {path};
    QStringList files;
    const QDir directory(path);
    for (const QString& name : directory.entryList(QDir::Files, QDir::Name))
        files << directory.absoluteFilePath(name);
    return files;
}

struct Accepted
{
    const char* path;  // a folder is a series
    std::array<unsigned, 3> counts;
    std::array<float, 2> inPlane;  // extents of the first two axes of the volume, in mm
    bool feetFirst;
};

TEST(RealDicom, ScansLoadInTheirSizes)
{
    if (sharedData("dicom_series").isEmpty()) GTEST_SKIP() << "no collection of real scans";
    for (const Accepted& scan : {
             Accepted{"dicom_series/ct_head_neck_picker", {192, 40, 256}, {192.0F, 256.0F}, false},
             Accepted{"dicom_series/ct_headphantom_tilt_philips", {512, 3, 512}, {208.026F, 208.026F}, false},
             Accepted{"dicom_series/ct_feetfirst_ge_3slice", {512, 3, 512}, {414.976F, 414.976F}, true},
             Accepted{"dicom_series/mr_phantom_feetfirst_ge", {64, 10, 64}, {240.0F, 240.0F}, true},
             Accepted{"dicom_series/mr_phantom_headfirst_ge", {64, 10, 64}, {240.0F, 240.0F}, false},
             Accepted{"dicom_series/mr_coronal_philips", {256, 256, 5}, {449.997F, 125.0F}, false},
             Accepted{"dicom_series/mr_sagittal_prone_siemens", {5, 256, 256}, {108.0F, 259.994F}, false},
             Accepted{"dicom_series/mr_noise_encodings/none", {3, 256, 256}, {3.0F, 256.0F}, false},
             Accepted{"dicom_series/mr_noise_encodings/rle", {3, 256, 256}, {3.0F, 256.0F}, false},
             Accepted{"dicom_series/mr_noise_encodings/jpeg_lossless", {3, 256, 256}, {3.0F, 256.0F}, false},
             Accepted{"dicom_series/mr_noise_encodings/jpeg2000", {3, 256, 256}, {3.0F, 256.0F}, false},
             Accepted{"dicom_series/ct_scouts_feetfirst_tiny", {2, 64, 64}, {0.0F, 8.727F}, true},
             Accepted{"dicom_series/mr_oblique_hitachi", {64, 4, 64}, {150.003F, 150.003F}, false},
             Accepted{"dicom_multiframe/mr_knee_feetfirst_sagittal/MOVEKNEE.dcm",
                      {19, 256, 256},
                      {1.9F, 25.6F},
                      true},
             Accepted{"dicom_multiframe/mr_cardiac_8bit_philips/explicit_little.dcm",
                      {16, 256, 256},
                      {160.0F, 25.6F},
                      false},
             Accepted{
                 "dicom_multiframe/mr_enhanced_small/emri_small.dcm", {10, 64, 64}, {12.0F, 6.4F}, false},
             Accepted{
                 "dicom_multiframe/mr_enhanced_small/emri_small_RLE.dcm", {10, 64, 64}, {12.0F, 6.4F}, false},
             Accepted{"dicom_multiframe/rtdose_32bit/rtdose.dcm", {64, 15, 64}, {100.0F, 100.0F}, false},
         }) {
        viz_test::RecordingHost host;
        viz_test::ModalWatcher modal;
        CVolumeDicom reader(nullptr);
        ASSERT_TRUE(reader.loadVolumeFiles(filesOf(sharedData(scan.path)), allFrames, allFrames, false))
            << scan.path;
        EXPECT_THAT(
            (std::array<unsigned, 3>{reader.getLoadColumns(), reader.getLoadRows(), reader.getFrames()}),
            scan.counts)
            << scan.path;
        EXPECT_NEAR(reader.getExtent()[0], scan.inPlane[0], 0.001F) << scan.path;
        EXPECT_NEAR(reader.getExtent()[1], scan.inPlane[1], 0.001F) << scan.path;
        EXPECT_EQ(reader.isFeetFirst(), scan.feetFirst) << scan.path;
        EXPECT_THAT(host.failures(), IsEmpty()) << scan.path;
    }
}

// The same voxels in every encoding.
TEST(RealDicom, EncodingsOfOneSliceAgree)
{
    const QString folder = sharedData("dicom_single/mr_small_encodings");
    if (folder.isEmpty()) GTEST_SKIP() << "no collection of real scans";
    std::vector<unsigned char> first;
    for (const QString& path : filesOf(folder)) {
        viz_test::RecordingHost host;
        CVolumeDicom reader(nullptr);
        ASSERT_TRUE(reader.loadVolumeFiles({path}, allFrames, allFrames, false)) << path.toStdString();
        const std::vector<unsigned char> voxels(reader.getVoxels(),
                                                reader.getVoxels() + std::size_t{64} * 64);
        if (first.empty()) first = voxels;
        EXPECT_EQ(voxels, first) << path.toStdString();
    }
}

// A CT with an intercept, whose decoded values lie on both sides of 2^31: air is dark, bone is bright.
TEST(RealDicom, SignedScanIsAGoodPicture)
{
    const QString folder = sharedData("dicom_series/ct_feetfirst_ge_3slice");
    if (folder.isEmpty()) GTEST_SKIP() << "no collection of real scans";
    viz_test::RecordingHost host;
    viz_test::ModalWatcher modal;
    CVolumeDicom reader(nullptr);
    ASSERT_TRUE(reader.loadVolumeFiles(filesOf(folder), allFrames, allFrames, false));
    const auto lowest = static_cast<std::uint32_t>(reader.getMinValue());
    const auto highest = static_cast<std::uint32_t>(reader.getMaxValue());
    EXPECT_LT(lowest, 0x80000000U);
    EXPECT_GT(highest, 0x80000000U);
    const unsigned char* const voxels = reader.getVoxels();
    const auto [least, most] = std::minmax_element(voxels, voxels + std::size_t{512} * 512 * 3);
    EXPECT_EQ(*least, 0);
    EXPECT_EQ(*most, 255);
}

struct Refused
{
    const char* path;
    const char* message;
};

TEST(RealDicom, OthersAreRefusedInTheRightWords)
{
    if (sharedData("dicom_bad").isEmpty()) GTEST_SKIP() << "no collection of real scans";
    const char* const notMonochrome = "DICOM file not compatible. Application supports only Monochrome1 and "
                                      "Monochrome2 type DICOM photometric interpretation.";
    const char* const noColumns = "Loading aborted. Unable to find Column information.";
    const char* const nothing = "Unable to load volume. DICOM not compatible.";
    for (const Refused& file : {
             Refused{"colour/ExplVR_BigEnd.dcm", notMonochrome},
             Refused{"colour/OBXXXX1A_rle_2frame.dcm", notMonochrome},
             Refused{"colour/color-px.dcm", notMonochrome},
             Refused{"missing_tags/no-pixel-spacing.dcm", notMonochrome},
             Refused{"missing_tags/dwv-test_no-number-rows.dcm",
                     "Loading aborted. Unable to find Row information."},
             Refused{"not_an_image/reportsi.dcm", noColumns},
             Refused{"not_an_image/rtplan.dcm", noColumns},
             Refused{"not_an_image/rtstruct.dcm", noColumns},
             Refused{"odd_encoding/no_meta.dcm", nothing},
             Refused{"truncated/MR_truncated.dcm", nothing},
         }) {
        viz_test::RecordingHost host;
        CVolumeDicom reader(nullptr);
        EXPECT_FALSE(
            reader.loadVolumeFiles({sharedData("dicom_bad") + '/' + file.path}, allFrames, allFrames, false))
            << file.path;
        EXPECT_THAT(host.failures(), ElementsAre(Entry(3, file.message))) << file.path;
    }
}

}  // namespace
