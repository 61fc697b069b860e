#include "lib/hvdicom/InflatedFile.h"

#include <QByteArray>

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

namespace {

// 300000 bytes, not one like its neighbours.
QByteArray text()
{
    QByteArray bytes;
    for (int i = 0; i < 300000; ++i)
        bytes.append(static_cast<char>(i % 251));
    return bytes;
}

QByteArray deflated(QByteArray bytes)
{
    QByteArray result(bytes.size() + 1024, '\0');
    z_stream stream = {};
    deflateInit2(&stream, Z_DEFAULT_COMPRESSION, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY);
    stream.next_in = reinterpret_cast<Bytef*>(bytes.data());
    stream.avail_in = static_cast<uInt>(bytes.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
    result.truncate(static_cast<int>(stream.total_out));
    deflateEnd(&stream);
    return result;
}

hvdicom::InflatedFile::Deflated sourceOf(QByteArray const& bytes)
{
    return [&bytes](std::uint64_t offset, std::uint8_t* target, std::size_t count) {
        auto const size = static_cast<std::uint64_t>(bytes.size());
        std::size_t const got = std::min<std::uint64_t>(count, size - std::min(size, offset));
        if (got > 0) std::memcpy(target, bytes.constData() + offset, got);
        return got;
    };
}

QByteArray bytesAt(hvdicom::InflatedFile& file, std::uint64_t offset, int count)
{
    QByteArray bytes(count, '\0');
    if (!file.read(offset, reinterpret_cast<std::uint8_t*>(bytes.data()), static_cast<std::size_t>(count)))
        return {};
    return bytes;
}

}  // namespace

TEST(InflatedFile, givesWhatWasDeflated)
{
    QByteArray const whole = text();
    QByteArray const packed = deflated(whole);
    hvdicom::InflatedFile file(sourceOf(packed));
    for (int at : {0, 100, 99, 4000, 65530, 65536, 200000, 299990})
        EXPECT_EQ(bytesAt(file, static_cast<std::uint64_t>(at), 10), whole.mid(at, 10)) << at;
    EXPECT_EQ(bytesAt(file, 299991, 10), QByteArray());
    EXPECT_EQ(bytesAt(file, 299999, 1), whole.right(1));
}

TEST(InflatedFile, keepsOnlyTheLastBytes)
{
    QByteArray const packed = deflated(text());
    hvdicom::InflatedFile file(sourceOf(packed));
    ASSERT_FALSE(bytesAt(file, 200000, 10).isEmpty());
    EXPECT_TRUE(bytesAt(file, 10, 10).isEmpty());
    EXPECT_FALSE(bytesAt(file, 199000, 10).isEmpty());
}

TEST(InflatedFile, endsWithItsBytes)
{
    QByteArray const whole = text();
    QByteArray const packed = deflated(whole);
    QByteArray const cut = packed.left(packed.size() / 2);
    hvdicom::InflatedFile file(sourceOf(cut));
    EXPECT_EQ(bytesAt(file, 0, 10), whole.left(10));
    EXPECT_TRUE(bytesAt(file, 299990, 10).isEmpty());
    EXPECT_TRUE(bytesAt(file, ~std::uint64_t{0} - 5, 10).isEmpty());

    QByteArray const garbage(5000, '\xFF');
    hvdicom::InflatedFile none(sourceOf(garbage));
    EXPECT_TRUE(bytesAt(none, 0, 1).isEmpty());
    QByteArray const nothing;
    hvdicom::InflatedFile empty(sourceOf(nothing));
    EXPECT_TRUE(bytesAt(empty, 0, 1).isEmpty());
}
