#include "logic/ColorTables.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <map>
#include <string>

using hvimage::ColorTable;

namespace {

std::map<std::string, int> const tablesByName = {
    {"Grays", 0},      {"Red", 8},      {"Green", 9},   {"Blue", 10},       {"Cyan", 11},
    {"Yellow", 12},    {"Magenta", 13}, {"Orange", 14}, {"BlueYellow", 23}, {"EosB", 25},
    {"GreenPink", 24}, {"Rainbow", 1},  {"Jet", 26}};

ColorTable const& table(std::string const& name)
{
    return *hvimage::colorTable(static_cast<HVS_COLORTABLE_TYPES>(tablesByName.at(name)));
}

int red(ColorTable const& t, int i)
{
    return t[4 * i];
}
int green(ColorTable const& t, int i)
{
    return t[4 * i + 1];
}
int blue(ColorTable const& t, int i)
{
    return t[4 * i + 2];
}

// Relative luminance of sRGB, 0 to 1.
double luminance(ColorTable const& t, int i)
{
    auto const linear = [](int byte) {
        double const v = byte / 255.0;
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(red(t, i)) + 0.7152 * linear(green(t, i)) + 0.0722 * linear(blue(t, i));
}

}  // namespace

TEST(ColorTables, ThirteenTablesUnderTheirNumbers)
{
    for (auto const& [name, number] : tablesByName)
        EXPECT_NE(hvimage::colorTable(static_cast<HVS_COLORTABLE_TYPES>(number)), nullptr) << name;
    for (int number : {-1, 2, 7, 15, 22, 27})
        EXPECT_EQ(hvimage::colorTable(static_cast<HVS_COLORTABLE_TYPES>(number)), nullptr) << number;
}

TEST(ColorTables, EveryEntryIsOpaque)
{
    for (auto const& entry : tablesByName) {
        for (int i = 0; i < 256; ++i)
            ASSERT_EQ(table(entry.first)[4 * i + 3], 255) << entry.first << ' ' << i;
    }
}

TEST(ColorTables, GraysAreTheIndex)
{
    for (int i = 0; i < 256; ++i) {
        EXPECT_EQ(red(table("Grays"), i), i);
        EXPECT_EQ(green(table("Grays"), i), i);
        EXPECT_EQ(blue(table("Grays"), i), i);
    }
}

TEST(ColorTables, JetPassesItsStops)
{
    ColorTable const& jet = table("Jet");
    EXPECT_EQ((std::array<int, 3>{red(jet, 0), green(jet, 0), blue(jet, 0)}),
              (std::array<int, 3>{0, 0, 128}));
    EXPECT_EQ((std::array<int, 3>{red(jet, 255), green(jet, 255), blue(jet, 255)}),
              (std::array<int, 3>{128, 0, 0}));
    // Entry 20 stands at 20 / 31.875 of the way from dark to full blue: 128 + 127 x 0.627451.
    EXPECT_EQ(red(jet, 20), 0);
    EXPECT_EQ(green(jet, 20), 0);
    EXPECT_EQ(blue(jet, 20), 208);
}

// The order of brightness is what a reader of a picture takes for the order of the values.
TEST(ColorTables, BrightnessGrowsInAllButTheSpectra)
{
    for (auto const& entry : tablesByName) {
        if (entry.first == "Rainbow" || entry.first == "Jet") continue;
        ColorTable const& t = table(entry.first);
        for (int i = 8; i < 256; ++i)
            ASSERT_GE(luminance(t, i) + 0.002, luminance(t, i - 8)) << entry.first << " at " << i;
        EXPECT_GT(luminance(t, 255) - luminance(t, 0), 0.45) << entry.first;
    }
}

TEST(ColorTables, NoTableJumps)
{
    for (auto const& entry : tablesByName) {
        ColorTable const& t = table(entry.first);
        for (int i = 1; i < 256; ++i) {
            int const step = std::abs(red(t, i) - red(t, i - 1)) + std::abs(green(t, i) - green(t, i - 1)) +
                             std::abs(blue(t, i) - blue(t, i - 1));
            ASSERT_LE(step, 16) << entry.first << " at " << i;
        }
    }
}

TEST(ColorTables, EachTwoDifferPlainly)
{
    for (auto const& one : tablesByName) {
        for (auto const& other : tablesByName) {
            if (one.second >= other.second) continue;
            int largest = 0;
            for (std::size_t i = 0; i < 1024; ++i)
                largest = std::max(largest, std::abs(table(one.first)[i] - table(other.first)[i]));
            EXPECT_GE(largest, 60) << one.first << " and " << other.first;
        }
    }
}

TEST(ColorTables, HuesAreWhatTheirNamesSay)
{
    int const i = 189;  // where the full hue stands
    auto const rgb = [&](char const* name) {
        ColorTable const& t = table(name);
        return std::array<int, 3>{red(t, i), green(t, i), blue(t, i)};
    };
    EXPECT_GT(rgb("Red")[0], 2 * (rgb("Red")[1] + rgb("Red")[2]));
    EXPECT_GT(rgb("Green")[1], rgb("Green")[0] + rgb("Green")[2]);
    EXPECT_GT(rgb("Blue")[2], rgb("Blue")[0] + rgb("Blue")[1]);
    EXPECT_GT(std::min(rgb("Cyan")[1], rgb("Cyan")[2]), 3 * rgb("Cyan")[0] + 100);
    EXPECT_GT(std::min(rgb("Yellow")[0], rgb("Yellow")[1]), 3 * rgb("Yellow")[2] + 100);
    EXPECT_GT(std::min(rgb("Magenta")[0], rgb("Magenta")[2]), 3 * rgb("Magenta")[1] + 60);
    EXPECT_GT(rgb("Orange")[0], rgb("Orange")[1] + 80);
    EXPECT_GT(rgb("Orange")[1], rgb("Orange")[2] + 80);
    // The hue tables begin in black.
    for (char const* name : {"Red", "Green", "Blue", "Cyan", "Yellow", "Magenta", "Orange"})
        EXPECT_EQ(red(table(name), 0) + green(table(name), 0) + blue(table(name), 0), 0) << name;
    EXPECT_GT(blue(table("BlueYellow"), 30), red(table("BlueYellow"), 30) + 60);
    EXPECT_GT(red(table("BlueYellow"), 230), blue(table("BlueYellow"), 230) + 60);
    EXPECT_GT(green(table("GreenPink"), 40), red(table("GreenPink"), 40) + 40);
    EXPECT_GT(red(table("GreenPink"), 200), green(table("GreenPink"), 200) + 40);
    EXPECT_GT(blue(table("Rainbow"), 40), red(table("Rainbow"), 40));
    EXPECT_GT(red(table("Rainbow"), 255), 4 * blue(table("Rainbow"), 255));
}

TEST(ColorTables, StopsAreMetInBothBlends)
{
    for (hvimage::Blend const blend : {hvimage::Blend::Srgb, hvimage::Blend::OkLab}) {
        // 51 / 255 and 204 / 255 are entries.
        ColorTable const t = hvimage::makeColorTable(
            {{0.0, 10, 20, 30}, {51 / 255.0, 200, 20, 90}, {204 / 255.0, 4, 250, 7}, {1.0, 255, 255, 255}},
            blend);
        EXPECT_NEAR(red(t, 0), 10, 1);
        EXPECT_NEAR(blue(t, 0), 30, 1);
        EXPECT_NEAR(red(t, 51), 200, 1);
        EXPECT_NEAR(green(t, 51), 20, 1);
        EXPECT_NEAR(blue(t, 51), 90, 1);
        EXPECT_NEAR(green(t, 204), 250, 1);
        EXPECT_NEAR(red(t, 255), 255, 1);
    }
}

TEST(ColorTables, SectionTakesTheNearestEntries)
{
    ColorTable const half = hvimage::sectionOfTable(table("Grays"), 0.0, 0.5, false);
    EXPECT_EQ(red(half, 0), 0);
    EXPECT_EQ(red(half, 100), 50);
    EXPECT_EQ(red(half, 255), 128);  // 127.5, halves up
    ColorTable const backwards = hvimage::sectionOfTable(table("Grays"), 1.0, 0.0, false);
    EXPECT_EQ(red(backwards, 0), 255);
    EXPECT_EQ(red(backwards, 255), 0);
}

TEST(ColorTables, LogScaleGivesLowValuesMoreColours)
{
    ColorTable const t = hvimage::sectionOfTable(table("Grays"), 0.0, 1.0, true);
    EXPECT_EQ(red(t, 0), 0);
    EXPECT_EQ(red(t, 1), 32);    // 255 / 8: log2 of 2 out of 8 bits
    EXPECT_EQ(red(t, 15), 128);  // 127.5, halves up
    EXPECT_EQ(red(t, 255), 255);
}
