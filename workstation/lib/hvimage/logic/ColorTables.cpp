#include "logic/ColorTables.h"

#include <algorithm>
#include <cmath>

namespace hvimage {

namespace {

struct Triple
{
    double a, b, c;
};

double linearFromSrgb(double byte)
{
    double const v = byte / 255.0;
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
}

double srgbFromLinear(double v)
{
    double const curved = v <= 0.0031308 ? 12.92 * v : 1.055 * std::pow(v, 1.0 / 2.4) - 0.055;
    return 255.0 * std::clamp(curved, 0.0, 1.0);
}

Triple labFromSrgb(Triple const& srgb)
{
    double const r = linearFromSrgb(srgb.a);
    double const g = linearFromSrgb(srgb.b);
    double const b = linearFromSrgb(srgb.c);
    double const l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
    double const m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
    double const s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
    return {0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s,
            1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s,
            0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s};
}

Triple srgbFromLab(Triple const& lab)
{
    double const l = lab.a + 0.3963377774 * lab.b + 0.2158037573 * lab.c;
    double const m = lab.a - 0.1055613458 * lab.b - 0.0638541728 * lab.c;
    double const s = lab.a - 0.0894841775 * lab.b - 1.2914855480 * lab.c;
    double const l3 = l * l * l;
    double const m3 = m * m * m;
    double const s3 = s * s * s;
    return {srgbFromLinear(4.0767416621 * l3 - 3.3077115913 * m3 + 0.2309699292 * s3),
            srgbFromLinear(-1.2684380046 * l3 + 2.6097574011 * m3 - 0.3413193965 * s3),
            srgbFromLinear(-0.0041960863 * l3 - 0.7034186147 * m3 + 1.7076147010 * s3)};
}

Triple between(Triple const& from, Triple const& to, double share)
{
    return {from.a + (to.a - from.a) * share, from.b + (to.b - from.b) * share,
            from.c + (to.c - from.c) * share};
}

Triple bytesOf(ColorStop const& stop)
{
    return {static_cast<double>(stop.red), static_cast<double>(stop.green), static_cast<double>(stop.blue)};
}

Triple colorAt(ColorStop const& from, ColorStop const& to, double share, Blend blend)
{
    if (blend == Blend::Srgb) return between(bytesOf(from), bytesOf(to), share);
    return srgbFromLab(between(labFromSrgb(bytesOf(from)), labFromSrgb(bytesOf(to)), share));
}

std::uint8_t toByte(double value)
{
    return static_cast<std::uint8_t>(std::clamp(std::floor(value + 0.5), 0.0, 255.0));
}

// A hue on black: the lightness grows steadily, through the full hue to a tint of it, so that dark hues such
// as blue show as many steps as bright ones.
ColorTable hueTable(ColorStop const& deep, ColorStop const& full, ColorStop const& tint)
{
    return makeColorTable({{0.0, 0, 0, 0}, deep, full, tint}, Blend::OkLab);
}

}  // namespace

ColorTable makeColorTable(std::vector<ColorStop> const& stops, Blend blend)
{
    ColorTable table{};
    std::size_t next = 1;
    for (int i = 0; i < 256; ++i) {
        double const position = i / 255.0;
        while (next + 1 < stops.size() && stops[next].position < position)
            ++next;
        ColorStop const& from = stops[next - 1];
        ColorStop const& to = stops[next];
        double const share = std::clamp((position - from.position) / (to.position - from.position), 0.0, 1.0);
        Triple const color = colorAt(from, to, share, blend);
        std::uint8_t* const entry = table.data() + 4 * i;
        entry[0] = toByte(color.a);
        entry[1] = toByte(color.b);
        entry[2] = toByte(color.c);
        entry[3] = 255;
    }
    return table;
}

ColorTable const* colorTable(HVS_COLORTABLE_TYPES type)
{
    switch (type) {
    case eColorTableGrays: {
        static ColorTable const table = makeColorTable({{0.0, 0, 0, 0}, {1.0, 255, 255, 255}}, Blend::Srgb);
        return &table;
    }
    case eColorTableRed: {
        static ColorTable const table =
            hueTable({0.40, 122, 4, 10}, {0.75, 240, 32, 32}, {1.0, 255, 176, 164});
        return &table;
    }
    case eColorTableGreen: {
        static ColorTable const table =
            hueTable({0.40, 0, 84, 26}, {0.75, 24, 184, 62}, {1.0, 184, 255, 190});
        return &table;
    }
    case eColorTableBlue: {
        static ColorTable const table =
            hueTable({0.40, 14, 30, 150}, {0.75, 48, 96, 255}, {1.0, 176, 210, 255});
        return &table;
    }
    case eColorTableCyan: {
        static ColorTable const table =
            hueTable({0.40, 0, 78, 92}, {0.75, 0, 186, 206}, {1.0, 190, 255, 255});
        return &table;
    }
    case eColorTableYellow: {
        static ColorTable const table =
            hueTable({0.40, 86, 74, 0}, {0.75, 226, 202, 0}, {1.0, 255, 250, 176});
        return &table;
    }
    case eColorTableMagenta: {
        static ColorTable const table =
            hueTable({0.40, 104, 0, 104}, {0.75, 226, 36, 226}, {1.0, 255, 190, 255});
        return &table;
    }
    case eColorTableOrange: {
        static ColorTable const table =
            hueTable({0.40, 112, 46, 0}, {0.75, 250, 128, 8}, {1.0, 255, 218, 170});
        return &table;
    }
    case eColorTableBlueYellow: {
        static ColorTable const table = makeColorTable({{0.0, 4, 10, 70},
                                                        {0.25, 24, 62, 170},
                                                        {0.5, 108, 128, 140},
                                                        {0.75, 206, 184, 62},
                                                        {1.0, 255, 244, 110}},
                                                       Blend::OkLab);
        return &table;
    }
    case eColorTableGreenPink: {
        static ColorTable const table = makeColorTable({{0.0, 0, 34, 12},
                                                        {0.28, 18, 122, 58},
                                                        {0.5, 142, 160, 140},
                                                        {0.75, 238, 132, 186},
                                                        {1.0, 255, 214, 236}},
                                                       Blend::OkLab);
        return &table;
    }
    case eColorTableEosB: {
        static ColorTable const table = makeColorTable({{0.0, 4, 4, 24},
                                                        {0.2, 44, 22, 116},
                                                        {0.42, 146, 24, 140},
                                                        {0.64, 230, 64, 96},
                                                        {0.84, 252, 152, 84},
                                                        {1.0, 255, 240, 196}},
                                                       Blend::OkLab);
        return &table;
    }
    case eColorTableRainbow: {
        static ColorTable const table = makeColorTable({{0.0, 92, 20, 150},
                                                        {0.18, 40, 60, 230},
                                                        {0.36, 0, 180, 230},
                                                        {0.54, 30, 190, 60},
                                                        {0.72, 250, 230, 30},
                                                        {0.86, 255, 140, 0},
                                                        {1.0, 230, 16, 16}},
                                                       Blend::OkLab);
        return &table;
    }
    case eColorTableJet: {
        static ColorTable const table = makeColorTable({{0.0, 0, 0, 128},
                                                        {0.125, 0, 0, 255},
                                                        {0.375, 0, 255, 255},
                                                        {0.625, 255, 255, 0},
                                                        {0.875, 255, 0, 0},
                                                        {1.0, 128, 0, 0}},
                                                       Blend::Srgb);
        return &table;
    }
    }
    return nullptr;
}

ColorTable sectionOfTable(ColorTable const& table, double low, double high, bool logScale)
{
    ColorTable section{};
    for (int i = 0; i < 256; ++i) {
        double const share = logScale ? std::log(1.0 + i) / std::log(256.0) : i / 255.0;
        int const from = static_cast<int>(std::floor(255.0 * (low + (high - low) * share) + 0.5));
        std::copy_n(table.data() + 4 * std::clamp(from, 0, 255), 4, section.data() + 4 * i);
    }
    return section;
}

}  // namespace hvimage
