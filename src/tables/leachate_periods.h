#pragma once

#include "tables/leachate_records.h"

namespace orvel {

// The 20 application periods of `period_index` + 1 years each, summed from the printed figures of a year table: a
// period's concentration is its leached mass over its percolate, not the mean of the yearly ones. Years after the last
// period do not count; periods without years are 0. The figures are not rounded.
Leachate_Table Periods_Of(const Leachate_Table& years, int period_index);

} // namespace orvel
