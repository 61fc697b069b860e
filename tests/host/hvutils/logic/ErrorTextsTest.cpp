#include "lib/hvutils/logic/ErrorTexts.h"

#include <gtest/gtest.h>

#include <QSet>

TEST(ErrorTexts, EachKnownStatusHasATextOfItsOwn)
{
    QSet<QString> texts;
    for (int const status : {11, 64, 65, 66, 76, 87}) {
        QString const text = hvutils::errorText(static_cast<tag_estatus>(status));
        EXPECT_FALSE(text.contains(QStringLiteral("code"))) << status;
        EXPECT_GE(text.size(), 40) << status;
        texts.insert(text);
    }
    EXPECT_EQ(texts.size(), 6);
}

TEST(ErrorTexts, OthersAreToldByTheirNumber)
{
    EXPECT_EQ(hvutils::errorText(static_cast<tag_estatus>(1234)),
              QStringLiteral("The operation failed (code 1234)."));
    EXPECT_EQ(hvutils::errorText(eStatusFailed), QStringLiteral("The operation failed (code 1)."));
}
