#pragma once

#include "charts/chart.h"

#include <QFont>
#include <QFontMetricsF>
#include <QRectF>
#include <QString>
#include <vector>

class QPaintDevice;

namespace orvel {

// Where the parts of a chart lie in a picture of any size: nothing that is written on it is cut, and no label covers
// another.

constexpr double Title_Scale = 1.15; // of the text's size

QString Chart_Text(const std::string& bytes);

QFont Sized(QFont font, double points);
QFontMetricsF Metrics_Of(const QFont& font, const QPaintDevice* device);

// The font of a value axis' label: long ones are smaller.
QFont Value_Label_Font(const QFont& text, const std::string& label);

struct Placed_Key {
    const Chart_Key* Key;
    double Left; // from the left edge of the picture
    int Row;
};

// The keys of a chart in as many rows as they need.
std::vector<Placed_Key> Placed_Keys(const Chart& chart, double width, const QFontMetricsF& metrics);

// The labelled ticks of an axis, or every second of them, every third ..., so that labels which need so many pixels
// along the axis do not touch.
std::vector<const Chart_Tick*> Shown_Labels(const Chart_Axis& axis, double needed, double pixels_of_unit);

// A chart's plane of coordinates in a picture, below its title and legend. It is made smaller where the labels of the
// axes need more room than the drawing convention leaves them. The font is that of the picture's text.
class Chart_Plane {
public:
    Chart_Plane(const Chart& chart, const QRectF& area, const QFont& font, const QPaintDevice* device = nullptr);

    QPointF At(double x, double y) const;
    double X_Of(double pixel) const;
    const QRectF& Area() const { return Plane; }

private:
    Chart_Frame Frame;
    QRectF Plane;
};

} // namespace orvel
