#include "scenario/climate_chart.h"

#include "charts/scale.h"
#include "core/numbers.h"
#include "files/climate_file.h"

#include <algorithm>
#include <chrono>
#include <string>

namespace orvel {

namespace {

// Years of two digits are those of one century, or run over its end.
int Days_Between(std::string_view before, std::string_view date)
{
    using namespace std::chrono;
    const auto day_of = [](std::string_view text, int century) {
        const auto part = [&](std::size_t at) { return static_cast<unsigned>(Whole_Part(text.substr(at, 2), 0, 99)); };
        return sys_days(year(century + static_cast<int>(part(6))) / month(part(3)) / day(part(0)));
    };
    if (before.size() < 8 || date.size() < 8)
        return 1;
    const bool next_century = date.substr(6) < before.substr(6);
    return static_cast<int>((day_of(date, next_century ? 2000 : 1900) - day_of(before, 1900)).count());
}

} // namespace

Chart Climate_Chart(std::size_t series, std::span<const double> values, int first_day)
{
    const auto days = static_cast<int>(values.size());
    Chart chart;
    chart.Title = Climate_Columns[series].Chart_Title;
    Chart_Line line;
    double low = 0, high = 0;
    for (int day = 1; day <= days; ++day) {
        const double value = values[static_cast<std::size_t>(day) - 1];
        line.Points.push_back({static_cast<double>(day), value});
        low = std::min(low, value);
        high = std::max(high, value);
    }
    chart.X = Whole_Axis(std::max(days, 1), first_day - 1);
    chart.X.Title = "Day " + std::to_string(first_day) + " to " + std::to_string(first_day + std::max(days, 1) - 1);
    chart.Y = Value_Axis(low, high);
    chart.Frame = Frame_Around(chart.X, chart.Y);
    chart.Lines.push_back(std::move(line));
    const auto unit = chart.Title.find('[');
    if (unit != std::string::npos)
        chart.Unit = chart.Title.substr(unit + 1, chart.Title.find(']') - unit - 1);
    if (values.empty())
        chart.Nothing = "The file has no days.";
    return chart;
}

Chart Climate_Chart(std::size_t series, std::span<const double> values, std::vector<std::string> dates)
{
    Chart chart = Climate_Chart(series, values);
    if (const auto gap = Gap_Text(dates); !gap.empty())
        chart.Legend.push_back(gap);
    chart.Lines.front().Names = std::move(dates);
    return chart;
}

std::string Gap_Text(std::span<const std::string> dates)
{
    int missing = 0;
    std::string first;
    for (std::size_t i = 1; i < dates.size(); ++i) {
        const int days = Days_Between(dates[i - 1], dates[i]) - 1;
        if (days <= 0)
            continue;
        missing += days;
        if (first.empty())
            first = dates[i - 1];
    }
    if (missing == 0)
        return {};
    return std::to_string(missing) + (missing == 1 ? " day is" : " days are") + " missing, the first behind " + first;
}

} // namespace orvel
