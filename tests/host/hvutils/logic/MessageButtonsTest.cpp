#include "lib/hvutils/logic/MessageButtons.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

std::vector<int> valuesOf(HostQuestion const& question)
{
    std::vector<int> values;
    for (HostQuestion::Button const& button : question.buttons)
        values.push_back(button.value);
    return values;
}

HostQuestion buttons(int b0, int b1, int b2)
{
    return hvutils::questionWithButtons(HostQuestion::Warning, nullptr, QStringLiteral("T"),
                                        QStringLiteral("x"), b0, b1, b2);
}

HostQuestion texts(char const* b0, char const* b1, char const* b2, int defaultButton, int escapeButton)
{
    return hvutils::questionWithTexts(HostQuestion::Information, nullptr, QStringLiteral("T"),
                                      QStringLiteral("x"), QString::fromLatin1(b0), QString::fromLatin1(b1),
                                      QString::fromLatin1(b2), defaultButton, escapeButton);
}

}  // namespace

TEST(MessageButtons, ValuesInTheirOrderWithoutTheDefaultMark)
{
    HostQuestion const question = buttons(16384, 65536 | 256, 4194304);
    EXPECT_EQ(valuesOf(question), (std::vector<int>{16384, 65536, 4194304}));
    EXPECT_EQ(question.defaultValue, 65536);
    EXPECT_EQ(question.kind, HostQuestion::Warning);
    EXPECT_EQ(question.title, QStringLiteral("T"));
    EXPECT_EQ(question.text, QStringLiteral("x"));
}

TEST(MessageButtons, ZeroIsNoButtonAndNoneAtAllIsOk)
{
    EXPECT_EQ(valuesOf(buttons(1024, 0, 0)), (std::vector<int>{1024}));
    EXPECT_EQ(valuesOf(buttons(0, 65536, 0)), (std::vector<int>{65536}));
    EXPECT_EQ(valuesOf(buttons(0, 0, 0)), (std::vector<int>{1024}));
    EXPECT_EQ(valuesOf(buttons(1024, 1024 | 256, 0)), (std::vector<int>{1024}));
}

TEST(MessageButtons, ClosingTheBoxAnswersCancelElseNoElseTheLast)
{
    EXPECT_EQ(buttons(4194304, 65536, 16384).escapeValue, 4194304);
    EXPECT_EQ(buttons(65536, 16384, 0).escapeValue, 65536);
    EXPECT_EQ(buttons(16384, 65536 | 256, 131072).escapeValue, 65536);
    EXPECT_EQ(buttons(16384, 1024, 0).escapeValue, 1024);
    EXPECT_EQ(buttons(1024, 0, 0).escapeValue, 1024);
    EXPECT_TRUE(buttons(16384, 65536, 0).canEscape);
}

TEST(MessageButtons, OwnTextsAreAnsweredByTheirNumbers)
{
    HostQuestion const question = texts("&Save", "", "&Discard", 2, 0);
    EXPECT_EQ(valuesOf(question), (std::vector<int>{0, 2}));
    EXPECT_EQ(question.buttons[1].text, QStringLiteral("&Discard"));
    EXPECT_EQ(question.defaultValue, 2);
    EXPECT_TRUE(question.canEscape);
    EXPECT_EQ(question.escapeValue, 0);
}

TEST(MessageButtons, WithoutAnEscapeButtonSeveralMustBeAnswered)
{
    HostQuestion const question = texts("A", "B", "C", 0, -1);
    EXPECT_FALSE(question.canEscape);
    EXPECT_EQ(safeAnswer(question), 2);
    EXPECT_EQ(texts("A", "B", "C", 7, -1).defaultValue, 0);
}

TEST(MessageButtons, OneButtonCanAlwaysBeClosed)
{
    HostQuestion const question = texts("&OK", "", "", 0, -1);
    EXPECT_TRUE(question.canEscape);
    EXPECT_EQ(question.escapeValue, 0);
    EXPECT_EQ(valuesOf(texts("", "", "", -1, -1)), (std::vector<int>{0}));
}

TEST(MessageButtons, TheSafeAnswerIsThatOfAClosedBox)
{
    EXPECT_EQ(safeAnswer(buttons(16384 | 256, 65536, 4194304)), 4194304);
    EXPECT_EQ(safeAnswer(texts("Replace", "Keep", "", 0, 1)), 1);
}
