#include "support/dicom/DicomBuilder.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcdeftag.h>
#include <dcmtk/dcmdata/dcfilefo.h>
#include <dcmtk/dcmdata/dcmetinf.h>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <string>

namespace {

std::string text(DcmItem& item, DcmTagKey const& tag, unsigned long at = 0)
{
    OFString value;
    return item.findAndGetOFString(tag, value, at).good() ? value.c_str() : "absent";
}

struct Loaded
{
    explicit Loaded(DicomBuilder const& builder)
    {
        written = builder.write(path());
        loaded = file.loadFile(OFFilename(QFile::encodeName(path()).constData())).good();
    }
    QString path() const { return folder.filePath(QStringLiteral("a.dcm")); }
    DcmDataset& data() { return *file.getDataset(); }

    QTemporaryDir folder;
    DcmFileFormat file;
    bool written = false;
    bool loaded = false;
};

}  // namespace

TEST(DicomBuilder, writesWhatItWasTold)
{
    Loaded file(DicomBuilder()
                    .size(3, 2)
                    .bits(16, 12, true)
                    .samples({-1, 2, 3, 4, 5, -2048})
                    .position(1.5, -2, 3)
                    .spacing(0.25, 0.5)
                    .implementation("Maker 1")
                    .set(0x0018, 0x5100, "FFS")
                    .remove(0x0008, 0x0070)
                    .set(0x0018, 0x0050, ""));
    ASSERT_TRUE(file.written && file.loaded);
    EXPECT_EQ(text(file.data(), DCM_ImagePositionPatient, 1), "-2");
    EXPECT_EQ(text(file.data(), DCM_PixelSpacing, 0), "0.25");
    EXPECT_EQ(text(file.data(), DCM_PixelSpacing, 1), "0.5");
    EXPECT_EQ(text(file.data(), DCM_PatientPosition), "FFS");
    EXPECT_EQ(text(file.data(), DCM_Manufacturer), "absent");
    EXPECT_TRUE(file.data().tagExists(DCM_SliceThickness));
    EXPECT_EQ(text(*file.file.getMetaInfo(), DCM_ImplementationVersionName), "Maker 1");
    Uint16 const* pixels = nullptr;
    unsigned long count = 0;
    ASSERT_TRUE(file.data().findAndGetUint16Array(DCM_PixelData, pixels, &count).good());
    ASSERT_EQ(count, 6U);
    EXPECT_EQ(pixels[0], 0xFFFF);
    EXPECT_EQ(pixels[5], 0xF800);
}

TEST(DicomBuilder, mayLieAboutItsSize)
{
    Loaded file(DicomBuilder().set(0x0028, 0x0010, "65535").set(0x0028, 0x0008, "2147483647"));
    ASSERT_TRUE(file.written && file.loaded);
    EXPECT_EQ(text(file.data(), DCM_Rows), "65535");
    EXPECT_EQ(text(file.data(), DCM_NumberOfFrames), "2147483647");
}

class DicomBuilderSyntax : public testing::TestWithParam<char const*>
{};

TEST_P(DicomBuilderSyntax, isTheOneInTheFile)
{
    Loaded file(DicomBuilder().size(16, 16, 2).bits(8, 8).transferSyntax(GetParam()));
    ASSERT_TRUE(file.written && file.loaded);
    EXPECT_STREQ(DcmXfer(file.data().getOriginalXfer()).getXferID(), GetParam());
    EXPECT_EQ(text(file.data(), DCM_NumberOfFrames), "2");
}

INSTANTIATE_TEST_SUITE_P(all, DicomBuilderSyntax,
                         testing::Values("1.2.840.10008.1.2", "1.2.840.10008.1.2.1", "1.2.840.10008.1.2.1.99",
                                         "1.2.840.10008.1.2.2", "1.2.840.10008.1.2.5",
                                         "1.2.840.10008.1.2.4.50", "1.2.840.10008.1.2.4.51",
                                         "1.2.840.10008.1.2.4.57", "1.2.840.10008.1.2.4.70",
                                         "1.2.840.10008.1.2.4.80", "1.2.840.10008.1.2.4.81",
                                         "1.2.840.10008.1.2.4.90", "1.2.840.10008.1.2.4.91"));

TEST(DicomBuilder, writesASeriesAlongAnyDirection)
{
    QTemporaryDir folder;
    QStringList const paths = writeDicomSeries(
        folder.path(), DicomBuilder(), 2, 2, 3, {1, 2, 3}, {0, -0.5, 0},
        [](unsigned x, unsigned y, unsigned slice) { return std::int64_t{100} * slice + 10 * y + x; });
    ASSERT_EQ(paths.size(), 3);
    DcmFileFormat file;
    ASSERT_TRUE(file.loadFile(OFFilename(QFile::encodeName(paths[2]).constData())).good());
    EXPECT_EQ(text(*file.getDataset(), DCM_ImagePositionPatient, 1), "1");
    Uint16 pixel = 0;
    ASSERT_TRUE(file.getDataset()->findAndGetUint16(DCM_PixelData, pixel, 3).good());
    EXPECT_EQ(pixel, 211);
}
