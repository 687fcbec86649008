#pragma once

#include "charts/chart.h"
#include "tables/balance_tables.h"

namespace orvel {

// The charts of the annual balances: a year has a box for every term.

Chart Water_Balance_Chart(const Balance_Tables& tables);
Chart Substance_Balance_Chart(const Balance_Tables& tables, std::size_t substance);

} // namespace orvel
