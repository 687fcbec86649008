#pragma once

#include "tables/leachate_records.h"

#include <cstddef>
#include <span>

namespace orvel {

// Concentration in ug/L of a flux in g/ha in a percolate in L/m2; 0 unless both are above 0.
double Leachate_Conc(double flux, double percolate);

// Of the two neighbouring ranks that make the 80th percentile of so many values the upper one, from 1 for the lowest.
int Upper_Rank(std::size_t count);

// The total and the 80th percentile of the rows from `first` on (0-based): the concentration is the mean of two
// neighbouring ranks, found by repeatedly picking the largest one. Of equal concentrations the earliest is picked
// first. A and B are 1-based positions in `rows`.
Leachate_Result Evaluate_Leachate(std::span<const Leachate_Row> rows, std::size_t first);

} // namespace orvel
