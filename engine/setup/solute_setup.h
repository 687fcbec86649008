#pragma once

#include "core/session.h"
#include "engine/solute/solute_records.h"

namespace orvel::engine {

// Builds the solute setup from a pesticide document and fills in values that a document may leave open: a study
// temperature of 0 is 20 degC, a Q10 or a sorption increase of 0 or less is 1.

// The substances with the given indices (ascending, starting with 1), including their horizon tables.
std::vector<Solute_Substance> Substances_Of(const Pesticide_Document& document, const std::vector<int>& indices);

Solute_Volatilisation Volatilisation_Of(const Pesticide_Document& document);
Solute_Plant Plant_Of(const Pesticide_Document& document);

} // namespace orvel::engine
