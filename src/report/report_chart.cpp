#include "report/report_chart.h"

#include "charts/scale.h"
#include "core/numbers.h"
#include "report/run_results.h"

namespace orvel {

namespace {

constexpr double Bar_Half_Width = 0.2;

} // namespace

Chart Report_Chart(const Summary& report, std::size_t substance)
{
    Chart chart;
    chart.X.Title = "Location";
    if (substance >= report.Substances.size())
        return chart;
    const Summary_Substance& drawn = report.Substances[substance];
    chart.Title = "80th Percentile Conc. of " + Substance_Of(drawn.Result_Name) + " in leachate [\xB5g/L]";
    for (std::size_t i = 0; i < report.Location_Short.size(); ++i)
        chart.X.Ticks.push_back({static_cast<double>(i + 1), Tick_Rank::Big, report.Location_Short[i]});
    bool below = false, above = false;
    for (const Summary_Row& row : drawn.Rows) {
        const auto at = static_cast<double>(row.Location + 1);
        const bool exceeds = row.P80.Conc > Drinking_Water_Limit;
        (exceeds ? above : below) = true;
        chart.Boxes.push_back({exceeds ? Colour::Marked : Colour::Series, at - Bar_Half_Width, at + Bar_Half_Width,
                               row.P80.Conc, row.Name, General_Text(row.P80.Conc)});
    }
    if (below)
        chart.Key.push_back({Colour::Series, "up to " + Limit_Text()});
    if (above)
        chart.Key.push_back({Colour::Marked, "above " + Limit_Text()});
    chart.Unit = Leachate_Unit;
    chart.X.High = static_cast<double>(report.Location_Short.size());
    chart.Y = Value_Axis(0, drawn.Location_Max);
    if (drawn.Rows.empty())
        chart.Nothing = "No location has a result.";
    if (Drinking_Water_Limit <= chart.Y.High)
        chart.Lines.push_back({Colour::Marked,
                               {{0, Drinking_Water_Limit}, {chart.X.High + Bar_Half_Width, Drinking_Water_Limit}},
                               {},
                               "limit: " + Limit_Text()});
    chart.Frame = Frame_Around(chart.X, chart.Y);
    return chart;
}

} // namespace orvel
