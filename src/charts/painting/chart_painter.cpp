#include "charts/painting/chart_painter.h"

#include "core/code_page.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <QPolygonF>

namespace {

constexpr double Line_Width = 1.3;
constexpr double Margin = 0.6;       // of a line of text
constexpr double Title_Scale = 1.15; // of the text's size

QString Text(const std::string& bytes)
{
    return QString::fromStdString(To_Utf8(bytes));
}

constexpr double Key_Square = 0.7; // of a line of text

struct Placed_Key {
    const Chart_Key* Key;
    double Left; // from the left edge of the picture
    int Row;
};

// The keys of a chart in as many rows as they need.
std::vector<Placed_Key> Placed_Keys(const Chart& chart, double width, const QFontMetricsF& metrics)
{
    const double line = metrics.lineSpacing();
    const double indent = (chart.X.Low - chart.Frame.Left) / (chart.Frame.Right - chart.Frame.Left) * width;
    std::vector<Placed_Key> placed;
    double left = indent;
    int row = 0;
    for (const Chart_Key& key : chart.Key) {
        const double needed = line + metrics.horizontalAdvance(Text(key.Text));
        if (left > indent && left + needed > width) {
            left = indent;
            ++row;
        }
        placed.push_back({&key, left, row});
        left += needed + 0.8 * line;
    }
    return placed;
}

double Lines_Above(const Chart& chart, double width, const QFontMetricsF& metrics)
{
    const auto keys = Placed_Keys(chart, width, metrics);
    return 1.6 * Title_Scale + static_cast<double>(chart.Legend.size()) + (keys.empty() ? 0 : keys.back().Row);
}

QFont Sized(QFont font, double points)
{
    font.setPointSizeF(points);
    return font;
}

class Chart_Drawing {
public:
    Chart_Drawing(QPainter& painter, const QRectF& area, const Chart& chart, const QPalette& palette)
        : Painter(painter),
          Area(area),
          Drawn(chart),
          Palette(palette),
          Plane(chart, area, QFontMetricsF(painter.font(), painter.device())),
          Line(QFontMetricsF(painter.font(), painter.device()).lineSpacing())
    {}

    void Draw()
    {
        Painter.fillRect(Area, Palette.base());
        Painter.setRenderHint(QPainter::Antialiasing);
        Draw_Title();
        Draw_Key();
        Draw_Boxes();
        Draw_Lines();
        Draw_X_Axis();
        Draw_Y_Axis();
    }

private:
    void Draw_Title()
    {
        Painter.setPen(Palette.color(QPalette::Text));
        const QFont plain = Painter.font();
        QFont title = Sized(plain, plain.pointSizeF() * Title_Scale);
        title.setBold(true);
        Painter.setFont(title);
        QRectF row(Area.left(), Area.top() + Line * Margin / 2, Area.width(), Line * Title_Scale * 1.2);
        Painter.drawText(row, Qt::AlignCenter, Text(Drawn.Title));
        Painter.setFont(plain);
        row = QRectF(Area.left(), row.bottom(), Area.width(), Line);
        for (const std::string& legend : Drawn.Legend) {
            Painter.drawText(row, Qt::AlignCenter, Text(legend));
            row.translate(0, Line);
        }
    }

    void Draw_Boxes()
    {
        for (const Chart_Box& box : Drawn.Boxes)
            Painter.fillRect(QRectF(Plane.At(box.Left, box.Y), Plane.At(box.Right, 0)).normalized(), Colour_Of(box.Drawn_In, Palette));
    }

    void Draw_Lines()
    {
        Painter.save();
        Painter.setClipRect(Plane.Area());
        for (const Chart_Line& line : Drawn.Lines) {
            QPen pen(Colour_Of(line.Drawn_In, Palette), Line_Width * Line / 16);
            pen.setJoinStyle(Qt::RoundJoin);
            Painter.setPen(pen);
            Painter.drawPolyline(Thinned(line.Points));
        }
        Painter.restore();
    }

    // Of the points in one column of pixels, the first, the lowest, the highest and the last stand for all.
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
            for (const QPointF& point : {first, low.x() < high.x() ? low : high, low.x() < high.x() ? high : low, last}) {
                if (polygon.isEmpty() || polygon.back() != point)
                    polygon << point;
            }
        }
        return polygon;
    }

    void Draw_X_Axis()
    {
        const double length = Drawn.X.High - Drawn.X.Low, size = std::max(std::fabs(Drawn.Y.Low), std::fabs(Drawn.Y.High));
        Painter.setPen(QPen(Palette.color(QPalette::Text), Line / 16));
        Painter.drawLine(Plane.At(Drawn.X.Low, 0), Plane.At(Drawn.X.High, 0));
        Painter.setFont(Sized(Painter.font(), Label_Points));
        const QFontMetricsF metrics(Painter.font(), Painter.device());
        double free_from = -1e300;
        for (const Chart_Tick& tick : Drawn.X.Ticks) {
            const std::array<double, 3> lengths = {Big_X_Tick, Small_X_Tick, Tiny_X_Tick};
            Painter.drawLine(Plane.At(tick.At, 0), Plane.At(tick.At, -size * lengths[static_cast<std::size_t>(tick.Rank)]));
            const QString label = Text(tick.Label);
            const double width = metrics.horizontalAdvance(label), middle = Plane.At(tick.At, 0).x();
            if (label.isEmpty() || middle - width / 2 < free_from)
                continue;
            Painter.drawText(QRectF(middle - width, Plane.At(0, size * X_Label_Below).y(), 2 * width, Line), Qt::AlignHCenter | Qt::AlignTop, label);
            free_from = middle + width / 2 + metrics.averageCharWidth();
        }
        const double below = std::min(Plane.At(0, size * X_Label_Below).y() + Line, Area.bottom() - Line * 1.2);
        Painter.drawText(QRectF(Plane.At(Drawn.X.Low, 0).x(), below, Plane.At(length, 0).x() - Plane.At(0, 0).x(), Line * 1.2), Qt::AlignCenter,
                         Text(Drawn.X.Title));
    }

    void Draw_Y_Axis()
    {
        const double length = Drawn.X.High - Drawn.X.Low;
        const QFontMetricsF metrics(Painter.font(), Painter.device());
        double last = Drawn.Y.High, first = Drawn.Y.Low;
        for (const Chart_Tick& tick : Drawn.Y.Ticks) {
            last = std::max(last, tick.At);
            first = std::min(first, tick.At);
            const std::array<double, 3> lengths = {Big_Y_Tick, Small_Y_Tick, Tiny_Y_Tick};
            Painter.drawLine(Plane.At(0, tick.At), Plane.At(-length * lengths[static_cast<std::size_t>(tick.Rank)], tick.At));
            Draw_Y_Label(tick, length);
        }
        Painter.drawLine(Plane.At(0, first), Plane.At(0, last));
        const QPointF top = Plane.At(0, last);
        Painter.drawText(QRectF(Area.left() + Line * Margin, top.y() - 1.6 * Line, Area.width(), Line * 1.2), Qt::AlignLeft | Qt::AlignVCenter,
                         Text(Drawn.Y.Title));
    }

    void Draw_Y_Label(const Chart_Tick& tick, double length)
    {
        if (tick.Label.empty())
            return;
        const bool is_long = tick.Label.size() >= Long_Label;
        const QFont plain = Painter.font();
        Painter.setFont(Sized(plain, is_long ? Long_Label_Points : Label_Points));
        const double right = Plane.At(-length * Big_Y_Tick, 0).x() - Line * 0.2;
        Painter.drawText(QRectF(Area.left(), Plane.At(0, tick.At).y() - Line / 2, right - Area.left(), Line), Qt::AlignRight | Qt::AlignVCenter,
                         Text(tick.Label));
        Painter.setFont(plain);
    }

    void Draw_Key()
    {
        const auto keys = Placed_Keys(Drawn, Area.width(), QFontMetricsF(Painter.font(), Painter.device()));
        for (const auto& [key, left, row] : keys) {
            const double top = Plane.Area().top() - (keys.back().Row - row) * Line;
            Painter.fillRect(QRectF(Area.left() + left, top, Line * Key_Square, Line * Key_Square), Colour_Of(key->Drawn_In, Palette));
            Painter.drawText(QPointF(Area.left() + left + Line, top + Line * 0.65), Text(key->Text));
        }
    }

    QPainter& Painter;
    QRectF Area;
    const Chart& Drawn;
    QPalette Palette;
    Chart_Plane Plane;
    double Line;
};

} // namespace

QPalette Paper_Palette()
{
    QPalette paper;
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, Qt::black);
    return paper;
}

QColor Colour_Of(Colour role, const QPalette& palette)
{
    // Hues that people of every colour vision tell apart; lighter on a dark ground.
    static constexpr std::array<QRgb, 9> hues = {0xFF2F6FB5, 0xFFD1492E, 0xFF2F6FB5, 0xFF56B4E9, 0xFFE69F00, 0xFF8B6BB1, 0xFF009E73, 0xFFD1492E, 0xFF8C8C8C};
    const QColor colour(hues[static_cast<std::size_t>(role)]);
    return palette.color(QPalette::Base).lightness() < 128 ? colour.lighter(140) : colour;
}

Chart_Plane::Chart_Plane(const Chart& chart, const QRectF& area, const QFontMetricsF& metrics)
    : Frame(chart.Frame),
      Plane(area.adjusted(0, metrics.lineSpacing() * Lines_Above(chart, area.width(), metrics), 0, -metrics.lineSpacing() * Margin))
{}

QPointF Chart_Plane::At(double x, double y) const
{
    return {Plane.left() + (x - Frame.Left) / (Frame.Right - Frame.Left) * Plane.width(),
            Plane.bottom() - (y - Frame.Bottom) / (Frame.Top - Frame.Bottom) * Plane.height()};
}

double Chart_Plane::X_Of(double pixel) const
{
    return Frame.Left + (pixel - Plane.left()) / Plane.width() * (Frame.Right - Frame.Left);
}

void Paint_Chart(QPainter& painter, const QRectF& area, const Chart& chart, const QPalette& palette)
{
    painter.save();
    Chart_Drawing(painter, area, chart, palette).Draw();
    painter.restore();
}
