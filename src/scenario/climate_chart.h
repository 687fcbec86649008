#pragma once

#include "charts/chart.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace orvel {

// The climate chart draws the first six columns of Climate_Columns; radiation is not drawn.
constexpr std::size_t Climate_Series = 6;

// The values of the days from `first_day` on, joined in order. If there are negative values, the axis extends to both
// sides of zero.
Chart Climate_Chart(std::size_t series, std::span<const double> values, int first_day = 1);

// The same of days that have dates, two digits each for day, month and year: the dates name the points, and days that
// are missing between them are told.
Chart Climate_Chart(std::size_t series, std::span<const double> values, std::vector<std::string> dates);

// What is missing between dates like "31.12.81": "1 day is missing, behind 31.12.81"; empty if nothing is.
std::string Gap_Text(std::span<const std::string> dates);

} // namespace orvel
