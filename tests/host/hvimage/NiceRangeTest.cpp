#include "hvimage/getNiceRangeForDisplay.h"

#include <QSet>
#include <QString>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

tagHVSDisplayRange rangeOf(double minimum, double maximum, int maxTicks)
{
    tagHVSDisplayRange range;
    getNiceRangeForDisplay(minimum, maximum, maxTicks, &range);
    return range;
}

QStringList labelsOf(const tagHVSDisplayRange& range)
{
    QStringList labels;
    for (int i = 0; i < range.nMajorTicks; ++i)
        labels.append(QString::number(range.dFirstMajorTick + i * range.dMajorStep, 'g', 6));
    return labels;
}

}  // namespace

TEST(NiceRange, ATickAtTheMinimumIsLeftOut)
{
    tagHVSDisplayRange const range = rangeOf(0, 100, 20);
    EXPECT_EQ(range.dMajorStep, 10.0);
    EXPECT_EQ(range.dFirstMajorTick, 10.0);
    EXPECT_EQ(range.nMajorTicks, 10);
    EXPECT_EQ(range.dMinorStep, 2.0);
    EXPECT_DOUBLE_EQ(range.dMajorFraction, 0.1);
}

TEST(NiceRange, TheFractionIsThePlaceOfTheFirstTick)
{
    // 40 digits for 4000: a step of 500 has room for the four characters of "-500" and a gap, one of 200 not.
    tagHVSDisplayRange const range = rangeOf(-930, 3070, 20);
    EXPECT_EQ(range.dMajorStep, 500.0);
    EXPECT_EQ(range.dFirstMajorTick, -500.0);
    EXPECT_EQ(range.nMajorTicks, 8);
    EXPECT_DOUBLE_EQ(range.dMajorFraction, 0.1075);  // 430 of 4000
}

TEST(NiceRange, TheZoomAxisHasItsRoundSteps)
{
    EXPECT_EQ(labelsOf(rangeOf(0, 1, 10)), (QStringList{"0.2", "0.4", "0.6", "0.8", "1"}));
    EXPECT_EQ(labelsOf(rangeOf(0, 0.5, 10)), (QStringList{"0.1", "0.2", "0.3", "0.4", "0.5"}));
    EXPECT_EQ(labelsOf(rangeOf(0, 0.1, 10)), (QStringList{"0.05", "0.1"}));
}

TEST(NiceRange, LabelsDifferHaveRoomAndStandWithinTheAxis)
{
    int checked = 0;
    for (double const magnitude :
         {1e-12, 1e-4, 0.03, 0.7, 1.0, 9.99, 255.0, 4095.0, 65535.0, 1.23e6, 4.29e9, 1e200})
        for (double const low : {0.0, -1.0, -0.3, 0.25, 0.95, -0.999})
            for (double const span : {2.0, 1.0, 0.5, 0.001, 1e-5})
                for (int const maxTicks : {20, 10, 5, 1}) {
                    double const minimum = magnitude * low;
                    double const maximum = magnitude * (low + span);
                    tagHVSDisplayRange const range = rangeOf(minimum, maximum, maxTicks);
                    SCOPED_TRACE(testing::Message() << minimum << " to " << maximum << ", " << maxTicks);
                    ASSERT_LE(range.nMajorTicks, maxTicks);
                    if (range.nMajorTicks == 0) continue;
                    ++checked;
                    double const slack = 1e-6 * range.dMajorStep;
                    ASSERT_GT(range.dFirstMajorTick, minimum);
                    ASSERT_LE(range.dFirstMajorTick - minimum, range.dMajorStep + slack);
                    double const last = range.dFirstMajorTick + (range.nMajorTicks - 1) * range.dMajorStep;
                    ASSERT_LE(last, maximum + slack);
                    ASSERT_GT(last + range.dMajorStep, maximum - slack);
                    double const parts = range.dMajorStep / range.dMinorStep;
                    ASSERT_TRUE(std::trunc(parts) == 4.0 || std::trunc(parts) == 5.0) << parts;
                    QStringList const labels = labelsOf(range);
                    ASSERT_EQ(QSet<QString>(labels.begin(), labels.end()).size(), labels.size());
                    double const digits = 2.0 * maxTicks * range.dMajorStep / (maximum - minimum);
                    if (range.nMajorTicks == 1) continue;
                    for (QString const& label : labels)
                        ASSERT_LE(label.size() + 1, digits + 1e-6) << label.toStdString();
                }
    EXPECT_GT(checked, 1000);
}

TEST(NiceRange, WhatIsNoAxisHasNoTicks)
{
    double const none = std::numeric_limits<double>::quiet_NaN();
    double const endless = std::numeric_limits<double>::infinity();
    double const largest = std::numeric_limits<double>::max();
    for (auto const& [low, high] : {std::pair(1.0, 1.0),
                                    {2.0, 1.0},
                                    {none, 1.0},
                                    {0.0, endless},
                                    {-largest, largest},
                                    {0.0, std::numeric_limits<double>::denorm_min()}}) {
        tagHVSDisplayRange const range = rangeOf(low, high, 20);
        EXPECT_EQ(range.nMajorTicks, 0);
        EXPECT_EQ(range.dMajorStep, 0.0);
        EXPECT_EQ(range.dMajorFraction, 0.0);
    }
    EXPECT_EQ(rangeOf(0, 1, 0).nMajorTicks, 0);
    getNiceRangeForDisplay(0, 1, 10, nullptr);
}
