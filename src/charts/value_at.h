#pragma once

#include "charts/chart.h"

#include <string>

namespace orvel {

// The text for the position under the mouse: the box that covers x, or the point of the first line nearest to it, as
// "x: value". Empty where there is neither.
std::string Value_Text_At(const Chart& chart, double x);

// The points of the first line between two positions, on an axis of their own. A span with fewer than two points leaves
// the chart unchanged.
Chart Zoomed(const Chart& chart, double from, double to);

} // namespace orvel
