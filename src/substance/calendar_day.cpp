#include "substance/calendar_day.h"

#include <array>
#include <numeric>

namespace orvel {

namespace {

constexpr int Months = 12;
constexpr std::array<int, Months + 1> Month_Length = {0, 31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

} // namespace

int Day_Of_Year(int day, int month)
{
    if (month < 1 || month > Months)
        return day;
    return std::accumulate(Month_Length.begin(), Month_Length.begin() + month, day);
}

Calendar_Day Datum_Im_Jahr(int day_of_year)
{
    int day = day_of_year > Days_A_Year ? (day_of_year - 1) % Days_A_Year + 1 : day_of_year;
    int month = 1;
    while (day > Month_Length[month])
        day -= Month_Length[month++];
    return {day, month};
}

} // namespace orvel
