#pragma once

#include "charts/chart.h"

#include <string>

namespace orvel {

// A chart as an SVG element in UTF-8, for a page: its texts and axes have the page's text colour, so that it is
// readable on a light and a dark ground. The title is the element's, for the page to show. A chart without any extent
// has nothing else.
std::string Chart_Svg(const Chart& chart);

} // namespace orvel
