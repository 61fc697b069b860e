#include "hvimage/CILImage.h"

#include "lib/hvimage/ImageMessages.h"
#include "support/TiffFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

#include <sys/stat.h>

namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using viz_test::TiffKind;
using Values = std::vector<std::uint32_t>;

std::vector<std::string> told;

class Tiff : public testing::Test
{
protected:
    Tiff()
    {
        told.clear();
        setImageMessageSink([](ImageMessage kind, QString const& text) {
            if (kind == ImageMessage::Warning) told.push_back(text.toStdString());
        });
    }
    ~Tiff() override { setImageMessageSink(nullptr); }

    bool load(QString const& name, int frame = 0)
    {
        return image.LoadFromTIFFFile(folder.encoded(name).constData(), frame);
    }

    bool canInit(QString const& name)
    {
        return CILImage::canInitFromFile(folder.encoded(name).constData()) != 0;
    }

    // Values that differ from pixel to pixel and from page to page, all below 2^bits.
    static Values ramp(TiffKind const& kind, std::uint32_t seed = 1)
    {
        Values values(std::size_t{kind.width} * kind.height * kind.samples);
        std::uint32_t state = seed * 2654435761U;
        for (auto& value : values) {
            state = state * 1664525U + 1013904223U;
            value = kind.bits >= 32 ? state : (state >> 8) & ((1U << kind.bits) - 1);
        }
        return values;
    }

    Values samples() const
    {
        auto const count = static_cast<std::size_t>(image.getWidth() * image.getHeight());
        Values values(count);
        for (std::size_t i = 0; i < count; ++i) {
            void const* const data = image.get_data();
            values[i] = image.get_datatype() == eTypeUInt8    ? static_cast<std::uint8_t const*>(data)[i]
                        : image.get_datatype() == eTypeUInt16 ? static_cast<std::uint16_t const*>(data)[i]
                                                              : static_cast<std::uint32_t const*>(data)[i];
        }
        return values;
    }

    // Writes two pages of a kind, reads both and compares every sample.
    void expectRoundTrip(TiffKind const& kind, HVSDataTypes type, char const* mode = "w")
    {
        Values const first = ramp(kind, 1);
        Values const second = ramp(kind, 2);
        viz_test::writeTiff(folder.path("kind.tif"), kind, {first, second}, mode);
        ASSERT_TRUE(canInit("kind.tif"));
        ASSERT_TRUE(load("kind.tif")) << (told.empty() ? "" : told.back());
        EXPECT_EQ(image.get_datatype(), type);
        EXPECT_EQ(image.getImageCount(), 2);
        EXPECT_EQ(image.getWidth(), static_cast<long>(kind.width));
        EXPECT_EQ(image.getHeight(), static_cast<long>(kind.height));
        EXPECT_FALSE(image.isRGBImageFormat());
        EXPECT_EQ(samples(), first);
        EXPECT_EQ(image.getMin(), *std::min_element(first.begin(), first.end()));
        EXPECT_EQ(image.getMax(), *std::max_element(first.begin(), first.end()));
        ASSERT_EQ(image.getFrameData(1), image.get_data());
        EXPECT_EQ(samples(), second);
        EXPECT_EQ(image.getMax(), *std::max_element(second.begin(), second.end()));
        EXPECT_THAT(told, IsEmpty());
    }

    // No samples, no type, a reason in the log.
    void expectRefused(QString const& name, char const* reason)
    {
        told.clear();
        EXPECT_FALSE(load(name));
        EXPECT_EQ(image.get_datatype(), eTypeNone);
        EXPECT_EQ(image.get_data(), nullptr);
        EXPECT_EQ(image.getFrameData(0), nullptr);
        EXPECT_EQ(image.getMax(), 0.0);
        EXPECT_THAT(told, Contains(HasSubstr(reason)));
        EXPECT_THAT(told, Contains(testing::StartsWith(name.toStdString() + ": ")));
    }

    viz_test::TiffFolder folder;
    CILImage image;
};

TiffKind kindOf(unsigned bits, unsigned width = 37, unsigned height = 23)
{
    TiffKind kind;
    kind.width = width;
    kind.height = height;
    kind.bits = bits;
    return kind;
}

HVSDataTypes typeOf(unsigned bits)
{
    return bits <= 8 ? eTypeUInt8 : bits <= 16 ? eTypeUInt16 : eTypeUInt32;
}

// ---- what is read ----

TEST_F(Tiff, WholeBytesInStripsOfAnyHeight)
{
    for (unsigned bits : {8U, 16U, 32U})
        for (unsigned rows : {0U, 1U, 5U, 23U, 64U}) {
            TiffKind kind = kindOf(bits);
            kind.rowsPerStrip = rows;
            expectRoundTrip(kind, typeOf(bits));
        }
}

TEST_F(Tiff, BothByteOrdersAndBigTiff)
{
    for (unsigned bits : {8U, 12U, 16U, 24U, 32U})
        for (char const* mode : {"wl", "wb", "w8", "wb8"}) {
            TiffKind kind = kindOf(bits);
            kind.rowsPerStrip = 4;
            expectRoundTrip(kind, typeOf(bits), mode);
        }
}

TEST_F(Tiff, CompressionsWithAndWithoutPredictor)
{
    for (int compression :
         {COMPRESSION_LZW, COMPRESSION_ADOBE_DEFLATE, COMPRESSION_DEFLATE, COMPRESSION_PACKBITS})
        for (unsigned bits : {4U, 8U, 16U, 32U})
            for (int predictor : {PREDICTOR_NONE, PREDICTOR_HORIZONTAL}) {
                if (predictor != PREDICTOR_NONE && (bits < 8 || compression == COMPRESSION_PACKBITS))
                    continue;
                TiffKind kind = kindOf(bits);
                kind.compression = compression;
                kind.predictor = predictor;
                kind.rowsPerStrip = 6;
                expectRoundTrip(kind, typeOf(bits));
                expectRoundTrip(kind, typeOf(bits), "wb");
            }
}

TEST_F(Tiff, TilesThatTheEdgeCuts)
{
    for (unsigned bits : {1U, 8U, 12U, 16U, 32U})
        for (int compression : {COMPRESSION_NONE, COMPRESSION_LZW})
            for (char const* mode : {"wl", "wb"}) {
                TiffKind kind = kindOf(bits, 70, 41);
                kind.tile = 32;
                kind.compression = compression;
                expectRoundTrip(kind, typeOf(bits), mode);
            }
}

TEST_F(Tiff, ATileLargerThanThePicture)
{
    TiffKind kind = kindOf(16, 3, 2);
    kind.tile = 64;
    expectRoundTrip(kind, eTypeUInt16);
}

TEST_F(Tiff, BitsWithoutBytes)
{
    for (unsigned bits : {1U, 2U, 4U, 6U, 10U, 12U, 14U, 24U}) {
        TiffKind kind = kindOf(bits);
        kind.rowsPerStrip = 5;
        expectRoundTrip(kind, typeOf(bits));
    }
}

TEST_F(Tiff, BitsFromTheOtherEnd)
{
    TiffKind kind = kindOf(8);
    kind.fillOrder = FILLORDER_LSB2MSB;
    expectRoundTrip(kind, eTypeUInt8);
    kind.bits = 1;
    expectRoundTrip(kind, eTypeUInt8);
}

TEST_F(Tiff, FaxPages)
{
    TiffKind kind = kindOf(1, 64, 40);
    kind.compression = COMPRESSION_CCITTFAX4;
    kind.photometric = PHOTOMETRIC_MINISWHITE;
    expectRoundTrip(kind, eTypeUInt8);
}

TEST_F(Tiff, GreyJpeg)
{
    if (!TIFFIsCODECConfigured(COMPRESSION_JPEG)) GTEST_SKIP() << "libtiff has no JPEG here";
    TiffKind kind = kindOf(8, 48, 32);
    kind.compression = COMPRESSION_JPEG;
    kind.rowsPerStrip = 16;
    viz_test::writeTiff(folder.path("j.tif"), kind, {Values(48 * 32, 77)});
    ASSERT_TRUE(load("j.tif"));
    EXPECT_EQ(image.get_datatype(), eTypeUInt8);
    EXPECT_EQ(samples(), Values(48 * 32, 77)) << "one value survives the loss";
}

TEST_F(Tiff, Zstandard)
{
    if (!TIFFIsCODECConfigured(COMPRESSION_ZSTD)) GTEST_SKIP() << "libtiff has no Zstandard here";
    TiffKind kind = kindOf(16);
    kind.compression = COMPRESSION_ZSTD;
    expectRoundTrip(kind, eTypeUInt16);
}

TEST_F(Tiff, PaletteIndicesAndWhiteAsZeroComeAsTheyStand)
{
    TiffKind kind = kindOf(8);
    kind.photometric = PHOTOMETRIC_PALETTE;
    expectRoundTrip(kind, eTypeUInt8);
    kind.photometric = PHOTOMETRIC_MINISWHITE;
    expectRoundTrip(kind, eTypeUInt8);
}

TEST_F(Tiff, SignedSamplesAreMovedUp)
{
    TiffKind kind = kindOf(16, 4, 1);
    kind.format = SAMPLEFORMAT_INT;
    viz_test::writeTiff(folder.path("s.tif"), kind, {{0x8000, 0xFFFF, 0, 0x7FFF}});
    ASSERT_TRUE(load("s.tif"));
    EXPECT_EQ(image.get_datatype(), eTypeUInt16);
    EXPECT_EQ(samples(), (Values{0, 32767, 32768, 65535}));
    EXPECT_EQ(image.getMax(), 65535.0);
}

TEST_F(Tiff, UntypedSamplesAreUnsigned)
{
    TiffKind kind = kindOf(16, 2, 1);
    kind.format = SAMPLEFORMAT_VOID;
    viz_test::writeTiff(folder.path("v.tif"), kind, {{1, 65535}});
    ASSERT_TRUE(load("v.tif"));
    EXPECT_EQ(samples(), (Values{1, 65535}));
}

TEST_F(Tiff, AllOf32Bits)
{
    viz_test::writeTiff(folder.path("w.tif"), kindOf(32, 2, 1), {{5, 4294967295U}});
    ASSERT_TRUE(load("w.tif"));
    EXPECT_EQ(image.getMin(), 5.0);
    EXPECT_EQ(image.getMax(), 4294967295.0);
}

// ---- tags ----

TEST_F(Tiff, ResolutionsAsTheyStand)
{
    TiffKind kind = kindOf(8, 2, 2);
    kind.xResolution = 2.5;
    kind.yResolution = 0.125;
    kind.resolutionUnit = RESUNIT_CENTIMETER;
    viz_test::writeTiff(folder.path("r.tif"), kind, {ramp(kind)});
    ASSERT_TRUE(load("r.tif"));
    EXPECT_FLOAT_EQ(image.getXResolution(), 2.5F);
    EXPECT_FLOAT_EQ(image.getYResolution(), 0.125F);
    EXPECT_EQ(image.getResolutionUnit(), 3);
}

TEST_F(Tiff, WithoutResolutionTagsThereIsNone)
{
    viz_test::writeTiff(folder.path("n.tif"), kindOf(8, 2, 2), {{1, 2, 3, 4}});
    ASSERT_TRUE(load("n.tif"));
    EXPECT_EQ(image.getXResolution(), 0.0F);
    EXPECT_EQ(image.getYResolution(), 0.0F);
}

TEST_F(Tiff, AResolutionOverZeroIsNone)
{
    TiffKind kind = kindOf(8, 2, 2);
    kind.xResolution = 2.5;
    viz_test::writeTiff(folder.path("z.tif"), kind, {{1, 2, 3, 4}}, "wl");
    QByteArray bytes = folder.contents("z.tif");
    // 2.5 is kept as 5 / 2 or larger numbers of that ratio: the denominator is what follows
    bool changed = false;
    for (int at = 0; at + 8 <= bytes.size() && !changed; ++at) {
        std::uint32_t fraction[2];
        std::memcpy(fraction, bytes.constData() + at, 8);
        if (fraction[1] == 0 || fraction[0] != fraction[1] / 2 * 5 || fraction[0] < 5) continue;
        std::memset(bytes.data() + at + 4, 0, 4);
        changed = true;
    }
    ASSERT_TRUE(changed);
    folder.write("z.tif", bytes);
    ASSERT_TRUE(load("z.tif"));
    EXPECT_EQ(image.getXResolution(), 0.0F);
}

TEST_F(Tiff, OriginalSizeIsThatOfThePageReadLast)
{
    TIFF* const file = TIFFOpen(folder.encoded("sizes.tif").constData(), "w");
    for (unsigned width : {2U, 5U}) {
        viz_test::writeTiffPage(file, kindOf(8, width, 1), Values(width, width));
        TIFFWriteDirectory(file);
    }
    TIFFClose(file);
    ASSERT_TRUE(load("sizes.tif"));
    EXPECT_EQ(image.getOriginalWidth(), 2);
    ASSERT_NE(image.getFrameData(1), nullptr);
    EXPECT_EQ(image.getOriginalWidth(), 5);
    EXPECT_EQ(samples(), Values(5, 5));
    ASSERT_TRUE(image.resize(9, 9));
    EXPECT_EQ(image.getOriginalWidth(), 5) << "of the file, not of the image";
}

// ---- pages ----

TEST_F(Tiff, PagesInAnyOrderAndAgain)
{
    TiffKind kind = kindOf(16, 5, 3);
    kind.compression = COMPRESSION_LZW;
    std::vector<Values> pages;
    for (std::uint32_t i = 0; i < 40; ++i)
        pages.push_back(ramp(kind, i + 1));
    viz_test::writeTiff(folder.path("many.tif"), kind, pages);
    ASSERT_TRUE(load("many.tif", 39));
    EXPECT_EQ(samples(), pages[39]);
    for (int i : {0, 17, 16, 38, 0, 39, 1}) {
        ASSERT_NE(image.getFrameData(i), nullptr);
        EXPECT_EQ(samples(), pages[static_cast<std::size_t>(i)]) << i;
    }
    for (int i : {-1, 40, 1000000}) {
        EXPECT_EQ(image.getFrameData(i), nullptr);
        EXPECT_EQ(image.get_datatype(), eTypeNone);
    }
    ASSERT_NE(image.getFrameData(3), nullptr);
    EXPECT_FALSE(load("many.tif", 40));
    EXPECT_EQ(image.getImageCount(), 40);
}

TEST_F(Tiff, OneUnreadablePageLeavesTheOthers)
{
    TIFF* const file = TIFFOpen(folder.encoded("mixed.tif").constData(), "w");
    for (int format : {SAMPLEFORMAT_UINT, SAMPLEFORMAT_IEEEFP, SAMPLEFORMAT_UINT}) {
        TiffKind kind = kindOf(32, 2, 1);
        kind.format = format;
        viz_test::writeTiffPage(file, kind, {7, 8});
        TIFFWriteDirectory(file);
    }
    TIFFClose(file);
    ASSERT_TRUE(load("mixed.tif"));
    EXPECT_EQ(image.getFrameData(1), nullptr);
    EXPECT_EQ(image.getOriginalWidth(), 2) << "known all the same";
    ASSERT_NE(image.getFrameData(2), nullptr);
    EXPECT_EQ(samples(), (Values{7, 8}));
    EXPECT_EQ(image.getFrameData(1), nullptr);
    EXPECT_THAT(told, SizeIs(1)) << "a reason is told once";
}

TEST_F(Tiff, ACopyReadsOnByItself)
{
    viz_test::writeTiff(folder.path("two.tif"), kindOf(8, 2, 1), {{1, 2}, {3, 4}});
    ASSERT_TRUE(load("two.tif"));
    CILImage copy(image);
    ASSERT_NE(copy.getFrameData(1), nullptr);
    EXPECT_EQ(copy.getMax(), 4.0);
    EXPECT_EQ(samples(), (Values{1, 2}));
    image = copy;
    EXPECT_EQ(samples(), (Values{3, 4}));
    ASSERT_NE(image.getFrameData(0), nullptr);
    EXPECT_EQ(samples(), (Values{1, 2}));
}

TEST_F(Tiff, AnOpenFileGoesOnAfterItsRemoval)
{
    viz_test::writeTiff(folder.path("gone.tif"), kindOf(8, 2, 1), {{1, 2}, {3, 4}});
    ASSERT_TRUE(load("gone.tif"));
    QFile::remove(folder.path("gone.tif"));
    ASSERT_NE(image.getFrameData(1), nullptr);
    EXPECT_EQ(samples(), (Values{3, 4}));
    EXPECT_FALSE(load("gone.tif"));
    EXPECT_EQ(image.getImageCount(), 0);
    EXPECT_EQ(image.getOriginalWidth(), 0);
}

TEST_F(Tiff, AChangedFileIsReadAnew)
{
    viz_test::writeTiff(folder.path("new.tif"), kindOf(8, 2, 1), {{1, 2}, {3, 4}});
    ASSERT_TRUE(load("new.tif"));
    viz_test::writeTiff(folder.path("new.tif"), kindOf(8, 3, 1), {{5, 6, 7}, {8, 9, 1}, {2, 3, 4}});
    ASSERT_TRUE(load("new.tif", 2));
    EXPECT_EQ(image.getImageCount(), 3);
    EXPECT_EQ(samples(), (Values{2, 3, 4}));
}

TEST_F(Tiff, ManyPagesAreFoundInTimeThatGrowsWithTheirNumber)
{
    TiffKind const kind = kindOf(8, 1, 1);
    viz_test::writeTiff(folder.path("long.tif"), kind, std::vector<Values>(6000, Values{9}));
    ASSERT_TRUE(load("long.tif"));
    EXPECT_EQ(image.getImageCount(), 6000);
    for (int i = 0; i < 6000; ++i) {
        CILImage other;
        ASSERT_TRUE(other.LoadFromTIFFFile(folder.encoded("long.tif").constData(), (i * 7919) % 6000));
    }
}

// ---- names ----

TEST_F(Tiff, OddNamesOpen)
{
    for (QString const& name :
         {QStringLiteral("a b.tif"), QStringLiteral("it's \"it\".tif"), QStringLiteral("#1.tif"),
          QStringLiteral("100%.tif"), QString::fromUtf8("M\xC3\xA4use.tif"), QStringLiteral("-v"),
          QString(200, QLatin1Char('n'))}) {
        viz_test::writeTiff(folder.path(name), kindOf(8, 2, 1), {{1, 2}});
        EXPECT_TRUE(canInit(name)) << name.toStdString();
        EXPECT_TRUE(load(name)) << name.toStdString();
    }
}

TEST_F(Tiff, WhatIsNoPlainFileIsRefused)
{
    QByteArray const pipe = folder.encoded("pipe.tif");
    ASSERT_EQ(mkfifo(pipe.constData(), 0600), 0);
    EXPECT_FALSE(canInit("pipe.tif")) << "and nobody waits for its other end";
    EXPECT_FALSE(load("pipe.tif"));
    EXPECT_FALSE(canInit("."));
    EXPECT_FALSE(canInit("missing.tif"));
    EXPECT_FALSE(load("missing.tif"));
    EXPECT_EQ(CILImage::canInitFromFile(""), 0);
    EXPECT_EQ(CILImage::canInitFromFile(nullptr), 0);
    EXPECT_FALSE(image.LoadFromTIFFFile(nullptr, 0));
}

// ---- what is refused ----

TEST_F(Tiff, OtherKindsOfSamplesAreAcceptedAsTiffOnly)
{
    TiffKind real = kindOf(32, 2, 2);
    real.format = SAMPLEFORMAT_IEEEFP;
    viz_test::writeTiff(folder.path("float.tif"), real, {ramp(real)});
    TiffKind wide = kindOf(64, 2, 2);
    viz_test::writeTiff(folder.path("wide.tif"), wide, {{1, 2, 3, 4}});
    TiffKind colour = kindOf(8, 2, 2);
    colour.samples = 3;
    colour.photometric = PHOTOMETRIC_RGB;
    viz_test::writeTiff(folder.path("rgb.tif"), colour, {Values(12, 5)});
    TiffKind pair = kindOf(16, 2, 2);
    pair.format = SAMPLEFORMAT_COMPLEXINT;
    pair.bits = 32;
    viz_test::writeTiff(folder.path("pair.tif"), pair, {{1, 2, 3, 4}});

    for (char const* name : {"float.tif", "wide.tif", "rgb.tif", "pair.tif"})
        EXPECT_TRUE(canInit(name)) << name;
    expectRefused("float.tif", "floating-point");
    EXPECT_EQ(image.getOriginalWidth(), 2);
    EXPECT_FALSE(image.isRGBImageFormat());
    expectRefused("wide.tif", "1 to 32 bits");
    expectRefused("pair.tif", "unknown kind");
    expectRefused("rgb.tif", "colour");
    EXPECT_TRUE(image.isRGBImageFormat());
    EXPECT_EQ(image.getImageCount(), 1);
}

TEST_F(Tiff, PackingsWithoutMeasureAreRefused)
{
    if (!TIFFIsCODECConfigured(COMPRESSION_LZMA)) GTEST_SKIP() << "libtiff has no LZMA here";
    TiffKind kind = kindOf(8);
    kind.compression = COMPRESSION_LZMA;
    viz_test::writeTiff(folder.path("lzma.tif"), kind, {ramp(kind)});
    EXPECT_TRUE(canInit("lzma.tif"));
    expectRefused("lzma.tif", "packed by a method that is not read (34925)");
}

TEST_F(Tiff, ARefusedFileLeavesNothingOfTheFormerPicture)
{
    viz_test::writeTiff(folder.path("good.tif"), kindOf(8, 2, 1), {{1, 2}});
    ASSERT_TRUE(load("good.tif"));
    folder.write("text.tif", "no picture");
    EXPECT_FALSE(load("text.tif"));
    EXPECT_EQ(image.get_data(), nullptr);
    EXPECT_EQ(image.getOriginalWidth(), 0);
    EXPECT_EQ(image.getImageCount(), 0);
}

TEST_F(Tiff, APictureWithoutAFileKeepsItsSamples)
{
    std::uint8_t samplesOfOne[] = {5};
    ASSERT_TRUE(image.initWithData(eTypeUInt8, 1, 1, samplesOfOne));
    EXPECT_EQ(image.getFrameData(0), nullptr);
    EXPECT_EQ(image.get_datatype(), eTypeUInt8);
}

}  // namespace
