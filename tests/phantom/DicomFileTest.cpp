#include "phantom/DicomFile.h"
#include "TemporaryFolder.h"
#include "phantom/CommandLine.h"
#include "phantom/Mouse.h"

#include <dcmtk/dcmdata/dctk.h>
#include <dcmtk/dcmimgle/dcmimage.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace phantom;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

constexpr int n = 16;

/// One written file, as the DICOM library reads it.
class ReadBack
{
public:
    explicit ReadBack(const std::string& path) { m_good = m_file.loadFile(path.c_str()).good(); }

    bool isGood() const { return m_good; }
    std::string text(const DcmTagKey& tag) { return text(*m_file.getDataset(), tag); }
    std::string metaText(const DcmTagKey& tag) { return text(*m_file.getMetaInfo(), tag); }
    std::vector<double> numbers(const DcmTagKey& tag)
    {
        std::vector<double> values;
        Float64 value = 0;
        for (unsigned long i = 0; m_file.getDataset()->findAndGetFloat64(tag, value, i).good(); ++i)
            values.push_back(value);
        return values;
    }
    std::vector<unsigned> pixels()
    {
        const Uint16* words = nullptr;
        const Uint8* bytes = nullptr;
        unsigned long count = 0;
        if (text(DCM_BitsAllocated) == "16") {
            m_file.getDataset()->findAndGetUint16Array(DCM_PixelData, words, &count);
            return {words, words + count};
        }
        m_file.getDataset()->findAndGetUint8Array(DCM_PixelData, bytes, &count);
        return {bytes, bytes + count};
    }
    DcmFileFormat& file() { return m_file; }

private:
    static std::string text(DcmItem& item, const DcmTagKey& tag)
    {
        OFString value;
        item.findAndGetOFStringArray(tag, value);
        return value.c_str();
    }

    DcmFileFormat m_file;
    bool m_good = false;
};

/// RAW voxel (x, y) of frame z, as numbers of 16 bits.
class RawVoxels
{
public:
    RawVoxels()
        : m_bytes(sampledFrames(Scan(mouseOnBed(), n, 1), 0, n, 16, 1))
    {}
    unsigned at(int x, int y, int z) const
    {
        const std::size_t i = 2 * ((static_cast<std::size_t>(z) * n + y) * n + x);
        return m_bytes[i] | m_bytes[i + 1] << 8U;
    }

private:
    std::vector<unsigned char> m_bytes;
};

class DicomFile : public testing::Test
{
protected:
    std::string run(std::vector<std::string> arguments, const std::string& name)
    {
        arguments.insert(arguments.end(), {"--size=16", m_folder.path(name)});
        std::string out, error;
        m_status = runPhantom(arguments, out, error);
        return error;
    }
    std::string sliceName(const std::string& folder, int i) const
    {
        return m_folder.path(folder + (i < 9 ? "/slice-000" : "/slice-00") + std::to_string(i + 1) + ".dcm");
    }

    TemporaryFolder m_folder;
    RawVoxels m_raw;
    int m_status = 0;
};

}  // namespace

TEST_F(DicomFile, aSeriesIsOneFileASliceInOrderOfTheNames)
{
    ASSERT_EQ(run({"--format=dicom", "--spacing=0.25"}, "s"), "");
    const auto names = m_folder.files("s");
    ASSERT_EQ(names.size(), static_cast<std::size_t>(n));
    EXPECT_EQ(names.front(), "slice-0001.dcm");
    EXPECT_EQ(names.back(), "slice-0016.dcm");
    std::set<std::string> instances, series;
    for (int i = 0; i < n; ++i) {
        ReadBack slice(sliceName("s", i));
        ASSERT_TRUE(slice.isGood());
        EXPECT_EQ(slice.text(DCM_InstanceNumber), std::to_string(i + 1));
        EXPECT_EQ(slice.metaText(DCM_MediaStorageSOPInstanceUID), slice.text(DCM_SOPInstanceUID));
        instances.insert(slice.text(DCM_SOPInstanceUID));
        series.insert(slice.text(DCM_SeriesInstanceUID));
    }
    EXPECT_EQ(instances.size(), static_cast<std::size_t>(n));
    EXPECT_EQ(series.size(), 1U);
}

TEST_F(DicomFile, axialSlicesTellTheirGeometry)
{
    ASSERT_EQ(run({"--format=dicom", "--spacing=0.25"}, "s"), "");
    for (const int i : {0, 1, 15}) {
        ReadBack slice(sliceName("s", i));
        // 16 voxels of 0.25 mm: the first centre lies 7.5 voxels before the middle.
        EXPECT_THAT(slice.numbers(DCM_ImagePositionPatient), ElementsAre(-1.875, -1.875, -1.875 + 0.25 * i));
        EXPECT_THAT(slice.numbers(DCM_ImageOrientationPatient), ElementsAre(1, 0, 0, 0, 1, 0));
        EXPECT_THAT(slice.numbers(DCM_PixelSpacing), ElementsAre(0.25, 0.25));
        EXPECT_THAT(slice.numbers(DCM_SliceThickness), ElementsAre(0.25));
        EXPECT_THAT(slice.numbers(DCM_SpacingBetweenSlices), ElementsAre(0.25));
        EXPECT_THAT(slice.numbers(DCM_SliceLocation), ElementsAre(-1.875 + 0.25 * i));
        EXPECT_EQ(slice.text(DCM_PatientPosition), "HFS");
        EXPECT_EQ(slice.text(DCM_ImageType), "ORIGINAL\\PRIMARY\\AXIAL");
        EXPECT_EQ(slice.text(DCM_Modality), "CT");
        EXPECT_EQ(slice.text(DCM_Rows), "16");
        EXPECT_EQ(slice.text(DCM_Columns), "16");
        EXPECT_EQ(slice.text(DCM_BitsStored), "16");
        EXPECT_EQ(slice.text(DCM_PatientName), "PHANTOM^MOUSE");
        EXPECT_EQ(slice.text(DCM_StudyDate), "");
        EXPECT_EQ(slice.text(DCM_NumberOfFrames), "");
    }
}

TEST_F(DicomFile, coronalAndSagittalSlicesTellTheirGeometry)
{
    ASSERT_EQ(run({"--format=dicom", "--orientation=coronal", "--spacing=0.25"}, "c"), "");
    ReadBack coronal(sliceName("c", 3));
    EXPECT_THAT(coronal.numbers(DCM_ImagePositionPatient), ElementsAre(-1.875, -1.125, 1.875));
    EXPECT_THAT(coronal.numbers(DCM_ImageOrientationPatient), ElementsAre(1, 0, 0, 0, 0, -1));
    EXPECT_EQ(coronal.text(DCM_ImageType), "ORIGINAL\\PRIMARY\\CORONAL");
    ASSERT_EQ(run({"--format=dicom", "--orientation=sagittal", "--spacing=0.25"}, "s"), "");
    ReadBack sagittal(sliceName("s", 3));
    EXPECT_THAT(sagittal.numbers(DCM_ImagePositionPatient), ElementsAre(-1.125, 1.875, 1.875));
    EXPECT_THAT(sagittal.numbers(DCM_ImageOrientationPatient), ElementsAre(0, -1, 0, 0, 0, -1));
    EXPECT_EQ(sagittal.text(DCM_ImageType), "ORIGINAL\\PRIMARY\\SAGITTAL");
}

TEST_F(DicomFile, pixelsAreTheRawVoxels)
{
    ASSERT_EQ(run({"--format=dicom"}, "a"), "");
    ASSERT_EQ(run({"--format=dicom", "--orientation=coronal"}, "c"), "");
    ASSERT_EQ(run({"--format=dicom", "--orientation=sagittal"}, "s"), "");
    for (int i = 0; i < n; ++i) {
        const auto axial = ReadBack(sliceName("a", i)).pixels();
        const auto coronal = ReadBack(sliceName("c", i)).pixels();
        const auto sagittal = ReadBack(sliceName("s", i)).pixels();
        ASSERT_EQ(axial.size(), static_cast<std::size_t>(n) * n);
        for (int r = 0; r < n; ++r)
            for (int c = 0; c < n; ++c) {
                ASSERT_EQ(axial[r * n + c], m_raw.at(c, i, n - 1 - r));
                ASSERT_EQ(coronal[r * n + c], m_raw.at(c, n - 1 - r, n - 1 - i));
                ASSERT_EQ(sagittal[r * n + c], m_raw.at(i, n - 1 - r, c));
            }
    }
}

TEST_F(DicomFile, pixelsComeThroughTheDecoderAsTheyAre)
{
    ASSERT_EQ(run({"--format=dicom"}, "a"), "");
    ReadBack slice(sliceName("a", 8));
    DicomImage image(slice.file().getDataset(), slice.file().getDataset()->getOriginalXfer(), 1);
    ASSERT_EQ(image.getStatus(), EIS_Normal);
    EXPECT_EQ(image.getDepth(), 16);
    const auto* data = static_cast<const Uint16*>(image.getOutputData(16, 0, 0));
    ASSERT_NE(data, nullptr);
    const auto pixels = slice.pixels();
    EXPECT_TRUE(std::equal(pixels.begin(), pixels.end(), data));
}

TEST_F(DicomFile, feetFirstTurnsTheMouseAroundTheVerticalAndKeepsThePlaces)
{
    ASSERT_EQ(run({"--format=dicom"}, "h"), "");
    ASSERT_EQ(run({"--format=dicom", "--feet-first"}, "f"), "");
    for (int i = 0; i < n; ++i) {
        ReadBack headFirst(sliceName("h", n - 1 - i)), feetFirst(sliceName("f", i));
        EXPECT_EQ(feetFirst.text(DCM_PatientPosition), "FFS");
        EXPECT_EQ(feetFirst.text(DCM_ImagePositionPatient),
                  ReadBack(sliceName("h", i)).text(DCM_ImagePositionPatient));
        const auto a = headFirst.pixels(), b = feetFirst.pixels();
        for (int r = 0; r < n; ++r)
            for (int c = 0; c < n; ++c)
                ASSERT_EQ(b[r * n + c], a[r * n + n - 1 - c]);
    }
}

TEST_F(DicomFile, aMultiFrameFileHoldsTheSlicesOfTheSeries)
{
    for (const std::string orientation : {"axial", "coronal", "sagittal"}) {
        const std::string series = orientation + "-series", file = orientation + ".dcm";
        ASSERT_EQ(run({"--format=dicom", "--orientation", orientation}, series), "");
        ASSERT_EQ(run({"--format=dicom-multiframe", "--orientation", orientation}, file), "");
        ReadBack frames(m_folder.path(file)), first(sliceName(series, 0));
        ASSERT_TRUE(frames.isGood());
        EXPECT_EQ(frames.text(DCM_NumberOfFrames), "16");
        EXPECT_EQ(frames.text(DCM_FrameIncrementPointer), "(0018,2005)");
        EXPECT_EQ(frames.text(DCM_Modality), "CT");
        for (const DcmTagKey& tag : {DCM_ImagePositionPatient, DCM_ImageOrientationPatient, DCM_PixelSpacing,
                                     DCM_SpacingBetweenSlices, DCM_SliceThickness})
            EXPECT_EQ(frames.text(tag), first.text(tag));
        std::vector<unsigned> all;
        std::vector<double> locations;
        for (int i = 0; i < n; ++i) {
            ReadBack slice(sliceName(series, i));
            const auto pixels = slice.pixels();
            all.insert(all.end(), pixels.begin(), pixels.end());
            locations.push_back(slice.numbers(DCM_SliceLocation).at(0));
        }
        EXPECT_EQ(frames.pixels(), all);
        EXPECT_EQ(frames.numbers(DCM_SliceLocationVector), locations);
    }
}

TEST_F(DicomFile, onlyNativeFilesCarryTheWorkstationsName)
{
    ASSERT_EQ(run({"--format=dicom"}, "s"), "");
    ASSERT_EQ(run({"--format=dicom-native"}, "n"), "");
    ASSERT_EQ(run({"--format=dicom-native-multiframe"}, "n.dcm"), "");
    EXPECT_EQ(ReadBack(sliceName("s", 0)).metaText(DCM_ImplementationVersionName), "PHANTOM_1");
    for (const std::string& path : {sliceName("n", 0), m_folder.path("n.dcm")})
        EXPECT_THAT(ReadBack(path).metaText(DCM_ImplementationVersionName), HasSubstr("Halvane"));
    EXPECT_EQ(ReadBack(sliceName("n", 5)).pixels(), ReadBack(sliceName("s", 5)).pixels());
}

TEST_F(DicomFile, eightBitFilesArePaddedToAnEvenLength)
{
    const Scan scan(mouseOnBed(), 17, 1);
    const Slices slices(scan, 8, Orientation::Axial, false, 1);
    DicomOptions options;
    ASSERT_EQ(writeDicomSeries(m_folder.path("s"), slices, options), "");
    ASSERT_EQ(writeDicomFrames(m_folder.path("m.dcm"), slices, options), "");
    EXPECT_EQ(m_folder.contents("s/slice-0001.dcm").size() % 2, 0U);
    EXPECT_EQ(m_folder.contents("m.dcm").size() % 2, 0U);
    ReadBack slice(m_folder.path("s/slice-0009.dcm")), frames(m_folder.path("m.dcm"));
    ASSERT_TRUE(slice.isGood() && frames.isGood());
    const auto raw = slices.slice(8);
    const auto pixels = slice.pixels();
    ASSERT_EQ(pixels.size(), 17U * 17U + 1);
    EXPECT_TRUE(std::equal(raw.begin(), raw.end(), pixels.begin()));
    EXPECT_EQ(frames.pixels().size(), 17U * 17U * 17U + 1);
}

TEST_F(DicomFile, textValuesKeepTheirLimits)
{
    // An awkward spacing makes long numbers.
    ASSERT_EQ(run({"--format=dicom", "--spacing=0.0123456789012"}, "s"), "");
    ReadBack slice(sliceName("s", 7));
    const std::string places = slice.text(DCM_ImagePositionPatient);
    std::size_t from = 0;
    for (std::size_t to = 0; to != std::string::npos; from = to + 1) {
        to = places.find('\\', from);
        EXPECT_LE((to == std::string::npos ? places.size() : to) - from, 16U) << places;
    }
    EXPECT_NEAR(slice.numbers(DCM_ImagePositionPatient).at(2), -0.5 * 0.0123456789012, 1e-9);
    for (const DcmTagKey& tag : {DCM_SOPInstanceUID, DCM_SeriesInstanceUID, DCM_StudyInstanceUID}) {
        const std::string uid = slice.text(tag);
        EXPECT_EQ(uid.substr(0, 5), "2.25.");
        EXPECT_LE(uid.size(), 64U);
        EXPECT_NE(uid[5], '0');
        EXPECT_EQ(uid.find_first_not_of("0123456789.", 0), std::string::npos);
    }
}

TEST_F(DicomFile, theSameCallWritesTheSameBytesAndAnotherOneOtherIdentifiers)
{
    ASSERT_EQ(run({"--format=dicom"}, "a"), "");
    ASSERT_EQ(run({"--format=dicom"}, "b"), "");
    for (const std::string& name : m_folder.files("a"))
        EXPECT_EQ(m_folder.contents("a/" + name), m_folder.contents("b/" + name));
    const std::string uid = ReadBack(sliceName("a", 0)).text(DCM_SeriesInstanceUID);
    EXPECT_EQ(uid, "2.25.269970285497230046547996225370888114257");
    for (const std::string other : {"--seed=2", "--spacing=1", "--feet-first", "--orientation=coronal"}) {
        ASSERT_EQ(run({"--format=dicom", other}, other), "");
        EXPECT_NE(ReadBack(sliceName(other, 0)).text(DCM_SeriesInstanceUID), uid) << other;
    }
}

TEST_F(DicomFile, aFolderThatHoldsFilesStaysAsItIs)
{
    ASSERT_EQ(run({"--format=dicom"}, "s"), "");
    const std::string before = m_folder.contents("s/slice-0001.dcm");
    EXPECT_THAT(run({"--format=dicom", "--seed=5"}, "s"),
                HasSubstr("the folder is there already and holds files"));
    EXPECT_EQ(m_status, 1);
    EXPECT_EQ(m_folder.contents("s/slice-0001.dcm"), before);
    EXPECT_THAT(m_folder.files(), ElementsAre("s"));
}

TEST_F(DicomFile, anEmptyFolderIsFilled)
{
    std::filesystem::create_directories(m_folder.path("s"));
    EXPECT_EQ(run({"--format=dicom"}, "s/"), "");
    EXPECT_EQ(m_folder.files("s").size(), static_cast<std::size_t>(n));
    EXPECT_THAT(m_folder.files(), ElementsAre("s"));
}

TEST_F(DicomFile, placesThatCannotBeWrittenAreNamed)
{
    std::ofstream(m_folder.path("s")) << "a file";
    EXPECT_THAT(run({"--format=dicom"}, "s"), HasSubstr("s\": a file has that name"));
    EXPECT_EQ(m_folder.contents("s"), "a file");
    EXPECT_THAT(run({"--format=dicom"}, "none/s"), HasSubstr("cannot write the folder"));
    EXPECT_THAT(run({"--format=dicom-multiframe"}, "none/s"), HasSubstr("cannot write"));
    EXPECT_THAT(m_folder.files(), ElementsAre("s"));
}
