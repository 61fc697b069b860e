#include "volume/logic/RawHeader.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace std::string_literals;
using viz::RawHeader;
using viz::RawHeaderParser;

const std::string complete = "VolumeSize 64 48 93\nVoxelSize 16\nVolumeScale 3.2 1.6 1.5\n"
                             "Field Density Format u\n##\f\n";

RawHeader parsed(const std::string& file, std::size_t pieceSize = 1U << 20)
{
    RawHeaderParser parser;
    bool done = false;
    for (std::size_t at = 0; at < file.size() && !done; at += pieceSize)
        done = parser.feed(file.data() + at, std::min(pieceSize, file.size() - at));
    parser.finish();
    return parser.header();
}

// ---- what the lines mean ----

TEST(RawHeader, NothingGivesTheDefaults)
{
    const RawHeader header = parsed("");
    EXPECT_EQ(header.columns, 0);
    EXPECT_EQ(header.rows, 0);
    EXPECT_EQ(header.frames, 0);
    EXPECT_EQ(header.size, 0);
    EXPECT_EQ(header.depth, "8");
    EXPECT_EQ(header.spacing.row, 0.1F);
    EXPECT_EQ(header.spacing.column, 0.1F);
    EXPECT_EQ(header.spacing.slice, 0.1F);
    EXPECT_FALSE(header.isSigned);
    EXPECT_FALSE(header.sizeSeen || header.depthSeen || header.formatSeen);
}

TEST(RawHeader, ACompleteOneSaysEverything)
{
    const RawHeader header = parsed(complete + "voxels"s);
    EXPECT_EQ(header.columns, 64);
    EXPECT_EQ(header.rows, 48);
    EXPECT_EQ(header.frames, 93);
    EXPECT_EQ(header.depth, "16");
    EXPECT_EQ(header.spacing.row, 3.2F);
    EXPECT_EQ(header.spacing.column, 1.6F);
    EXPECT_EQ(header.spacing.slice, 1.5F);
    EXPECT_FALSE(header.isSigned);
    EXPECT_TRUE(header.isComplete());
    EXPECT_EQ(header.size, static_cast<std::int64_t>(complete.size()));
}

TEST(RawHeader, SpacingIsNotNeededToBeComplete)
{
    EXPECT_TRUE(parsed("VolumeSize 1 2 3\nVoxelSize 8\nField Format u\n").isComplete());
    EXPECT_FALSE(parsed("VolumeSize 1 2 3\nVoxelSize 8\n").isComplete());
    EXPECT_FALSE(parsed("VolumeSize 1 2 3\nField Format u\n").isComplete());
    EXPECT_FALSE(parsed("VoxelSize 8\nField Format u\n").isComplete());
}

TEST(RawHeader, BlanksMayComeInAnyNumberAndInFront)
{
    const RawHeader header = parsed("   VolumeSize    64  48     93   \n  VoxelSize   16  \n");
    EXPECT_TRUE(header.sizeSeen);
    EXPECT_EQ(header.frames, 93);
    EXPECT_EQ(header.depth, "16");
}

TEST(RawHeader, AMillionBlanksAreStillBlanks)
{
    const RawHeader header = parsed("VolumeSize" + std::string(3000000, ' ') + "64 48 93\n");
    EXPECT_TRUE(header.sizeSeen);
    EXPECT_EQ(header.columns, 64);
}

TEST(RawHeader, LinesThatMatchNothingAreSkipped)
{
    const RawHeader header = parsed("# made by hand\nvolumesize 1 2 3\nThe VolumeSize 4 5 6\nVolume 7 8 9\n"
                                    "VoxelSize 8\n");
    EXPECT_FALSE(header.sizeSeen);
    EXPECT_TRUE(header.depthSeen);
}

TEST(RawHeader, ALineIsKnownByItsStart)
{
    const RawHeader header = parsed("VolumeSizes 64 48 93\nVoxelSize: 16\n");
    EXPECT_TRUE(header.sizeSeen);
    EXPECT_EQ(header.columns, 64);
    EXPECT_EQ(header.depth, "16");
}

TEST(RawHeader, LaterLinesWin)
{
    const RawHeader header = parsed("VolumeSize 1 2 3\nVolumeSize 4 5 6\nVolumeSize 7 x 9\n");
    EXPECT_EQ(header.columns, 4);
    EXPECT_EQ(header.frames, 6);
}

struct SizeLine
{
    const char* text;
    bool seen;
    int columns, rows, frames;
};

class VolumeSizeLine : public testing::TestWithParam<SizeLine>
{};

TEST_P(VolumeSizeLine, IsSeenWithThree32BitIntegers)
{
    const RawHeader header = parsed(std::string("VolumeSize ") + GetParam().text + "\n");
    EXPECT_EQ(header.sizeSeen, GetParam().seen);
    EXPECT_EQ(header.columns, GetParam().columns);
    EXPECT_EQ(header.rows, GetParam().rows);
    EXPECT_EQ(header.frames, GetParam().frames);
}

INSTANTIATE_TEST_SUITE_P(
    Tokens, VolumeSizeLine,
    testing::Values(SizeLine{"64 48 93", true, 64, 48, 93}, SizeLine{"64 48 93 17 rest", true, 64, 48, 93},
                    SizeLine{"0 0 0", true, 0, 0, 0}, SizeLine{"-5 +7 007", true, -5, 7, 7},
                    SizeLine{"2147483647 -2147483648 1", true, 2147483647, -2147483647 - 1, 1},
                    SizeLine{"2147483648 1 1", false, 0, 0, 0},
                    SizeLine{"1 1 99999999999999999999", false, 0, 0, 0}, SizeLine{"64 48", false, 0, 0, 0},
                    SizeLine{"", false, 0, 0, 0}, SizeLine{"64 48 9x", false, 0, 0, 0},
                    SizeLine{"64.0 48 93", false, 0, 0, 0}, SizeLine{"0x40 48 93", false, 0, 0, 0},
                    SizeLine{"+-4 48 93", false, 0, 0, 0}, SizeLine{"+ 48 93", false, 0, 0, 0},
                    SizeLine{"64\t48\t93", false, 0, 0, 0}));

TEST(RawHeader, DepthIsTakenAsItStands)
{
    EXPECT_EQ(parsed("VoxelSize 16\n").depth, "16");
    const RawHeader odd = parsed("VoxelSize 12\n");
    EXPECT_EQ(odd.depth, "12");
    EXPECT_TRUE(odd.depthSeen);
    const RawHeader none = parsed("VoxelSize \n");
    EXPECT_EQ(none.depth, "8");
    EXPECT_FALSE(none.depthSeen);
}

TEST(RawHeader, ASpacingThatDoesNotParseIsATenth)
{
    const auto spacing = parsed("VolumeScale 2.5 wide 1e-2\n").spacing;
    EXPECT_EQ(spacing.row, 2.5F);
    EXPECT_EQ(spacing.column, 0.1F);
    EXPECT_EQ(spacing.slice, 0.01F);
    const auto strange = parsed("VolumeScale nan inf 1e999\n").spacing;
    EXPECT_EQ(strange.row, 0.1F);
    EXPECT_EQ(strange.column, 0.1F);
    EXPECT_EQ(strange.slice, 0.1F);
    const auto comma = parsed("VolumeScale 0,5 3 -2\n").spacing;
    EXPECT_EQ(comma.row, 0.1F);
    EXPECT_EQ(comma.column, 3.0F);
    EXPECT_EQ(comma.slice, -2.0F);
}

TEST(RawHeader, ScaleWithTooFewTokensCountsAsNotSeen)
{
    const auto spacing = parsed("VolumeScale 2.5 3\n").spacing;
    EXPECT_EQ(spacing.row, 0.1F);
    EXPECT_EQ(spacing.column, 0.1F);
}

TEST(RawHeader, FormatOtherThanUMeansSigned)
{
    EXPECT_FALSE(parsed("Field Density Format u\n").isSigned);
    EXPECT_TRUE(parsed("Field Density Format u\n").formatSeen);
    for (const char* text : {"s", "U", "uu", "signed"}) {
        const RawHeader header = parsed("Field Density Format "s + text + "\n");
        EXPECT_TRUE(header.isSigned) << text;
        EXPECT_TRUE(header.formatSeen) << text;
    }
}

TEST(RawHeader, FieldWithoutFormatChangesNothing)
{
    for (const char* text : {"Field Density", "Field Density format s", "Field Density Formats s",
                             "FieldFormat s", "Field Density Format", "Field"}) {
        const RawHeader header = parsed(std::string(text) + "\n");
        EXPECT_FALSE(header.formatSeen) << text;
        EXPECT_FALSE(header.isSigned) << text;
    }
}

TEST(RawHeader, FieldMayBeLongerInFrontOfFormat)
{
    EXPECT_TRUE(parsed("Fields of many kinds and Format s and more\n").isSigned);
}

// ---- where the voxels start ----

TEST(RawHeaderSize, IsEverythingUpToTheMarker)
{
    EXPECT_EQ(parsed("##\f\n").size, 4);
    EXPECT_EQ(parsed("VoxelSize 8\n##\f\n\x01\x02\x03").size, 16);
}

TEST(RawHeaderSize, IsZeroWithoutAMarkerAndTheLinesStillCount)
{
    const RawHeader header = parsed("VolumeSize 64 48 93\nVoxelSize 16\n\x01\x02\x03");
    EXPECT_EQ(header.size, 0);
    EXPECT_TRUE(header.sizeSeen);
    EXPECT_EQ(header.depth, "16");
}

TEST(RawHeaderSize, LinesAfterTheMarkerAreVoxels)
{
    const RawHeader header = parsed("##\f\nVolumeSize 64 48 93\n");
    EXPECT_EQ(header.size, 4);
    EXPECT_FALSE(header.sizeSeen);
}

TEST(RawHeaderSize, AMarkerFollowedByTwoNumberSignsGoesOn)
{
    EXPECT_EQ(parsed("##\f\n##\nVoxelSize 16\n##\f\nvoxels").size, 24);
    EXPECT_EQ(parsed("##\f\n##\nVoxelSize 16\n##\f\nvoxels").depth, "16");
    EXPECT_EQ(parsed("##\f\n##\n").size, 0) << "no second marker";
    EXPECT_EQ(parsed("##\f\n##\n##\f\n##\n##\f\n").size, 18);
}

TEST(RawHeaderSize, OnlyTheExactLineGoesOn)
{
    EXPECT_EQ(parsed("##\f\n##\f\nVoxelSize 16\n").size, 4) << "a second marker is the first voxels";
    EXPECT_EQ(parsed("##\f\n## \nVoxelSize 16\n").size, 4);
    EXPECT_EQ(parsed("##\f\n ##\nVoxelSize 16\n").size, 4);
    EXPECT_EQ(parsed("##\f\n###\nVoxelSize 16\n").size, 4);
    EXPECT_EQ(parsed("##\f\n#\nVoxelSize 16\n").size, 4);
    EXPECT_EQ(parsed("##\f\n\nVoxelSize 16\n").size, 4);
    EXPECT_EQ(parsed("##\f\n##").size, 4) << "no line feed";
}

TEST(RawHeaderSize, OnlyTheExactMarkerCounts)
{
    for (const char* text :
         {"##\n", " ##\f\n", "##\f \n", "##\f", "#\f\n", "##\f\f\n", "##\f\r\r\n", "##  \f\n"})
        EXPECT_EQ(parsed(text).size, 0) << text;
}

TEST(RawHeaderSize, ALineEndOfTwoBytesCountsAsOne)
{
    // 11 + 3 characters and two line feeds; the file itself has two bytes more
    const RawHeader header = parsed("VoxelSize 8\r\n##\f\r\nvoxels");
    EXPECT_EQ(header.size, 16);
    EXPECT_EQ(header.depth, "8");
    EXPECT_EQ(parsed("##\f\r\n##\r\n##\f\r\nvoxels").size, 11);
}

TEST(RawHeaderSize, ACarriageReturnAloneIsAnOrdinaryByte)
{
    EXPECT_EQ(parsed("a\rb\n##\f\nvoxels").size, 8);
    EXPECT_EQ(parsed("a\r\r\n##\f\nvoxels").size, 7);
}

TEST(RawHeaderSize, AnEmptyLineDoesNotCount)
{
    EXPECT_EQ(parsed("\n\nVoxelSize 8\n\n##\f\nvoxels").size, 16);
    EXPECT_EQ(parsed("\r\n##\f\nvoxels").size, 4);
    EXPECT_EQ(parsed(" \n##\f\nvoxels").size, 6) << "a blank is not empty";
}

// ---- any bytes, in any pieces ----

TEST(RawHeaderPieces, DoNotMatter)
{
    for (const std::string& file :
         {complete + "voxels", "VoxelSize 8\r\n##\f\r\n##\r\nField Format s\r\n##\f\r\n\r\n"s,
          "VolumeSize 64 48 93"s, "\r\n\n  VoxelSize   16\r"s, "##\f\n##"s, "##\f\n#"s}) {
        const RawHeader whole = parsed(file);
        for (std::size_t size = 1; size < 9; ++size) {
            const RawHeader pieces = parsed(file, size);
            EXPECT_EQ(pieces.size, whole.size) << size;
            EXPECT_EQ(pieces.columns, whole.columns) << size;
            EXPECT_EQ(pieces.depth, whole.depth) << size;
            EXPECT_EQ(pieces.isSigned, whole.isSigned) << size;
            EXPECT_EQ(pieces.formatSeen, whole.formatSeen) << size;
        }
    }
}

TEST(RawHeaderPieces, ALastLineWithoutLineFeedIsALine)
{
    EXPECT_TRUE(parsed("VolumeSize 64 48 93").sizeSeen);
    EXPECT_EQ(parsed("VolumeSize 64 48 9").frames, 9) << "cut inside the last token";
    EXPECT_FALSE(parsed("VolumeSize 64 48 ").sizeSeen);
    EXPECT_FALSE(parsed("VolumeSize 64 4").sizeSeen);
    EXPECT_FALSE(parsed("VolumeSi").sizeSeen);
    EXPECT_EQ(parsed("VoxelSize 16\r").depth, "16");
}

TEST(RawHeaderPieces, TheEndIsKnownAtTheFirstByteOfTheVoxels)
{
    RawHeaderParser parser;
    EXPECT_FALSE(parser.feed("##\f\n", 4));
    EXPECT_FALSE(parser.feed("##", 2));
    EXPECT_TRUE(parser.feed("x", 1));
    EXPECT_EQ(parser.header().size, 4);
    EXPECT_TRUE(parser.feed("VolumeSize 1 2 3\n", 17)) << "nothing more is looked at";
    EXPECT_FALSE(parser.header().sizeSeen);
}

TEST(RawHeaderPieces, LinesOfZerosAreCountedAndForgotten)
{
    const std::string zeros(1 << 20, '\0');
    RawHeaderParser parser;
    for (int i = 0; i < 512; ++i)
        ASSERT_FALSE(parser.feed(zeros.data(), zeros.size()));
    parser.feed("\n##\f\nxx", 7);
    EXPECT_EQ(parser.header().size, (std::int64_t{512} << 20) + 5);
}

TEST(RawHeaderPieces, ARecognisedLineWithoutEndIsReadUpToItsLimit)
{
    RawHeaderParser parser;
    parser.feed("VolumeSize 64 48 93 ", 20);
    const std::string letters(1 << 20, 'x');
    for (int i = 0; i < 64; ++i)
        ASSERT_FALSE(parser.feed(letters.data(), letters.size()));
    parser.finish();
    EXPECT_TRUE(parser.header().sizeSeen);
    EXPECT_EQ(parser.header().frames, 93);
}

TEST(RawHeaderPieces, ZeroBytesInsideALineAreOrdinaryBytes)
{
    EXPECT_FALSE(parsed("VolumeSize 64 48 93\0 \n"s).sizeSeen);
    EXPECT_FALSE(parsed("\0VolumeSize 64 48 93\n"s).sizeSeen);
}

}  // namespace
