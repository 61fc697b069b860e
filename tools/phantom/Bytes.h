#pragma once

#include <cstdint>
#include <string>

namespace phantom {

/// Appends a number to bytes, the low byte first.
inline void putU16(std::string& bytes, unsigned value)
{
    bytes += static_cast<char>(value & 0xff);
    bytes += static_cast<char>(value >> 8 & 0xff);
}
inline void putU32(std::string& bytes, std::uint32_t value)
{
    putU16(bytes, value & 0xffff);
    putU16(bytes, value >> 16);
}

}  // namespace phantom
