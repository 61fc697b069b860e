#include "lib/hvparser/logic/KeyedText.h"

#include <gtest/gtest.h>

#include <random>

using namespace hvparser;

namespace {

QByteArray roundTrip(QByteArray const& bytes)
{
    return writeKeyedText(parseKeyedText(bytes));
}

char const* const example =
    "\xEF\xBB\xBF# head\r\n\r\n[Sequence]\r\nType = CT\r\n  Odd   =  x = y \r\n; other comment\r\n"
    "[Sequence]\r\ntype=second\r\nno key here\r\n\r\n[Last]\r\nEnd=without line end";

TEST(KeyedText, WritesBackWhatItReadByteForByte)
{
    for (char const* text : {"", "\n", "a=b", "[", "[]", "=x\n", "[a]\n[a]\n[A]", "x\r\n\r\r\n", example,
                             "[s]\nk=\"unfinished\n", "[u]\nk=\xFF\xFE\n\n\n# end"})
        EXPECT_EQ(roundTrip(text), QByteArray(text)) << text;
    EXPECT_EQ(roundTrip(QByteArray("\0[a]\0\nb=\0c\n", 11)), QByteArray("\0[a]\0\nb=\0c\n", 11));
}

TEST(KeyedText, WritesBackAnyBytes)
{
    std::mt19937 random(7);
    char const alphabet[] = "[]=#;\"\\ \t\r\n\n\nabc\xC3\xA4\xFF";
    for (int n = 0; n < 3000; ++n) {
        QByteArray bytes;
        for (unsigned length = random() % 60; length > 0; --length)
            bytes += alphabet[random() % sizeof(alphabet)];
        ASSERT_EQ(roundTrip(bytes), bytes) << bytes.toHex().constData();
    }
}

TEST(KeyedText, ReadsSectionsKeysAndValues)
{
    auto const text = parseKeyedText(example);
    ASSERT_EQ(text.sections.size(), 4U);
    EXPECT_EQ(text.newline, QByteArray("\r\n"));
    EXPECT_EQ(text.sections[1].name, "Sequence");
    EXPECT_EQ(findKey(text.sections[1], "TYPE")->value, "CT");
    EXPECT_EQ(findKey(text.sections[1], "odd")->value, "x = y");
    EXPECT_EQ(findKey(text.sections[2], "type")->value, "second");
    EXPECT_EQ(findKey(text.sections[3], "End")->value, "without line end");
    EXPECT_EQ(findKey(text.sections[1], "none"), nullptr);
    EXPECT_EQ(findKey(text.sections[1], ""), nullptr);
}

TEST(KeyedText, ComplainsOfLinesThatMakeNoSense)
{
    EXPECT_EQ(parseKeyedText(example).complaints, QStringList{"line 9: neither a section nor a key"});
    EXPECT_EQ(parseKeyedText("a = b\n").complaints, QStringList{"line 1: a key outside of every section"});
    QByteArray many;
    for (int i = 0; i < 1000; ++i)
        many += "nonsense\n";
    EXPECT_LE(parseKeyedText(many).complaints.size(), 10);
}

TEST(KeyedText, ManyLinesWithoutAKeyAreHeldInOnePiece)
{
    auto const text = parseKeyedText(QByteArray(1 << 20, '\n'));
    EXPECT_EQ(text.sections[0].lines.size(), 1U);
}

TEST(KeyedText, ChangesOneLineOnly)
{
    auto text = parseKeyedText("# c\n[s]\n  Key=old\nOther = 1\n\n[t]\n");
    ASSERT_TRUE(setKey(text.sections[1], "KEY", "new", text.newline));
    EXPECT_EQ(writeKeyedText(text), QByteArray("# c\n[s]\nKey = new\nOther = 1\n\n[t]\n"));
}

TEST(KeyedText, SettingTheSameValueChangesNothing)
{
    auto text = parseKeyedText("[s]\n  Key=old  \n");
    ASSERT_TRUE(setKey(text.sections[1], "key", "old", text.newline));
    EXPECT_EQ(writeKeyedText(text), QByteArray("[s]\n  Key=old  \n"));
}

TEST(KeyedText, NewKeysFollowTheLastOne)
{
    auto text = parseKeyedText("[s]\r\na=1\r\n\r\n[t]\r\n\r\n[u]\r\nlast=1");
    for (std::size_t i = 1; i <= 3; ++i)
        ASSERT_TRUE(setKey(text.sections[i], "b", "2", text.newline));
    EXPECT_EQ(writeKeyedText(text),
              QByteArray("[s]\r\na=1\r\nb = 2\r\n\r\n[t]\r\nb = 2\r\n\r\n[u]\r\nlast=1\r\nb = 2\r\n"));
}

TEST(KeyedText, NewKeyAfterASectionWithoutLineEnd)
{
    auto text = parseKeyedText("[s]");
    ASSERT_TRUE(setKey(text.sections[1], "b", "2", text.newline));
    EXPECT_EQ(writeKeyedText(text), QByteArray("[s]\nb = 2\n"));
}

TEST(KeyedText, RefusesKeysThatCantStandInAFile)
{
    auto text = parseKeyedText("[s]\n");
    for (char const* key : {"", " a", "a ", "a=b", "#a", ";a", "[a", "a\nb", "a\tb"})
        EXPECT_FALSE(setKey(text.sections[1], key, "v", text.newline)) << key;
    EXPECT_EQ(writeKeyedText(text), QByteArray("[s]\n"));
}

TEST(KeyedText, AnyValueComesBack)
{
    for (char const* value : {"", "plain", " blanks ", "a\nb", "tab\t", "\"quoted\"", "\\n", "\"", "\"\\\"",
                              "C:\\new\\table", "a = b", "# no comment", "[x]", "\xC3\xA4\xE2\x82\xAC"}) {
        auto text = parseKeyedText("[s]\n");
        QString const wanted = QString::fromUtf8(value);
        ASSERT_TRUE(setKey(text.sections[1], "k", wanted, text.newline));
        auto const again = parseKeyedText(writeKeyedText(text));
        EXPECT_EQ(findKey(again.sections[1], "k")->value, wanted) << value;
    }
}

TEST(KeyedText, RemovesEveryLineOfAKey)
{
    auto text = parseKeyedText("[s]\nk=1\n# c\nK=2\nl=3\n");
    EXPECT_TRUE(removeKey(text.sections[1], "k"));
    EXPECT_FALSE(removeKey(text.sections[1], "k"));
    EXPECT_EQ(writeKeyedText(text), QByteArray("[s]\n# c\nl=3\n"));
}

}  // namespace
