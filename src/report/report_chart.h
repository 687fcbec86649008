#pragma once

#include "charts/chart.h"
#include "report/summary_report.h"

namespace orvel {

// The concentrations of one substance of a report, a box per location; one above the limit is drawn in another colour.
// A substance that the report lacks gives an empty
// chart.
Chart Report_Chart(const Summary& report, std::size_t substance);

} // namespace orvel
