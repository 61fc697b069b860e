#include "hvdicom/CHVDcmImage.h"

#include "DicomFiles.h"
#include "hvdicom/CDicomReader.h"
#include "hvimage/CILImage.h"
#include "support/SharedData.h"

#include <QElapsedTimer>
#include <gmock/gmock.h>

using testing::ElementsAre;

namespace {

class CHVDcmImageTest : public viz_test::DicomFiles
{
protected:
    bool load(DicomBuilder const& builder) { return image.LoadFromDICOMFile(write(builder)); }

    static bool isDicom(QString const& file) { return CHVDcmImage::isDICOM(viz_test::encoded(file)); }

    template <class T>
    std::vector<T> frame(unsigned long number)
    {
        auto const* const samples = static_cast<T const*>(image.get_data(number));
        if (!samples) return {};
        return {samples, samples + image.getWidth() * image.getHeight()};
    }

    // Neither accepted nor decoded, and DICOM all the same.
    void expectRefused(DicomBuilder const& builder, char const* reason)
    {
        QElapsedTimer clock;
        clock.start();
        QString const file = write(builder);
        EXPECT_TRUE(CDicomReader::isDicom(viz_test::encoded(file)));
        EXPECT_FALSE(isDicom(file));
        host.forgetEntries();
        EXPECT_FALSE(image.LoadFromDICOMFile(file));
        EXPECT_EQ(host.messages(2).filter(QString::fromUtf8(reason)).size(), 1)
            << reason << ": " << qPrintable(host.messages(2).join('\n'));
        EXPECT_EQ(image.getFrameCount(), 0U);
        EXPECT_EQ(image.get_data(1), nullptr);
        CILImage picture;
        EXPECT_FALSE(image.getDicomImage(1, picture));
        EXPECT_FALSE(image.getGroupElementInfo().isEmpty());
        EXPECT_LT(clock.elapsed(), 1000);
    }

    CHVDcmImage image;
};

using U8 = std::uint8_t;
using U16 = std::uint16_t;
using U32 = std::uint32_t;

}  // namespace

TEST_F(CHVDcmImageTest, countsFramesFromOne)
{
    ASSERT_TRUE(load(DicomBuilder().size(2, 1, 3).bits(16, 12).samples({1, 2, 3, 4, 5, 6})));
    EXPECT_EQ(image.getWidth(), 2U);
    EXPECT_EQ(image.getHeight(), 1U);
    EXPECT_EQ(image.getFrameCount(), 3U);
    EXPECT_THAT(frame<U16>(1), ElementsAre(1, 2));
    EXPECT_THAT(frame<U16>(3), ElementsAre(5, 6));
    EXPECT_EQ(image.get_data(0), nullptr);
    EXPECT_EQ(image.get_data(4), nullptr);
    CILImage picture;
    ASSERT_TRUE(image.getDicomImage(2, picture));
    EXPECT_EQ(picture.get_datatype(), eTypeUInt16);
    EXPECT_EQ(picture.getWidth(), 2);
    EXPECT_EQ(picture.getMin(), 3);
    EXPECT_EQ(picture.getMax(), 4);
    EXPECT_FALSE(image.getDicomImage(0, picture));
    EXPECT_FALSE(image.getDicomImage(4, picture));
}

TEST_F(CHVDcmImageTest, depthIsThatOfItsSamples)
{
    struct
    {
        unsigned allocated, stored;
        int depth, actual;
    } const cases[] = {{8, 8, 8, 8},  {16, 16, 16, 16}, {16, 12, 16, 12},
                       {16, 8, 8, 8}, {32, 32, 32, 32}, {32, 17, 32, 17}};
    for (auto const& c : cases) {
        ASSERT_TRUE(load(DicomBuilder().bits(c.allocated, c.stored)));
        EXPECT_EQ(image.getDepth(), c.depth);
        EXPECT_EQ(image.getActualDepth(), c.actual);
        CILImage picture;
        ASSERT_TRUE(image.getDicomImage(1, picture));
        EXPECT_EQ(CILImage::get_reqsizefortype(picture.get_datatype()) * 8, c.depth);
    }
}

TEST_F(CHVDcmImageTest, samplesAreStoredValuesMadeUnsigned)
{
    DicomBuilder ct;
    ct.size(2, 1).bits(16, 16, true).set(0x0028, 0x1052, "-1024").set(0x0028, 0x1053, "2");
    ASSERT_TRUE(load(ct.samples({-1000, 3000})));
    EXPECT_THAT(frame<U16>(1), ElementsAre(31768, 35768));
    ASSERT_TRUE(load(DicomBuilder().size(2, 1).bits(8, 8).photometric("MONOCHROME1").samples({0, 200})));
    EXPECT_THAT(frame<U8>(1), ElementsAre(255, 55));
}

TEST_F(CHVDcmImageTest, acceptsColourButHasNoGreySamplesOfIt)
{
    QString const file = write(DicomBuilder().size(2, 2, 2).bits(8, 8).photometric("RGB", 3));
    EXPECT_TRUE(isDicom(file));
    ASSERT_TRUE(image.LoadFromDICOMFile(file));
    EXPECT_EQ(image.getFrameCount(), 2U);
    EXPECT_EQ(image.get_data(1), nullptr);
    CILImage picture;
    EXPECT_FALSE(image.getDicomImage(1, picture));
    ASSERT_TRUE(load(DicomBuilder().bits(8, 8).photometric("PALETTE COLOR")));
    EXPECT_EQ(image.get_data(1), nullptr);
    ASSERT_TRUE(load(DicomBuilder().remove(0x0028, 0x0004)));
    EXPECT_EQ(image.get_data(1), nullptr);
}

TEST_F(CHVDcmImageTest, refusesWhatHasNoPixels)
{
    expectRefused(DicomBuilder().withoutPixels(), "no pixels");
    expectRefused(DicomBuilder().withoutPixels().set(0x0008, 0x0016, "1.2.840.10008.5.1.4.1.1.88.11"),
                  "no pixels");
    expectRefused(DicomBuilder().remove(0x7FE0, 0x0010).setBytes(0x7FE0, 0x0008, "OF", QByteArray(48, '\0')),
                  "no pixels");
    expectRefused(DicomBuilder().remove(0x7FE0, 0x0010).setBytes(0x7FE0, 0x0009, "OD", QByteArray(96, '\0')),
                  "no pixels");
    expectRefused(DicomBuilder().setBytes(0x7FE0, 0x0010, "OW", QByteArray()), "less pixels");
}

TEST_F(CHVDcmImageTest, refusesMissingAndAbsurdSizes)
{
    expectRefused(DicomBuilder().remove(0x0028, 0x0010), "rows or columns");
    expectRefused(DicomBuilder().remove(0x0028, 0x0011), "rows or columns");
    expectRefused(DicomBuilder().set(0x0028, 0x0010, "0"), "rows or columns");
    expectRefused(DicomBuilder().set(0x0028, 0x0010, ""), "rows or columns");
    expectRefused(DicomBuilder().set(0x0028, 0x0011, "0"), "rows or columns");
    expectRefused(DicomBuilder().set(0x0028, 0x0010, "4"), "less pixels");
    expectRefused(DicomBuilder().set(0x0028, 0x0008, "2"), "less pixels");
    expectRefused(DicomBuilder().set(0x0028, 0x0008, "2147483647"), "less pixels");
    expectRefused(DicomBuilder().set(0x0028, 0x0008, "99999999999999"), "less pixels");
    expectRefused(DicomBuilder()
                      .set(0x0028, 0x0010, "65535")
                      .set(0x0028, 0x0011, "65535")
                      .set(0x0028, 0x0008, "1000000"),
                  "less pixels");
    expectRefused(DicomBuilder().set(0x0028, 0x0008, "0"), "frames");
    expectRefused(DicomBuilder().set(0x0028, 0x0008, "-3"), "frames");
}

TEST_F(CHVDcmImageTest, refusesBitsThatItCannotRead)
{
    expectRefused(
        DicomBuilder().set(0x0028, 0x0100, "64").set(0x0028, 0x0101, "64").set(0x0028, 0x0102, "63"), "bits");
    expectRefused(DicomBuilder().set(0x0028, 0x0100, "0"), "bits");
    expectRefused(DicomBuilder().remove(0x0028, 0x0100), "bits");
    expectRefused(DicomBuilder().set(0x0028, 0x0101, "17"), "bits");
    expectRefused(DicomBuilder().set(0x0028, 0x0102, "16"), "bits");
    expectRefused(DicomBuilder().set(0x0028, 0x0002, "2"), "samples of a pixel");
}

TEST_F(CHVDcmImageTest, refusesCompressedPixelsThatCannotBe)
{
    for (char const* const syntax : {"1.2.840.10008.1.2.5", "1.2.840.10008.1.2.4.70",
                                     "1.2.840.10008.1.2.4.80", "1.2.840.10008.1.2.4.90"}) {
        DicomBuilder const small = DicomBuilder().size(32, 32).transferSyntax(syntax);
        expectRefused(DicomBuilder(small).set(0x0028, 0x0010, "65535").set(0x0028, 0x0011, "65535"),
                      "too large");
        expectRefused(DicomBuilder(small).set(0x0028, 0x0008, "2147483647"), "compressed frames");
        // accepted by its size, and then the pixels are others
        ASSERT_TRUE(load(DicomBuilder(small).set(0x0028, 0x0010, "4000").set(0x0028, 0x0011, "4000")));
        QElapsedTimer clock;
        clock.start();
        image.get_data(1);
        EXPECT_LT(clock.elapsed(), 3000) << syntax;
    }
}

TEST_F(CHVDcmImageTest, refusesACodecThatIsAbsent)
{
    // the syntax of a film, whose UID is as long as that of JPEG 2000
    QByteArray bytes = DicomBuilder().transferSyntax("1.2.840.10008.1.2.4.90").bytes();
    bytes.replace("1.2.840.10008.1.2.4.90", QByteArray("1.2.840.10008.1.2.4.93"));
    QString const file = writeBytes(bytes);
    EXPECT_FALSE(isDicom(file));
    EXPECT_FALSE(image.LoadFromDICOMFile(file));
    EXPECT_EQ(host.messages(2).filter("method that is not known").size(), 1);
    EXPECT_EQ(image.getGroupElementInfo().value("0008, 0070").value, QString("Builder"));
}

TEST_F(CHVDcmImageTest, refusesATruncatedFileWhereverItIsCut)
{
    for (char const* const syntax :
         {"1.2.840.10008.1.2", "1.2.840.10008.1.2.1", "1.2.840.10008.1.2.2", "1.2.840.10008.1.2.4.90"}) {
        QByteArray const bytes = DicomBuilder().size(16, 16).transferSyntax(syntax).bytes();
        ASSERT_GT(bytes.size(), 500);
        for (int length = 0; length < bytes.size() - 16; length += length < 200 ? 1 : 3) {
            QString const file = writeBytes(bytes.left(length));
            EXPECT_FALSE(isDicom(file)) << syntax << " " << length;
            EXPECT_FALSE(image.LoadFromDICOMFile(file)) << syntax << " " << length;
        }
    }
}

TEST_F(CHVDcmImageTest, refusesWhatIsNoDicom)
{
    for (QByteArray const& bytes : {QByteArray(), QByteArray("II*\0", 4), QByteArray(5000, 'x')}) {
        QString const file = writeBytes(bytes);
        EXPECT_FALSE(isDicom(file));
        EXPECT_FALSE(image.LoadFromDICOMFile(file));
        EXPECT_TRUE(image.getGroupElementInfo().isEmpty());
        EXPECT_EQ(image.getFrameCount(), 0U);
    }
    EXPECT_FALSE(image.LoadFromDICOMFile(path("none.dcm")));
    EXPECT_FALSE(image.LoadFromDICOMFile(QString()));
}

TEST_F(CHVDcmImageTest, theLogNamesNoPatient)
{
    QByteArray const bytes =
        DicomBuilder().set(0x0010, 0x0010, "Secret^Name").set(0x0028, 0x0010, "0").bytes();
    image.LoadFromDICOMFile(writeBytes(bytes));
    image.LoadFromDICOMFile(writeBytes(bytes.left(bytes.size() - 5)));
    ASSERT_FALSE(host.entries().isEmpty());
    for (HostLogEntry const& entry : host.entries()) {
        EXPECT_FALSE(entry.message.contains("Secret")) << qPrintable(entry.message);
        EXPECT_NE(entry.severity, 3) << qPrintable(entry.message);
    }
}

TEST_F(CHVDcmImageTest, whatTheLibrarySaysIsLoggedOnce)
{
    QByteArray const bytes = DicomBuilder().size(77, 77).bytes();
    QString const file = writeBytes(bytes.left(bytes.size() - 501));
    for (int i = 0; i < 3; ++i)
        EXPECT_FALSE(image.LoadFromDICOMFile(file));
    QStringList said;
    for (HostLogEntry const& entry : host.entries())
        if (entry.source.startsWith("dcmtk")) said << entry.message;
    EXPECT_FALSE(said.isEmpty());
    EXPECT_EQ(said.removeDuplicates(), 0);
}

TEST_F(CHVDcmImageTest, takesOrRefusesRealFiles)
{
    struct
    {
        char const* file;
        bool accepted;
        unsigned long frames;
    } const cases[] = {
        {"dicom_multiframe/rtdose_32bit/rtdose.dcm", true, 15},
        {"dicom_bad/truncated/MR_truncated.dcm", false, 0},
        {"dicom_bad/not_an_image/rtplan.dcm", false, 0},
        {"dicom_bad/not_an_image/rtstruct.dcm", false, 0},
        {"dicom_bad/not_an_image/reportsi.dcm", false, 0},
        {"dicom_bad/missing_tags/dwv-test_no-number-rows.dcm", false, 0},
        {"dicom_bad/odd_encoding/liver_1frame.dcm", true, 1},
        {"dicom_bad/odd_encoding/image_dfl.dcm", true, 1},
    };
    if (viz_test::sharedData("dicom_bad").isEmpty()) GTEST_SKIP() << "no collection of real scans";
    for (auto const& c : cases) {
        QString const file = viz_test::sharedData(c.file);
        ASSERT_FALSE(file.isEmpty()) << c.file;
        EXPECT_EQ(isDicom(file), c.accepted) << c.file;
        EXPECT_EQ(image.LoadFromDICOMFile(file), c.accepted)
            << c.file << qPrintable(host.messages(2).join('\n'));
        EXPECT_EQ(image.getFrameCount(), c.frames) << c.file;
        EXPECT_EQ(image.get_data(c.frames) != nullptr, c.accepted) << c.file;
    }
}

TEST_F(CHVDcmImageTest, refusesSequencesWithoutAnEnd)
{
    QByteArray bytes = DicomBuilder().bytes();
    int const at = bytes.indexOf(QByteArray("\x10\0\x10\0PN", 6));
    ASSERT_GT(at, 0);
    QByteArray const open("\x08\0\x40\x11SQ\0\0\xFF\xFF\xFF\xFF\xFE\xFF\0\xE0\xFF\xFF\xFF\xFF", 20);
    QString const file = writeBytes(bytes.insert(at, open.repeated(200000)));
    EXPECT_FALSE(isDicom(file));
    EXPECT_FALSE(CDicomReader::isDicom(viz_test::encoded(file)));
    EXPECT_FALSE(image.LoadFromDICOMFile(file));
    CDicomReader reader;
    EXPECT_EQ(reader.initDicomImporter(file), eStatusUnsupportedFile);
}
