#pragma once

#include "charts/chart.h"

#include <QPainter>
#include <QPalette>
#include <QRectF>

// The colours of a picture: those of a window, or those of paper.
QPalette Paper_Palette();
QColor Colour_Of(Colour role, const QPalette& palette);

// Where a chart's plane of coordinates lies in a picture of this size, below its title and legend.
class Chart_Plane {
public:
    Chart_Plane(const Chart& chart, const QRectF& area, const QFontMetricsF& metrics);

    QPointF At(double x, double y) const;
    double X_Of(double pixel) const;
    const QRectF& Area() const { return Plane; }

private:
    Chart_Frame Frame;
    QRectF Plane;
};

// Draws a chart into an area of any device: title, legend, axes with ticks and labels, boxes, lines and the key. A line of many points is drawn
// by its extent in each column of pixels, so that it looks the same and takes no longer than a short one.
void Paint_Chart(QPainter& painter, const QRectF& area, const Chart& chart, const QPalette& palette);
