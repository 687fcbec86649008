#pragma once

#include "core/session.h"

#include <string_view>

namespace orvel {

// The degradation scheme: arrow t leads from its source substance (row i) through row j of the transformation table to
// a target.
struct Arrow {
    int Source = 0;         // substance i, 1 to 9
    int Row = 0;            // row j of the substance's transformation table
    int Target = 0;         // substance formed, 0 for CO2 and bound residues and for the reserved arrows
    std::string_view Label; // empty for the reserved arrows 18, 20, 28
};

// Arrow t, 1 to 29.
const Arrow& Arrow_Of(int t);

// Derives Met_Present, Trans_Active and Bound_Active from the rates.
void Update_Pathway(Pesticide_Document& document);

} // namespace orvel
