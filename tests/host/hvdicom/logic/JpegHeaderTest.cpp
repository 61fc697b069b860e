#include "lib/hvdicom/logic/JpegHeader.h"

#include <gtest/gtest.h>
#include <vector>

using namespace hvdicom;

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes const start = {0xFF, 0xD8};
Bytes const comment = {0xFF, 0xFE, 0x00, 0x04, 'a', 'b'};
Bytes const frame = {0xFF, 0xC3, 0x00, 0x0B, 12, 0x01, 0x02, 0x03, 0x04, 1, 0, 0x11, 0};

Bytes joined(std::vector<Bytes> const& parts)
{
    Bytes all;
    for (Bytes const& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::optional<JpegHeader> header(Bytes const& bytes)
{
    return readJpegHeader(bytes.data(), bytes.size());
}

}  // namespace

TEST(JpegHeader, isReadWhereverItStands)
{
    for (Bytes const& bytes : {joined({start, frame}), joined({start, comment, comment, frame, comment})}) {
        std::optional<JpegHeader> const found = header(bytes);
        ASSERT_TRUE(found);
        EXPECT_EQ(found->precision, 12U);
        EXPECT_EQ(found->rows, 0x102U);
        EXPECT_EQ(found->columns, 0x304U);
        EXPECT_EQ(found->components, 1U);
    }
    Bytes jpegLs = frame;
    jpegLs[1] = 0xF7;
    EXPECT_TRUE(header(joined({start, jpegLs})));
}

TEST(JpegHeader, isRefusedWhereItIsNotWhole)
{
    Bytes const whole = joined({start, comment, frame});
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_FALSE(header(Bytes(whole.begin(), whole.begin() + static_cast<long>(length)))) << length;
    EXPECT_TRUE(header(whole));
    Bytes twoComponents = frame;
    twoComponents[9] = 2;
    EXPECT_FALSE(header(joined({start, twoComponents})));
}

TEST(JpegHeader, isRefusedBehindWhatHasNoBusinessThere)
{
    EXPECT_FALSE(header(frame));
    EXPECT_FALSE(header(joined({start, {0xFF, 0x01}, frame})));              // leads nowhere
    EXPECT_FALSE(header(joined({start, {0xFF, 0xDA, 0x00, 0x02}, frame})));  // data before the header
    EXPECT_FALSE(header(joined({start, {0xFF, 0xFE, 0x00, 0x00}, frame})));  // a length of nothing
    EXPECT_FALSE(header(joined({start, {0xFF, 0xFE, 0xFF, 0xFF}, frame})));
    EXPECT_FALSE(header(joined({start, {0x00, 0x00, 0x00, 0x00}, frame})));
    EXPECT_FALSE(header({}));
}
