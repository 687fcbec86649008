#include "charts/painting/chart_painter.h"

#include "charts/hues.h"
#include "charts/scale.h"
#include "charts/value_at.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <QPolygonF>

namespace orvel {

namespace {

constexpr double Most_Crossings = 50; // heights of the plane that a line may cover and still be drawn wide and smooth
constexpr double Line_Width = 1.3;
constexpr double Margin = 0.6;     // of a line of text
constexpr double Key_Square = 0.7; // of a line of text
constexpr double Least_Points = 4;
constexpr float Grid_Strength = 0.14F;          // of the text's colour
constexpr QMarginsF Dot_Margins = {2, 2, 2, 2}; // in widths of a line

// Archive documents know no transparency: they would show a pale line in full strength.
QColor Mixed(const QColor& ink, const QColor& ground, float share)
{
    const auto mix = [share](float a, float b) { return share * a + (1 - share) * b; };
    return QColor::fromRgbF(mix(ink.redF(), ground.redF()), mix(ink.greenF(), ground.greenF()),
                            mix(ink.blueF(), ground.blueF()));
}

class Chart_Drawing {
public:
    Chart_Drawing(QPainter& painter, const QRectF& area, const Chart& chart, const QPalette& palette)
        : Painter(painter),
          Area(area),
          Source(chart),
          Palette(palette),
          Plain(painter.font()),
          Plane(chart, area, Plain, painter.device()),
          Line(Metrics_Of(Plain, painter.device()).lineSpacing())
    {}

    void Draw()
    {
        Painter.fillRect(Area, Palette.base());
        Painter.setRenderHint(QPainter::Antialiasing);
        Draw_Title();
        if (!(Source.Frame.Right > Source.Frame.Left)) // nothing to draw
            return;
        Draw_Key();
        Draw_Grid();
        Painter.save();
        Painter.setClipRect(Plane.Area());
        Draw_Boxes();
        Draw_Bars();
        Draw_Lines();
        Painter.restore();
        Draw_Dots();
        Draw_Names();
        Draw_X_Axis();
        Draw_Y_Axis();
        Painter.drawText(Plane.Area(), Qt::AlignCenter | Qt::TextWordWrap, Chart_Text(Source.Nothing));
    }

private:
    // Pale lines at the labelled ticks; beside boxes, which stand at every position, only those of the values,
    // and beside bars only those of the positions.
    void Draw_Grid()
    {
        Painter.setPen(
            QPen(Mixed(Palette.color(QPalette::Text), Palette.color(QPalette::Base), Grid_Strength), Line / 24));
        const double high = std::max(Source.Y.High, Source.Y.Ticks.empty() ? 0 : Source.Y.Ticks.back().At);
        for (const Chart_Tick* tick : Y_Labels()) {
            if (Source.Bars.empty())
                Painter.drawLine(Plane.At(Source.X.Low, tick->At), Plane.At(Source.X.High, tick->At));
        }
        for (const Chart_Tick* tick : X_Labels()) {
            if (Source.Boxes.empty())
                Painter.drawLine(Plane.At(tick->At, Source.Y.Low), Plane.At(tick->At, high));
        }
    }

    // Where the plane is free of the key; in a low picture no scale leaves room for a figure above a box.
    double Below_Key() const { return Plane.Area().top() + (Source.Key.empty() ? 0 : Line * Key_Square); }

    // The names of lines behind their ends, where no box stands, and the labels of boxes.
    void Draw_Names()
    {
        Painter.setFont(Sized(Plain, Long_Label_Points));
        const double height = Metrics_Of(Painter.font(), Painter.device()).height();
        for (const Chart_Line& line : Source.Lines) {
            if (line.Name.empty() || line.Points.empty())
                continue;
            const QPointF end = Plane.At(line.Points.back().X, line.Points.back().Y);
            Painter.setPen(Colour_Of(line.Drawn_In, Palette));
            Painter.drawText(QRectF(end.x() + Name_Gap * height, end.y() - height / 2, 0, height),
                             Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, Chart_Text(line.Name));
        }
        Painter.setPen(Palette.color(QPalette::Text));
        for (const Chart_Box& box : Source.Boxes) {
            if (box.Label.empty())
                continue;
            const QPointF end = Plane.At((box.Left + box.Right) / 2, Top_Of(Source, box));
            const double dots = Source.Dots.empty() ? 0 : Line * Marked_Dot_Radius;
            const double above = std::max(Below_Key(), end.y() - height - dots);
            const QRectF place(end.x(), box.Y < 0 ? end.y() : above, 0, height);
            QRectF ground;
            Painter.drawText(place, Qt::AlignCenter | Qt::TextDontClip, Chart_Text(box.Label), &ground);
            Painter.fillRect(ground, Palette.base()); // a line may pass behind the figure
            Painter.drawText(place, Qt::AlignCenter | Qt::TextDontClip, Chart_Text(box.Label));
        }
        for (const Chart_Bar& bar : Source.Bars)
            Draw_Bar_Label(bar, height);
        Painter.setFont(Plain);
    }

    // Beyond its end, on the side to which the bar goes.
    void Draw_Bar_Label(const Chart_Bar& bar, double height)
    {
        const QPointF end = Plane.At(bar.To, (bar.Low + bar.High) / 2);
        const bool leftwards = bar.To < bar.From;
        const QRectF place(end.x() + (leftwards ? -1 : 1) * Name_Gap * height, end.y() - height / 2, 0, height);
        Painter.drawText(place, (leftwards ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter | Qt::TextDontClip,
                         Chart_Text(bar.Label));
    }

    std::vector<const Chart_Tick*> X_Labels() const
    {
        const auto metrics = Metrics_Of(Sized(Plain, Label_Points), Painter.device());
        double widest = 0;
        for (const Chart_Tick& tick : Source.X.Ticks)
            widest = std::max(widest, metrics.horizontalAdvance(Chart_Text(tick.Label)));
        return Shown_Labels(Source.X, widest + metrics.averageCharWidth(), Plane.At(1, 0).x() - Plane.At(0, 0).x());
    }

    std::vector<const Chart_Tick*> Y_Labels() const
    {
        const double height = Metrics_Of(Sized(Plain, Label_Points), Painter.device()).height();
        return Shown_Labels(Source.Y, height, Plane.At(0, 0).y() - Plane.At(0, 1).y());
    }

    void Draw_Title()
    {
        Painter.setPen(Palette.color(QPalette::Text));
        QFont title = Sized(Plain, Plain.pointSizeF() * Title_Scale);
        title.setBold(true);
        QRectF row(Area.left(), Area.top() + Line * Margin / 2, Area.width(), Line * Title_Scale * 1.2);
        Painter.setFont(Fitting(title, {Source.Title}));
        Painter.drawText(row, Qt::AlignCenter, Chart_Text(Source.Title));
        row = QRectF(Area.left(), row.bottom(), Area.width(), Line);
        Painter.setFont(Fitting(Plain, Source.Legend));
        for (const std::string& legend : Source.Legend) {
            Painter.drawText(row, Qt::AlignCenter, Chart_Text(legend));
            row.translate(0, Line);
        }
        Painter.setFont(Plain);
    }

    // The font, smaller if the picture is too narrow for one of the lines.
    QFont Fitting(QFont font, const std::vector<std::string>& lines) const
    {
        for (const std::string& line : lines) {
            const auto needed = [&] {
                return Metrics_Of(font, Painter.device()).horizontalAdvance(Chart_Text(line)) + Line * Margin;
            };
            while (needed() > Area.width() && font.pointSizeF() > Least_Points)
                font.setPointSizeF(font.pointSizeF() - Least_Points / 8);
        }
        return font;
    }

    void Draw_Boxes()
    {
        for (const Chart_Box& box : Source.Boxes)
            Painter.fillRect(QRectF(Plane.At(box.Left, box.Y), Plane.At(box.Right, 0)).normalized(),
                             Colour_Of(box.Drawn_In, Palette));
    }

    void Draw_Bars()
    {
        for (const Chart_Bar& bar : Source.Bars)
            Painter.fillRect(QRectF(Plane.At(bar.From, bar.High), Plane.At(bar.To, bar.Low)).normalized(),
                             Colour_Of(bar.Drawn_In, Palette));
    }

    void Draw_Lines()
    {
        for (const Chart_Line& line : Source.Lines) {
            QPen pen(Colour_Of(line.Drawn_In, Palette), Line_Width * Line / 16);
            pen.setJoinStyle(Qt::RoundJoin);
            const QPolygonF polygon = Thinned(line.Points);
            // Filling the outline of a line that crosses the plane hundreds of times takes seconds; a hairline gives
            // the same band.
            const bool is_dense = Way_Up_And_Down(polygon) > Most_Crossings * Plane.Area().height();
            if (is_dense)
                pen.setWidth(0);
            Painter.setPen(pen);
            Painter.setRenderHint(QPainter::Antialiasing, !is_dense);
            Painter.drawPolyline(polygon);
            Painter.setRenderHint(QPainter::Antialiasing);
            if (polygon.size() == 1) // a line of one point has no length
                Painter.fillRect(QRectF(polygon.front(), QSizeF()).marginsAdded(Dot_Margins * pen.widthF()),
                                 pen.color());
        }
    }

    // A rim in the colour of the text keeps a dot visible on a box of any colour; a marked one is filled with it.
    void Draw_Dots()
    {
        for (const Chart_Dot& dot : Source.Dots) {
            const double radius = Line * (dot.Marked ? Marked_Dot_Radius : Dot_Radius);
            Painter.setPen(QPen(Palette.color(QPalette::Text), Line / (dot.Marked ? 8 : 16)));
            Painter.setBrush(dot.Marked ? Colour_Of(dot.Drawn_In, Palette) : Palette.color(QPalette::Base));
            Painter.drawEllipse(Plane.At(dot.X, dot.Y), radius, radius);
        }
        Painter.setBrush(Qt::NoBrush);
    }

    static double Way_Up_And_Down(const QPolygonF& polygon)
    {
        double way = 0;
        for (qsizetype i = 1; i < polygon.size(); ++i)
            way += std::fabs(polygon[i].y() - polygon[i - 1].y());
        return way;
    }

    // Keeps the first, lowest, highest and last of the points in each column of pixels.
    QPolygonF Thinned(const std::vector<Chart_Point>& points) const
    {
        QPolygonF polygon;
        for (std::size_t i = 0; i < points.size();) {
            const QPointF first = Plane.At(points[i].X, points[i].Y);
            const double column = std::floor(first.x());
            QPointF low = first, high = first, last = first;
            for (++i; i < points.size(); ++i) {
                const QPointF next = Plane.At(points[i].X, points[i].Y);
                if (std::floor(next.x()) != column)
                    break;
                low = next.y() > low.y() ? next : low;
                high = next.y() < high.y() ? next : high;
                last = next;
            }
            for (const QPointF& point :
                 {first, low.x() < high.x() ? low : high, low.x() < high.x() ? high : low, last}) {
                if (polygon.isEmpty() || polygon.back() != point)
                    polygon << point;
            }
        }
        return polygon;
    }

    void Draw_X_Axis()
    {
        const double size = Value_Size(Source.Y);
        Painter.setPen(QPen(Palette.color(QPalette::Text), Line / 16));
        Painter.drawLine(Plane.At(Source.X.Low, 0), Plane.At(Source.X.High, 0));
        constexpr std::array<double, 3> lengths = {Big_X_Tick, Small_X_Tick, Tiny_X_Tick};
        for (const Chart_Tick& tick : Source.X.Ticks)
            Painter.drawLine(Plane.At(tick.At, 0),
                             Plane.At(tick.At, -size * lengths[static_cast<std::size_t>(tick.Rank)]));
        const double labels_end = Draw_X_Labels(Plane.At(0, X_Labels_At(Source)).y());
        const double below =
            std::max(labels_end, Plane.At(0, Source.Y.Ticks.empty() ? 0 : Source.Y.Ticks.front().At).y());
        const double left = Plane.At(Source.X.Low, 0).x();
        Painter.drawText(QRectF(left, below, Plane.At(Source.X.High, 0).x() - left, Line * 1.2), Qt::AlignCenter,
                         Chart_Text(Source.X.Title));
    }

    // Returns where the labels end.
    double Draw_X_Labels(double top)
    {
        Painter.setFont(Sized(Plain, Label_Points));
        const auto metrics = Metrics_Of(Painter.font(), Painter.device());
        for (const Chart_Tick* tick : X_Labels())
            Painter.drawText(QRectF(Plane.At(tick->At, 0).x(), top, 0, metrics.height()),
                             Qt::AlignCenter | Qt::TextDontClip, Chart_Text(tick->Label));
        Painter.setFont(Plain);
        return top + metrics.lineSpacing();
    }

    void Draw_Y_Axis()
    {
        const double length = Source.X.High - Source.X.Low;
        constexpr std::array<double, 3> lengths = {Big_Y_Tick, Small_Y_Tick, Tiny_Y_Tick};
        double last = Source.Y.High, first = Source.Y.Low;
        for (const Chart_Tick& tick : Source.Y.Ticks) {
            last = std::max(last, tick.At);
            first = std::min(first, tick.At);
            Painter.drawLine(Plane.At(0, tick.At),
                             Plane.At(-length * lengths[static_cast<std::size_t>(tick.Rank)], tick.At));
        }
        for (const Chart_Tick* tick : Y_Labels())
            Draw_Y_Label(*tick, length);
        Painter.drawLine(Plane.At(0, first), Plane.At(0, last));
        const QPointF top = Plane.At(0, last);
        Painter.drawText(QRectF(Area.left() + Line * Margin, top.y() - 1.6 * Line, Area.width(), Line * 1.2),
                         Qt::AlignLeft | Qt::AlignVCenter, Chart_Text(Source.Y.Title));
    }

    // Right-aligned at its tick.
    void Draw_Y_Label(const Chart_Tick& tick, double length)
    {
        Painter.setFont(Value_Label_Font(Plain, tick.Label));
        const double right = Plane.At(-length * Big_Y_Tick, 0).x() - Line * Margin / 2;
        Painter.drawText(QRectF(Area.left(), Plane.At(0, tick.At).y() - Line / 2, right - Area.left(), Line),
                         Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip, Chart_Text(tick.Label));
        Painter.setFont(Plain);
    }

    void Draw_Key()
    {
        const auto keys = Placed_Keys(Source, Area.width(), Metrics_Of(Plain, Painter.device()));
        for (const auto& [key, left, row] : keys) {
            const double top = Plane.Area().top() - (keys.back().Row - row) * Line;
            Painter.fillRect(QRectF(Area.left() + left, top, Line * Key_Square, Line * Key_Square),
                             Colour_Of(key->Drawn_In, Palette));
            Painter.drawText(QPointF(Area.left() + left + Line, top + Line * 0.65), Chart_Text(key->Text));
        }
    }

    QPainter& Painter;
    QRectF Area;
    const Chart& Source;
    QPalette Palette;
    QFont Plain;
    Chart_Plane Plane;
    double Line;
};

} // namespace

QPalette Paper_Palette()
{
    QPalette paper;
    for (const auto ground : {QPalette::Base, QPalette::Window, QPalette::Button})
        paper.setColor(ground, Qt::white);
    for (const auto ink : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        paper.setColor(ink, Qt::black);
    return paper;
}

QColor Colour_Of(Colour role, const QPalette& palette)
{
    const QColor colour(QRgb(Hue_Of(role)));
    return palette.color(QPalette::Base).lightness() < 128 ? colour.lighter(160) : colour;
}

void Paint_Chart(QPainter& painter, const QRectF& area, const Chart& chart, const QPalette& palette)
{
    painter.save();
    Chart_Drawing(painter, area, chart, palette).Draw();
    painter.restore();
}

} // namespace orvel
