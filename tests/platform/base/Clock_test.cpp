#include "platform/base/Clock.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

namespace {
constexpr platform::LocalTime kEarly = {2006, 3, 9, 7, 5, 1};
} // namespace

TEST(Clock, TextsOfATime_HaveTheirLeadingZeros)
{
    EXPECT_EQ(platform::DateText(kEarly), "03/09/2006");
    EXPECT_EQ(platform::TimeText(kEarly), "07:05:01");
    EXPECT_EQ(platform::ShortTimeText(kEarly), "0705");
    EXPECT_EQ(platform::ShortTimeText({2006, 12, 31, 23, 59, 59}), "2359");
    EXPECT_EQ(platform::TimeText({2006, 12, 31, 0, 0, 0}), "00:00:00");
}

TEST(Clock, AnotherClock_IsAskedUntilItIsTakenAway)
{
    platform::SetClock([] { return kEarly; });
    EXPECT_EQ(platform::Now().year, 2006);
    platform::SetClock({});
    EXPECT_GE(platform::Now().year, 2024);
}

TEST(Clock, TheMachinesTime_IsLocal)
{
    ::setenv("TZ", "XYZ-5", 1);
    ::tzset();
    const std::time_t before = std::time(nullptr);
    const platform::LocalTime now = platform::Now();
    const std::time_t after = std::time(nullptr);
    ::unsetenv("TZ");
    ::tzset();
    constexpr int kAhead = 5 * 3600;
    constexpr int kDay = 86400;
    const auto ofDay = [](std::time_t time) { return (time + kAhead) % kDay; };
    const long seconds = now.hour * 3600L + now.minute * 60L + now.second;
    EXPECT_TRUE(seconds == ofDay(before) || seconds == ofDay(after)) << platform::TimeText(now);
}
