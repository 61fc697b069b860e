#include "lib/hvutils/logic/MemoryLoad.h"

#include <gtest/gtest.h>

#include <QByteArray>

TEST(MemoryLoad, LimitAtLessThanATenthAvailable)
{
    EXPECT_FALSE(hvutils::memoryNearlyFull("MemTotal:  1000 kB\nMemFree:  1 kB\nMemAvailable:  100 kB\n"));
    EXPECT_TRUE(hvutils::memoryNearlyFull("MemTotal:  1000 kB\nMemFree:  1 kB\nMemAvailable:  99 kB\n"));
    EXPECT_TRUE(hvutils::memoryNearlyFull("MemTotal:       16384256 kB\nMemAvailable:    0 kB"));
}

TEST(MemoryLoad, WhatCannotBeReadIsNoLimit)
{
    EXPECT_FALSE(hvutils::memoryNearlyFull(""));
    EXPECT_FALSE(hvutils::memoryNearlyFull("MemTotal: 1000 kB\n"));
    EXPECT_FALSE(hvutils::memoryNearlyFull("MemAvailable: 1 kB\n"));
    EXPECT_FALSE(hvutils::memoryNearlyFull("MemTotal: many kB\nMemAvailable: 1 kB\n"));
    EXPECT_FALSE(hvutils::memoryNearlyFull("MemTotal: 1000 kB\nMemAvailable:\n"));
}
