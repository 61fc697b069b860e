#include "lib/hvimage/logic/SampleCounts.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<std::uint8_t> bytesOf(std::size_t count)
{
    std::vector<std::uint8_t> bytes(count);
    std::uint32_t random = 1;
    for (std::size_t i = 0; i < count; ++i) {
        random = random * 1664525U + 1013904223U;
        // Runs of equal bytes and noise, as voxels are.
        bytes[i] =
            (i >> 10) % 2 ? static_cast<std::uint8_t>(i >> 12) : static_cast<std::uint8_t>(random >> 24);
    }
    return bytes;
}

}  // namespace

TEST(CountBytes, AgreesWithOneTableForEveryLengthAndNumberOfCores)
{
    for (std::size_t const count : {std::size_t(0), std::size_t(1), std::size_t(15), std::size_t(17),
                                    std::size_t(4099), (std::size_t(25) << 20) + 13}) {
        auto const bytes = bytesOf(count);
        std::array<std::uint64_t, 256> expected{};
        for (std::uint8_t const byte : bytes)
            ++expected[byte];
        for (unsigned const threads : {1U, 2U, 5U, 64U, 0U})
            EXPECT_EQ(hvimage::countBytes(bytes.data(), count, threads), expected) << count << " " << threads;
    }
}
