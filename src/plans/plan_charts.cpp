#include "plans/plan_charts.h"

#include "charts/axis.h"
#include "charts/scale.h"
#include "core/code_page.h"
#include "core/numbers.h"
#include "plans/sweep.h"
#include "records/results.h"
#include "report/run_results.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>

namespace orvel {

namespace {

constexpr std::array Curve_Colours = {Colour::Series, Colour::Term_3, Colour::Term_5,
                                      Colour::Term_4, Colour::Term_2, Colour::Term_7};
static_assert(Curve_Colours.size() == Most_Curves);
constexpr double Bar_Half_Width = 0.28, Least_Places = 4;
constexpr std::size_t Most_Steps = 2000;
constexpr double Longest_Shift = 100000; // days, whatever a label of a user says
constexpr std::string_view Times = "\xD7 ";

struct Figure {
    std::size_t Row;
    double Value;
};

// A substance's figures of one unit, the first that occurs.
struct Figures {
    std::string Unit;
    std::vector<Figure> All;
    std::size_t Of_Other_Units = 0, Runs_Without = 0;
};

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

std::string Text_Of(double value, const Figures& figures)
{
    return General_Text(value) + " " + figures.Unit;
}

std::string Cell_Of(const Plan_View& view, std::size_t row, std::optional<std::size_t> column)
{
    return column ? To_Code_Page(view.Rows->Cells[row][*column]) : std::string();
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

// The cell of what a sweep varies when it is not varied.
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

// What the reader must know of the figures that are not drawn.
void Tell_Left_Out(Chart& chart, const Figures& figures)
{
    if (figures.Of_Other_Units > 0)
        chart.Legend.push_back(std::to_string(figures.Of_Other_Units) + " runs have another unit and are left out");
    if (figures.Runs_Without > 0)
        chart.Legend.push_back(std::to_string(figures.Runs_Without) +
                               (figures.Runs_Without == 1 ? " run has no result" : " runs have no result"));
}

struct Curve {
    std::string Name; // value of the label; empty without one
    Colour Drawn_In = Colour::Series;
    std::vector<Figure> Figures;
};

// The curves by the values of a label in their order of appearance, no more than can be told apart.
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

// The axis of concentrations: logarithmic where they spread over more than two decades.
class Conc_Axis {
public:
    explicit Conc_Axis(const std::vector<Figure>& figures)
    {
        constexpr double Least_Spread = 100, Widest = 1e6;
        const double highest = std::max(0.0, std::ranges::max(figures, {}, &Figure::Value).Value);
        double lowest = highest;
        for (const auto& figure : figures)
            lowest = figure.Value > 0 ? std::min(lowest, figure.Value) : lowest;
        if (highest <= Least_Spread * lowest) {
            Axis = Position_Axis(highest > 0 ? Round_Up_Axis(highest) : 1);
            return;
        }
        First_Decade = std::floor(std::log10(std::max(lowest, highest / Widest)));
        const double last = std::ceil(std::log10(highest));
        Axis.High = last - *First_Decade;
        for (double decade = *First_Decade; decade <= last; ++decade) {
            const double value = std::pow(10, decade);
            Axis.Ticks.push_back({decade - *First_Decade, Tick_Rank::Big, General_Text(value)});
            for (int i = 2; i < 10 && decade < last; ++i)
                Axis.Ticks.push_back({At(i * value), Tick_Rank::Small, ""});
        }
    }

    // What is below the axis, such as 0, stands at its begin.
    double At(double value) const
    {
        if (!First_Decade)
            return value;
        return value > 0 ? std::max(0.0, std::log10(value) - *First_Decade) : 0;
    }

    Chart_Axis Axis;

private:
    std::optional<double> First_Decade; // of a logarithmic one
};

// A step down at each figure: what is above it is less by its share. Of very many, steps that no picture could show are
// taken together.
Chart_Line Steps_Of(const Curve& curve, const Conc_Axis& axis, const Figures& figures)
{
    std::vector<double> values;
    for (const auto& figure : curve.Figures)
        values.push_back(figure.Value);
    std::ranges::sort(values);
    Chart_Line line{.Drawn_In = curve.Drawn_In};
    const auto add = [&](double at, std::size_t above, const std::string& name) {
        line.Points.push_back({at, 100 * static_cast<double>(above) / static_cast<double>(values.size())});
        line.Names.push_back(name);
    };
    add(0, values.size(), "all runs");
    const std::size_t together = values.size() / Most_Steps + 1;
    for (std::size_t i = 0; i < values.size(); i += together) {
        const std::size_t last = std::min(i + together, values.size()) - 1;
        const std::string name = "above " + Text_Of(values[last], figures);
        add(axis.At(values[last]), values.size() - i, name);
        add(axis.At(values[last]), values.size() - last - 1, name);
    }
    add(axis.Axis.High, 0, "no run");
    return line;
}

double Share_Above(const std::vector<Figure>& figures, double limit)
{
    const auto above = std::ranges::count_if(figures, [&](const Figure& figure) { return figure.Value > limit; });
    return 100 * static_cast<double>(above) / static_cast<double>(figures.size());
}

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

void Add_Effect(Chart& chart, const Plan_Column& column, double at, std::pair<double, double> change,
                const Figures& figures, double base)
{
    const std::string text = Text_Of_Factor(column, change.first);
    const auto drawn_in = change.first < Base_Of(column) ? Colour::Series : Colour::Term_3;
    chart.Boxes.push_back(
        {drawn_in, at - Bar_Half_Width, at + Bar_Half_Width, change.second,
         Name_Of_Factor(column) + " " + text + ", " + Text_Of(base + change.second, figures) + ", change", text});
}

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

Chart Distribution_Chart(const Plan_View& view, const Plan_Chart_Choice& choice)
{
    const auto figures = Figures_Of(view, choice.Substance);
    Chart chart = Begun(figures, choice.Substance + ": share of the runs above a concentration");
    if (figures.All.empty())
        return Without_Figures(std::move(chart), "No run has a result yet.");
    const Conc_Axis axis(figures.All);
    chart.X = axis.Axis;
    chart.X.Title = Quantity_Of(figures) + " [" + figures.Unit + "]";
    chart.X.Title.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(chart.X.Title.front())));
    chart.Y = Value_Axis(0, 100);
    chart.Y.Title = "% of the runs";
    chart.Unit = "%";
    if (Is_Of_Leachate(figures))
        chart.Legend.push_back(Format_Pattern(Share_Above(figures.All, Drinking_Water_Limit), "0.0") + " % of " +
                               std::to_string(figures.All.size()) + " runs are above 0.1 " + figures.Unit);
    Tell_Left_Out(chart, figures);
    for (const auto& curve : Curves_Of(view, figures, choice.Label, chart))
        chart.Lines.push_back(Steps_Of(curve, axis, figures));
    const double limit = axis.At(Drinking_Water_Limit);
    if (Is_Of_Leachate(figures) && limit <= chart.X.High) {
        chart.Lines.push_back({Colour::Marked, {{limit, 0}, {limit, 100}}, {}, {}});
        chart.Key.push_back({Colour::Marked, "limit: 0.1 " + figures.Unit});
    }
    chart.Frame = Frame_Around(chart.X, chart.Y);
    return chart;
}

Chart Effects_Chart(const Plan_View& view, const Plan_Chart_Choice& choice)
{
    const auto figures = Figures_Of(view, choice.Substance);
    Chart chart =
        Begun(figures, choice.Substance + ": change of the " + Quantity_Of(figures) + " [" + figures.Unit + "]");
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
    double lowest = 0, highest = 0;
    chart.Legend.push_back(Text_Of(varied.Base->Value, figures) + " where nothing is varied");
    for (std::size_t i = 0; i < effects.size(); ++i) {
        const auto& effect = effects[i];
        const auto& column = view.Rows->Columns[effect.Column];
        const double at = static_cast<double>(i) + 1;
        const auto low = effect.Lowest(), high = effect.Highest();
        Add_Effect(chart, column, at, std::abs(high.second) < std::abs(low.second) ? low : high, figures,
                   varied.Base->Value);
        if (low.second * high.second < 0) // both sides
            Add_Effect(chart, column, at, std::abs(high.second) < std::abs(low.second) ? high : low, figures,
                       varied.Base->Value);
        lowest = std::min(lowest, low.second);
        highest = std::max(highest, high.second);
        chart.X.Ticks.push_back({at, Tick_Rank::Big, std::to_string(i + 1)});
        chart.Legend.push_back(std::to_string(i + 1) + ": " + Name_Of_Factor(column));
    }
    Tell_Left_Out(chart, figures);
    chart.Key = {{Colour::Series, "less, or earlier"}, {Colour::Term_3, "more, or later"}};
    chart.X.High = std::max(static_cast<double>(effects.size()), Least_Places) + 0.5;
    chart.X.Title = "What is varied";
    chart.Y = Value_Axis(lowest, highest);
    chart.Frame = Frame_Around(chart.X, chart.Y);
    return chart;
}

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
