#include "substance/forms/pathway_painting.h"

#include "substance/forms/pathway_geometry.h"
#include "ui/forms/widgets.h"

#include <algorithm>
#include <QFontInfo>

namespace orvel {

namespace {

constexpr double Corner = 6;
constexpr double Head_Half_Width = 0.3; // of the square's side
constexpr double Narrow_Margin = 0.05;  // of a narrow box's width
constexpr double Least_Shrinking = 0.7;
constexpr int Text_Height = 15; // font height in print

// Shrinks the font to fit the text, but not below a readable size.
QFont Fitting_Font(QFont font, const QString& text, double room)
{
    const double needed = QFontMetricsF(font).horizontalAdvance(text);
    if (needed > room)
        font.setPixelSize(static_cast<int>(QFontInfo(font).pixelSize() * std::max(Least_Shrinking, room / needed)));
    return font;
}

void Write_In(QPainter& painter, const QRectF& box, const QString& text)
{
    const double room = box.width() - 2 * std::min(Corner, box.width() * Narrow_Margin);
    const QFont font = painter.font();
    painter.setFont(Fitting_Font(font, text, room));
    painter.drawText(box, Qt::AlignCenter,
                     painter.fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(room)));
    painter.setFont(font);
}

} // namespace

QColor Line_Colour(const Arrow_Look& look, const QPalette& palette)
{
    return look.Pen == Scheme_Colour{} ? palette.color(QPalette::WindowText)
                                       : QColor(look.Pen.Red, look.Pen.Green, look.Pen.Blue);
}

void Paint_Box(QPainter& painter, const QRectF& box, const Box_Look& look, const QString& text, const QPen& frame)
{
    const double wide = frame.widthF();
    painter.setPen(frame);
    painter.setBrush(QColor(look.Back.Red, look.Back.Green, look.Back.Blue));
    painter.drawRoundedRect(box.adjusted(wide, wide, -wide, -wide), Corner, Corner);
    painter.setPen(Qt::black); // both backgrounds are light in every palette
    Write_In(painter, box, text.trimmed());
}

void Paint_Arrow_Line(QPainter& painter, const QLineF& line, const Arrow_Look& look, const QPalette& palette)
{
    painter.setPen(QPen(Line_Colour(look, palette), look.Width));
    painter.drawLine(line);
}

void Paint_Arrow_Head(QPainter& painter, const QRectF& square, double angle, const Arrow_Look& look,
                      const QPalette& palette)
{
    const double side = std::min(square.width(), square.height());
    painter.save();
    painter.translate(square.center());
    painter.rotate(-angle);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Line_Colour(look, palette));
    const QPointF tip[] = {{side / 2, 0}, {-side / 4, -side * Head_Half_Width}, {-side / 4, side * Head_Half_Width}};
    painter.drawPolygon(tip, 3);
    painter.restore();
}

void Paint_Sink(QPainter& painter, const QRectF& sink, const QPalette& palette)
{
    painter.setPen(palette.color(QPalette::WindowText));
    painter.setBrush(palette.color(QPalette::Button));
    painter.drawRect(sink);
    painter.setPen(palette.color(QPalette::ButtonText));
    Write_In(painter, sink, "B.RES");
}

void Paint_Scheme(QPainter& painter, const QRectF& area, const Pesticide_Document& document,
                  const Per_Substance<std::string>& captions, const QPalette& palette)
{
    const double scale = std::min(area.width() / Drawing_Size.width(), area.height() / Drawing_Size.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(area, palette.base());
    painter.translate(area.center());
    painter.scale(scale, scale);
    painter.translate(-QRectF(QPointF(), Drawing_Size).center());
    QFont font = painter.font();
    font.setPixelSize(Text_Height);
    painter.setFont(font);
    for (int t = 1; t <= Last_Transformation; ++t) {
        if (!Arrow_Is_Clickable(t))
            continue;
        const QLineF line = Line_Of_Arrow(t);
        const auto look = Look_Of_Arrow(document, t);
        Paint_Arrow_Line(painter, {line.p1(), Head_Of_Arrow(t).center()}, look, palette);
        Paint_Arrow_Head(painter, Head_Of_Arrow(t), line.angle(), look, palette);
    }
    for (int i = 1; i <= Substances; ++i) {
        if (document.Bound_Active[static_cast<std::size_t>(i)])
            Paint_Sink(painter, Sink_Of_Substance(i), palette);
        Paint_Box(painter, Box_Of_Substance(i), Look_Of_Box(document, i), Shown(captions[static_cast<std::size_t>(i)]),
                  QPen(palette.windowText(), 1));
    }
    painter.restore();
}

} // namespace orvel
