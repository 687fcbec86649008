#pragma once

#include <vector>

namespace orvel::engine {

// A date of the simulation. Year 1 is the first simulated year, year 0 the one before.
struct Date {
    int Year = 0, Month = 0, Day = 0;
    bool operator==(const Date&) const = default;
};

// Numbers the days of the simulation from 1 January of year 1 (day 1). A year has a 29 February if its climate file has
// one.
class Calendar {
public:
    Calendar() = default;
    explicit Calendar(std::vector<bool> leap_years); // of year 1, 2 ...

    int Years() const { return static_cast<int>(Leap.size()); }
    bool Is_Leap(int year) const; // years outside the simulation have 365 days
    int Days_In(int year) const { return Is_Leap(year) ? 366 : 365; }
    int Days_In(int year, int month) const;
    int Number(const Date& date) const; // 29 February is the 28th in a year without one; month and day must be valid
    Date Date_Of(int number) const;
    int Day_Of_Year(int number) const; // 1 to 366

private:
    int Start_Of(int year) const; // day number of 31 December of the year before
    std::vector<bool> Leap;
    std::vector<int> Start;
};

// Days of a month (1 to 12) in a year without 29 February.
int Days_Of_Month(int month);

} // namespace orvel::engine
