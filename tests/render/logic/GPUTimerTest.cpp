#include "render/logic/GPUTimer.h"

#include <gtest/gtest.h>

TEST(GPUTimer, GivesSecondsFromMilliseconds)
{
    GPUTimer timer;
    timer.start(0);
    EXPECT_EQ(timer.read(40), 0.04);
}

TEST(GPUTimer, StopsWhenItIsRead)
{
    GPUTimer timer;
    timer.start(0);
    EXPECT_EQ(timer.read(100), 0.1);
    EXPECT_EQ(timer.read(900), 0.1);
}

TEST(GPUTimer, EachStartBeginsAtZero)
{
    GPUTimer timer;
    EXPECT_EQ(timer.read(700), 0.0) << "never started";
    timer.start(0);
    timer.read(100);
    timer.start(500);
    EXPECT_NEAR(timer.read(520), 0.02, 1e-9);
}
