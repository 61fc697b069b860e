#include "hvutils/adjustExpValue.h"

#include <QString>
#include <gtest/gtest.h>

namespace {

std::string adjusted(const char* text)
{
    QString value = QString::fromLatin1(text);
    adjustExpValue(value);
    return value.toStdString();
}

}  // namespace

TEST(AdjustExpValue, SignsAndZerosOfTheExponentGo)
{
    EXPECT_EQ(adjusted("1.20e+03"), "1.20e3");
    EXPECT_EQ(adjusted("-5.00e-01"), "-5.00e-1");
    EXPECT_EQ(adjusted("6.55E+04"), "6.55e4");
    EXPECT_EQ(adjusted("1.00e+100"), "1.00e100");
    EXPECT_EQ(adjusted("1e20"), "1e20");
}

TEST(AdjustExpValue, AnExponentOfZeroGoesWhole)
{
    EXPECT_EQ(adjusted("4.00e+00"), "4.00");
    EXPECT_EQ(adjusted("0.00e-00"), "0.00");
}

TEST(AdjustExpValue, OtherTextsStay)
{
    for (const char* text : {"", "0.00", "1e", "e5", "1.e+03", "12 e+03", "nan", "inf", "1.20e+03 mm"})
        EXPECT_EQ(adjusted(text), text);
}
