#include "plans/plan_figures.h"

#include "charts/scale.h"
#include "core/code_page.h"
#include "core/numbers.h"
#include "plans/sweep.h"
#include "records/results.h"

#include <algorithm>
#include <array>
#include <map>
#include <set>

namespace orvel {

namespace {

constexpr std::array Curve_Colours = {Colour::Series, Colour::Term_3, Colour::Term_5,
                                      Colour::Term_4, Colour::Term_2, Colour::Term_7};
static_assert(Curve_Colours.size() == Most_Curves);

std::string Cell_Of(const Plan_View& view, std::size_t row, std::optional<std::size_t> column)
{
    return column ? To_Code_Page(view.Rows->Cells[row][*column]) : std::string();
}

} // namespace

Figures Figures_Of(const Plan_View& view, const std::string& substance)
{
    Figures figures;
    for (std::size_t row = 0; row < view.Runs.size(); ++row) {
        bool found = false;
        for (const auto& result : view.Results_Of(row)) {
            if (result.Substance != substance || !result.Found)
                continue;
            found = true;
            if (figures.All.empty())
                figures.Unit = result.Unit;
            if (result.Unit == figures.Unit)
                figures.All.push_back({row, result.Found->Percentile});
            else
                ++figures.Of_Other_Units;
        }
        figures.Runs_Without += found ? 0 : 1;
    }
    return figures;
}

bool Is_Of_Leachate(const Figures& figures)
{
    return figures.All.empty() || figures.Unit == Result_Unit;
}

std::string Quantity_Of(const Figures& figures)
{
    return Is_Of_Leachate(figures) ? "80th percentile at 1 m" : "highest concentration in soil";
}

std::string Sentence_Case(std::string text)
{
    if (!text.empty())
        text.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(text.front())));
    return text;
}

std::string Text_Of(double value, const Figures& figures)
{
    return General_Text(value) + " " + figures.Unit;
}

std::optional<std::size_t> Column_Named(const Plan_Rows& rows, std::string_view utf8)
{
    const auto found = std::ranges::find(rows.Columns, utf8, &Plan_Column::Name);
    return found == rows.Columns.end() ? std::nullopt
                                       : std::optional(static_cast<std::size_t>(found - rows.Columns.begin()));
}

bool Is_Factor(const Plan_Column& column)
{
    return column.Name == Shift_Label || column.Name.starts_with(Factor_Label);
}

double Base_Of(const Plan_Column& column)
{
    return column.Name == Shift_Label ? 0 : 1;
}

Chart Begun(const Figures& figures, std::string title)
{
    Chart chart;
    chart.Title = std::move(title);
    chart.Unit = figures.Unit;
    return chart;
}

Chart Without_Figures(Chart chart, std::string sentence)
{
    chart.X = Position_Axis(1);
    chart.Y = Value_Axis(0, 1);
    chart.X.Ticks.clear();
    chart.Y.Ticks.clear();
    chart.Nothing = std::move(sentence);
    chart.Frame = Frame_Around(chart.X, chart.Y);
    return chart;
}

void Tell_Left_Out(Chart& chart, const Figures& figures)
{
    if (figures.Of_Other_Units > 0)
        chart.Legend.push_back(std::to_string(figures.Of_Other_Units) + " runs have another unit and are left out");
    if (figures.Runs_Without > 0)
        chart.Legend.push_back(std::to_string(figures.Runs_Without) +
                               (figures.Runs_Without == 1 ? " run has no result" : " runs have no result"));
}

std::vector<Curve> Curves_Of(const Plan_View& view, const Figures& figures, const std::string& label, Chart& chart)
{
    const auto column = label.empty() ? std::nullopt : Column_Named(*view.Rows, To_Utf8(label));
    std::vector<Curve> curves;
    std::map<std::string, std::size_t> places;
    std::set<std::string> others;
    for (const auto& figure : figures.All) {
        const std::string name = Cell_Of(view, figure.Row, column);
        const auto [place, is_new] = places.try_emplace(name, curves.size());
        if (is_new && curves.size() < Most_Curves)
            curves.push_back({name, Curve_Colours[curves.size()], {}});
        if (place->second < curves.size() && curves[place->second].Name == name)
            curves[place->second].Figures.push_back(figure);
        else
            others.insert(name);
    }
    if (!others.empty())
        chart.Legend.push_back(std::to_string(others.size()) + " more values of " + label + " are not drawn");
    for (const auto& curve : curves) {
        if (column)
            chart.Key.push_back({curve.Drawn_In, curve.Name.empty() ? "(none)" : curve.Name});
    }
    return curves;
}

double Median(std::vector<double> values)
{
    if (values.empty())
        return 0;
    std::ranges::sort(values);
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

std::vector<std::string> Labels_Of(const Plan_Rows& rows)
{
    std::vector<std::string> labels;
    for (const auto& column : rows.Columns) {
        if (column.Kind == Plan_Column_Kind::Label)
            labels.push_back(To_Code_Page(column.Name));
    }
    return labels;
}

} // namespace orvel
