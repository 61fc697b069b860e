#include "plugin/logic/SceneName.h"

#include <gtest/gtest.h>

TEST(SceneName, IsUserAndTimeWithTwoDigitsEach)
{
    const QDateTime time(QDate(2026, 3, 7), QTime(9, 5, 1));
    EXPECT_EQ(sceneName("ada", time), QString("ada20260307090501_3DS"));
    EXPECT_EQ(sceneName("", QDateTime(QDate(2030, 12, 31), QTime(23, 59, 58))),
              QString("20301231235958_3DS"));
}
