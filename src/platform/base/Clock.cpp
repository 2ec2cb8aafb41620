#include "platform/base/Clock.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <utility>

namespace platform {

namespace {

std::function<LocalTime()>& TheClock()
{
    static std::function<LocalTime()> clock;
    return clock;
}

LocalTime MachineTime()
{
    const std::time_t seconds = std::time(nullptr);
    std::tm local{};
    localtime_r(&seconds, &local);
    constexpr int kFirstYear = 1900;
    return {local.tm_year + kFirstYear,
            local.tm_mon + 1,
            local.tm_mday,
            local.tm_hour,
            local.tm_min,
            local.tm_sec};
}

template <class... Numbers> std::string Print(const char* format, Numbers... numbers)
{
    std::array<char, 64> buffer{};
    std::snprintf(buffer.data(), buffer.size(), format, numbers...);
    return buffer.data();
}

} // namespace

LocalTime Now() { return TheClock() ? TheClock()() : MachineTime(); }

void SetClock(std::function<LocalTime()> clock) { TheClock() = std::move(clock); }

std::string DateText(const LocalTime& time)
{
    return Print("%02d/%02d/%04d", time.month, time.day, time.year);
}

std::string TimeText(const LocalTime& time)
{
    return Print("%02d:%02d:%02d", time.hour, time.minute, time.second);
}

std::string ShortTimeText(const LocalTime& time) { return Print("%02d%02d", time.hour, time.minute); }

} // namespace platform
