#include "charts/scale.h"

#include "charts/axis.h"

#include <algorithm>
#include <cmath>

namespace orvel {

namespace {

constexpr double Beyond_The_End = 1.05;
constexpr int Tiny_In_Step = 10;
constexpr double Smallest = 1e-290, Largest = 1e290; // keeps the axis' arithmetic inside the range of a double

double Plain_End(double value)
{
    return std::fabs(value) < Smallest ? 0 : std::clamp(value, -Largest, Largest);
}

double Rounded_End(double value)
{
    const double end = Plain_End(value);
    return end == 0 ? 0 : Round_Up_Axis(end);
}

// Ticks from `low` to `high` at every tiny step of the labelled values; position 0 has the label `first`.
std::vector<Chart_Tick> Ticks_Between(double low, double high, const Axis_Steps& steps, double first)
{
    constexpr double slack = 1e-9;
    const auto begin = static_cast<long long>(std::ceil((first + low) / steps.Tiny_Tick - slack));
    const auto end = static_cast<long long>(std::floor((first + high) / steps.Tiny_Tick + slack));
    const auto small = std::lround(steps.Small_Tick / steps.Tiny_Tick);
    std::vector<Chart_Tick> ticks;
    for (auto i = begin; i <= end; ++i) {
        if (i % Tiny_In_Step == 0) {
            const auto whole_steps = i / Tiny_In_Step;
            const double label = static_cast<double>(whole_steps) * steps.Step;
            ticks.push_back({label - first, Tick_Rank::Big, Axis_Label(label)});
        } else {
            ticks.push_back({static_cast<double>(i) * steps.Tiny_Tick - first,
                             i % small == 0 ? Tick_Rank::Small : Tick_Rank::Tiny, ""});
        }
    }
    return ticks;
}

// An axis with zero on it; without any extent it goes to 1.
Chart_Axis Axis_Between(double low, double high)
{
    Chart_Axis axis{.Low = std::min(low, 0.0), .High = std::max(high, 0.0)};
    if (axis.Low == 0 && axis.High == 0)
        axis.High = 1;
    axis.Ticks = Ticks_Between(Beyond_The_End * axis.Low, Beyond_The_End * axis.High, Axis_Step(Value_Size(axis)), 0);
    return axis;
}

} // namespace

Chart_Axis Value_Axis(double low, double high)
{
    return Axis_Between(Rounded_End(low), Rounded_End(high));
}

Chart_Axis Plain_Value_Axis(double low, double high)
{
    return Axis_Between(Plain_End(low), Plain_End(high));
}

Chart_Axis Position_Axis(double length, double first_label)
{
    return {.Low = 0,
            .High = length,
            .First = first_label,
            .Ticks = Ticks_Between(0, length, Axis_Step(length), first_label)};
}

Chart_Axis Whole_Axis(double length, double first_label)
{
    auto axis = Position_Axis(length, first_label);
    axis.Whole = true;
    constexpr double Slack = 1e-6;
    const auto is_whole = [&](const Chart_Tick& tick) {
        const double label = first_label + tick.At;
        return std::fabs(label - std::round(label)) < Slack;
    };
    std::erase_if(axis.Ticks, [&](const Chart_Tick& tick) { return !is_whole(tick); });
    return axis;
}

double Value_Size(const Chart_Axis& values)
{
    return std::max(values.High, -values.Low);
}

Chart_Frame Frame_Around(const Chart_Axis& positions, const Chart_Axis& values)
{
    const double length = positions.High;
    return {-length / 8, 1.2 * length, values.Low - Value_Size(values) / 8, values.High + 0.2 * Value_Size(values)};
}

Chart_Frame Drawn_Frame(const Chart& chart)
{
    constexpr double Behind = 0.02; // of the axis
    const double length = chart.X.High - chart.X.Low;
    double last = chart.X.High;
    for (const auto& box : chart.Boxes)
        last = std::max(last, box.Right);
    auto frame = chart.Frame;
    frame.Right = std::min(frame.Right, last + Behind * length);
    return frame;
}

double X_Labels_At(const Chart& chart)
{
    return std::min(0.0, chart.Y.Low) + X_Label_Below * Value_Size(chart.Y);
}

} // namespace orvel
