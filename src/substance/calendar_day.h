#pragma once

namespace orvel {

// The calendar of a year without leap days.

constexpr int Days_A_Year = 365;

// The day of the year, 1 to 365, of a date; for an invalid month the day itself.
int Day_Of_Year(int day, int month);

struct Calendar_Day {
    int Day = 1, Month = 1;
    bool operator==(const Calendar_Day&) const = default;
};

// The date of a day of the year; days after the 365th continue in January.
Calendar_Day Datum_Im_Jahr(int day_of_year);

} // namespace orvel
