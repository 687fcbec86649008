#pragma once

namespace orvel {

// Days of a year without leap days.

// The day of year of a date; for a month that is none, the day itself.
int Day_Of_Year(int day, int month);

struct Calendar_Day {
    int Day = 1, Month = 1;
    bool operator==(const Calendar_Day&) const = default;
};

// The date of a day of year; a day beyond the 365th counts on from January.
Calendar_Day Datum_Im_Jahr(int day_of_year);

} // namespace orvel
