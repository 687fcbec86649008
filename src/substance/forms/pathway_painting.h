#pragma once

#include "substance/pathway_picture.h"

#include <QLineF>
#include <QPainter>
#include <QPalette>

namespace orvel {

// The degradation scheme's parts, painted alike in a window and on paper.

// A colour of the scheme: black lines take the palette's colour of text, which is light on a dark ground.
QColor Line_Colour(const Arrow_Look& look, const QPalette& palette);

void Paint_Box(QPainter& painter, const QRectF& box, const Box_Look& look, const QString& text, const QPen& frame);
void Paint_Arrow_Line(QPainter& painter, const QLineF& line, const Arrow_Look& look, const QPalette& palette);
// The tip lies in the middle of the square's side that the angle, in degrees counter-clockwise, points to.
void Paint_Arrow_Head(QPainter& painter, const QRectF& square, double angle, const Arrow_Look& look,
                      const QPalette& palette);
void Paint_Sink(QPainter& painter, const QRectF& sink, const QPalette& palette);

// The whole scheme in the middle of an area of any device, with captions of the boxes from 1.
void Paint_Scheme(QPainter& painter, const QRectF& area, const Pesticide_Document& document,
                  const Per_Substance<std::string>& captions, const QPalette& palette);

} // namespace orvel
