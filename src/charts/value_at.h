#pragma once

#include "charts/chart.h"

#include <string>

namespace orvel {

// What a diagram tells of the place under the mouse: the box that covers x, or the point of the first line nearest to
// it, as "x: value". Empty where there is neither.
std::string Value_Text_At(const Chart& chart, double x);

// The points of the first line between two positions, drawn over a span of their own. A span of fewer than two points
// is not drawn: the chart stays as it is.
Chart Zoomed(const Chart& chart, double from, double to);

} // namespace orvel
