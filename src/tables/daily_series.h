#pragma once

#include "charts/chart.h"

#include <span>
#include <vector>

namespace orvel {

// The daily diagram's series: one column of the engine's time series over a span of months.

// A line of the column: the running number of the day, the hour (24 closes a day), the value as the engine scaled it.
struct Plot_Value {
    int Day = 0, Hour = 0;
    double Value = 0;
};

// A day of the simulation's calendar: running number, day of the month, month, year from 1. In order of the numbers.
struct Run_Day {
    int Number = 0, Day = 0, Month = 0, Year = 0;
};

struct Run_Month {
    int Month = 1, Year = 1;
    bool operator==(const Run_Month&) const = default;
};

struct Daily_Request {
    int Variable = 1;        // 1 to 28 of the output variables
    bool Cumulative = false; // matters to flows only
    Run_Month From, To;
};

struct Daily_Series {
    std::vector<Chart_Point> Points; // X in days since the span's begin
    double Days = 0;                 // length of the span: its months of 30.4375 days
};

// A flow is a rate per day, which can be cumulated; a state is an average over the lines of a day.
bool Is_Flow(int variable);

// A day's lines are equal intervals of it. A rate gives one point a line; cumulated, a line adds its rate times its
// part of the day, so that the sum over a year is the year's amount, in kg/ha for the flows of a substance. A state
// gives one point a day. Lines of days that the calendar does not have in the span are left out, so that an empty
// calendar gives no points.
Daily_Series Make_Daily_Series(std::span<const Plot_Value> values, std::span<const Run_Day> calendar,
                               const Daily_Request& request);

} // namespace orvel
