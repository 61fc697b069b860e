#include "hvimage/CILImage.h"

#include "lib/hvimage/ImageMessages.h"
#include "support/TiffDamage.h"
#include "support/TiffFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <random>

#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

// Files that are damaged on purpose, and files damaged at random: each ends with samples or with a reason.

namespace {

using testing::Contains;
using testing::HasSubstr;
using viz_test::TiffKind;
using Values = std::vector<std::uint32_t>;

std::vector<std::string> told;
std::vector<std::string> remarked;

TiffKind kindOf(unsigned bits, int compression = COMPRESSION_NONE)
{
    TiffKind kind;
    kind.width = 40;
    kind.height = 30;
    kind.bits = bits;
    kind.compression = compression;
    kind.rowsPerStrip = 7;
    return kind;
}

Values ramp(TiffKind const& kind)
{
    Values values(std::size_t{kind.width} * kind.height);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] =
            static_cast<std::uint32_t>(i * i / 7) & (kind.bits >= 32 ? 0xFFFFFFFFU : (1U << kind.bits) - 1);
    return values;
}

// Places in a file of the classic kind, low byte first.
struct Directory
{
    QByteArray& bytes;
    std::uint32_t offset = 0;

    explicit Directory(QByteArray& file, int number = 0)
        : bytes(file)
        , offset(at32(4))
    {
        while (number-- > 0)
            offset = at32(next());
    }

    std::uint32_t at32(std::uint32_t place) const
    {
        std::uint32_t value = 0;
        std::memcpy(&value, bytes.constData() + place, 4);
        return value;
    }

    std::uint16_t at16(std::uint32_t place) const
    {
        std::uint16_t value = 0;
        std::memcpy(&value, bytes.constData() + place, 2);
        return value;
    }

    void put(std::uint32_t place, std::uint32_t value) { std::memcpy(bytes.data() + place, &value, 4); }

    // Where the offset of the next directory stands.
    std::uint32_t next() const { return offset + 2 + 12U * at16(offset); }

    // Where the entry of a tag stands; it must be there.
    std::uint32_t entry(std::uint16_t tag) const
    {
        for (std::uint32_t i = 0; i < at16(offset); ++i)
            if (at16(offset + 2 + 12 * i) == tag) return offset + 2 + 12 * i;
        ADD_FAILURE() << "no tag " << tag;
        return offset + 2;
    }

    // Makes an entry one 32-bit number.
    void set(std::uint16_t tag, std::uint32_t value)
    {
        std::uint32_t const place = entry(tag);
        std::uint32_t const typeLong = 4;
        put(place, (typeLong << 16) | tag);
        put(place + 4, 1);
        put(place + 8, value);
    }
};

// A file that touches no disk.
class MemoryFile
{
public:
    explicit MemoryFile(QByteArray const& bytes)
        : m_descriptor(memfd_create("tiff", MFD_CLOEXEC))
    {
        EXPECT_EQ(write(m_descriptor, bytes.constData(), static_cast<std::size_t>(bytes.size())),
                  bytes.size());
    }
    ~MemoryFile() { close(m_descriptor); }
    MemoryFile(MemoryFile const&) = delete;
    MemoryFile& operator=(MemoryFile const&) = delete;

    QByteArray path() const { return "/proc/self/fd/" + QByteArray::number(m_descriptor); }

private:
    int m_descriptor;
};

class TiffDamage : public testing::Test
{
protected:
    TiffDamage()
    {
        told.clear();
        remarked.clear();
        setImageMessageSink([](ImageMessage kind, QString const& text) {
            (kind == ImageMessage::Warning ? told : remarked).push_back(text.toStdString());
        });
    }
    ~TiffDamage() override { setImageMessageSink(nullptr); }

    QByteArray make(TiffKind const& kind, unsigned pages = 1, char const* mode = "wl")
    {
        viz_test::writeTiff(folder.path("good.tif"), kind, std::vector<Values>(pages, ramp(kind)), mode);
        return folder.contents("good.tif");
    }

    bool load(QByteArray const& bytes)
    {
        folder.write("bad.tif", bytes);
        return image.LoadFromTIFFFile(folder.encoded("bad.tif").constData(), 0);
    }

    // Reads all that there is. What comes out must be whole.
    void readAll(QByteArray const& bytes)
    {
        MemoryFile const file(bytes);
        QByteArray const path = file.path();
        bool const accepted = CILImage::canInitFromFile(path.constData()) != 0;
        bool const good = image.LoadFromTIFFFile(path.constData(), 0);
        ASSERT_TRUE(accepted || !good);
        ASSERT_EQ(accepted, image.getImageCount() > 0);
        check(good);
        for (int page = 1; page < std::min(image.getImageCount(), 6); ++page)
            check(image.getFrameData(page) != nullptr);
    }

    void check(bool good)
    {
        ASSERT_EQ(good, image.get_data() != nullptr);
        ASSERT_EQ(good, image.get_datatype() != eTypeNone);
        if (!good) return;
        ASSERT_EQ(image.getWidth(), image.getOriginalWidth());
        ASSERT_EQ(image.getHeight(), image.getOriginalHeight());
        // every sample can be read
        ASSERT_LE(image.getMin(), image.getMax());
    }

    viz_test::TiffFolder folder;
    CILImage image;
};

// ---- damage on purpose ----

TEST_F(TiffDamage, PagesThatRunInACircleCountOnce)
{
    QByteArray bytes = make(kindOf(8), 3);
    Directory last(bytes, 2);
    last.put(last.next(), Directory(bytes).offset);
    ASSERT_TRUE(load(bytes));
    EXPECT_EQ(image.getImageCount(), 3);
    EXPECT_NE(image.getFrameData(2), nullptr);
    EXPECT_THAT(told, Contains(HasSubstr("circle")));

    Directory first(bytes);
    first.put(first.next(), first.offset);
    ASSERT_TRUE(load(bytes));
    EXPECT_EQ(image.getImageCount(), 1);
}

TEST_F(TiffDamage, AChainThatLeavesTheFileEndsThere)
{
    QByteArray bytes = make(kindOf(8), 2);
    Directory first(bytes);
    first.put(first.next(), 0x7FFFFFF0U);
    ASSERT_TRUE(load(bytes));
    EXPECT_EQ(image.getImageCount(), 1);
}

TEST_F(TiffDamage, StripsBehindTheEndOfTheFile)
{
    for (int compression : {COMPRESSION_NONE, COMPRESSION_LZW, COMPRESSION_ADOBE_DEFLATE}) {
        TiffKind kind = kindOf(16, compression);
        kind.rowsPerStrip = 0;
        QByteArray bytes = make(kind);
        Directory(bytes).set(TIFFTAG_STRIPOFFSETS, 0x7FFFFF00U);
        told.clear();
        EXPECT_FALSE(load(bytes)) << compression;
        EXPECT_THAT(told, Contains(HasSubstr("bad.tif: a picture can't be decoded"))) << compression;
    }
}

TEST_F(TiffDamage, AFileCutAnywhere)
{
    TiffKind tiles = kindOf(16, COMPRESSION_LZW);
    tiles.tile = 16;
    for (TiffKind const& kind : {kindOf(16), kindOf(12), tiles, kindOf(8, COMPRESSION_PACKBITS)}) {
        QByteArray const bytes = make(kind, 2);
        for (int size = 0; size < bytes.size(); size += 13)
            readAll(bytes.left(size));
    }
}

TEST_F(TiffDamage, SizesBeyondAllMeasure)
{
    for (int compression :
         {COMPRESSION_NONE, COMPRESSION_LZW, COMPRESSION_ADOBE_DEFLATE, COMPRESSION_PACKBITS})
        for (std::uint32_t const width : {65535U, 1000000U, 0x7FFFFFFFU, 0xFFFFFFFFU})
            for (std::uint32_t const height : {65535U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
                QByteArray bytes = make(kindOf(16, compression));
                Directory directory(bytes);
                directory.set(TIFFTAG_IMAGEWIDTH, width);
                directory.set(TIFFTAG_IMAGELENGTH, height);
                directory.set(TIFFTAG_ROWSPERSTRIP, height);
                EXPECT_FALSE(load(bytes)) << width << " x " << height;
                EXPECT_EQ(image.get_datatype(), eTypeNone);
            }
    EXPECT_THAT(told, Contains(HasSubstr("too large")));
}

TEST_F(TiffDamage, MoreThanTheFileCanHold)
{
    QByteArray bytes = make(kindOf(16));
    Directory directory(bytes);
    directory.set(TIFFTAG_IMAGEWIDTH, 10000);
    directory.set(TIFFTAG_IMAGELENGTH, 10000);
    EXPECT_FALSE(load(bytes));
    EXPECT_THAT(told, Contains(HasSubstr("too short for its picture of 10000 x 10000")));
}

TEST_F(TiffDamage, TilesBeyondAllMeasure)
{
    TiffKind kind = kindOf(16);
    kind.tile = 16;
    for (std::uint32_t const side : {32768U, 65536U, 0x7FFFFFF0U}) {
        QByteArray bytes = make(kind);
        Directory directory(bytes);
        directory.set(TIFFTAG_TILEWIDTH, side);
        directory.set(TIFFTAG_TILELENGTH, side);
        EXPECT_FALSE(load(bytes)) << side;
    }
}

TEST_F(TiffDamage, SizesOfZero)
{
    for (std::uint16_t const tag : {TIFFTAG_IMAGEWIDTH, TIFFTAG_IMAGELENGTH, TIFFTAG_ROWSPERSTRIP}) {
        QByteArray bytes = make(kindOf(16));
        Directory(bytes).set(tag, 0);
        EXPECT_FALSE(load(bytes)) << tag;
    }
}

TEST_F(TiffDamage, UnknownKindsOfSamplesAndPacking)
{
    for (std::uint32_t const format : {0U, 7U, 65535U}) {
        QByteArray bytes = make(kindOf(16));
        Directory(bytes).set(TIFFTAG_SAMPLEFORMAT, format);
        EXPECT_FALSE(load(bytes)) << format;
    }
    // old JPEG, thunderscan, a log encoding, none at all
    for (std::uint32_t const packing : {6U, 32809U, 34676U, 4711U}) {
        QByteArray bytes = make(kindOf(16));
        Directory(bytes).set(TIFFTAG_COMPRESSION, packing);
        EXPECT_FALSE(load(bytes)) << packing;
    }
}

TEST_F(TiffDamage, AFileOfHeadersOnly)
{
    for (char const* header : {
             "",
             "49",
             "49492A",
             "49492A0000000000",      // no directory
             "49492A0008000000",      // one behind the end
             "4D4D002AFFFFFFFF",      // one far behind it
             "49492A00080000000000",  // one without entries
             "49492A0008000000FFFF",  // one of 65535 entries
             "49492B0008000000",      // half a large header
             "49492B000800000010000000000000000000000000000000",
             "49492B0004000000100000000000000001000000000000000001",  // large with offsets of another size
             "494D2A0008000000",
             "4D492A0008000000",
             "49492C0008000000",
             "50492A0008000000",
         }) {
        QByteArray const bytes = QByteArray::fromHex(header);
        MemoryFile const file(bytes);
        EXPECT_EQ(CILImage::canInitFromFile(file.path().constData()), 0) << header;
        readAll(bytes);
    }
}

TEST_F(TiffDamage, ReasonsOfAFileOfManyBadPagesAreFew)
{
    TIFF* const file = TIFFOpen(folder.encoded("many.tif").constData(), "wl");
    for (unsigned width = 1; width <= 200; ++width) {
        TiffKind kind = kindOf(8, COMPRESSION_LZW);
        kind.width = width;
        viz_test::writeTiffPage(file, kind, ramp(kind));
        TIFFWriteDirectory(file);
    }
    TIFFClose(file);
    QByteArray bytes = folder.contents("many.tif");
    for (int i = 0; i < 200; ++i)
        Directory(bytes, i).set(TIFFTAG_STRIPOFFSETS, 0x7FFFFF00U);
    folder.write("many.tif", bytes);
    EXPECT_FALSE(image.LoadFromTIFFFile(folder.encoded("many.tif").constData(), 0));
    for (int i = 1; i < 200; ++i)
        EXPECT_EQ(image.getFrameData(i), nullptr);
    EXPECT_LE(told.size(), 8U);
    EXPECT_GE(told.size(), 1U);
}

TEST_F(TiffDamage, WhatIsOnlyOddIsRemarkedOnceForAllFiles)
{
    QByteArray bytes = make(kindOf(16));
    Directory const directory(bytes);
    // the last entry becomes a tag that nobody knows
    std::uint16_t const tag = 65123;
    std::memcpy(bytes.data() + directory.entry(TIFFTAG_SAMPLEFORMAT), &tag, 2);
    for (int i = 0; i < 5; ++i) {
        QString const name = QStringLiteral("slice%1.tif").arg(i);
        folder.write(name, bytes);
        EXPECT_TRUE(image.LoadFromTIFFFile(folder.encoded(name).constData(), 0));
    }
    ASSERT_THAT(remarked, testing::SizeIs(1));
    EXPECT_THAT(remarked[0], HasSubstr("slice0.tif: Unknown field with tag 65123"));
    EXPECT_THAT(told, testing::IsEmpty());
}

TEST_F(TiffDamage, RemarksOnOneFileAreFew)
{
    QByteArray bytes = make(kindOf(16));
    Directory const directory(bytes);
    // every entry becomes a tag that nobody knows
    for (std::uint32_t i = 0; i < directory.at16(directory.offset); ++i) {
        auto const tag = static_cast<std::uint16_t>(65200 + i);
        std::memcpy(bytes.data() + directory.offset + 2 + 12 * i, &tag, 2);
    }
    EXPECT_FALSE(load(bytes));
    EXPECT_LE(remarked.size(), 4U);
    EXPECT_EQ(told.size(), 1U);
}

// ---- damage at random ----

// Most memory that this program has held, in megabytes.
long peakMegabytes()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

// Rounds for each kind of file: a few, unless VIZ_MUTATIONS says more.
unsigned rounds()
{
    char const* const wanted = std::getenv("VIZ_MUTATIONS");
    return wanted ? static_cast<unsigned>(std::strtoul(wanted, nullptr, 10)) : 100;
}

TEST_F(TiffDamage, RandomDamageEndsWithSamplesOrNone)
{
    struct Base
    {
        TiffKind kind;
        char const* mode;
    };
    std::vector<Base> bases;
    for (char const* mode : {"wl", "wb", "w8"})
        for (int compression :
             {COMPRESSION_NONE, COMPRESSION_LZW, COMPRESSION_ADOBE_DEFLATE, COMPRESSION_PACKBITS}) {
            bases.push_back({kindOf(16, compression), mode});
            TiffKind tiles = kindOf(8, compression);
            tiles.tile = 16;
            bases.push_back({tiles, mode});
        }
    bases.push_back({kindOf(12), "wl"});
    bases.push_back({kindOf(32, COMPRESSION_ZSTD), "wl"});
    TiffKind predicted = kindOf(32, COMPRESSION_ADOBE_DEFLATE);
    predicted.predictor = PREDICTOR_HORIZONTAL;
    bases.push_back({predicted, "wl"});
    for (int compression : {COMPRESSION_CCITTFAX4, COMPRESSION_CCITTFAX3, COMPRESSION_CCITTRLE})
        bases.push_back({kindOf(1, compression), "wl"});
    bases.push_back({kindOf(8, COMPRESSION_JPEG), "wl"});

    std::mt19937 random(20);
    long const before = peakMegabytes();
    unsigned files = 0;
    double slowest = 0;
    for (Base const& base : bases) {
        if (!TIFFIsCODECConfigured(static_cast<std::uint16_t>(base.kind.compression))) continue;
        TiffKind kind = base.kind;
        if (kind.compression == COMPRESSION_JPEG) kind.rowsPerStrip = 8;
        QByteArray const good = make(kind, 3, base.mode);
        ASSERT_GT(good.size(), 100);
        for (unsigned i = 0; i < rounds(); ++i, ++files) {
            QByteArray bytes = good;
            viz_test::damageTiff(bytes, random);
            auto const start = std::chrono::steady_clock::now();
            readAll(bytes);
            std::chrono::duration<double> const taken = std::chrono::steady_clock::now() - start;
            slowest = std::max(slowest, taken.count());
            if (HasFatalFailure()) {
                FAIL() << "round " << i << " of compression " << kind.compression << ", mode " << base.mode;
            }
        }
    }
    RecordProperty("files", static_cast<int>(files));
    EXPECT_LT(slowest, 20.0) << "seconds for one file";
#ifndef __SANITIZE_ADDRESS__
    EXPECT_LT(peakMegabytes() - before, 200);
#endif
    std::printf("%u damaged files, the slowest took %.3f s, %ld MB\n", files, slowest,
                peakMegabytes() - before);
}

}  // namespace
