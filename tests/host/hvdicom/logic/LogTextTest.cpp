#include "lib/hvdicom/logic/LogText.h"

#include <gtest/gtest.h>

namespace {

QString cleaned(char const* message)
{
    return hvdicom::withoutQuotedValues(QString::fromUtf8(message),
                                        [](QString const& word) { return word == QLatin1String("Rows"); });
}

}  // namespace

TEST(LogText, leavesOutWhatIsQuoted)
{
    EXPECT_EQ(cleaned("invalid value 'Mary Miller' in file"), QString("invalid value ... in file"));
    EXPECT_EQ(cleaned("unknown text \"Mary Miller\""), QString("unknown text ..."));
    EXPECT_EQ(cleaned("value is 'Mary O'Neil' here"), QString("value is ... here"));
    EXPECT_EQ(cleaned("never closed 'Mary Miller"), QString("never closed ..."));
}

TEST(LogText, leavesOutNamesOfPersons)
{
    EXPECT_EQ(cleaned("found Miller^Mary Ann"), QString("found ..."));
    EXPECT_EQ(cleaned("wrong value: Miller"), QString("wrong value: ..."));
}

TEST(LogText, keepsAttributesTagsAndNumbers)
{
    EXPECT_EQ(cleaned("missing 'Rows'"), QString("missing 'Rows'"));
    EXPECT_EQ(cleaned("Length of element (0010,0010) is not 4, can't read"),
              QString("Length of element (0010,0010) is not 4, can't read"));
    EXPECT_EQ(cleaned(""), QString());
}
