#include "hvdicom/CDicomReader.h"

#include "DicomFiles.h"
#include "hvimage/CILImage.h"
#include "lib/hvdicom/DicomLibrary.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcdatset.h>
#include <dcmtk/dcmdata/dcdeftag.h>
#include <dcmtk/dcmdata/dcfilefo.h>
#include <dcmtk/dcmdata/dcpixel.h>
#include <dcmtk/dcmdata/dcpixseq.h>
#include <dcmtk/dcmdata/dcpxitem.h>
#include <dcmtk/dcmimgle/dcmimage.h>

#include <gmock/gmock.h>

using testing::ElementsAreArray;

namespace {

// Calls of DCMTK as a plug-in makes them for a file of a series.
std::vector<std::uint16_t> output(DcmFileFormat& file)
{
    DcmDataset& data = *file.getDataset();
    data.loadAllDataIntoMemory();
    DicomImage image(&data, data.getOriginalXfer(), CIF_AcrNemaCompatibility, 0, 0);
    if (image.getStatus() != EIS_Normal) return {};
    auto const* const samples = static_cast<std::uint16_t const*>(image.getOutputData(16, 0, 0));
    if (!samples) return {};
    return {samples, samples + image.getWidth() * image.getHeight()};
}

std::vector<std::uint16_t> output(QString const& path)
{
    DcmFileFormat file;
    if (file.loadFile(OFFilename(viz_test::encoded(path).constData())).bad()) return {};
    return output(file);
}

DicomBuilder picture(char const* syntax)
{
    std::vector<std::int64_t> samples(40 * 24);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = static_cast<std::int64_t>(i * 4);
    return DicomBuilder().size(40, 24).bits(16, 12).samples(samples).transferSyntax(syntax);
}

class CompressedSeries : public viz_test::DicomFiles, public testing::WithParamInterface<char const*>
{};

// A file of 40 x 24 pixels whose JPEG stream begins with these bytes in place of its own.
QByteArray jpegThatBegins(QByteArray const& bytes)
{
    QByteArray file = picture("1.2.840.10008.1.2.4.70").bytes();
    int const start = file.indexOf("\xFF\xD8\xFF");
    EXPECT_GT(start, 0);
    return file.replace(start, bytes.size(), bytes);
}

class DamagedJpeg : public viz_test::DicomFiles
{};

class Jpeg2000Files : public viz_test::DicomFiles
{
protected:
    // A file whose only difference from `like` is in its fragments.
    QString withFragments(DicomBuilder const& like, std::vector<QByteArray> const& fragments)
    {
        QString const file = write(DicomBuilder(like).transferSyntax("1.2.840.10008.1.2.4.90"));
        DcmFileFormat format;
        EXPECT_TRUE(format.loadFile(OFFilename(viz_test::encoded(file).constData())).good());
        auto* const sequence = new DcmPixelSequence(DcmTag(DCM_PixelSequenceTag));
        sequence->insert(new DcmPixelItem(DcmTag(DCM_PixelItemTag)));  // an empty offset table
        for (QByteArray bytes : fragments) {
            if (bytes.size() % 2) bytes.append('\0');
            auto* const item = new DcmPixelItem(DcmTag(DCM_PixelItemTag));
            item->putUint8Array(reinterpret_cast<Uint8 const*>(bytes.constData()),
                                static_cast<unsigned long>(bytes.size()));
            sequence->insert(item);
        }
        auto* const pixels = new DcmPixelData(DCM_PixelData);
        pixels->putOriginalRepresentation(EXS_JPEG2000LosslessOnly, nullptr, sequence);
        EXPECT_TRUE(format.getDataset()->insert(pixels, OFTrue).good());
        EXPECT_TRUE(format.saveFile(OFFilename(viz_test::encoded(file).constData()), EXS_JPEG2000LosslessOnly)
                        .good());
        return file;
    }

    DicomBuilder builder;
};

}  // namespace

TEST_P(CompressedSeries, loadsThroughThePlugInsOwnCalls)
{
    hvdicom::startDicom();
    std::vector<std::uint16_t> const plain = output(write(picture("1.2.840.10008.1.2.1")));
    ASSERT_EQ(plain.size(), 40U * 24U);
    EXPECT_THAT(output(write(picture(GetParam()))), ElementsAreArray(plain));
}

INSTANTIATE_TEST_SUITE_P(all, CompressedSeries,
                         testing::Values("1.2.840.10008.1.2.5", "1.2.840.10008.1.2.4.57",
                                         "1.2.840.10008.1.2.4.70", "1.2.840.10008.1.2.4.80",
                                         "1.2.840.10008.1.2.4.81", "1.2.840.10008.1.2.4.90",
                                         "1.2.840.10008.1.2.4.91"));

TEST_F(DamagedJpeg, isRefusedAndDoesNotHang)
{
    hvdicom::startDicom();
    EXPECT_EQ(output(writeBytes(jpegThatBegins("\xFF\xD8"))).size(), 40U * 24U);
    for (QByteArray const& bytes : {QByteArray("\xFF\xD8\xFF\x01"), QByteArray("\xFF\x01"),
                                    QByteArray("\xFF\xD8\xFF\xFE\0\0", 6), QByteArray("\0\0\0\0", 4)}) {
        QString const file = writeBytes(jpegThatBegins(bytes));
        EXPECT_TRUE(output(file).empty()) << bytes.toHex().constData();
        CDicomReader reader;
        ASSERT_EQ(reader.initDicomImporter(file), eStatusSuccess);
        ASSERT_EQ(reader.loadEntireDicomInfo(), eStatusSuccess);
        CILImage image;
        EXPECT_NE(reader.readPixelInfo(&image, 0), eStatusSuccess) << bytes.toHex().constData();
    }
}

TEST_F(DamagedJpeg, isRefusedWhenItsSizeIsAnother)
{
    hvdicom::startDicom();
    for (char const* const syntax : {"1.2.840.10008.1.2.4.70", "1.2.840.10008.1.2.4.80"}) {
        EXPECT_TRUE(output(write(picture(syntax).set(0x0028, 0x0010, "25"))).empty()) << syntax;
        EXPECT_TRUE(output(write(picture(syntax).set(0x0028, 0x0011, "39"))).empty()) << syntax;
        EXPECT_EQ(output(write(picture(syntax))).size(), 40U * 24U) << syntax;
    }
}

TEST_F(Jpeg2000Files, framesOfSeveralFragmentsAreJoined)
{
    QByteArray const a = jpeg2000Frame({1, 2, 3, 4}, 2, 2, 16, false);
    QByteArray const b = jpeg2000Frame({5, 6, 7, 8}, 2, 2, 16, false);
    QByteArray const half = a.left(a.size() / 4 * 2);
    QString const file = withFragments(builder.size(2, 2, 2), {half, a.mid(half.size()), b});
    CDicomReader reader;
    ASSERT_EQ(reader.initDicomImporter(file), eStatusSuccess);
    ASSERT_EQ(reader.loadEntireDicomInfo(), eStatusSuccess);
    CILImage image;
    for (unsigned frame : {1U, 0U, 1U}) {
        ASSERT_EQ(reader.readPixelInfo(&image, frame), eStatusSuccess) << frame;
        EXPECT_EQ(image.getMin(), frame * 4 + 1) << frame;
        EXPECT_EQ(image.getMax(), frame * 4 + 4) << frame;
    }
    EXPECT_THAT(output(file).size(), 4U);
}

TEST_F(Jpeg2000Files, colourIsDecodedToo)
{
    DicomBuilder const colour =
        builder.size(2, 1).bits(8, 8).photometric("YBR_RCT", 3).samples({1, 2, 3, 200, 100, 50});
    QString const file = write(DicomBuilder(colour).transferSyntax("1.2.840.10008.1.2.4.90"));
    hvdicom::startDicom();
    DcmFileFormat format;
    ASSERT_TRUE(format.loadFile(OFFilename(viz_test::encoded(file).constData())).good());
    ASSERT_TRUE(format.getDataset()->chooseRepresentation(EXS_LittleEndianExplicit, nullptr).good());
    Uint8 const* samples = nullptr;
    unsigned long count = 0;
    OFString model;
    format.getDataset()->findAndGetOFString(DCM_PhotometricInterpretation, model);
    EXPECT_STREQ(model.c_str(), "RGB");
    ASSERT_TRUE(format.getDataset()->findAndGetUint8Array(DCM_PixelData, samples, &count).good());
    EXPECT_THAT((std::vector<int>(samples, samples + 6)), testing::ElementsAre(1, 2, 3, 200, 100, 50));
}

TEST_F(Jpeg2000Files, damagedOnesAreRefused)
{
    hvdicom::startDicom();
    QByteArray const good = jpeg2000Frame({1, 2, 3, 4}, 2, 2, 16, false);
    builder.size(2, 2);
    EXPECT_EQ(output(withFragments(builder, {good})).size(), 4U);
    EXPECT_TRUE(output(withFragments(builder, {good.left(good.size() / 2)})).empty());
    EXPECT_TRUE(output(withFragments(builder, {QByteArray(100, 'x')})).empty());
    EXPECT_TRUE(output(withFragments(builder, {})).empty());
    EXPECT_TRUE(output(withFragments(DicomBuilder(builder).set(0x0028, 0x0010, "3"), {good})).empty());
    EXPECT_TRUE(output(withFragments(DicomBuilder(builder).set(0x0028, 0x0008, "3"), {good})).empty());
    EXPECT_TRUE(
        output(withFragments(DicomBuilder(builder).set(0x0028, 0x0010, "65535").set(0x0028, 0x0011, "65535"),
                             {good}))
            .empty());
}
