#pragma once

#include "substance/pathway_picture.h"

#include <QLineF>
#include <QPainter>
#include <QPalette>

namespace orvel {

// Painting of the degradation scheme, identical on screen and on paper.

// The colour of an arrow: black follows the palette's text colour, which is light on a dark background.
QColor Line_Colour(const Arrow_Look& look, const QPalette& palette);

void Paint_Box(QPainter& painter, const QRectF& box, const Box_Look& look, const QString& text, const QPen& frame);
void Paint_Arrow_Line(QPainter& painter, const QLineF& line, const Arrow_Look& look, const QPalette& palette);
// The tip is in the middle of the side of the square that the angle (degrees, counter-clockwise) points to.
void Paint_Arrow_Head(QPainter& painter, const QRectF& square, double angle, const Arrow_Look& look,
                      const QPalette& palette);
void Paint_Sink(QPainter& painter, const QRectF& sink, const QPalette& palette);

// Paints the whole scheme centred in an area of any device; the captions of the boxes start at index 1.
void Paint_Scheme(QPainter& painter, const QRectF& area, const Pesticide_Document& document,
                  const Per_Substance<std::string>& captions, const QPalette& palette);

} // namespace orvel
