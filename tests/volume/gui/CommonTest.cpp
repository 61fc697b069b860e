#include "volume/Common.h"

#include "volume/support/RawFiles.h"
#include "volume/support/RecordingHost.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

using viz_test::RawFolder;
using viz_test::RecordingHost;

struct Freed
{
    void operator()(unsigned char* memory) const { std::free(memory); }
};

using Buffer = std::unique_ptr<unsigned char, Freed>;

TEST(ReadFile, GivesTheWholeContents)
{
    const RawFolder folder;
    for (const int size : {1, 0x100000 - 1, 0x100000, 0x100000 + 1, 0x280000}) {
        QByteArray contents(size, 'a');
        contents[size - 1] = 'z';
        unsigned read = 0;
        const Buffer buffer(readFile(folder.write("file.bin", contents).constData(), &read));
        ASSERT_NE(buffer, nullptr) << size;
        EXPECT_EQ(read, static_cast<unsigned>(size));
        EXPECT_EQ(std::memcmp(buffer.get(), contents.constData(), static_cast<std::size_t>(size)), 0) << size;
    }
}

TEST(ReadFile, GivesNothingForAnEmptyOrMissingFile)
{
    const RawFolder folder;
    unsigned read = 17;
    EXPECT_EQ(readFile(folder.write("empty.bin", {}).constData(), &read), nullptr);
    EXPECT_EQ(readFile(folder.encoded("missing.bin").constData(), &read), nullptr);
    EXPECT_EQ(read, 17U);
}

unsigned char* bigEndian(std::initializer_list<int> values)
{
    auto* const data = static_cast<unsigned char*>(std::malloc(2 * values.size()));
    unsigned char* next = data;
    for (const int value : values) {
        *next++ = static_cast<unsigned char>(value >> 8);
        *next++ = static_cast<unsigned char>(value & 0xFF);
    }
    return data;
}

TEST(Quantize16To8, LinearMapsTheHighestTo255)
{
    const Buffer input(bigEndian({0, 1000, 500, 2, 0, 0, 0, 1000}));
    const Buffer voxels(quantize16To8(input.get(), 2, 2, 2, true, true, false));
    ASSERT_NE(voxels, nullptr);
    const unsigned char expected[] = {0, 255, 128, 1, 0, 0, 0, 255};
    EXPECT_EQ(std::memcmp(voxels.get(), expected, 8), 0);
}

TEST(Quantize16To8, FreesItsInputUnlessTold)
{
    // Freed twice or never: a matter for the sanitizers.
    const Buffer voxels(quantize16To8(bigEndian({0, 1, 2, 3, 4, 5, 6, 7}), 2, 2, 2, false, true, false));
    EXPECT_NE(voxels, nullptr);
}

TEST(Quantize16To8, TellsItsRangeWhenVerbose)
{
    testing::internal::CaptureStdout();
    const Buffer voxels(quantize16To8(bigEndian({5, 300, 20, 7, 5, 5, 5, 5}), 2, 2, 2, false, false, true));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "16 bit volume has scalar range=[5,300]\nquantized volume to 8 bit\n");
}

TEST(Quantize16To8, AnEmptyVolumeGivesNothing)
{
    const Buffer input(bigEndian({1}));
    EXPECT_EQ(quantize16To8(input.get(), 0, 5, 5, true, true, false), nullptr);
}

TEST(Quantize16To8, AVolumeBeyondMemoryIsLoggedOrRefused)
{
    const RecordingHost host;
    const Buffer input(bigEndian({1}));
    EXPECT_EQ(quantize16To8(input.get(), 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, true, true, false), nullptr);
}

}  // namespace
