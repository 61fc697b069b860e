#include "phantom/Uid.h"

#include "phantom/Noise.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace phantom {
namespace {

/// FNV-1a of a name, stirred once more, since names that differ in their last letter have close hashes.
std::uint64_t hashOf(const std::string& name, std::uint64_t salt)
{
    std::uint64_t h = 0xcbf29ce484222325ULL;
    for (const char c : name)
        h = (h ^ static_cast<unsigned char>(c)) * 0x100000001b3ULL;
    return voxelHash(salt, h);
}

/// A number of 128 bits, the highest 32 first, in decimal.
std::string decimal(std::array<std::uint32_t, 4> words)
{
    std::string digits;
    while (std::any_of(words.begin(), words.end(), [](std::uint32_t w) { return w != 0; })) {
        std::uint64_t rest = 0;
        for (std::uint32_t& word : words) {
            const std::uint64_t value = rest << 32 | word;
            word = static_cast<std::uint32_t>(value / 10);
            rest = value % 10;
        }
        digits += static_cast<char>('0' + rest);
    }
    std::reverse(digits.begin(), digits.end());
    return digits;
}

}  // namespace

std::string uidOf(const std::string& name)
{
    const std::uint64_t high = (hashOf(name, 1) & ~0xf000ULL) | 0x8000ULL;
    const std::uint64_t low = (hashOf(name, 2) & ~(3ULL << 62)) | 2ULL << 62;
    return "2.25." + decimal({static_cast<std::uint32_t>(high >> 32), static_cast<std::uint32_t>(high),
                              static_cast<std::uint32_t>(low >> 32), static_cast<std::uint32_t>(low)});
}

}  // namespace phantom
