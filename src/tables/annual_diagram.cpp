#include "tables/annual_diagram.h"

#include "charts/scale.h"
#include "core/code_page.h"
#include "core/numbers.h"
#include "core/text.h"

#include <algorithm>

namespace orvel {

namespace {

constexpr double Half_Width = 0.2;

std::string Name_Of(const Leachate_Table& table)
{
    return table.Result_Name.empty() ? std::string(Trim(table.Label)) : Substance_Of(table.Result_Name);
}

} // namespace

std::vector<std::string> Annual_Substances(const Leachate_Tables& tables)
{
    std::vector<std::string> names;
    for (const auto& table : tables.Period[static_cast<std::size_t>(Depth::One_Metre)])
        names.push_back(Name_Of(table));
    return names;
}

std::optional<Chart> Annual_Diagram(const Leachate_Tables& tables, std::size_t depth, std::size_t substance)
{
    if (depth >= tables.Period.size() || substance >= tables.Period[depth].size())
        return std::nullopt;
    const auto& table = tables.Period[depth][substance];
    Chart chart;
    chart.Title = "Average " + Name_Of(table) + " concentration in leachate " +
                  (depth == 0 ? "(1m depth)" : "(soil bottom)") + " [\xB5g/L]";
    for (const auto& title : tables.Titles)
        chart.Legend.push_back(Dos_To_Ansi(title));
    double high = 0;
    for (int p = 1; p <= Leachate_Periods; ++p) {
        const auto row = static_cast<std::size_t>(p) - 1;
        const double concentration = row < table.Rows.size() ? table.Rows[row].Conc : 0;
        const bool marked = p == table.Result.A || p == table.Result.B;
        chart.Boxes.push_back({marked ? Colour::Marked : Colour::Series, p - Half_Width, p + Half_Width, concentration,
                               "Period " + std::to_string(p)});
        chart.X.Ticks.push_back({static_cast<double>(p), Tick_Rank::Big, std::to_string(p)});
        high = std::max(high, concentration);
    }
    const double percentile = table.Result.P80.Conc;
    chart.Unit = "\xB5g/L";
    chart.Lines.push_back({Colour::Marked,
                           {{0, percentile}, {Leachate_Periods, percentile}},
                           {},
                           "80th percentile: " + General_Text(percentile) + " " + chart.Unit});
    if (high == 0)
        chart.Nothing = "All concentrations are 0.";
    chart.X.Title = "Period";
    chart.X.High = Leachate_Periods;
    chart.Y = Value_Axis(0, high);
    chart.Frame = Frame_Around(chart.X, chart.Y);
    return chart;
}

} // namespace orvel
