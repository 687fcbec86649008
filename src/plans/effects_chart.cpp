// The picture of a sweep as the effects of its factors, a tornado.
#include "charts/scale.h"
#include "core/code_page.h"
#include "core/numbers.h"
#include "plans/plan_figures.h"
#include "plans/sweep.h"

#include <algorithm>
#include <functional>

namespace orvel {

namespace {

constexpr double Bar_Half_Width = 0.3, Least_Places = 3;
constexpr double Most_Ticks = 1000; // less than a step between two: what rounding leaves of 0
constexpr std::string_view Times = "\xD7 ";

// The run in which nothing is varied, and those that differ from it by one of what a sweep varies alone.
class Varied_One_By_One {
public:
    Varied_One_By_One(const Plan_View& view, const Figures& figures) : View(view)
    {
        for (std::size_t i = 0; i < view.Rows->Columns.size(); ++i) {
            if (Is_Factor(view.Rows->Columns[i]))
                Factors.push_back(i);
        }
        for (const auto& figure : figures.All) {
            if (!Base && Varied_In(figure.Row).empty())
                Base = figure;
        }
    }

    bool Has_Factors() const { return !Factors.empty(); }

    // Those of one factor, by its value.
    struct Effect {
        std::size_t Column;
        std::vector<std::pair<double, double>> Changes; // value of the factor, change of the figure
        std::pair<double, double> Lowest() const { return std::ranges::min(Changes, {}, Second); }
        std::pair<double, double> Highest() const { return std::ranges::max(Changes, {}, Second); }
        double Span() const { return std::max(Highest().second, 0.0) - std::min(Lowest().second, 0.0); }

    private:
        static double Second(const std::pair<double, double>& change) { return change.second; }
    };

    std::vector<Effect> Effects(const Figures& figures, const Figure& base) const
    {
        std::vector<Effect> effects;
        for (const auto column : Factors)
            effects.push_back({column, {}});
        for (const auto& figure : figures.All) {
            const auto varied = Varied_In(figure.Row);
            if (varied.size() == 1 && Is_Like(figure.Row, base.Row))
                effects[varied.front()].Changes.emplace_back(Val(Cell(figure.Row, Factors[varied.front()])),
                                                             figure.Value - base.Value);
        }
        std::erase_if(effects, [](const Effect& effect) { return effect.Changes.empty(); });
        std::ranges::stable_sort(effects, std::greater(), &Effect::Span);
        return effects;
    }

    std::optional<Figure> Base;

private:
    const std::string& Cell(std::size_t row, std::size_t column) const { return View.Rows->Cells[row][column]; }

    // Places among the factors.
    std::vector<std::size_t> Varied_In(std::size_t row) const
    {
        std::vector<std::size_t> varied;
        for (std::size_t i = 0; i < Factors.size(); ++i) {
            if (Val(Cell(row, Factors[i])) != Base_Of(View.Rows->Columns[Factors[i]]))
                varied.push_back(i);
        }
        return varied;
    }

    // Whether the row is of the same run, but for what the sweep varies: labels tell nothing of that.
    bool Is_Like(std::size_t row, std::size_t base) const
    {
        for (std::size_t i = 0; i < View.Rows->Columns.size(); ++i) {
            if (Is_Fixed(View.Rows->Columns[i]) && Cell(row, i) != Cell(base, i))
                return false;
        }
        return true;
    }

    bool Is_Fixed(const Plan_Column& column) const
    {
        const bool is_shifted =
            column.Name.starts_with("psm.Applications[") || column.Name.starts_with("psm.Relative[");
        return column.Kind != Plan_Column_Kind::Id && column.Kind != Plan_Column_Kind::Label &&
               !Column_Named(*View.Rows, std::string(Factor_Label) + column.Name) &&
               !(is_shifted && Column_Named(*View.Rows, Shift_Label));
    }

    const Plan_View& View;
    std::vector<std::size_t> Factors; // columns
};

std::string Name_Of_Factor(const Plan_Column& column)
{
    return column.Name == Shift_Label ? "shift of the applications"
                                      : To_Code_Page(column.Name.substr(Factor_Label.size()));
}

std::string Text_Of_Factor(const Plan_Column& column, double value)
{
    return column.Name == Shift_Label ? (value > 0 ? "+" : "") + General_Text(value) + " days"
                                      : std::string(Times) + General_Text(value);
}

// A bar to one side of the figure in which nothing is varied.
void Add_Effect(Chart& chart, const Plan_Column& column, double at, std::pair<double, double> change,
                const Figures& figures, double base)
{
    const std::string text = Text_Of_Factor(column, change.first);
    const double changed = base + change.second;
    chart.Bars.push_back({.Drawn_In = change.first < Base_Of(column) ? Colour::Series : Colour::Term_3,
                          .From = base,
                          .To = changed,
                          .Low = at - Bar_Half_Width,
                          .High = at + Bar_Half_Width,
                          .Name = Name_Of_Factor(column) + " " + text + ": " + Text_Of(changed, figures) + ", change " +
                                  Text_Of(change.second, figures),
                          .Label = text});
}

// From the lowest to the highest figure, with room beyond both for what is written there; a tick at round figures only,
// and at none below 0.
Chart_Axis Axis_Of_Figures(double lowest, double highest)
{
    constexpr double Room = 0.15; // of the span
    const double span = highest > lowest ? highest - lowest : std::max(highest, 1.0);
    Chart_Axis axis = Position_Axis((1 + 2 * Room) * span, lowest - Room * span);
    std::erase_if(axis.Ticks, [&](const Chart_Tick& tick) { return axis.First + tick.At < -span / Most_Ticks; });
    return axis;
}

// Positions count from where the axis begins.
void Shift_To_Axis(Chart& chart)
{
    for (auto& bar : chart.Bars) {
        bar.From -= chart.X.First;
        bar.To -= chart.X.First;
    }
}

} // namespace

Chart Effects_Chart(const Plan_View& view, const Plan_Chart_Choice& choice)
{
    const auto figures = Figures_Of(view, choice.Substance);
    Chart chart = Begun(figures, choice.Substance + ": effect of each factor by itself");
    const Varied_One_By_One varied(view, figures);
    if (!varied.Has_Factors())
        return Without_Figures(std::move(chart),
                               "The plan is no sweep: it has no label #shift and none that begins with "
                               "#factor.");
    if (figures.All.empty() || !varied.Base)
        return Without_Figures(std::move(chart), figures.All.empty()
                                                     ? "No run has a result yet."
                                                     : "The run in which nothing is varied (factor 1, shift 0) has no "
                                                       "result.");
    const auto effects = varied.Effects(figures, *varied.Base);
    if (effects.empty())
        return Without_Figures(std::move(chart), "No run in which one thing alone is varied has a result.");
    const double base = varied.Base->Value, rows = std::max(static_cast<double>(effects.size()), Least_Places);
    double lowest = base, highest = base;
    for (std::size_t i = 0; i < effects.size(); ++i) {
        const auto& effect = effects[i];
        const auto& column = view.Rows->Columns[effect.Column];
        const double at = rows - static_cast<double>(i); // the farthest uppermost
        const auto low = effect.Lowest(), high = effect.Highest();
        if (high.second > 0 || low.second >= 0)
            Add_Effect(chart, column, at, high, figures, base);
        if (low.second < 0)
            Add_Effect(chart, column, at, low, figures, base);
        lowest = std::min(lowest, base + low.second);
        highest = std::max(highest, base + high.second);
        chart.Y.Ticks.insert(chart.Y.Ticks.begin(), {at, Tick_Rank::Big, Name_Of_Factor(column)});
    }
    Tell_Left_Out(chart, figures);
    chart.X = Axis_Of_Figures(lowest, highest);
    chart.X.Title = Sentence_Case(Quantity_Of(figures)) + " [" + figures.Unit + "]";
    Shift_To_Axis(chart);
    chart.Y.High = rows + 0.5;
    chart.Lines.push_back(
        {.Drawn_In = Colour::Marked, .Points = {{base - chart.X.First, 0}, {base - chart.X.First, chart.Y.High}}});
    chart.Key = {{Colour::Series, "less, or earlier"},
                 {Colour::Term_3, "more, or later"},
                 {Colour::Marked, "nothing is varied: " + Text_Of(base, figures)}};
    chart.Frame = Frame_Around(chart.X, chart.Y);
    return chart;
}

} // namespace orvel
