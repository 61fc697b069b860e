#include "lib/hvdicom/logic/RleFrame.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

using namespace hvdicom;
using testing::ElementsAre;

namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes frameOf(std::vector<Bytes> const& segments)
{
    Bytes bytes(64);
    bytes[0] = static_cast<std::uint8_t>(segments.size());
    for (std::size_t i = 0; i < segments.size(); ++i) {
        bytes[4 + 4 * i] = static_cast<std::uint8_t>(bytes.size());
        bytes.insert(bytes.end(), segments[i].begin(), segments[i].end());
    }
    return bytes;
}

// Empty when refused.
Bytes decoded(Bytes const& bytes, RleFrame const& frame)
{
    Bytes target(frame.pixels * frame.samplesPerPixel * frame.bytesPerSample);
    return decodeRle(bytes.data(), bytes.size(), frame, target.data()) ? target : Bytes();
}

}  // namespace

TEST(RleFrame, decodesRunsAndLiterals)
{
    // three literals; 9 four times; 128 does nothing; one literal
    EXPECT_THAT(decoded(frameOf({{2, 1, 2, 3, 253, 9, 128, 0, 7}}), {8, 1, 1}),
                ElementsAre(1, 2, 3, 9, 9, 9, 9, 7));
}

TEST(RleFrame, theHighestByteComesFirst)
{
    EXPECT_THAT(decoded(frameOf({{1, 0x12, 0x34}, {1, 0x56, 0x78}}), {2, 1, 2}),
                ElementsAre(0x56, 0x12, 0x78, 0x34));
    EXPECT_THAT(decoded(frameOf({{0, 4}, {0, 3}, {0, 2}, {0, 1}}), {1, 1, 4}), ElementsAre(1, 2, 3, 4));
}

TEST(RleFrame, writesColourTogetherOrByPlane)
{
    Bytes const bytes = frameOf({{1, 1, 2}, {1, 3, 4}, {1, 5, 6}});
    EXPECT_THAT(decoded(bytes, {2, 3, 1, false}), ElementsAre(1, 3, 5, 2, 4, 6));
    EXPECT_THAT(decoded(bytes, {2, 3, 1, true}), ElementsAre(1, 2, 3, 4, 5, 6));
}

TEST(RleFrame, stopsAtTheLastPixel)
{
    EXPECT_THAT(decoded(frameOf({{130, 9}}), {3, 1, 1}), ElementsAre(9, 9, 9));
    EXPECT_THAT(decoded(frameOf({{2, 1, 2, 3}}), {2, 1, 1}).size(), 2U);
}

TEST(RleFrame, refusesWhatIsDamaged)
{
    Bytes const good = frameOf({{2, 1, 2, 3}});
    EXPECT_EQ(decoded(good, {3, 1, 1}).size(), 3U);
    EXPECT_TRUE(decoded(good, {4, 1, 1}).empty());                                 // too short
    EXPECT_TRUE(decoded(good, {3, 1, 2}).empty());                                 // other segments
    EXPECT_TRUE(decoded(Bytes(good.begin(), good.end() - 1), {3, 1, 1}).empty());  // a literal is cut
    EXPECT_TRUE(decoded(Bytes(good.begin(), good.begin() + 64), {3, 1, 1}).empty());
    EXPECT_TRUE(decoded(Bytes(good.begin(), good.begin() + 63), {3, 1, 1}).empty());
    EXPECT_TRUE(decoded({}, {3, 1, 1}).empty());
    EXPECT_TRUE(decoded(frameOf({{255}}), {3, 1, 1}).empty());  // a run without its byte
    for (std::uint32_t const offset : {0U, 63U, 69U, 0xFFFFFFFFU, 0x80000000U}) {
        Bytes bad = good;
        for (unsigned byte = 0; byte < 4; ++byte)
            bad[4 + byte] = static_cast<std::uint8_t>(offset >> 8 * byte);
        EXPECT_TRUE(decoded(bad, {3, 1, 1}).empty()) << offset;
    }
}
