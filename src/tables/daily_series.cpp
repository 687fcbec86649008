#include "tables/daily_series.h"

#include "core/numbers.h"
#include "core/output_variables.h"
#include "core/session.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr double Days_Of_Month = 30.4375;
constexpr int Hours = 24;
constexpr int Months_Of_Year = 12;
constexpr int Last_Year = 9999; // the last of four digits

int Month_Number(int month, int year)
{
    return 100 * year + month;
}

int Months_Between(const Run_Month& from, const Run_Month& to)
{
    return Months_Of_Year * (to.Year - from.Year) + to.Month - from.Month + 1;
}

// The span's first day number and the first one after it; equal if it has no day.
struct Day_Span {
    int First = 0, End = 0;
};

Day_Span Span_Of(std::span<const Run_Day> calendar, const Daily_Request& request)
{
    const auto number = [](const Run_Day& day) { return Month_Number(day.Month, day.Year); };
    const auto first = std::ranges::find_if(
        calendar, [&](const auto& day) { return number(day) >= Month_Number(request.From.Month, request.From.Year); });
    const auto end = std::find_if(first, calendar.end(), [&](const auto& day) {
        return number(day) > Month_Number(request.To.Month, request.To.Year);
    });
    if (first == end)
        return {};
    return {first->Number, std::prev(end)->Number + 1};
}

// Days of the calendar are in order.
std::string Date_Text(std::span<const Run_Day> calendar, int number)
{
    const auto day = std::ranges::lower_bound(calendar, number, {}, &Run_Day::Number);
    if (day == calendar.end() || day->Number != number || day->Month < 1 || day->Month > Months_Of_Year)
        return "day " + std::to_string(number);
    return std::to_string(day->Day) + " " + std::string(Month_Name[static_cast<std::size_t>(day->Month)]) + ", year " +
           std::to_string(day->Year);
}

} // namespace

std::optional<Run_Month> Parse_Month(std::string_view text)
{
    const auto dash = text.find('-');
    if (dash == std::string_view::npos)
        return std::nullopt;
    const double year = Val(text), month = Val(text.substr(dash + 1));
    if (year < 1 || year > Last_Year || month < 1 || month > Months_Of_Year)
        return std::nullopt;
    return Run_Month{static_cast<int>(month), static_cast<int>(year)};
}

Daily_Series Make_Daily_Series(std::span<const Plot_Value> values, std::span<const Run_Day> calendar,
                               const Daily_Request& request)
{
    Daily_Series series;
    series.Days = std::max(1, Months_Between(request.From, request.To)) * Days_Of_Month;
    const auto span = Span_Of(calendar, request);
    const bool flow = Output_Variable_Of(request.Variable).Is_Flow();
    double sum = 0;
    if (flow)
        series.Points.reserve(values.size());
    const auto keep = [&](int day, const Chart_Point& point) {
        series.Points.push_back(point);
        series.Dates.push_back(Date_Text(calendar, day));
    };
    auto line = std::ranges::find_if(values, [&](const Plot_Value& v) { return v.Day >= span.First; });
    while (line != values.end() && line->Day < span.End) {
        const auto day_end = std::find_if(line, values.end(), [&](const Plot_Value& v) { return v.Day != line->Day; });
        const double part = 1.0 / static_cast<double>(day_end - line); // of the day
        const double before = line->Day - span.First;                  // whole days
        double average = 0;
        for (; line != day_end; ++line) {
            average += part * line->Value;
            sum += part * line->Value;
            if (flow)
                keep(line->Day,
                     {before + static_cast<double>(line->Hour) / Hours, request.Cumulative ? sum : line->Value});
        }
        if (!flow)
            keep(std::prev(line)->Day, {before + 1, average});
    }
    if (series.Points.empty())
        series.Nothing = "The run has no values in this span.";
    return series;
}

} // namespace orvel
