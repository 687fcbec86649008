#pragma once

#include "charts/chart.h"
#include "output/run_records.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The series of the daily diagram: one column of plot.orv over a span of months.

// A month of the simulation, whose years count from 1.
struct Run_Month {
    int Month = 1, Year = 1;
    bool operator==(const Run_Month&) const = default;
};

// "YYYY-MM", also with fewer digits, as a month; nothing for any other text, month or year.
std::optional<Run_Month> Parse_Month(std::string_view text);

struct Daily_Request {
    int Variable = 1;        // 1 to 28 of the output variables
    bool Cumulative = false; // ignored for states
    Run_Month From, To;
};

struct Daily_Series {
    std::vector<Chart_Point> Points; // X in days since the start of the span
    double Days = 0;                 // length of the span, a month counting 30.4375 days
    std::vector<std::string> Dates;  // of the points: "12 March, year 3"
    std::string Nothing;             // why there are no points, a sentence
};

// A day's lines are equal intervals of it. A rate gives one point per line; cumulated, a line adds its rate times its
// part of the day, so that the sum over a year is the year's amount, in kg/ha for the flows of a substance. A state
// gives one point per day. Lines of days that the calendar does not have in the span are left out, so that an empty
// calendar gives no points.
Daily_Series Make_Daily_Series(std::span<const Plot_Value> values, std::span<const Run_Day> calendar,
                               const Daily_Request& request);

} // namespace orvel
