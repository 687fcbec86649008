#include "tables/daily_diagram.h"

#include "charts/scale.h"
#include "core/numbers.h"
#include "core/output_variables.h"
#include "core/text.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orvel {

namespace {

struct Unit {
    double Days;
    std::string_view Title;
};
constexpr std::array<Unit, 3> Units = {{{365.25, "Year "}, {30.44, "Month "}, {1, "Day "}}};

// Without the brackets of the title.
std::string Unit_Of(const Daily_Request& request)
{
    const auto& variable = Output_Variable_Of(request.Variable);
    const auto unit = variable.Out_Unit[request.Cumulative && variable.Is_Flow() ? 1 : 0];
    return unit.size() < 2 ? std::string() : std::string(unit.substr(1, unit.size() - 2));
}

} // namespace

std::string Daily_Title(const Daily_Request& request, std::string_view item)
{
    const auto& variable = Output_Variable_Of(request.Variable);
    const bool sum = request.Cumulative && variable.Is_Flow();
    return (sum ? "Cumulative " : "") + std::string(item) + (item.ends_with(' ') ? "" : " ") +
           std::string(variable.Out_Unit[sum ? 1 : 0]);
}

std::vector<std::string> Series_Words(const std::filesystem::path& run_directory, int column,
                                      const Daily_Request& request)
{
    const auto month = [](const Run_Month& at) { return std::to_string(at.Year) + "-" + std::to_string(at.Month); };
    std::vector<std::string> words = {"series", run_directory.string(), "--column", std::to_string(column),
                                      "--from", month(request.From),    "--to",     month(request.To)};
    if (request.Cumulative)
        words.emplace_back("--cumulative");
    return words;
}

double Days_Of(X_Unit unit)
{
    return Units[static_cast<std::size_t>(unit)].Days;
}

Chart Daily_Diagram(const Daily_Series& series, const Daily_Request& request, std::string_view item, X_Unit unit)
{
    const auto& x_unit = Units[static_cast<std::size_t>(unit)];
    Chart chart;
    chart.Title = Daily_Title(request, item);
    chart.Unit = Unit_Of(request);
    chart.Nothing = series.Nothing;
    Chart_Line line{Colour::Series, series.Points, series.Dates};
    double low = 0, high = 0;
    for (auto& point : line.Points) {
        point.X /= x_unit.Days;
        low = std::min(low, point.Y);
        high = std::max(high, point.Y);
    }
    chart.X = (unit == X_Unit::Days ? Whole_Axis : Position_Axis)(series.Days / x_unit.Days, 0);
    chart.X.Title = x_unit.Title;
    chart.Y = Value_Axis(low, high);
    chart.Frame = Frame_Around(chart.X, chart.Y);
    chart.Lines.push_back(std::move(line));
    return chart;
}

std::string Data_Text(const Chart& chart)
{
    std::string text = chart.X.Title + std::string(Tab_Char) + chart.Title + std::string(CrLf);
    for (const auto& line : chart.Lines) {
        for (const auto& point : line.Points)
            text += General_Text(std::trunc(1000 * (chart.X.First + point.X) + 0.5) / 1000) + std::string(Tab_Char) +
                    General_Text(point.Y) + std::string(CrLf);
    }
    return text;
}

} // namespace orvel
