#pragma once

#include <functional>
#include <string>

namespace platform {

/// A moment of local time.
struct LocalTime
{
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

LocalTime Now();
/// Puts another clock in place of the machine's; an empty function puts the machine's back.
void SetClock(std::function<LocalTime()> clock);

/// "mm/dd/yyyy".
std::string DateText(const LocalTime& time);
/// "hh:mm:ss".
std::string TimeText(const LocalTime& time);
/// "hhnn": hours and minutes, four digits.
std::string ShortTimeText(const LocalTime& time);

} // namespace platform
