#pragma once

#include "charts/chart.h"

#include <array>
#include <span>
#include <string_view>

namespace orvel {

// The climate chart: one series of the climate editor's grid, in the order of its number columns.
constexpr std::array<std::string_view, 6> Climate_Series = {"Precipitation [cm]",
                                                            "pot. Evapotranspiration [cm/d]",
                                                            "Temperature at 14.00[\xB0"
                                                            "C]",
                                                            "Mean Temperature [\xB0"
                                                            "C]",
                                                            "Tmax-Tmin [\xB0"
                                                            "C]",
                                                            "rel. humidity [%] at 14.00"};

// The values of the days from `first_day` on, joined in order. Negative values draw both sides of zero.
Chart Climate_Chart(std::size_t series, std::span<const double> values, int first_day = 1);

} // namespace orvel
