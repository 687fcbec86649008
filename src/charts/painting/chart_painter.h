#pragma once

#include "charts/painting/chart_plane.h"

#include <QPainter>
#include <QPalette>
#include <QRectF>

namespace orvel {

// The palette of a picture on paper, and the colour of a role in a palette, be it a window's or that of paper.
QPalette Paper_Palette();
QColor Colour_Of(Colour role, const QPalette& palette);

// Draws a chart into an area of any device: title, legend, axes with ticks and labels, boxes, lines and the key. A line
// of many points is reduced to its extent in each column of pixels: it looks the same and takes no longer than a short
// one.
void Paint_Chart(QPainter& painter, const QRectF& area, const Chart& chart, const QPalette& palette);

} // namespace orvel
