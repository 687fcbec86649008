#pragma once

#include "charts/chart.h"

#include <string>

namespace orvel {

// A chart as an SVG element in UTF-8 for an HTML page: texts and axes have the page's text colour, so that they are
// readable on light and dark backgrounds. The title becomes the element's <title>; a chart without any extent has
// nothing else.
std::string Chart_Svg(const Chart& chart);

} // namespace orvel
