#pragma once

#include "core/session.h"
#include "engine/solute/solute_records.h"

namespace orvel::engine {

// The solute's side of a pesticide document. Values a document may leave open are filled in: a study temperature of 0
// is 20 degC, a Q10 or a sorption increase of 0 or less is 1.

// Substances of the given indices (ascending, 1 first), horizon tables included.
std::vector<Solute_Substance> Substances_Of(const Pesticide_Document& document, const std::vector<int>& indices);

Solute_Volatilisation Volatilisation_Of(const Pesticide_Document& document);
Solute_Plant Plant_Of(const Pesticide_Document& document);

} // namespace orvel::engine
