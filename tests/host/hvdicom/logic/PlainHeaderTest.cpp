#include "lib/hvdicom/logic/PlainHeader.h"
#include "support/dicom/DicomBuilder.h"
#include "support/dicom/DicomMutations.h"

#include <dcmtk/config/osconfig.h>

#include <dcmtk/dcmdata/dcdeftag.h>
#include <dcmtk/dcmdata/dcfilefo.h>
#include <dcmtk/dcmdata/dcmetinf.h>
#include <dcmtk/dcmdata/dcpixel.h>
#include <dcmtk/oflog/oflog.h>

#include <QFile>
#include <QTemporaryDir>
#include <cstring>
#include <gtest/gtest.h>

namespace {

std::optional<hvdicom::PlainHeader> header(QByteArray const& bytes, int atOnce = 4096)
{
    hvdicom::ByteSource const source = [&bytes](std::uint64_t offset, std::uint8_t* target,
                                                std::size_t count) {
        auto const size = static_cast<std::uint64_t>(bytes.size());
        if (offset > size || size - offset < count) return false;
        std::memcpy(target, bytes.constData() + offset, count);
        return true;
    };
    return hvdicom::PlainHeader::read(reinterpret_cast<std::uint8_t const*>(bytes.constData()),
                                      static_cast<std::size_t>(std::min(bytes.size(), atOnce)), source,
                                      static_cast<std::uint64_t>(bytes.size()));
}

std::string values(hvdicom::PlainHeader const& header, std::uint32_t tag)
{
    return std::string(header.values(tag).value_or("none"));
}

template <std::size_t N>
QByteArray raw(char const (&bytes)[N])
{
    return {bytes, static_cast<int>(N) - 1};
}

// Puts bytes before the attribute (0008,0060) of an explicit file, behind all of lower tags that the builder
// writes.
QByteArray before0060(QByteArray const& bytes)
{
    QByteArray file = DicomBuilder().bytes();
    int const at = file.indexOf(raw("\x08\0\x60\0CS"));
    EXPECT_GT(at, 0);
    return file.insert(at, bytes);
}

constexpr std::uint32_t kept[] = {0x00020010U, 0x00020013U, 0x00080016U, 0x00080060U, 0x00080070U,
                                  0x00180050U, 0x00180088U, 0x00280002U, 0x00280004U, 0x00280008U,
                                  0x00280010U, 0x00280011U, 0x00280030U, 0x00280100U, 0x00280101U,
                                  0x00280102U, 0x00280103U};

}  // namespace

TEST(PlainHeader, tellsWhatThePlainFileTells)
{
    for (char const* const syntax : {"1.2.840.10008.1.2", "1.2.840.10008.1.2.1"}) {
        QByteArray const bytes = DicomBuilder()
                                     .size(6, 5, 2)
                                     .bits(16, 12, true)
                                     .transferSyntax(syntax)
                                     .spacing(0.25, 0.5)
                                     .set(0x0008, 0x0070, " A Maker ")
                                     .set(0x0018, 0x0050, "2.5")
                                     .remove(0x0018, 0x0088)
                                     .bytes();
        for (int const atOnce : {4096, 140, 1}) {
            auto const found = header(bytes, atOnce);
            ASSERT_TRUE(found) << syntax;
            EXPECT_EQ(values(*found, 0x00020010U), syntax);
            EXPECT_EQ(values(*found, 0x00080060U), "CT");
            EXPECT_EQ(values(*found, 0x00080070U), "A Maker");
            EXPECT_EQ(values(*found, 0x00180050U), "2.5");
            EXPECT_EQ(values(*found, 0x00280004U), "MONOCHROME2");
            EXPECT_EQ(values(*found, 0x00280008U), "2");
            EXPECT_EQ(values(*found, 0x00280010U), "5");
            EXPECT_EQ(values(*found, 0x00280011U), "6");
            EXPECT_EQ(values(*found, 0x00280030U), "0.25\\0.5");
            EXPECT_EQ(values(*found, 0x00280101U), "12");
            EXPECT_EQ(values(*found, 0x00280103U), "1");
            EXPECT_FALSE(found->has(0x00180088U));
            EXPECT_EQ(values(*found, 0x00180088U), "none");
            EXPECT_TRUE(found->has(0x00200032U));
            EXPECT_EQ(values(*found, 0x00200032U), "none");
            EXPECT_TRUE(found->hasPixels());
            EXPECT_EQ(found->pixelBytes(), 120U);
        }
    }
}

TEST(PlainHeader, aFileWithoutPixelsIsPlainToo)
{
    auto const found = header(DicomBuilder().withoutPixels().bytes());
    ASSERT_TRUE(found);
    EXPECT_FALSE(found->hasPixels());
}

TEST(PlainHeader, passesSequencesOfBothForms)
{
    // Behind (0008,0060) would be too late: (0008,0051) holds an item with (0008,0050).
    QByteArray const attribute = raw("\x08\0\x50\0SH\x04\0ABCD");
    QByteArray const open = raw("\x08\0\x51\0SQ\0\0\xFF\xFF\xFF\xFF\xFE\xFF\0\xE0\xFF\xFF\xFF\xFF") +
                            attribute + raw("\xFE\xFF\x0D\xE0\0\0\0\0\xFE\xFF\xDD\xE0\0\0\0\0");
    QByteArray const closed = raw("\x08\0\x51\0SQ\0\0\x14\0\0\0\xFE\xFF\0\xE0\x0C\0\0\0") + attribute;
    for (QByteArray const& sequence : {open, closed}) {
        auto const found = header(before0060(sequence));
        ASSERT_TRUE(found);
        EXPECT_TRUE(found->has(0x00080051U));
        EXPECT_FALSE(found->has(0x00080050U));
        EXPECT_EQ(values(*found, 0x00080060U), "CT");
        for (int cut = 1; cut < sequence.size(); ++cut)
            EXPECT_FALSE(header(before0060(sequence.left(cut)))) << cut;
    }
}

TEST(PlainHeader, leavesEveryOtherFileToTheLibrary)
{
    for (char const* const syntax : {"1.2.840.10008.1.2.2", "1.2.840.10008.1.2.1.99", "1.2.840.10008.1.2.5"})
        EXPECT_FALSE(header(DicomBuilder().transferSyntax(syntax).bytes())) << syntax;
    EXPECT_FALSE(header(DicomBuilder().withoutHeader().bytes()));
    EXPECT_FALSE(header(QByteArray()));
    EXPECT_FALSE(header(QByteArray(5000, 'x')));
    EXPECT_FALSE(header(DicomBuilder().set(0x0008, 0x0070, "M\xE4user").bytes()));
    QByteArray const whole = DicomBuilder().bytes();
    EXPECT_FALSE(header(whole + "x"));
    for (int size = 0; size < whole.size(); ++size) {
        auto const found = header(whole.left(size));
        EXPECT_FALSE(found && found->hasPixels()) << size;
    }
    EXPECT_FALSE(header(before0060(raw("\x08\0\x51\0SH\x01\0A"))));        // odd length
    EXPECT_FALSE(header(before0060(raw("\x08\0\x51\0XX\x02\0A "))));       // no representation
    EXPECT_FALSE(header(before0060(raw("\x09\0\x51\0SH\x02\0A "))));       // out of order
    EXPECT_FALSE(header(before0060(raw("\x08\0\x51\0LT\xFE\x7F\x41 "))));  // longer than the file
}

// Whatever the header says of a file, damaged or not, the library says as well.
class PlainHeaderBesideTheLibrary : public testing::TestWithParam<int>
{};

TEST_P(PlainHeaderBesideTheLibrary, saysTheSame)
{
    OFLog::configure(OFLogger::OFF_LOG_LEVEL);
    QTemporaryDir const folder;
    QString const path = folder.filePath("a.dcm");
    std::mt19937 random(static_cast<unsigned>(GetParam()) + 7);
    int plain = 0;
    for (int i = 0; i < 300; ++i) {
        QByteArray const seed = mutationSeed(GetParam());
        QByteArray const bytes = i == 0 ? seed : mutatedDicom(seed, random);
        auto const found = header(bytes);
        if (!found) continue;
        ++plain;
        QFile::remove(path);
        QFile out(path);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size());
        out.close();
        DcmFileFormat file;
        ASSERT_TRUE(
            file.loadFile(OFFilename(QFile::encodeName(path).constData()), EXS_Unknown, EGL_noChange, 4096)
                .good())
            << i;
        for (std::uint32_t const tag : kept) {
            DcmTagKey const key(static_cast<Uint16>(tag >> 16), static_cast<Uint16>(tag & 0xFFFF));
            DcmItem* const item = tag >> 16 == 2 ? static_cast<DcmItem*>(file.getMetaInfo())
                                                 : static_cast<DcmItem*>(file.getDataset());
            DcmElement* element = nullptr;
            bool const has = item->findAndGetElement(key, element).good() && element;
            ASSERT_EQ(found->has(tag), has) << i << ' ' << key.toString();
            if (!has) continue;
            OFString text;
            element->getOFStringArray(text);
            EXPECT_EQ(values(*found, tag), QByteArray(text.c_str()).trimmed().toStdString())
                << i << ' ' << key.toString();
        }
        DcmElement* pixels = nullptr;
        bool const hasPixels = file.getDataset()->findAndGetElement(DCM_PixelData, pixels).good() && pixels;
        ASSERT_EQ(found->hasPixels(), hasPixels) << i;
        E_TransferSyntax const syntax = file.getDataset()->getOriginalXfer();
        EXPECT_EQ(found->pixelBytes(), hasPixels ? pixels->getLength(syntax) : 0U) << i;
    }
    RecordProperty("plain", plain);
}

INSTANTIATE_TEST_SUITE_P(ofEveryKind, PlainHeaderBesideTheLibrary, testing::Range(0, mutationSeeds));
