#include "transfer/logic/UnitTexts.h"

#include <gtest/gtest.h>

namespace {

const SUnitRanges ranges{{0.0F, 4095.0F, 0.0F, 0.251F, -1000.0F, 3095.0F}};

std::pair<std::string, std::string> textsOf(const char* unit)
{
    const RangeTexts texts = rangeTexts(ranges, unit);
    return {texts.min.toStdString(), texts.max.toStdString()};
}

}  // namespace

TEST(RangeTexts, AreTheEndsInExponentNotation)
{
    EXPECT_EQ(textsOf("Counts"), std::pair(std::string("0.00e+00"), std::string("4.10e+03")));
    EXPECT_EQ(textsOf("Absorption"), std::pair(std::string("0.00e+00"), std::string("2.51e-01")));
    EXPECT_EQ(textsOf("Hounsfield"), std::pair(std::string("-1.00e+03"), std::string("3.10e+03")));
}

TEST(RangeTexts, OtherUnitsHaveNone)
{
    for (const char* unit : {"", "counts", "mm"})
        EXPECT_EQ(textsOf(unit), std::pair(std::string("0.00"), std::string("0.00"))) << unit;
}
