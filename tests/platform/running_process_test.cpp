#include "platform/running_process.h"

#include <gtest/gtest.h>

TEST(RunningProcess, IsKnownByNumberAndStart)
{
    RunningProcess process = currentProcess();
    EXPECT_FALSE(process.start.empty());
    EXPECT_TRUE(isRunning(process));
    process.start += "0";
    EXPECT_FALSE(isRunning(process)) << "the number was given out again";
    process.start.clear();
    EXPECT_TRUE(isRunning(process)) << "nothing else is known of it";
    for (const std::uint64_t number : {std::uint64_t{0}, std::uint64_t{0x7FFFFFF0}, ~std::uint64_t{0}})
        EXPECT_FALSE(isRunning({number, {}})) << number;
    EXPECT_FALSE(userName().empty());
    EXPECT_FALSE(computerName().empty());
}
