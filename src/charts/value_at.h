#pragma once

#include "charts/chart.h"

#include <optional>
#include <string>

namespace orvel {

// What lies under the mouse: the box that covers x, or the point of the first line nearest to it.
struct Chart_Hit {
    std::string Text; // "name: value unit"
    Chart_Point Point;
};
std::optional<Chart_Hit> Hit_At(const Chart& chart, double x);

// The dot nearest to a place that lies within these distances of it.
std::optional<Chart_Hit> Dot_At(const Chart& chart, Chart_Point place, double within_x, double within_y);

// The bar at a place.
std::optional<Chart_Hit> Bar_At(const Chart& chart, Chart_Point place);

// The highest value drawn over a box: its own or that of a dot.
double Top_Of(const Chart& chart, const Chart_Box& box);

// Its text; empty where there is nothing.
std::string Value_Text_At(const Chart& chart, double x);

// The points of the first line between two positions, on an axis of their own. A span with fewer than two points leaves
// the chart unchanged.
Chart Zoomed(const Chart& chart, double from, double to);

} // namespace orvel
