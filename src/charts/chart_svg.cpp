#include "charts/chart_svg.h"

#include "charts/hues.h"
#include "charts/scale.h"
#include "charts/value_at.h"
#include "core/numbers.h"
#include "core/xml.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace orvel {

namespace {

constexpr double Width = 760, Height = 400, Key_Height = 30, Line = 16, Letter = 7, Name_Gap = 6,
                 Below = 16; // below the plane, for the title of the x axis

std::string Place(double value)
{
    return Format_Pattern(value, "0.00");
}

std::string Fill(Colour role)
{
    constexpr std::string_view Digits = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4)
        text += Digits[(Hue_Of(role) >> static_cast<unsigned>(shift)) & 15U];
    return text;
}

class Svg_Drawing {
public:
    explicit Svg_Drawing(const Chart& chart)
        : Source(chart),
          Frame(Drawn_Frame(chart)),
          Length(chart.X.High - chart.X.Low),
          Size(Value_Size(chart.Y))
    {}

    std::string Draw()
    {
        Out = "<svg xmlns=\"http://www.w3.org/2000/svg\" role=\"img\" viewBox=\"0 0 " + Place(Width + Beside()) + " " +
              Place(Height + Below) + "\">\n<title>" + Xml_Text(Source.Title) + "</title>\n";
        if (Source.Frame.Right > Source.Frame.Left && Source.Frame.Top > Source.Frame.Bottom)
            Plane();
        return Out + "</svg>\n";
    }

private:
    void Plane()
    {
        Key();
        for (const Chart_Tick& tick : Source.Y.Ticks) {
            if (tick.Rank == Tick_Rank::Big)
                Stroke(X(Source.X.Low), Y(tick.At), X(Source.X.High), Y(tick.At), " stroke-opacity=\"0.12\"");
        }
        for (const Chart_Box& box : Source.Boxes)
            Rectangle(X(box.Left), std::min(Y(box.Y), Y(0)), X(box.Right) - X(box.Left), std::fabs(Y(box.Y) - Y(0)),
                      box.Drawn_In);
        for (const Chart_Bar& bar : Source.Bars)
            Rectangle(X(std::min(bar.From, bar.To)), Y(bar.High), std::fabs(X(bar.To) - X(bar.From)),
                      Y(bar.Low) - Y(bar.High), bar.Drawn_In);
        for (const Chart_Line& line : Source.Lines)
            Polyline(line);
        for (const Chart_Dot& dot : Source.Dots)
            Circle(dot);
        Names();
        X_Axis();
        Y_Axis();
    }

    // The room for the names of lines behind their ends.
    double Beside() const
    {
        double room = 0;
        for (const Chart_Line& line : Source.Lines)
            room = std::max(room, Letter * static_cast<double>(line.Name.size()));
        return room;
    }

    double X(double x) const { return (x - Frame.Left) / (Frame.Right - Frame.Left) * Width; }
    double Y(double y) const
    {
        return Height - (y - Source.Frame.Bottom) / (Source.Frame.Top - Source.Frame.Bottom) * (Height - Key_Height);
    }

    // The names of lines behind their ends, the labels of boxes, and why there is nothing else.
    void Names()
    {
        for (const Chart_Line& line : Source.Lines) {
            if (!line.Points.empty())
                Text(X(line.Points.back().X) + Name_Gap, Y(line.Points.back().Y) + 4, "start", line.Name);
        }
        for (const Chart_Box& box : Source.Boxes)
            Text((X(box.Left) + X(box.Right)) / 2,
                 Y(Top_Of(Source, box)) + (box.Y < 0             ? Line
                                           : Source.Dots.empty() ? -4
                                                                 : -9),
                 "middle", box.Label);
        for (const Chart_Bar& bar : Source.Bars)
            Text(X(bar.To) + (bar.To < bar.From ? -4 : 4), Y((bar.Low + bar.High) / 2) + 4,
                 bar.To < bar.From ? "end" : "start", bar.Label);
        Text(Width / 2, Height / 2, "middle", Source.Nothing);
    }

    void Stroke(double x1, double y1, double x2, double y2, std::string_view style = {})
    {
        Out += "<line x1=\"" + Place(x1) + "\" y1=\"" + Place(y1) + "\" x2=\"" + Place(x2) + "\" y2=\"" + Place(y2) +
               "\" stroke=\"currentColor\"" + std::string(style) + "/>\n";
    }

    void Text(double x, double y, std::string_view anchor, std::string_view text)
    {
        if (!text.empty())
            Out += "<text x=\"" + Place(x) + "\" y=\"" + Place(y) + "\" text-anchor=\"" + std::string(anchor) +
                   "\" fill=\"currentColor\" font-size=\"13\">" + Xml_Text(text) + "</text>\n";
    }

    void Rectangle(double x, double y, double width, double height, Colour colour)
    {
        Out += "<rect x=\"" + Place(x) + "\" y=\"" + Place(y) + "\" width=\"" + Place(width) + "\" height=\"" +
               Place(height) + "\" fill=\"" + Fill(colour) + "\"/>\n";
    }

    void Circle(const Chart_Dot& dot)
    {
        Out += "<circle cx=\"" + Place(X(dot.X)) + "\" cy=\"" + Place(Y(dot.Y)) + "\" r=\"" +
               Place(Line * (dot.Marked ? Marked_Dot_Radius : Dot_Radius)) + "\" fill=\"" +
               (dot.Marked ? Fill(dot.Drawn_In) : std::string("#ffffff")) +
               "\" stroke=\"currentColor\" stroke-width=\"" + (dot.Marked ? "2" : "1") + "\">";
        if (!dot.Name.empty())
            Out += "<title>" + Xml_Text(dot.Name) + "</title>";
        Out += "</circle>\n";
    }

    void Polyline(const Chart_Line& line)
    {
        Out += "<polyline fill=\"none\" stroke=\"" + Fill(line.Drawn_In) + "\" points=\"";
        for (const Chart_Point& point : line.Points)
            Out += Place(X(point.X)) + "," + Place(Y(point.Y)) + " ";
        Out += "\"/>\n";
    }

    void Key()
    {
        double left = X(Source.X.Low);
        for (const Chart_Key& key : Source.Key) {
            Rectangle(left, 5, 11, 11, key.Drawn_In);
            Text(left + Line, 15, "start", key.Text);
            left += 3 * Line + Letter * static_cast<double>(key.Text.size());
        }
    }

    void X_Axis()
    {
        Stroke(X(Source.X.Low), Y(0), X(Source.X.High), Y(0));
        const double below = Y(X_Labels_At(Source)) + Line * 0.8;
        for (const Chart_Tick& tick : Source.X.Ticks) {
            Stroke(X(tick.At), Y(0), X(tick.At),
                   Y(-Size * std::array{Big_X_Tick, Small_X_Tick, Tiny_X_Tick}[static_cast<std::size_t>(tick.Rank)]));
            Text(X(tick.At), below, "middle", tick.Label);
        }
        Text(X((Source.X.Low + Source.X.High) / 2), below + 1.2 * Line, "middle", Source.X.Title);
    }

    void Y_Axis()
    {
        double first = Source.Y.Low, last = Source.Y.High;
        for (const Chart_Tick& tick : Source.Y.Ticks) {
            first = std::min(first, tick.At);
            last = std::max(last, tick.At);
            Stroke(X(0), Y(tick.At),
                   X(-Length * std::array{Big_Y_Tick, Small_Y_Tick, Tiny_Y_Tick}[static_cast<std::size_t>(tick.Rank)]),
                   Y(tick.At));
            Text(X(-Length * Big_Y_Tick) - 4, Y(tick.At) + Line * 0.3, "end", tick.Label);
        }
        Stroke(X(0), Y(first), X(0), Y(last));
        Text(4, Y(last) - 0.7 * Line, "start", Source.Y.Title);
    }

    const Chart& Source;
    Chart_Frame Frame;
    double Length, Size;
    std::string Out;
};

} // namespace

std::string Chart_Svg(const Chart& chart)
{
    return Svg_Drawing(chart).Draw();
}

} // namespace orvel
