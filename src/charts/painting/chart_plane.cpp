#include "charts/painting/chart_plane.h"

#include "charts/scale.h"
#include "core/code_page.h"

#include <algorithm>
#include <cmath>

namespace orvel {

namespace {

constexpr double Plane_Margin = 0.6; // of a line of text
constexpr double Title_Lines = 1.6;
constexpr double Lowest_Tick = 1.05; // of the axis' low end

double Lines_Above(const Chart& chart, double width, const QFontMetricsF& metrics)
{
    const auto keys = Placed_Keys(chart, width, metrics);
    return (chart.Title.empty() ? 1 : Title_Lines * Title_Scale) + static_cast<double>(chart.Legend.size()) +
           (keys.empty() ? 0 : keys.back().Row);
}

// What to take off an edge so that `needed` pixels are free there, given that a share of what remains is free already.
double Taken_Off(double needed, double share, double size)
{
    return std::max(0.0, (needed - share * size) / (1 - share));
}

double Left_Margin(const Chart& chart, double width, const QFont& font, const QPaintDevice* device)
{
    double widest = 0;
    for (const Chart_Tick& tick : chart.Y.Ticks)
        widest = std::max(
            widest, Metrics_Of(Value_Label_Font(font, tick.Label), device).horizontalAdvance(Chart_Text(tick.Label)));
    const double gaps = Plane_Margin * Metrics_Of(font, device).lineSpacing();
    const auto frame = Drawn_Frame(chart);
    const double free =
        (chart.X.Low - Big_Y_Tick * (chart.X.High - chart.X.Low) - frame.Left) / (frame.Right - frame.Left);
    return Taken_Off(widest + gaps, free, width);
}

// Half of the widest position label, which may stand at the end of the axis, or the name of a line behind its end.
double Right_Margin(const Chart& chart, const QFont& font, const QPaintDevice* device)
{
    const auto metrics = Metrics_Of(Sized(font, Label_Points), device);
    double widest = 0;
    for (const Chart_Tick& tick : chart.X.Ticks)
        widest = std::max(widest, metrics.horizontalAdvance(Chart_Text(tick.Label)));
    const auto small = Metrics_Of(Sized(font, Long_Label_Points), device);
    double named = 0;
    for (const Chart_Line& line : chart.Lines) {
        if (!line.Name.empty())
            named = std::max(named, small.horizontalAdvance(Chart_Text(line.Name)) + 2 * Name_Gap * small.height());
    }
    return std::max(widest / 2 + Plane_Margin / 2 * metrics.lineSpacing(), named);
}

// The height of the position labels and of the axis title below them and below the lowest value.
double Bottom_Margin(const Chart& chart, double height, const QFont& font, const QPaintDevice* device)
{
    const double label = Metrics_Of(Sized(font, Label_Points), device).lineSpacing(),
                 title = 1.2 * Metrics_Of(font, device).lineSpacing();
    const auto frame = Drawn_Frame(chart);
    const auto free = [&](double y) { return (y - frame.Bottom) / (frame.Top - frame.Bottom); };
    return std::max({Plane_Margin * label, Taken_Off(label + title, free(X_Labels_At(chart)), height),
                     Taken_Off(title, free(Lowest_Tick * chart.Y.Low), height)});
}

} // namespace

QString Chart_Text(const std::string& bytes)
{
    return QString::fromStdString(To_Utf8(bytes));
}

QFont Sized(QFont font, double points)
{
    font.setPointSizeF(points);
    return font;
}

QFontMetricsF Metrics_Of(const QFont& font, const QPaintDevice* device)
{
    return device ? QFontMetricsF(font, device) : QFontMetricsF(font);
}

QFont Value_Label_Font(const QFont& text, const std::string& label)
{
    return Sized(text, label.size() >= Long_Label ? Long_Label_Points : Label_Points);
}

std::vector<Placed_Key> Placed_Keys(const Chart& chart, double width, const QFontMetricsF& metrics)
{
    const double line = metrics.lineSpacing();
    const double indent =
        (chart.X.Low - Drawn_Frame(chart).Left) / (Drawn_Frame(chart).Right - Drawn_Frame(chart).Left) * width;
    std::vector<Placed_Key> placed;
    double left = indent;
    int row = 0;
    for (const Chart_Key& key : chart.Key) {
        const double needed = line + metrics.horizontalAdvance(Chart_Text(key.Text));
        if (left > indent && left + needed > width) {
            left = indent;
            ++row;
        }
        placed.push_back({&key, left, row});
        left += needed + 0.8 * line;
    }
    return placed;
}

std::vector<const Chart_Tick*> Shown_Labels(const Chart_Axis& axis, double needed, double pixels_of_unit)
{
    std::vector<const Chart_Tick*> shown;
    for (const Chart_Tick& tick : axis.Ticks) {
        if (!tick.Label.empty())
            shown.push_back(&tick);
    }
    if (shown.size() < 2)
        return shown;
    const double apart = shown[1]->At - shown[0]->At;
    const auto every = std::max(1L, static_cast<long>(std::ceil(needed / (apart * pixels_of_unit))));
    std::erase_if(shown,
                  [&](const Chart_Tick* tick) { return std::lround((axis.First + tick->At) / apart) % every != 0; });
    return shown;
}

Chart_Plane::Chart_Plane(const Chart& chart, const QRectF& area, const QFont& font, const QPaintDevice* device)
    : Frame(Drawn_Frame(chart))
{
    const auto metrics = Metrics_Of(font, device);
    Plane = area.adjusted(0, metrics.lineSpacing() * Lines_Above(chart, area.width(), metrics), 0, 0);
    Plane.adjust(Left_Margin(chart, Plane.width(), font, device), 0, -Right_Margin(chart, font, device),
                 -Bottom_Margin(chart, Plane.height(), font, device));
}

QPointF Chart_Plane::At(double x, double y) const
{
    return {Plane.left() + (x - Frame.Left) / (Frame.Right - Frame.Left) * Plane.width(),
            Plane.bottom() - (y - Frame.Bottom) / (Frame.Top - Frame.Bottom) * Plane.height()};
}

double Chart_Plane::X_Of(double pixel) const
{
    return Frame.Left + (pixel - Plane.left()) / Plane.width() * (Frame.Right - Frame.Left);
}

double Chart_Plane::Y_Of(double pixel) const
{
    return Frame.Bottom + (Plane.bottom() - pixel) / Plane.height() * (Frame.Top - Frame.Bottom);
}

} // namespace orvel
