#include "charts/value_at.h"

#include "charts/scale.h"
#include "core/numbers.h"

#include <algorithm>
#include <cmath>

namespace orvel {

namespace {

std::string Short_Number(double value)
{
    constexpr double digits = 1e5;
    if (value == 0)
        return "0";
    const double scale = std::pow(10, std::floor(std::log10(std::fabs(value))));
    return General_Text(std::round(value / scale * digits) / digits * scale);
}

std::string Position_Text(double x)
{
    return General_Text(std::round(x * 1000) / 1000);
}

// How far the mouse may be from the nearest point, as a share of the axis, for its value to be shown.
constexpr double Reach = 0.02;

constexpr std::size_t Fewest_Points = 2; // of a line

} // namespace

std::optional<Chart_Hit> Hit_At(const Chart& chart, double x)
{
    const std::string unit = chart.Unit.empty() ? "" : " " + chart.Unit;
    for (const Chart_Box& box : chart.Boxes) {
        const double middle = (box.Left + box.Right) / 2;
        if (x >= box.Left && x <= box.Right)
            return Chart_Hit{(box.Name.empty() ? Position_Text(chart.X.First + middle) : box.Name) + ": " +
                                 Short_Number(box.Y) + unit,
                             {middle, box.Y}};
    }
    if (chart.Lines.empty() || chart.Lines[0].Points.empty() || !chart.Boxes.empty() || !chart.Bars.empty())
        return std::nullopt;
    const auto& [colour, points, names, name] = chart.Lines[0];
    const auto right = std::ranges::lower_bound(points, x, {}, &Chart_Point::X);
    auto nearest = right;
    if (right == points.end() || (right != points.begin() && x - std::prev(right)->X < right->X - x))
        nearest = std::prev(right);
    if (std::fabs(nearest->X - x) > Reach * (chart.X.High - chart.X.Low))
        return std::nullopt;
    const auto at = static_cast<std::size_t>(nearest - points.begin());
    return Chart_Hit{(at < names.size() ? names[at] : Position_Text(chart.X.First + nearest->X)) + ": " +
                         Short_Number(nearest->Y) + unit,
                     *nearest};
}

std::optional<Chart_Hit> Dot_At(const Chart& chart, Chart_Point place, double within_x, double within_y)
{
    const Chart_Dot* nearest = nullptr;
    double least = 1;
    for (const Chart_Dot& dot : chart.Dots) {
        const double distance = std::hypot((dot.X - place.X) / within_x, (dot.Y - place.Y) / within_y);
        if (distance <= least) {
            least = distance;
            nearest = &dot;
        }
    }
    if (nearest == nullptr)
        return std::nullopt;
    const std::string unit = chart.Unit.empty() ? "" : " " + chart.Unit;
    return Chart_Hit{(nearest->Name.empty() ? Position_Text(nearest->X) : nearest->Name) + ": " +
                         Short_Number(nearest->Y) + unit,
                     {nearest->X, nearest->Y}};
}

std::optional<Chart_Hit> Bar_At(const Chart& chart, Chart_Point place)
{
    const auto found = std::ranges::find_if(chart.Bars, [&](const Chart_Bar& bar) {
        const auto [left, right] = std::minmax(bar.From, bar.To);
        return place.X >= left && place.X <= right && place.Y >= bar.Low && place.Y <= bar.High;
    });
    if (found == chart.Bars.end())
        return std::nullopt;
    return Chart_Hit{found->Name, {found->To, (found->Low + found->High) / 2}};
}

double Top_Of(const Chart& chart, const Chart_Box& box)
{
    double top = box.Y;
    for (const Chart_Dot& dot : chart.Dots) {
        if (dot.X >= box.Left && dot.X <= box.Right)
            top = std::max(top, dot.Y);
    }
    return top;
}

std::string Value_Text_At(const Chart& chart, double x)
{
    const auto hit = Hit_At(chart, x);
    return hit ? hit->Text : std::string();
}

Chart Zoomed(const Chart& chart, double from, double to)
{
    from = std::max(from, chart.X.Low);
    to = std::min(to, chart.X.High);
    if (chart.Lines.empty() || !chart.Bars.empty() || !(to > from))
        return chart;
    Chart zoomed = chart;
    auto& [colour, points, names, name] = zoomed.Lines[0];
    const auto outside = [&](const Chart_Point& point) { return point.X < from || point.X > to; };
    std::size_t at = 0;
    if (!names.empty())
        std::erase_if(names, [&](const std::string&) { return outside(points[at++]); });
    std::erase_if(points, outside);
    if (points.size() < Fewest_Points)
        return chart;
    double low = 0, high = 0;
    for (Chart_Point& point : points) {
        low = std::min(low, point.Y);
        high = std::max(high, point.Y);
        point.X -= from;
    }
    zoomed.X = (chart.X.Whole ? Whole_Axis : Position_Axis)(to - from, chart.X.First + from);
    zoomed.X.Title = chart.X.Title;
    zoomed.Y = Value_Axis(low, high);
    zoomed.Y.Title = chart.Y.Title;
    zoomed.Frame = Frame_Around(zoomed.X, zoomed.Y);
    return zoomed;
}

} // namespace orvel
