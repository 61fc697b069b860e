#include "hvdicom/CDicomReader.h"

#include "DicomFiles.h"
#include "hvimage/CILImage.h"
#include "support/SharedData.h"
#include "support/dicom/DicomMutations.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <sys/stat.h>

using testing::ElementsAre;
using testing::ElementsAreArray;

namespace {

class CDicomReaderTest : public viz_test::DicomFiles
{
protected:
    bool load(QString const& file)
    {
        return reader.initDicomImporter(file) == eStatusSuccess &&
               reader.loadEntireDicomInfo() == eStatusSuccess;
    }
    bool load(DicomBuilder const& builder) { return load(write(builder)); }

    template <class T>
    std::vector<T> frame(unsigned long long number)
    {
        CILImage image;
        if (reader.readPixelInfo(&image, number) != eStatusSuccess) return {};
        EXPECT_EQ(static_cast<int>(sizeof(T)), CILImage::get_reqsizefortype(image.get_datatype()));
        auto const* const samples = static_cast<T const*>(image.get_data());
        return {samples, samples + image.getWidth() * image.getHeight()};
    }

    CDicomReader reader;
};

using U8 = std::uint8_t;
using U16 = std::uint16_t;
using U32 = std::uint32_t;

constexpr char const* everySyntax[] = {
    "1.2.840.10008.1.2",      "1.2.840.10008.1.2.1",    "1.2.840.10008.1.2.1.99", "1.2.840.10008.1.2.2",
    "1.2.840.10008.1.2.5",    "1.2.840.10008.1.2.4.57", "1.2.840.10008.1.2.4.70", "1.2.840.10008.1.2.4.80",
    "1.2.840.10008.1.2.4.90", "1.2.840.10008.1.2.4.91"};

}  // namespace

TEST_F(CDicomReaderTest, tellsTheAttributes)
{
    ASSERT_TRUE(load(DicomBuilder()
                         .size(5, 4, 3)
                         .bits(16, 12)
                         .position(1.5, -2.25, 1e3)
                         .spacing(0.25, 0.5)
                         .set(0x0018, 0x0088, "1.25")
                         .set(0x0018, 0x5100, "FFS ")
                         .set(0x0020, 0x1041, "-7.5")
                         .implementation("Halvane 1")));
    EXPECT_EQ(reader.getNumberofColumns(), 5U);
    EXPECT_EQ(reader.getNumberofRows(), 4U);
    EXPECT_EQ(reader.getTotalFrames(), 3U);
    EXPECT_EQ(reader.getDepth(), 12);
    double row = 0;
    double column = 0;
    EXPECT_TRUE(reader.getPixelSpacing(row, column));
    EXPECT_EQ(row, 0.25);
    EXPECT_EQ(column, 0.5);
    double x = 0;
    double y = 0;
    double z = 0;
    EXPECT_TRUE(reader.getSliceLocation(x, y, z));
    EXPECT_EQ(x, 1.5);
    EXPECT_EQ(y, -2.25);
    EXPECT_EQ(z, 1000);
    EXPECT_EQ(reader.getSlicePosition(), -7.5);
    EXPECT_EQ(reader.getSliceSpacing(), 1.25);
    EXPECT_EQ(reader.getPatientPosition(), QString("FFS"));
    EXPECT_EQ(reader.getImplementationVersionName(), QString("Halvane 1"));
}

TEST_F(CDicomReaderTest, missingAttributesAreZeroOrEmpty)
{
    ASSERT_TRUE(load(DicomBuilder()
                         .remove(0x0028, 0x0030)
                         .remove(0x0020, 0x0032)
                         .remove(0x0018, 0x0050)
                         .remove(0x0018, 0x5100)));
    double a = 9;
    double b = 9;
    double c = 9;
    EXPECT_FALSE(reader.getPixelSpacing(a, b));
    EXPECT_EQ(a + b, 0);
    a = b = 9;
    EXPECT_FALSE(reader.getSliceLocation(a, b, c));
    EXPECT_EQ(a + b + c, 0);
    EXPECT_EQ(reader.getSlicePosition(), 0);
    EXPECT_EQ(reader.getSliceSpacing(), 0);
    EXPECT_EQ(reader.getPatientPosition(), QString());
    EXPECT_EQ(reader.getTotalFrames(), 1U);
}

TEST_F(CDicomReaderTest, numbersThatAreNoneAreZero)
{
    for (char const* const text : {"", "nan", "inf", "text", "1,5", "1e999"}) {
        ASSERT_TRUE(
            load(DicomBuilder().set(0x0018, 0x0088, text).set(0x0020, 0x1041, text).remove(0x0018, 0x0050)));
        EXPECT_EQ(reader.getSliceSpacing(), 0) << text;
        EXPECT_EQ(reader.getSlicePosition(), 0) << text;
    }
}

TEST_F(CDicomReaderTest, sliceSpacingFallsBackToTheThickness)
{
    ASSERT_TRUE(load(DicomBuilder().set(0x0018, 0x0050, "2.5")));
    EXPECT_EQ(reader.getSliceSpacing(), 2.5);
}

TEST_F(CDicomReaderTest, namesEveryAttributeInItsTable)
{
    ASSERT_TRUE(load(DicomBuilder()
                         .size(4, 3, 2)
                         .set(0x0008, 0x0005, "ISO_IR 100")
                         .set(0x0008, 0x1030, "M\xFCller")
                         .implementation("Halvane 1")));
    QMap<QString, SGroupElemInfo> const table = reader.getGroupElementInfo();
    SGroupElemInfo const frames = table.value("0028, 0008");
    EXPECT_EQ(frames.group, QString("0028"));
    EXPECT_EQ(frames.element, QString("0008"));
    EXPECT_EQ(frames.vr, QString());
    EXPECT_EQ(frames.name, QString("NumberOfFrames"));
    EXPECT_EQ(frames.value, QString("2"));
    EXPECT_EQ(table.value("0028, 0011").value, QString("4"));
    EXPECT_EQ(table.value("0028, 0030").value, QString("1\\1"));
    EXPECT_EQ(table.value("0002, 0013").value, QString("Halvane 1"));
    EXPECT_EQ(table.value("0008, 1030").value, QString::fromUtf8("M\u00FCller"));
    ASSERT_TRUE(table.contains("7FE0, 0010"));
    EXPECT_EQ(table.value("7FE0, 0010").value, QString());
}

TEST_F(CDicomReaderTest, readsFramesFromZero)
{
    ASSERT_TRUE(load(DicomBuilder().size(2, 2, 2).samples({1, 2, 3, 65535, 5, 6, 7, 8})));
    EXPECT_THAT(frame<U16>(0), ElementsAre(1, 2, 3, 65535));
    EXPECT_THAT(frame<U16>(1), ElementsAre(5, 6, 7, 8));
    EXPECT_TRUE(frame<U16>(2).empty());
    EXPECT_TRUE(frame<U16>(~0ULL).empty());
}

TEST_F(CDicomReaderTest, framesHaveFreshStatistics)
{
    ASSERT_TRUE(load(DicomBuilder().size(2, 1, 2).samples({3, 9, 70, 80})));
    CILImage image;
    ASSERT_EQ(reader.readPixelInfo(&image, 0), eStatusSuccess);
    void const* const samples = image.get_data();
    ASSERT_EQ(reader.readPixelInfo(&image, 1), eStatusSuccess);
    EXPECT_EQ(image.getMin(), 70);
    EXPECT_EQ(image.getMax(), 80);
    EXPECT_EQ(image.get_data(), samples);
    EXPECT_NE(reader.readPixelInfo(nullptr, 0), eStatusSuccess);
}

TEST_F(CDicomReaderTest, takesTheSmallestWordThatHoldsTheBitsInUse)
{
    ASSERT_TRUE(load(DicomBuilder().size(2, 1).bits(16, 8).samples({1, 255})));
    EXPECT_EQ(reader.getDepth(), 8);
    EXPECT_THAT(frame<U8>(0), ElementsAre(1, 255));
    ASSERT_TRUE(load(DicomBuilder().size(2, 1).bits(32, 32).samples({1, 0xFFFFFFFF})));
    EXPECT_EQ(reader.getDepth(), 32);
    EXPECT_THAT(frame<U32>(0), ElementsAre(1U, 0xFFFFFFFFU));
    ASSERT_TRUE(load(DicomBuilder().size(2, 1).bits(16, 12, true).samples({-2048, 2047})));
    EXPECT_THAT(frame<U16>(0), ElementsAre(0, 4095));
    ASSERT_TRUE(load(DicomBuilder().size(2, 1).bits(16, 12).photometric("MONOCHROME1").samples({0, 4000})));
    EXPECT_THAT(frame<U16>(0), ElementsAre(4095, 95));
}

TEST_F(CDicomReaderTest, readsFramesOfAnOddNumberOfBytes)
{
    for (char const* const syntax :
         {"1.2.840.10008.1.2.1", "1.2.840.10008.1.2.2", "1.2.840.10008.1.2", "1.2.840.10008.1.2.1.99"}) {
        DicomBuilder builder;
        builder.size(3, 1, 3).bits(8, 8).samples({1, 2, 3, 4, 5, 6, 7, 8, 9}).transferSyntax(syntax);
        ASSERT_TRUE(load(builder)) << syntax;
        EXPECT_THAT(frame<U8>(0), ElementsAre(1, 2, 3)) << syntax;
        EXPECT_THAT(frame<U8>(1), ElementsAre(4, 5, 6)) << syntax;
        EXPECT_THAT(frame<U8>(2), ElementsAre(7, 8, 9)) << syntax;
    }
}

TEST_F(CDicomReaderTest, readsFramesOfSingleBits)
{
    ASSERT_TRUE(load(DicomBuilder().size(3, 1, 3).bits(1, 1).samples({1, 0, 1, 0, 1, 1, 1, 1, 0})));
    EXPECT_THAT(frame<U8>(0), ElementsAre(1, 0, 1));
    EXPECT_THAT(frame<U8>(1), ElementsAre(0, 1, 1));
    EXPECT_THAT(frame<U8>(2), ElementsAre(1, 1, 0));
}

class CDicomReaderSyntax : public CDicomReaderTest, public testing::WithParamInterface<char const*>
{};

TEST_P(CDicomReaderSyntax, givesTheSameSamples)
{
    std::vector<std::int64_t> samples(13 * 17 * 3);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<std::int64_t>(i * i / 9 % 4096);
    ASSERT_TRUE(
        load(DicomBuilder().size(13, 17, 3).bits(16, 12).samples(samples).transferSyntax(GetParam())));
    // backwards, so that no frame is found by the one before it
    for (int f = 2; f >= 0; --f) {
        std::vector<std::int64_t> const expected(samples.begin() + f * 221, samples.begin() + (f + 1) * 221);
        EXPECT_THAT(frame<U16>(static_cast<unsigned>(f)), ElementsAreArray(expected)) << f;
    }
    for (unsigned f = 0; f < 3; ++f)
        EXPECT_EQ(frame<U16>(f).size(), 221U);
}

TEST_P(CDicomReaderSyntax, givesTheSameSignedSamples)
{
    std::vector<std::int64_t> samples(20 * 11, 7);
    std::copy_n(std::initializer_list<int>{-32768, -1, 0, 1, 32767, 5, -300, 12, 99, 1000, -1000}.begin(), 11,
                samples.begin() + 50);
    ASSERT_TRUE(
        load(DicomBuilder().size(20, 11).bits(16, 16, true).samples(samples).transferSyntax(GetParam())));
    for (std::int64_t& value : samples)
        value += 32768;
    EXPECT_THAT(frame<U16>(0), ElementsAreArray(samples));
}

TEST_P(CDicomReaderSyntax, givesTheSameSamplesOfEightBits)
{
    std::vector<std::int64_t> samples(19 * 17, 3);
    std::copy_n(
        std::initializer_list<int>{0, 255, 1, 128, 127, 3, 77, 200, 9, 10, 11, 254, 12, 13, 14}.begin(), 15,
        samples.begin() + 70);
    ASSERT_TRUE(load(DicomBuilder().size(19, 17).bits(8, 8).samples(samples).transferSyntax(GetParam())));
    EXPECT_THAT(frame<U8>(0), ElementsAreArray(samples));
}

INSTANTIATE_TEST_SUITE_P(all, CDicomReaderSyntax, testing::ValuesIn(everySyntax));

TEST_F(CDicomReaderTest, tellsDicomFromOtherFiles)
{
    auto const isDicom = [](QString const& file) { return CDicomReader::isDicom(viz_test::encoded(file)); };
    EXPECT_TRUE(isDicom(write(DicomBuilder())));
    EXPECT_TRUE(isDicom(write(DicomBuilder().withoutPixels())));
    EXPECT_TRUE(isDicom(write(DicomBuilder().withoutHeader())));
    EXPECT_TRUE(isDicom(write(DicomBuilder().withoutHeader().transferSyntax("1.2.840.10008.1.2"))));
    EXPECT_FALSE(isDicom(writeBytes("")));
    EXPECT_FALSE(isDicom(writeBytes("DICM")));
    EXPECT_FALSE(isDicom(writeBytes(QByteArray(131, '\0'))));
    EXPECT_FALSE(isDicom(writeBytes(QByteArray(4000, '\0'))));
    EXPECT_FALSE(isDicom(writeBytes(QByteArray(128, '\0') + "DICOM" + QByteArray(99, 'x'))));
    EXPECT_FALSE(isDicom(writeBytes("Width 3\nHeight 4\n")));
    // like the beginning of an attribute, and then none
    EXPECT_FALSE(isDicom(writeBytes(QByteArray("\x08\0\x05\0", 4) + QByteArray(4000, '\x7F'))));
    EXPECT_FALSE(isDicom(QFileInfo(path()).absolutePath()));
    EXPECT_FALSE(isDicom(path("none.dcm")));
    EXPECT_FALSE(CDicomReader::isDicom(nullptr));
    EXPECT_FALSE(CDicomReader::isDicom(""));
}

TEST_F(CDicomReaderTest, doesNotWaitAtAPipe)
{
    ASSERT_EQ(::mkfifo(viz_test::encoded(path("pipe.dcm")), 0600), 0);
    EXPECT_FALSE(CDicomReader::isDicom(viz_test::encoded(path("pipe.dcm"))));
    EXPECT_EQ(reader.initDicomImporter(path("pipe.dcm")), eStatusFileNotReadable);
}

TEST_F(CDicomReaderTest, saysWhyItDoesNotOpen)
{
    EXPECT_EQ(reader.initDicomImporter(path("none.dcm")), eStatusFileNotReadable);
    EXPECT_NE(reader.loadEntireDicomInfo(), eStatusSuccess);
    EXPECT_EQ(reader.initDicomImporter(writeBytes("no DICOM at all")), eStatusUnsupportedFile);
    CILImage image;
    EXPECT_NE(reader.readPixelInfo(&image, 0), eStatusSuccess);
    EXPECT_EQ(reader.getTotalFrames(), 0U);
    EXPECT_TRUE(reader.getGroupElementInfo().isEmpty());
}

TEST_F(CDicomReaderTest, readsOneFileAfterAnother)
{
    ASSERT_TRUE(load(DicomBuilder().size(2, 1).samples({7, 8})));
    EXPECT_THAT(frame<U16>(0), ElementsAre(7, 8));
    QString const other = write(DicomBuilder().size(1, 1).bits(8, 8).samples({9}), "b.dcm");
    ASSERT_EQ(reader.initDicomImporter(other), eStatusSuccess);
    EXPECT_EQ(reader.getNumberofColumns(), 0U);
    ASSERT_EQ(reader.loadEntireDicomInfo(), eStatusSuccess);
    EXPECT_THAT(frame<U8>(0), ElementsAre(9));
}

TEST_F(CDicomReaderTest, opensNamesOfAllKinds)
{
    QByteArray const longest(200, 'n');
    for (char const* const name :
         {"with blank.dcm", "gr\u00F6\u00DFe #1.dcm", "quote'\"%20.dcm", "no ending", longest.constData()}) {
        QString const file = write(DicomBuilder(), name);
        EXPECT_TRUE(CDicomReader::isDicom(viz_test::encoded(file))) << name;
        EXPECT_TRUE(load(file)) << name;
        EXPECT_EQ(frame<U16>(0).size(), 12U) << name;
    }
}

TEST_F(CDicomReaderTest, aFileThatGoesAwayGivesNoFrame)
{
    // large enough to be left on disk
    QString const file = write(DicomBuilder().size(100, 100));
    ASSERT_TRUE(load(file));
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_TRUE(frame<U16>(0).empty());
}

TEST_F(CDicomReaderTest, aFileThatShrinksGivesNoFrame)
{
    QString const file = write(DicomBuilder().size(100, 100));
    ASSERT_TRUE(load(file));
    ASSERT_TRUE(QFile::resize(file, 2000));
    EXPECT_TRUE(frame<U16>(0).empty());
}

TEST_F(CDicomReaderTest, attributesWithoutPixelsAreRead)
{
    ASSERT_TRUE(load(DicomBuilder().withoutPixels().set(0x0020, 0x1041, "4")));
    EXPECT_EQ(reader.getTotalFrames(), 0U);
    EXPECT_EQ(reader.getNumberofColumns(), 0U);
    EXPECT_EQ(reader.getSlicePosition(), 4);
    EXPECT_TRUE(frame<U16>(0).empty());
}

TEST_F(CDicomReaderTest, readsRealFiles)
{
    QString const files = viz_test::sharedData("dicom_single/mr_small_encodings");
    if (files.isEmpty()) GTEST_SKIP() << "no collection of real scans";
    std::vector<U16> plain;
    int same = 0;
    QDir const folder(files);
    ASSERT_TRUE(load(folder.filePath("MR_small.dcm")));
    plain = frame<U16>(0);
    ASSERT_EQ(plain.size(), 64U * 64U);
    for (QString const& name : folder.entryList({"*.dcm"}, QDir::Files)) {
        ASSERT_TRUE(load(folder.filePath(name))) << qPrintable(name);
        if (frame<U16>(0) == plain) ++same;
    }
    EXPECT_EQ(same, folder.entryList({"*.dcm"}, QDir::Files).size());
}

TEST_F(CDicomReaderTest, refusesNestingWithoutEnd)
{
    for (char const* const syntax : {"1.2.840.10008.1.2.1", "1.2.840.10008.1.2.1.99"}) {
        QByteArray const whole = DicomBuilder().transferSyntax(syntax).bytes();
        for (QByteArray const& bytes : {nestedDicom(whole, 100000), nestedAtEnd(whole, 100000)}) {
            QString const file = writeBytes(bytes);
            EXPECT_FALSE(CDicomReader::isDicom(viz_test::encoded(file).constData())) << syntax;
            EXPECT_EQ(reader.initDicomImporter(file), eStatusUnsupportedFile) << syntax;
        }
        EXPECT_TRUE(CDicomReader::isDicom(viz_test::encoded(writeBytes(whole)).constData())) << syntax;
    }
}
