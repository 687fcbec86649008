#include "substance/forms/scheme_button.h"

#include <algorithm>
#include <QPainter>

namespace {

constexpr double Corner = 6;
constexpr double Head_Half_Width = 0.3; // of the button's side

} // namespace

QColor Line_Colour(const Arrow_Look& look, const QPalette& palette)
{
    return look.Pen == Colour{} ? palette.color(QPalette::WindowText) : QColor(look.Pen.Red, look.Pen.Green, look.Pen.Blue);
}

void Substance_Box::Show(const Box_Look& look)
{
    Look = look;
    setCursor(look.Hand_Pointer ? Qt::PointingHandCursor : Qt::ArrowCursor);
    update();
}

void Substance_Box::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double wide = Is_Marked() ? 3 : 1;
    painter.setPen(QPen(palette().color(Is_Marked() ? QPalette::Highlight : QPalette::WindowText), wide));
    painter.setBrush(QColor(Look.Back.Red, Look.Back.Green, Look.Back.Blue));
    painter.drawRoundedRect(QRectF(rect()).adjusted(wide, wide, -wide, -wide), Corner, Corner);
    painter.setPen(Qt::black); // both backs are light in every palette
    const QString shown = fontMetrics().elidedText(text().trimmed(), Qt::ElideRight, width() - static_cast<int>(4 * Corner));
    painter.drawText(rect(), Qt::AlignCenter, shown);
}

void Arrow_Head::Show(const Arrow_Look& look)
{
    Look = look;
    setCursor(Qt::PointingHandCursor);
    update();
}

void Arrow_Head::Point_Along(const QLineF& line)
{
    Angle = line.angle();
    update();
}

void Arrow_Head::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (Is_Marked()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
    }
    const double side = std::min(width(), height());
    painter.translate(QRectF(rect()).center());
    painter.rotate(-Angle);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Line_Colour(Look, palette()));
    const QPointF tip[] = {{side / 2, 0}, {-side / 4, -side * Head_Half_Width}, {-side / 4, side * Head_Half_Width}};
    painter.drawPolygon(tip, 3);
}
