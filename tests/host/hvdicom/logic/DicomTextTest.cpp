#include "lib/hvdicom/DicomText.h"

#include <gtest/gtest.h>

using hvdicom::decodedText;

TEST(DicomText, readsTheCharactersThatTheFileNames)
{
    EXPECT_EQ(decodedText("M\xFCller", "ISO_IR 100"), QString::fromUtf8("M\u00FCller"));
    EXPECT_EQ(decodedText("M\xC3\xBCller", "ISO_IR 192"), QString::fromUtf8("M\u00FCller"));
    EXPECT_EQ(decodedText("\xD0", "ISO_IR 144"), QString::fromUtf8("\u0430"));
    EXPECT_EQ(decodedText("\xD0", "ISO 2022 IR 144"), QString::fromUtf8("\u0430"));
    EXPECT_EQ(decodedText("\xC4\xE3", "GB18030"), QString::fromUtf8("\u4F60"));
}

TEST(DicomText, readsAnUnknownSetAsLatin1)
{
    EXPECT_EQ(decodedText("M\xFCller", ""), QString::fromUtf8("M\u00FCller"));
    EXPECT_EQ(decodedText("M\xFCller", "no such set"), QString::fromUtf8("M\u00FCller"));
    EXPECT_EQ(decodedText("plain", "ISO_IR 192"), QString("plain"));
}
