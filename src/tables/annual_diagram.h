#pragma once

#include "charts/chart.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The annual diagram: the concentrations of the 20 periods of one substance at one depth, out of the cached period
// table period.orv.

constexpr int Periods = 20;

// The list Tiefe.
constexpr std::array<std::string_view, 2> Annual_Depths = {"1 m Depth", "Soil Bottom!"};

struct Period_Table {
    std::vector<std::string> Head;      // the four lines above the tables
    std::vector<double> Concentrations; // µg/L, by period
    int Period_A = 0, Period_B = 0;     // the two periods of the percentile; 0 for none
    double Percentile = 0;              // µg/L
};

// The substances of a period table, in its order: the list Substanz.
std::vector<std::string> Period_Substances(std::string_view bytes);

// The table of a substance at a depth, both by list index. Nothing where the file is too short.
std::optional<Period_Table> Read_Period_Table(std::string_view bytes, std::size_t depth, std::size_t substance);

Chart Annual_Diagram(const Period_Table& table, std::size_t depth, std::string_view substance);

} // namespace orvel
