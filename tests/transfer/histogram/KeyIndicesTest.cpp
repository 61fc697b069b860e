#include "transfer/logic/KeyIndices.h"

#include "hvimage/CILPalette.h"
#include "plugin/logic/ColorTableNames.h"
#include "transfer/logic/ColorTableStops.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <vector>

namespace {

using Bytes = std::vector<unsigned char>;

Bytes tableOf(const std::vector<std::array<int, 3>>& colors)
{
    Bytes bytes;
    for (const auto& color : colors) {
        for (const int channel : color)
            bytes.push_back(static_cast<unsigned char>(channel));
        bytes.push_back(255);
    }
    return bytes;
}

template <class Make>
Bytes tableBy(int entries, Make make)
{
    std::vector<std::array<int, 3>> colors;
    for (int i = 0; i < entries; ++i)
        colors.push_back(make(i));
    return tableOf(colors);
}

std::vector<int> keysOf(const Bytes& table)
{
    const QVector<int> keys = keyIndices(table.data(), static_cast<int>(table.size() / 4));
    return {keys.begin(), keys.end()};
}

// The rules once more, straight down on one list, as slowly as they are told.
class SlowReduction
{
public:
    explicit SlowReduction(const Bytes& table)
        : t(table)
        , n(static_cast<int>(table.size() / 4))
    {}

    std::vector<int> run()
    {
        if (n == 0) return {};
        list = {0};
        runsOfEqualHue();
        similarNeighbours();
        faintSteps();
        return list;
    }

private:
    int channel(int entry, int c) const { return t[static_cast<std::size_t>(4 * entry + c)]; }

    int dot(int a, int b) const
    {
        return channel(a, 0) * channel(b, 0) + channel(a, 1) * channel(b, 1) + channel(a, 2) * channel(b, 2);
    }

    float cosine(int a, int b) const
    {
        const float lengthA = std::sqrt(static_cast<float>(dot(a, a)));
        const float lengthB = std::sqrt(static_cast<float>(dot(b, b)));
        return static_cast<float>(dot(a, b)) / (lengthA * lengthB);
    }

    bool equal(int a, int b) const
    {
        return channel(a, 0) == channel(b, 0) && channel(a, 1) == channel(b, 1) &&
               channel(a, 2) == channel(b, 2);
    }

    int at(int place) const { return list[static_cast<std::size_t>(place)]; }
    int size() const { return static_cast<int>(list.size()); }
    void remove(int place) { list.erase(list.begin() + place); }

    void runsOfEqualHue()
    {
        int i = 1;
        while (i < n - 1) {
            int j = i;
            int last = i;
            float c = 0.0F;
            for (;;) {
                j = j + 1;
                c = dot(i, j) != 0 ? cosine(i, j) : 0.0F;
                const int rounded = static_cast<int>(c + 0.5F);
                if (rounded == 1 && equal(j, j - 1)) last = j;
                if ((rounded != 1 || !equal(j, j - 1)) && last > i) break;
                if (!(c > 0.971F)) break;
                if (j == n - 1) break;
            }
            if (last > i) {
                list.pop_back();
                if (list.empty())
                    list.push_back(0);
                else
                    list.push_back((last + i) / 2);
            } else {
                list.push_back(j);
            }
            i = j;
        }
    }

    void similarNeighbours()
    {
        int k = 0;
        while (k < size() - 1) {
            const int a = at(k);
            int m = k;
            float c = 0.0F;
            bool replace = false;
            for (;;) {
                m = m + 1;
                const int b = at(m);
                if (dot(a, b) != 0) {
                    c = cosine(a, b);
                    if (c > 0.86F) {
                        const int red = std::abs(channel(a, 0) - channel(b, 0));
                        const int green = std::abs(channel(a, 1) - channel(b, 1));
                        const int blue = std::abs(channel(a, 2) - channel(b, 2));
                        if ((k > 0 && c > 0.97F && red + green + blue < 83) ||
                            (red == 0 && green + blue < 54)) {
                            replace = true;
                            break;
                        }
                        remove(m);
                        m = m - 1;
                    }
                }
                if (!(c > 0.86F) || m >= size() - 1) break;
            }
            if (replace) {
                list[static_cast<std::size_t>(k)] = at(m);
                remove(m);
                m = m - 1;
            }
            k = m;
        }
        if (list.back() < n - 1) list.push_back(n - 1);
    }

    void faintSteps()
    {
        int k = 0;
        while (k < size() - 1) {
            const int here = channel(at(k), 0) + channel(at(k), 1) + channel(at(k), 2);
            const int next = channel(at(k + 1), 0) + channel(at(k + 1), 1) + channel(at(k + 1), 2);
            const int step = std::abs(here - next);
            if (step >= 1 && step < 20)
                remove(k);
            else
                k = k + 1;
        }
    }

    const Bytes& t;
    int n;
    std::vector<int> list;
};

std::vector<int> slowly(const Bytes& table)
{
    return SlowReduction(table).run();
}

std::array<int, 3> hueAt(double turn)
{
    const auto channel = [&](double offset) {
        const double wave = std::abs(std::fmod(turn * 6.0 + offset, 6.0) - 3.0) - 1.0;
        return static_cast<int>(std::clamp(wave, 0.0, 1.0) * 255.0);
    };
    return {channel(0.0), channel(4.0), channel(2.0)};
}

const int sizes[] = {0, 1, 2, 3, 5, 255, 256, 257, 512, 4096};

}  // namespace

TEST(KeyIndices, NoTableHasNoKeys)
{
    EXPECT_TRUE(keyIndices(nullptr, 256).isEmpty());
    EXPECT_TRUE(keysOf({}).empty());
}

TEST(KeyIndices, OneEntryIsItsOwnKeyAndTwoAreBoth)
{
    EXPECT_EQ(keysOf(tableOf({{1, 2, 3}})), (std::vector<int>{0}));
    EXPECT_EQ(keysOf(tableOf({{0, 0, 0}, {255, 255, 255}})), (std::vector<int>{0, 1}));
    // A faint step: the first goes, the end of the table stays.
    EXPECT_EQ(keysOf(tableOf({{0, 0, 0}, {6, 6, 6}})), (std::vector<int>{1}));
}

TEST(KeyIndices, GreysHaveTheirTwoEnds)
{
    EXPECT_EQ(keysOf(tableBy(256,
                             [](int i) {
                                 return std::array<int, 3>{i, i, i};
                             })),
              (std::vector<int>{0, 255}));
}

TEST(KeyIndices, APureHueHasItsTwoEnds)
{
    EXPECT_EQ(keysOf(tableBy(256,
                             [](int i) {
                                 return std::array<int, 3>{i, 0, 0};
                             })),
              (std::vector<int>{0, 255}));
}

TEST(KeyIndices, ARunOfEqualEntriesIsItsMiddle)
{
    // Four entries of each of three plain hues. From entry 1 the hue holds to the end of the run at 4, and
    // entry 0 stands for it; the runs from 4 to 7 and from 8 to 11 take the place of the key before them.
    const Bytes table = tableBy(12, [](int i) {
        return i < 4   ? std::array<int, 3>{200, 0, 0}
               : i < 8 ? std::array<int, 3>{0, 200, 0}
                       : std::array<int, 3>{0, 0, 200};
    });
    EXPECT_EQ(keysOf(table), slowly(table));
    EXPECT_EQ(keysOf(table).back(), 11);
}

TEST(KeyIndices, EqualEntriesThroughoutAreTheTwoEnds)
{
    EXPECT_EQ(keysOf(tableBy(256,
                             [](int) {
                                 return std::array<int, 3>{9, 9, 9};
                             })),
              (std::vector<int>{0, 255}));
}

TEST(KeyIndices, BlackHasNoHue)
{
    const Bytes table = tableBy(256, [](int) { return std::array<int, 3>{0, 0, 0}; });
    EXPECT_EQ(keysOf(table), slowly(table));
}

TEST(KeyIndices, AgreesWithTheSlowRulesOnHuesAndRainbows)
{
    for (const int n : sizes) {
        const double last = std::max(1, n - 1);
        for (int red = 0; red <= 1; ++red)
            for (int green = 0; green <= 1; ++green)
                for (int blue = 0; blue <= 1; ++blue) {
                    const Bytes ramp = tableBy(n, [&](int i) {
                        const int v = static_cast<int>(i / last * 255.0);
                        return std::array<int, 3>{red * v, green * v, blue * v};
                    });
                    ASSERT_EQ(keysOf(ramp), slowly(ramp)) << n << ": " << red << green << blue;
                }
        const Bytes rainbow = tableBy(n, [&](int i) { return hueAt(i / last * 0.999); });
        ASSERT_EQ(keysOf(rainbow), slowly(rainbow)) << n;
    }
}

TEST(KeyIndices, AgreesWithTheSlowRulesOnRandomTables)
{
    std::mt19937 random(7);
    const auto upTo = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most + 1)); };
    for (int round = 0; round < 3000; ++round) {
        const int n = round < 40 ? sizes[round % 10] : upTo(300);
        const int kind = round % 4;
        std::array<int, 3> color = {upTo(255), upTo(255), upTo(255)};
        const Bytes table = tableBy(n, [&](int) {
            // Noise; walks; walks with runs; colours of few levels, black among them.
            if (kind == 0 || (kind == 2 && upTo(9) == 0)) color = {upTo(255), upTo(255), upTo(255)};
            if (kind == 1)
                for (int& channel : color)
                    channel = std::clamp(channel + upTo(24) - 12, 0, 255);
            if (kind == 3) color = {upTo(2) * 60, upTo(2) * 60, upTo(2) * 60};
            return color;
        });
        ASSERT_EQ(keysOf(table), slowly(table)) << "round " << round;
    }
}

TEST(KeyIndices, AscendAndEndWithTheLastEntry)
{
    std::mt19937 random(8);
    for (int round = 0; round < 300; ++round) {
        const Bytes table = tableBy(2 + round, [&](int) {
            return std::array<int, 3>{static_cast<int>(random() % 256), static_cast<int>(random() % 256),
                                      static_cast<int>(random() % 256)};
        });
        const std::vector<int> keys = keysOf(table);
        ASSERT_FALSE(keys.empty());
        ASSERT_GE(keys.front(), 0);
        for (std::size_t i = 1; i < keys.size(); ++i)
            ASSERT_LT(keys[i - 1], keys[i]);
        ASSERT_EQ(keys.back(), 1 + round);
    }
}

TEST(KeyIndices, EachOfTheHostsTablesHasAChainThatAUserCanHandle)
{
    for (int index = 0; index < 13; ++index) {
        CILPalette palette(static_cast<HVS_COLORTABLE_TYPES>(colorTableNumber(index)));
        const QVector<int> keys = keyIndices(palette.getColorTableBuffer(), palette.getMaxIndex());
        SCOPED_TRACE(colorTableNames()[index].toStdString());
        // Greys need their ends; every other table has a colour in between that must not be lost.
        EXPECT_GE(keys.size(), index == 0 ? 2 : 3);
        EXPECT_LE(keys.size(), 8);
        EXPECT_EQ(keys.front(), 0);
        EXPECT_EQ(keys.back(), 255);
        // Markers are 11 pixels wide on a widget of about 300.
        for (int i = 1; i < keys.size(); ++i)
            EXPECT_GE(keys[i] - keys[i - 1], 12);
    }
}
