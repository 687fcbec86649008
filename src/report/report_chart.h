#pragma once

#include "charts/chart.h"
#include "report/summary_report.h"

namespace orvel {

// The limit of drinking water, ug/L: a higher concentration is drawn in another colour.
constexpr double Drinking_Water_Limit = 0.1;

// The concentrations of one substance of a report, a box per location. A substance that the report lacks gives an empty
// chart.
Chart Report_Chart(const Summary& report, std::size_t substance);

} // namespace orvel
