#pragma once

#include "charts/chart.h"
#include "tables/leachate_tables.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The annual diagram: the concentrations of the 20 periods of one substance at one depth.

// The list Tiefe.
constexpr std::array<std::string_view, 2> Annual_Depths = {"1 m Depth", "Soil Bottom!"};

// The list Substanz: the substances of the period tables; those without a name are listed by their column heads.
std::vector<std::string> Annual_Substances(const Leachate_Tables& tables);

// The diagram of a substance at a depth, both by list index. Nothing if there is no such table.
std::optional<Chart> Annual_Diagram(const Leachate_Tables& tables, std::size_t depth, std::size_t substance);

} // namespace orvel
