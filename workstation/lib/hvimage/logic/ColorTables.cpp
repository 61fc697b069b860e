#include "logic/ColorTables.h"

#include <algorithm>
#include <cmath>
#include <utility>

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

Triple valueOf(ColorStop const& stop, Blend blend)
{
    Triple const bytes = {static_cast<double>(stop.red), static_cast<double>(stop.green),
                          static_cast<double>(stop.blue)};
    return blend == Blend::Srgb ? bytes : labFromSrgb(bytes);
}

// Slope at a stop that has the slopes `before` and `after` to its neighbours at the distances h0 and h1, such
// that the curve never leaves the range of two neighbours.
double slopeAtStop(double before, double after, double h0, double h1)
{
    if (before * after <= 0.0) return 0.0;
    double const w0 = 2.0 * h1 + h0;
    double const w1 = h1 + 2.0 * h0;
    return (w0 + w1) / (w0 / before + w1 / after);
}

// One coordinate of the stops as a curve over the position.
class Curve
{
public:
    Curve(std::vector<ColorStop> const& stops, std::vector<double> values, bool smooth)
        : m_stops(stops)
        , m_values(std::move(values))
        , m_smooth(smooth)
        , m_slopes(m_values.size(), 0.0)
    {
        for (std::size_t i = 0; i < m_slopes.size(); ++i) {
            if (i == 0 || i + 1 == m_slopes.size())
                m_slopes[i] = secant(i == 0 ? 0 : i - 1);
            else
                m_slopes[i] = slopeAtStop(secant(i - 1), secant(i), width(i - 1), width(i));
        }
    }

    // Between stop `from` and the next one; `t` runs from 0 to 1.
    double at(std::size_t from, double t) const
    {
        double const a = m_values[from];
        double const b = m_values[from + 1];
        if (!m_smooth) return a + (b - a) * t;
        double const h = width(from);
        double const t2 = t * t;
        double const t3 = t2 * t;
        return (2.0 * t3 - 3.0 * t2 + 1.0) * a + (t3 - 2.0 * t2 + t) * h * m_slopes[from] +
               (3.0 * t2 - 2.0 * t3) * b + (t3 - t2) * h * m_slopes[from + 1];
    }

private:
    double width(std::size_t from) const { return m_stops[from + 1].position - m_stops[from].position; }
    double secant(std::size_t from) const { return (m_values[from + 1] - m_values[from]) / width(from); }

    std::vector<ColorStop> const& m_stops;
    std::vector<double> m_values;
    bool m_smooth;
    std::vector<double> m_slopes;
};

Curve curveOf(std::vector<ColorStop> const& stops, Blend blend, double Triple::*coordinate)
{
    std::vector<double> values;
    values.reserve(stops.size());
    for (ColorStop const& stop : stops)
        values.push_back(valueOf(stop, blend).*coordinate);
    return Curve(stops, std::move(values), blend == Blend::OkLab);
}

std::uint8_t toByte(double value)
{
    return static_cast<std::uint8_t>(std::clamp(std::floor(value + 0.5), 0.0, 255.0));
}

// A hue on black, and at the end a tint of it, so that dark hues such as blue show as many steps as bright
// ones. Behind the black entry it begins at a share of the hue at which whole bytes still tell it: who
// follows the hue along the table meets no bend in the dark.
ColorTable hueTable(ColorStop const& hue, ColorStop const& tint)
{
    auto const shade = [&](double position, double share) {
        return ColorStop{position, toByte(hue.red * share), toByte(hue.green * share),
                         toByte(hue.blue * share)};
    };
    ColorTable table =
        makeColorTable({shade(0.0, 0.028), shade(0.1, 0.13), shade(0.4, 0.54), hue, tint}, Blend::OkLab);
    std::fill_n(table.begin(), 3, std::uint8_t(0));
    return table;
}

}  // namespace

ColorTable makeColorTable(std::vector<ColorStop> const& stops, Blend blend)
{
    ColorTable table{};
    Curve const first = curveOf(stops, blend, &Triple::a);
    Curve const second = curveOf(stops, blend, &Triple::b);
    Curve const third = curveOf(stops, blend, &Triple::c);
    std::size_t from = 0;
    for (int i = 0; i < 256; ++i) {
        double const position = i / 255.0;
        while (from + 2 < stops.size() && stops[from + 1].position < position)
            ++from;
        double const span = stops[from + 1].position - stops[from].position;
        double const t = std::clamp((position - stops[from].position) / span, 0.0, 1.0);
        Triple const value = {first.at(from, t), second.at(from, t), third.at(from, t)};
        Triple const color = blend == Blend::Srgb ? value : srgbFromLab(value);
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
        static ColorTable const table = hueTable({0.74, 240, 28, 30}, {1.0, 255, 178, 166});
        return &table;
    }
    case eColorTableGreen: {
        static ColorTable const table = hueTable({0.74, 22, 186, 60}, {1.0, 190, 255, 194});
        return &table;
    }
    case eColorTableBlue: {
        static ColorTable const table = hueTable({0.74, 46, 92, 255}, {1.0, 178, 212, 255});
        return &table;
    }
    case eColorTableCyan: {
        static ColorTable const table = hueTable({0.74, 0, 186, 208}, {1.0, 194, 255, 255});
        return &table;
    }
    case eColorTableYellow: {
        static ColorTable const table = hueTable({0.74, 226, 202, 0}, {1.0, 255, 251, 184});
        return &table;
    }
    case eColorTableMagenta: {
        static ColorTable const table = hueTable({0.74, 226, 36, 226}, {1.0, 255, 206, 255});
        return &table;
    }
    case eColorTableOrange: {
        static ColorTable const table = hueTable({0.74, 250, 126, 6}, {1.0, 255, 220, 174});
        return &table;
    }
    case eColorTableBlueYellow: {
        static ColorTable const table = makeColorTable({{0.0, 4, 10, 70},
                                                        {0.25, 26, 64, 168},
                                                        {0.5, 108, 128, 140},
                                                        {0.75, 198, 182, 84},
                                                        {1.0, 255, 244, 110}},
                                                       Blend::OkLab);
        return &table;
    }
    case eColorTableGreenPink: {
        static ColorTable const table = makeColorTable({{0.0, 0, 36, 14},
                                                        {0.27, 0, 116, 46},
                                                        {0.5, 112, 150, 112},
                                                        {0.74, 236, 122, 184},
                                                        {1.0, 255, 212, 238}},
                                                       Blend::OkLab);
        return &table;
    }
    case eColorTableEosB: {
        static ColorTable const table = makeColorTable({{0.0, 4, 4, 24},
                                                        {0.2, 44, 22, 116},
                                                        {0.42, 146, 24, 140},
                                                        {0.64, 232, 60, 90},
                                                        {0.82, 254, 170, 38},
                                                        {1.0, 255, 242, 190}},
                                                       Blend::OkLab);
        return &table;
    }
    case eColorTableRainbow: {
        static ColorTable const table = makeColorTable({{0.0, 104, 28, 164},
                                                        {0.16, 58, 58, 216},
                                                        {0.32, 0, 146, 236},
                                                        {0.46, 0, 188, 172},
                                                        {0.6, 84, 204, 66},
                                                        {0.74, 240, 226, 44},
                                                        {0.87, 252, 142, 22},
                                                        {1.0, 214, 20, 30}},
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
