#pragma once

#include "core/session.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The grid of depth-dependent values of one substance: one row per horizon, with Kf, Freundlich exponent and a factor
// for each transformation of the substance.

// A target of a substance, and the index of its factor: the column in the arrow table, so that D1 has 2 and 4 and D2
// has 2.
struct Target_Column {
    std::string_view Header;
    int Factor = 0;
};
std::span<const Target_Column> Target_Columns(int i);

// The header row. The exponent's header is indented in the form of the active substance.
std::vector<std::string> Depth_Grid_Headers(int i);

// Cells without the header row and title column: Kf, exponent, factors.
struct Depth_Grid {
    std::vector<std::vector<std::string>> Rows;
    // Set by Default_From_First_Target: the factor of each horizon that all transformations of all substances take on
    // acceptance.
    std::vector<std::string> Default_Factors;
    bool operator==(const Depth_Grid&) const = default;
};

std::string Horizon_Title(std::size_t row); // "Horizon 1" for row 0

// The grid of substance i with as many rows as the substance form asks for; rows beyond the table are empty.
Depth_Grid Load_Depth_Grid(const Pesticide_Document& document, int i, int rows);

// "Trans.Factors from AS to MET A1 as Default", only for the active substance: copies the factors of the first target
// to all other targets.
void Default_From_First_Target(Depth_Grid& grid);

// Stores the grid and its number of rows; the table grows and keeps its contents. An empty cell has the default of its
// column.
void Accept_Depth_Grid(Pesticide_Document& document, int i, const Depth_Grid& grid);

} // namespace orvel
