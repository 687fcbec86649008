#include "report/overview_chart.h"

#include "charts/scale.h"
#include "core/locations.h"
#include "tables/leachate_percentile.h"

#include <algorithm>
#include <numeric>

namespace orvel {

namespace {

constexpr double Half_Width = 0.28, Dots_Half_Width = 0.22;
constexpr std::size_t Least_Places = 4; // so that few bars are not too wide

std::vector<double> Concs_Of(const std::vector<Leachate_Row>& rows, std::size_t first)
{
    std::vector<double> concs;
    for (std::size_t i = first; i < rows.size(); ++i)
        concs.push_back(rows[i].Conc);
    return concs;
}

std::string Short_Of(const std::string& location)
{
    const std::string code = Bracket_Text(location);
    return code.empty() ? location : code;
}

void Add_Dots(Chart& chart, const Location_Values& location, Conc_Values shown, double at)
{
    const bool periods = shown == Conc_Values::Periods;
    const auto& values = periods ? location.Periods : location.Years;
    const int a = periods ? location.Period_A : location.Year_A - Warm_Up_Years;
    const int b = periods ? location.Period_B : location.Year_B - Warm_Up_Years;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const int number = static_cast<int>(i) + 1;
        const double share = values.size() > 1 ? static_cast<double>(i) / static_cast<double>(values.size() - 1) : 0.5;
        const std::string years =
            periods ? Years_Of_Period(number, location.Period_Index) : std::to_string(number + Warm_Up_Years);
        const bool selected = number == a || number == b;
        chart.Dots.push_back({Colour::Term_3, at + Dots_Half_Width * (2 * share - 1), values[i],
                              location.Location + ", year " + years + (selected ? ", makes the percentile" : ""),
                              selected});
    }
    // Those that stand out are drawn last.
    std::ranges::stable_partition(chart.Dots, [](const Chart_Dot& dot) { return !dot.Marked; });
}

} // namespace

Location_Values Values_Of(const std::string& location, const Leachate_Tables& tables, std::size_t substance)
{
    const auto& periods = tables.Period[static_cast<std::size_t>(Depth::One_Metre)];
    const auto& years = tables.Year[static_cast<std::size_t>(Depth::One_Metre)];
    Location_Values values{.Location = location};
    if (substance >= periods.size() || substance >= years.size())
        return values;
    const auto& period = periods[substance];
    const auto& year = years[substance];
    values.Figure = period.Result.P80.Conc;
    values.Figure_Text = Conc_Text(values.Figure);
    values.Periods = Concs_Of(period.Rows, 0);
    values.Years = Concs_Of(year.Rows, Warm_Up_Years);
    values.Period_A = period.Result.A;
    values.Period_B = period.Result.B;
    values.Year_A = year.Result.A;
    values.Year_B = year.Result.B;
    values.Period_Index = tables.Period_Index;
    return values;
}

Chart Location_Chart(const std::string& substance, const std::vector<Location_Values>& locations, Conc_Values shown,
                     const std::string& unit, bool has_limit)
{
    Chart chart;
    const std::string quantity = has_limit ? "80th percentile at 1 m" : "concentration in soil";
    chart.Title = (substance.empty() ? "" : substance + ": ") + quantity + " [" + unit + "]"; // none before a result
    chart.Unit = unit;
    chart.X.Title = "Location";
    chart.X.High = static_cast<double>(std::max(locations.size(), Least_Places)) + 0.5;
    double highest = 0;
    bool below = false, above = false, dots = false;
    for (std::size_t i = 0; i < locations.size(); ++i) {
        const auto& location = locations[i];
        const auto at = static_cast<double>(i + 1);
        const bool exceeds = has_limit && location.Figure > Drinking_Water_Limit;
        chart.X.Ticks.push_back({at, Tick_Rank::Big, Short_Of(location.Location)});
        if (location.Figure_Text.empty())
            continue;
        (exceeds ? above : below) = true;
        chart.Boxes.push_back({exceeds ? Colour::Marked : Colour::Series, at - Half_Width, at + Half_Width,
                               location.Figure, location.Location, location.Figure_Text});
        Add_Dots(chart, location, shown, at);
        highest = std::max(highest, location.Figure);
    }
    for (const auto& dot : chart.Dots) {
        highest = std::max(highest, dot.Y);
        dots = true;
    }
    if (below)
        chart.Key.push_back({Colour::Series, has_limit ? "up to the limit" : "maximum"});
    if (above)
        chart.Key.push_back({Colour::Marked, "above the limit of " + Limit_Text() + " (line)"});
    if (dots)
        chart.Key.push_back({Colour::Term_3, "the two values that make the percentile"});
    constexpr double Room_For_Figure = 1.15; // over the highest bar
    chart.Y = Value_Axis(0, Room_For_Figure * highest);
    if (chart.Boxes.empty())
        chart.Nothing = "No location has a result.";
    if (has_limit && Drinking_Water_Limit <= chart.Y.High)
        chart.Lines.push_back({Colour::Marked,
                               {{0, Drinking_Water_Limit}, {chart.X.High, Drinking_Water_Limit}},
                               {},
                               chart.Boxes.empty() ? "limit: " + Limit_Text() : std::string()});
    chart.Frame = Frame_Around(chart.X, chart.Y);
    return chart;
}

namespace {

// Years whose figures are printed alike may differ: one that makes the percentile has its rank.
void Move_To_Rank(std::vector<std::size_t>& order, const std::vector<double>& years, int year, std::size_t rank)
{
    const auto place = std::ranges::find(order, static_cast<std::size_t>(year - 1 - Warm_Up_Years));
    if (place == order.end() || rank < 1 || rank > order.size())
        return;
    auto& wanted = order[rank - 1];
    if (years[*place] == years[wanted])
        std::swap(*place, wanted);
}

} // namespace

Chart Rank_Chart(const std::string& substance, const Location_Values& values)
{
    Chart chart;
    chart.Unit = Leachate_Unit;
    chart.Title = values.Location + ": yearly values by rank [" + chart.Unit + "]";
    chart.Legend = {substance};
    chart.X = Whole_Axis(static_cast<double>(std::max<std::size_t>(values.Years.size(), 1)));
    chart.X.Title = "Rank, the lowest first";
    if (values.Years.empty()) {
        chart.Y = Value_Axis(0, 1);
        chart.Nothing = "There are no yearly values.";
        chart.Frame = Frame_Around(chart.X, chart.Y);
        return chart;
    }
    std::vector<std::size_t> order(values.Years.size());
    std::iota(order.begin(), order.end(), 0U);
    // Of equal values the later one ranks lower, as the percentile takes the earliest first.
    std::ranges::stable_sort(order, [&](std::size_t a, std::size_t b) {
        return values.Years[a] != values.Years[b] ? values.Years[a] < values.Years[b] : a > b;
    });
    const auto upper = static_cast<std::size_t>(Upper_Rank(order.size()));
    Move_To_Rank(order, values.Years, values.Year_A, upper);
    Move_To_Rank(order, values.Years, values.Year_B, upper - 1);
    Chart_Line line{.Drawn_In = Colour::Series};
    std::vector<Chart_Dot> selected;
    for (std::size_t rank = 0; rank < order.size(); ++rank) {
        const int year = static_cast<int>(order[rank]) + 1 + Warm_Up_Years;
        const double x = static_cast<double>(rank) + 1, y = values.Years[order[rank]];
        const bool makes = year == values.Year_A || year == values.Year_B;
        const std::string name = "Rank " + std::to_string(rank + 1) + ", year " + std::to_string(year);
        line.Points.push_back({x, y});
        line.Names.push_back(name);
        (makes ? selected : chart.Dots)
            .push_back({Colour::Term_3, x, y, name + (makes ? ", makes the percentile" : ""), makes});
    }
    chart.Dots.insert(chart.Dots.end(), selected.begin(), selected.end());
    const double highest = line.Points.back().Y;
    chart.Lines.push_back(std::move(line));
    chart.Y = Value_Axis(0, highest);
    if (Drinking_Water_Limit <= chart.Y.High)
        chart.Lines.push_back({Colour::Marked,
                               {{0, Drinking_Water_Limit}, {chart.X.High, Drinking_Water_Limit}},
                               {},
                               "limit: " + Limit_Text()});
    chart.Key.push_back({Colour::Term_3, "the two that make the percentile"});
    chart.Frame = Frame_Around(chart.X, chart.Y);
    return chart;
}

Chart Soil_Chart(const std::string& substance, std::vector<Location_Values> locations, const std::string& unit,
                 const std::string& quantity)
{
    std::erase_if(locations, [](const Location_Values& location) { return location.Location.empty(); });
    Chart chart = Location_Chart(substance, locations, Conc_Values::Years, unit, false);
    chart.Legend = {quantity};
    chart.Key.clear(); // all bars are the same
    return chart;
}

Chart Averaging_Chart(const std::string& substance, const std::string& location, const std::string& unit,
                      const Soil_Maxima& maxima, std::size_t chosen)
{
    Chart chart;
    chart.Unit = unit;
    chart.Title = location + ": highest averages [" + unit + "]";
    chart.Legend = {substance};
    chart.X = Whole_Axis(TWA_Window.back());
    chart.X.Title = "Days of the average, 0: the maximum";
    Chart_Line line{.Drawn_In = Colour::Series};
    double highest = 0;
    for (std::size_t i = 0; i < maxima.size(); ++i) {
        const double x = TWA_Window[i], y = maxima[i].Value;
        const std::string name = TWA_Window[i] == 0 ? "maximum" : std::to_string(TWA_Window[i]) + " d";
        line.Points.push_back({x, y});
        line.Names.push_back(name);
        chart.Dots.push_back({Colour::Term_3, x, y, name, i == chosen});
        highest = std::max(highest, y);
    }
    chart.Lines.push_back(std::move(line));
    chart.Key.push_back({Colour::Term_3, "the one in the table"});
    chart.Y = Value_Axis(0, highest);
    chart.Frame = Frame_Around(chart.X, chart.Y);
    return chart;
}

} // namespace orvel
