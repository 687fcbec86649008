// The picture of a plan as the share of its runs above a concentration.
#include "charts/axis.h"
#include "charts/scale.h"
#include "core/numbers.h"
#include "plans/plan_figures.h"
#include "report/run_results.h"

#include <algorithm>
#include <cmath>

namespace orvel {

namespace {

constexpr std::size_t Most_Steps = 2000;

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
            const double value = Power_Of_Ten(decade);
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

} // namespace

Chart Distribution_Chart(const Plan_View& view, const Plan_Chart_Choice& choice)
{
    const auto figures = Figures_Of(view, choice.Substance);
    Chart chart = Begun(figures, choice.Substance + ": share of the runs above a concentration");
    if (figures.All.empty())
        return Without_Figures(std::move(chart), "No run has a result yet.");
    const Conc_Axis axis(figures.All);
    chart.X = axis.Axis;
    chart.X.Title = Sentence_Case(Quantity_Of(figures)) + " [" + figures.Unit + "]";
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

} // namespace orvel
