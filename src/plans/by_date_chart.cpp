// The picture of a plan by the date of the first application.
#include "charts/scale.h"
#include "core/code_page.h"
#include "core/numbers.h"
#include "plans/plan_figures.h"
#include "plans/sweep.h"

#include <algorithm>
#include <map>

namespace orvel {

namespace {

constexpr double Longest_Shift = 100000; // days, whatever a label of a user says

// "28.09.", or empty where the plan has no dates.
std::string Date_Text(const Plan_Rows& rows, std::size_t row)
{
    if (!rows.Day_Column)
        return {};
    const auto& cells = rows.Cells[row];
    const double month = rows.Month_Column ? Val(cells[*rows.Month_Column]) : rows.Month;
    return Format_Pattern(Val(cells[*rows.Day_Column]), "00") + "." + Format_Pattern(month, "00") + ".";
}

// The run of a day that counts: the one with the highest figure.
using Days = std::map<int, Figure>;

std::string Day_Text(const Plan_Rows& rows, const Days::value_type& day)
{
    const std::string days = (day.first > 0 ? "+" : "") + std::to_string(day.first) + " days",
                      date = Date_Text(rows, day.second.Row);
    return date.empty() ? days : date + " (" + days + ")";
}

// With other things varied than what the curves are of, the days are those of the runs where they are not.
Days By_Shift(const Plan_View& view, const std::vector<Figure>& figures, std::size_t shift, const std::string& label)
{
    const auto& columns = view.Rows->Columns;
    const auto is_varied = [&](const Figure& figure) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (i != shift && columns[i].Name != label && Is_Factor(columns[i]) &&
                Val(view.Rows->Cells[figure.Row][i]) != Base_Of(columns[i]))
                return true;
        }
        return false;
    };
    const bool has_base = std::ranges::any_of(figures, [&](const Figure& figure) { return !is_varied(figure); });
    Days days;
    for (const auto& figure : figures) {
        if (has_base && is_varied(figure))
            continue;
        const double day = std::clamp(Val(view.Rows->Cells[figure.Row][shift]), -Longest_Shift, Longest_Shift);
        const auto [known, is_new] = days.try_emplace(static_cast<int>(day), figure);
        if (!is_new && figure.Value > known->second.Value)
            known->second = figure;
    }
    return days;
}

Chart_Axis Axis_Of_Days(const Plan_Rows& rows, const Days& days)
{
    const int first = days.begin()->first, length = std::max(1, days.rbegin()->first - first);
    Chart_Axis axis{.High = static_cast<double>(length), .First = static_cast<double>(first), .Whole = true};
    for (const auto& day : days) {
        const std::string date = Date_Text(rows, day.second.Row);
        axis.Ticks.push_back(
            {static_cast<double>(day.first - first), Tick_Rank::Big, date.empty() ? std::to_string(day.first) : date});
    }
    axis.Title = rows.Day_Column ? "First application" : "Shift of the applications, days";
    return axis;
}

void Add_Level(Chart& chart, Colour colour, double value, const std::string& text)
{
    chart.Lines.push_back({colour, {{0, value}, {chart.X.High, value}}, {}, {}});
    chart.Key.push_back({colour, text});
}

} // namespace

Chart By_Date_Chart(const Plan_View& view, const Plan_Chart_Choice& choice)
{
    const auto figures = Figures_Of(view, choice.Substance);
    Chart chart = Begun(figures, choice.Substance + ": " + Quantity_Of(figures) + " by date [" + figures.Unit + "]");
    const auto shift = Column_Named(*view.Rows, Shift_Label);
    if (!shift || figures.All.empty())
        return Without_Figures(std::move(chart), shift ? "No run has a result yet."
                                                       : "The plan has no window of applications: no label #shift.");
    const bool by_label = choice.Label != Shift_Label;
    const auto curves = Curves_Of(view, figures, by_label ? choice.Label : std::string(), chart);
    Days all_days;
    std::vector<Days> of_curves;
    for (const auto& curve : curves) {
        of_curves.push_back(By_Shift(view, curve.Figures, *shift, To_Utf8(choice.Label)));
        all_days.insert(of_curves.back().begin(), of_curves.back().end());
    }
    chart.X = Axis_Of_Days(*view.Rows, all_days);
    double highest = 0;
    for (std::size_t i = 0; i < curves.size(); ++i) {
        const Days& days = of_curves[i];
        Chart_Line line{.Drawn_In = curves[i].Drawn_In};
        std::vector<double> values;
        for (const auto& day : days) {
            line.Points.push_back({static_cast<double>(day.first) - chart.X.First, day.second.Value});
            line.Names.push_back(Day_Text(*view.Rows, day));
            chart.Dots.push_back({line.Drawn_In, line.Points.back().X, day.second.Value, line.Names.back(), false});
            values.push_back(day.second.Value);
        }
        const auto worst =
            std::ranges::max_element(days, {}, [](const Days::value_type& day) { return day.second.Value; });
        const double most = worst->second.Value, median = Median(values);
        highest = std::max(highest, most);
        chart.Legend.push_back((curves[i].Name.empty() ? "" : curves[i].Name + ": ") + std::string("maximum ") +
                               Text_Of(most, figures) + " at " + Day_Text(*view.Rows, *worst) + ", median " +
                               Text_Of(median, figures) + " over " + std::to_string(values.size()) + " days");
        chart.Lines.push_back(std::move(line));
        if (curves.size() == 1) {
            Add_Level(chart, Colour::Marked, most, "maximum");
            Add_Level(chart, Colour::Term_4, median, "median");
        }
    }
    Tell_Left_Out(chart, figures);
    chart.Y = Value_Axis(0, highest);
    chart.Frame = Frame_Around(chart.X, chart.Y);
    return chart;
}

} // namespace orvel
