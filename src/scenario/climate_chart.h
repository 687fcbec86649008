#pragma once

#include "charts/chart.h"

#include <cstddef>
#include <span>

namespace orvel {

// The climate chart draws the first six columns of Climate_Columns; radiation is not drawn.
constexpr std::size_t Climate_Series = 6;

// The values of the days from `first_day` on, joined in order. If there are negative values, the axis extends to both
// sides of zero.
Chart Climate_Chart(std::size_t series, std::span<const double> values, int first_day = 1);

} // namespace orvel
