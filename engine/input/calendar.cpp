#include "engine/input/calendar.h"

#include <algorithm>
#include <array>

namespace orvel::engine {

namespace {

constexpr std::array<int, 13> Before_Month = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};

} // namespace

int Days_Of_Month(int month)
{
    const auto m = static_cast<std::size_t>(month);
    return Before_Month[m] - Before_Month[m - 1];
}

Calendar::Calendar(std::vector<bool> leap_years) : Leap(std::move(leap_years))
{
    int start = 0;
    for (int y = 1; y <= Years(); ++y) {
        Start.push_back(start);
        start += Days_In(y);
    }
    Start.push_back(start);
}

bool Calendar::Is_Leap(int year) const
{
    return year >= 1 && year <= Years() && Leap[static_cast<std::size_t>(year - 1)];
}

int Calendar::Days_In(int year, int month) const
{
    return Days_Of_Month(month) + (month == 2 && Is_Leap(year) ? 1 : 0);
}

int Calendar::Start_Of(int year) const
{
    if (year < 1)
        return 365 * (year - 1);
    if (year > Years())
        return (Start.empty() ? 0 : Start.back()) + 365 * (year - Years() - 1);
    return Start[static_cast<std::size_t>(year - 1)];
}

int Calendar::Number(const Date& date) const
{
    const int day = std::min(date.Day, Days_In(date.Year, date.Month));
    return Start_Of(date.Year) + Before_Month[static_cast<std::size_t>(date.Month - 1)] + day +
           (date.Month > 2 && Is_Leap(date.Year) ? 1 : 0);
}

Date Calendar::Date_Of(int number) const
{
    int year = std::clamp(1 + (number - 1) / 366, 1, std::max(1, Years()));
    if (number < 1)
        year = (number - 365) / 365 + 1;
    while (Start_Of(year + 1) < number)
        ++year;
    while (Start_Of(year) >= number)
        --year;
    int day = number - Start_Of(year), month = 1;
    while (day > Days_In(year, month))
        day -= Days_In(year, month++);
    return {year, month, day};
}

int Calendar::Day_Of_Year(int number) const
{
    return number - Start_Of(Date_Of(number).Year);
}

} // namespace orvel::engine
