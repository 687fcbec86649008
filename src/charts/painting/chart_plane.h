#pragma once

#include "charts/chart.h"

#include <QFont>
#include <QFontMetricsF>
#include <QRectF>
#include <QString>
#include <vector>

class QPaintDevice;

namespace orvel {

// Where the parts of a chart lie in a picture of any size: no text is cut off and no label covers another.

constexpr double Title_Scale = 1.15; // times the text size
constexpr double Name_Gap = 0.5;     // of a letter's height, between a line's end and its name

QString Chart_Text(const std::string& bytes);

QFont Sized(QFont font, double points);
QFontMetricsF Metrics_Of(const QFont& font, const QPaintDevice* device);

// The font of a label of the value axis; long labels have a smaller one.
QFont Value_Label_Font(const QFont& text, const std::string& label);

struct Placed_Key {
    const Chart_Key* Key;
    double Left; // from the left edge of the picture
    int Row;
};

// The keys of a chart in as many rows as they need.
std::vector<Placed_Key> Placed_Keys(const Chart& chart, double width, const QFontMetricsF& metrics);

// The labelled ticks of an axis, or every second of them, every third ..., so that labels that need `needed` pixels
// along the axis do not touch.
std::vector<const Chart_Tick*> Shown_Labels(const Chart_Axis& axis, double needed, double pixels_of_unit);

// A chart's coordinate plane in a picture, below title and legend. It shrinks where the axis labels need more room than
// the drawing convention leaves them. The font is that of the picture's text.
class Chart_Plane {
public:
    Chart_Plane(const Chart& chart, const QRectF& area, const QFont& font, const QPaintDevice* device = nullptr);

    QPointF At(double x, double y) const;
    double X_Of(double pixel) const;
    double Y_Of(double pixel) const;
    const QRectF& Area() const { return Plane; }

private:
    Chart_Frame Frame;
    QRectF Plane;
};

} // namespace orvel
