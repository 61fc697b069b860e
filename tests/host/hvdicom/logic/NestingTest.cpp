#include "lib/hvdicom/logic/Nesting.h"
#include "support/dicom/DicomBuilder.h"

#include <cstring>
#include <gtest/gtest.h>

namespace {

hvdicom::ByteSource sourceOf(QByteArray const& bytes)
{
    return [&bytes](std::uint64_t offset, std::uint8_t* target, std::size_t count) {
        auto const size = static_cast<std::uint64_t>(bytes.size());
        if (offset > size || size - offset < count) return false;
        std::memcpy(target, bytes.constData() + offset, count);
        return true;
    };
}

unsigned depth(QByteArray const& bytes, unsigned limit = 1000)
{
    return hvdicom::nestingDepth(sourceOf(bytes), limit);
}

template <std::size_t N>
QByteArray raw(char const (&bytes)[N])
{
    return {bytes, static_cast<int>(N) - 1};
}

// (0008,1140), which stands behind every attribute of group 0008 that the builder writes.
QByteArray openSequences(int count)
{
    return raw("\x08\0\x40\x11SQ\0\0\xFF\xFF\xFF\xFF\xFE\xFF\0\xE0\xFF\xFF\xFF\xFF").repeated(count);
}

QByteArray closedSequences(int count)
{
    return openSequences(count) + raw("\xFE\xFF\x0D\xE0\0\0\0\0\xFE\xFF\xDD\xE0\0\0\0\0").repeated(count);
}

QByteArray withSequences(QByteArray const& sequences)
{
    QByteArray file = DicomBuilder().bytes();
    int const at = file.indexOf(raw("\x10\0\x10\0PN"));
    EXPECT_GT(at, 0);
    return file.insert(at, sequences);
}

}  // namespace

TEST(Nesting, isNoneInAPlainFile)
{
    for (char const* const syntax : {"1.2.840.10008.1.2", "1.2.840.10008.1.2.1", "1.2.840.10008.1.2.2"})
        EXPECT_EQ(depth(DicomBuilder().transferSyntax(syntax).bytes()), 0U) << syntax;
    EXPECT_EQ(depth(DicomBuilder().size(16, 16).transferSyntax("1.2.840.10008.1.2.4.90").bytes()), 0U);
    EXPECT_EQ(depth(DicomBuilder().withoutHeader().bytes()), 0U);
}

TEST(Nesting, countsLevels)
{
    EXPECT_EQ(depth(withSequences(closedSequences(1))), 1U);
    EXPECT_EQ(depth(withSequences(closedSequences(7))), 7U);
    EXPECT_EQ(depth(withSequences(openSequences(7))), 7U);
    EXPECT_EQ(depth(withSequences(openSequences(500))), 500U);
    EXPECT_EQ(depth(withSequences(openSequences(500)), 100), 100U);
}

TEST(Nesting, doesNotCountOneAfterAnother)
{
    EXPECT_EQ(depth(withSequences(closedSequences(2).repeated(50))), 2U);
    // with lengths in place of delimiters: two items of an empty sequence each
    QByteArray const inner = raw("\x08\0\x50\x11SQ\0\0\x08\0\0\0\xFE\xFF\0\xE0\0\0\0\0");
    QByteArray const element = raw("\xFE\xFF\0\xE0\x14\0\0\0") + inner;
    EXPECT_EQ(depth(withSequences(raw("\x08\0\x40\x11SQ\0\0\x38\0\0\0") + element + element)), 2U);
}

TEST(Nesting, seesSequencesWithoutARepresentation)
{
    QByteArray const open = raw("\x08\0\x40\x11\xFF\xFF\xFF\xFF\xFE\xFF\0\xE0\xFF\xFF\xFF\xFF");
    QByteArray file = DicomBuilder().transferSyntax("1.2.840.10008.1.2").bytes();
    int const at = file.indexOf(raw("\x10\0\x10\0"));
    ASSERT_GT(at, 0);
    EXPECT_EQ(depth(file.insert(at, open.repeated(30))), 30U);
    // of an unknown kind in a file that writes representations
    QByteArray const unknown = raw("\x08\0\x40\x11UN\0\0\xFF\xFF\xFF\xFF\xFE\xFF\0\xE0\xFF\xFF\xFF\xFF");
    EXPECT_EQ(depth(withSequences(unknown + open.repeated(9))), 10U);
}

TEST(Nesting, survivesWhatMakesNoSense)
{
    EXPECT_EQ(depth(QByteArray()), 0U);
    EXPECT_EQ(depth(QByteArray(5000, '\xFF')), 0U);
    QByteArray const whole = withSequences(closedSequences(5));
    for (int length = 0; length < whole.size(); length += 3)
        EXPECT_LE(depth(whole.left(length)), 5U);
    // items without a sequence
    EXPECT_EQ(depth(withSequences(raw("\xFE\xFF\0\xE0\xFF\xFF\xFF\xFF").repeated(2000)), 100), 100U);
}

TEST(Nesting, looksBehindThePixels)
{
    for (char const* const syntax :
         {"1.2.840.10008.1.2.1", "1.2.840.10008.1.2.5", "1.2.840.10008.1.2.4.70", "1.2.840.10008.1.2.4.90"}) {
        QByteArray const file = DicomBuilder().size(16, 16, 3).transferSyntax(syntax).bytes();
        EXPECT_EQ(depth(file), 0U) << syntax;
        EXPECT_EQ(depth(file + openSequences(30)), 30U) << syntax;
    }
}

// Pixels of a file that writes no representations may begin like an item.
TEST(Nesting, takesNoPixelsForItems)
{
    std::vector<std::int64_t> samples(256, 0xE000);
    for (std::size_t i = 0; i < samples.size(); i += 2)
        samples[i] = 0xFFFE;
    QByteArray const file =
        DicomBuilder().size(16, 16).bits(16, 16).samples(samples).transferSyntax("1.2.840.10008.1.2").bytes();
    ASSERT_TRUE(file.contains(raw("\xFE\xFF\0\xE0\xFE\xFF\0\xE0")));
    EXPECT_EQ(depth(file), 0U);
}

TEST(Nesting, seesPixelsThatAreCalledASequence)
{
    // 8 + 31 * 20 bytes
    QByteArray const pixels = raw("\xE0\x7F\x10\0SQ\0\0\x74\x02\0\0\xFE\xFF\0\xE0\xFF\xFF\xFF\xFF");
    EXPECT_EQ(depth(DicomBuilder().withoutPixels().bytes() + pixels + openSequences(31)), 32U);
}

TEST(Nesting, tellsWhereDeflatedAttributesBegin)
{
    QByteArray const plain = DicomBuilder().bytes();
    EXPECT_FALSE(hvdicom::deflatedAttributes(sourceOf(plain)).has_value());
    QByteArray const none;
    EXPECT_FALSE(hvdicom::deflatedAttributes(sourceOf(none)).has_value());

    QByteArray const file = DicomBuilder().transferSyntax("1.2.840.10008.1.2.1.99").bytes();
    auto const start = hvdicom::deflatedAttributes(sourceOf(file));
    ASSERT_TRUE(start.has_value());
    // 132 bytes before the header, and 12 of its first attribute, which holds the length of the rest
    auto const rest = static_cast<unsigned char>(file[140]);
    EXPECT_EQ(*start, 144U + rest);
    EXPECT_EQ(depth(file), 0U);
}
