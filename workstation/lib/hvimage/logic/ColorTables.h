#pragma once

#include "hvimage/HVS_COLORTABLE_TYPES.h"

#include <array>
#include <cstdint>
#include <vector>

namespace hvimage {

// 256 entries of R, G, B, A bytes; A is 255.
using ColorTable = std::array<std::uint8_t, 4 * 256>;

// A colour (sRGB bytes) at a position of the table, 0 to 1.
struct ColorStop
{
    double position;
    std::uint8_t red;
    std::uint8_t green;
    std::uint8_t blue;
};

// How colours between two stops are found: straight between the bytes, or along a smooth curve through the
// stops that does not overshoot (F. Fritsch, J. Butland, "A method for constructing local monotone piecewise
// cubic interpolants", 1984) in the OKLab space, in which equal steps look equal (B. Ottosson, "A perceptual
// color space for image processing", 2020).
enum class Blend
{
    Srgb,
    OkLab
};

// The table of two or more ascending stops from position 0 to 1, entry i standing at i / 255.
ColorTable makeColorTable(std::vector<ColorStop> const& stops, Blend blend);

// One of the host's tables, made on first use; null for an unknown type.
ColorTable const* colorTable(HVS_COLORTABLE_TYPES type);

// The part of a table between two fractions of its length, stretched to 256 entries by taking the nearest
// entry, and along the logarithm when `logScale` is set: entry i is then entry 255 log(1 + i) / log(256) of
// the linear result.
ColorTable sectionOfTable(ColorTable const& table, double low, double high, bool logScale);

}  // namespace hvimage
