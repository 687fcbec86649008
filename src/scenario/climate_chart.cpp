#include "scenario/climate_chart.h"

#include "charts/scale.h"
#include "files/climate_file.h"

#include <algorithm>
#include <string>

namespace orvel {

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
    chart.X = Position_Axis(std::max(days, 1), first_day - 1);
    chart.X.Title = "Day " + std::to_string(first_day) + " to " + std::to_string(first_day + std::max(days, 1) - 1);
    chart.Y = Value_Axis(low, high);
    chart.Frame = Frame_Around(chart.X, chart.Y);
    chart.Lines.push_back(std::move(line));
    return chart;
}

} // namespace orvel
