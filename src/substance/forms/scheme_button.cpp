#include "substance/forms/scheme_button.h"

#include "substance/forms/pathway_painting.h"

#include <QPainter>

namespace orvel {

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
    const QPen frame(palette().color(Is_Marked() ? QPalette::Highlight : QPalette::WindowText), wide);
    Paint_Box(painter, rect(), Look, text(), frame);
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
    Paint_Arrow_Head(painter, rect(), Angle, Look, palette());
}

} // namespace orvel
