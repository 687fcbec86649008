#pragma once

#include "charts/painting/chart_plane.h"

#include <QPainter>
#include <QPalette>
#include <QRectF>

namespace orvel {

// The colours of a picture: those of a window, or those of paper.
QPalette Paper_Palette();
QColor Colour_Of(Colour role, const QPalette& palette);

// Draws a chart into an area of any device: title, legend, axes with ticks and labels, boxes, lines and the key. A line
// of many points is drawn by its extent in each column of pixels, so that it looks the same and takes no longer than a
// short one.
void Paint_Chart(QPainter& painter, const QRectF& area, const Chart& chart, const QPalette& palette);

} // namespace orvel
