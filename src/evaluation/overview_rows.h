#pragma once

#include "report/overview.h"

#include <optional>
#include <string>
#include <vector>

namespace orvel {

// Which rows of an overview are shown, and in which order. A parent is shown with all its metabolites if one of them
// fits.

struct Row_Filter {
    std::string Text;               // a part of pesticide, crop or substance, in any case; empty: all
    std::string Crop;               // empty: all
    std::optional<Cell_Kind> State; // a cell of the row has it
    bool Above_Limit = false;       // a figure of the row is above the limit
    bool operator==(const Row_Filter&) const = default;
};

struct Row_Group {
    std::size_t Parent = 0; // places among the overview's rows
    std::vector<std::size_t> Metabolites;
    bool operator==(const Row_Group&) const = default;
};

// The columns that rows are sorted by: a location (its place among the columns), or one of these.
enum class Row_Key { Pesticide, Crop, Substance, Location, Highest, Above };

std::vector<Row_Group> Groups_Of(const Overview& overview, const Row_Filter& filter);
// Figures are in the order of their values, above all states.
void Sort_Groups(const Overview& overview, std::vector<Row_Group>& groups, Row_Key key, std::size_t location,
                 bool descending);

// The overview with these rows alone, in this order: what is copied, saved and printed.
Overview With_Rows(const Overview& overview, const std::vector<Row_Group>& groups);

// How many runs are in which state, a sentence: "9 simulations: 7 with figures, 1 running, 1 scheduled".
std::string Counts_Text(const Overview& overview);

} // namespace orvel
