#include "output/series_days.h"

#include "core/files.h"
#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace orvel {

namespace {

constexpr int Months_Of_Year = 12;

std::string Date_Text(const Run_Day& day)
{
    return std::to_string(day.Day) + "." + std::to_string(day.Month) + "." + std::to_string(day.Year);
}

// The number of a column that holds nothing else but blanks.
std::optional<double> Number_In(std::string_view column)
{
    const auto text = Trim(column);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

} // namespace

Series_Days::Series_Days(const std::filesystem::path& file, std::span<const Run_Day> calendar)
    : Name(file.filename().string()),
      Calendar(calendar),
      Plot(file),
      Titles(Scan_Plot_Head(Plot)),
      Line_Number(Plot_Head_Lines)
{
    if (!Titles.Whole)
        Refuse("is empty or ends within its head");
    if (Titles.N_Profile > Titles.N_Columns)
        Refuse("has a damaged head: more columns of the soil profile than columns");
    Means.resize(static_cast<std::size_t>(Titles.N_Columns));
}

void Series_Days::Refuse(const std::string& what) const
{
    throw File_Error("The file " + Name + " " + what + ".");
}

void Series_Days::Find_Date(int number)
{
    if (At && number != At->Number + 1)
        Refuse("jumps from day " + std::to_string(At->Number) + " to day " + std::to_string(number) + " in line " +
               std::to_string(Line_Number));
    const auto found = std::ranges::lower_bound(Calendar, number, {}, &Run_Day::Number);
    if (found == Calendar.end() || found->Number != number)
        Refuse("has day " + std::to_string(number) + " in line " + std::to_string(Line_Number) +
               ", which the calendar datum.dat does not have");
    At = &*found;
}

// Adds the values of the line at hand.
void Series_Days::Take_Line()
{
    const auto line = Plot.Line();
    const std::size_t width = Plot_Series_First - 1 + Plot_Value_Width * Means.size();
    if (line.size() < width || !Trim(line.substr(width)).empty())
        Refuse("is damaged in line " + std::to_string(Line_Number) + ": it has not the " +
               std::to_string(Means.size()) + " values of the head");
    for (std::size_t i = 0; i < Means.size(); ++i) {
        const auto value = Number_In(Columns(line, Plot_Series_First + Plot_Value_Width * i, Plot_Value_Width));
        if (!value)
            Refuse("is damaged in line " + std::to_string(Line_Number) + ": value " + std::to_string(i + 1) +
                   " is no number");
        Means[i] += *value;
    }
}

bool Series_Days::Next()
{
    std::ranges::fill(Means, 0);
    int lines = 0;
    do {
        if (!Plot.Next()) {
            if (lines == 0 && At)
                return false;
            Refuse(At ? "ends within day " + std::to_string(Moment.Day) : "has no day behind its head");
        }
        ++Line_Number;
        const Plot_Moment before = lines == 0 ? Plot_Moment{} : Moment;
        Moment = Moment_Of(Plot.Line());
        if (lines == 0)
            Find_Date(Moment.Day);
        else if (Moment.Day != before.Day)
            Refuse("leaves day " + std::to_string(before.Day) + " before its hour 24 in line " +
                   std::to_string(Line_Number));
        if (Moment.Hour <= before.Hour || Moment.Hour > Closing_Hour)
            Refuse("is damaged in line " + std::to_string(Line_Number) + ": its hours do not follow each other");
        Take_Line();
        ++lines;
    } while (Moment.Hour != Closing_Hour);
    for (double& value : Means)
        value /= lines;
    return true;
}

void Series_Days::Expect_Last_Day(const std::optional<Run_Day>& end) const
{
    const int years = (Titles.Months + Months_Of_Year - 1) / Months_Of_Year;
    const bool last_of_month = At + 1 == Calendar.data() + Calendar.size() || (At + 1)->Month != At->Month;
    const bool on_end =
        !end || (At->Month == end->Month && (At->Day == end->Day || (last_of_month && At->Day < end->Day)));
    if (At->Year != years || !on_end)
        Refuse("ends on " + Date_Text(*At) + ", which is not the end of its run of " + std::to_string(years) +
               " years");
}

} // namespace orvel
