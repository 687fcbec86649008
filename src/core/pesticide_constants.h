#pragma once

namespace orvel {

// Special values in documents, and the default for what the older form of a pesticide file lacks.

constexpr double No_Value = -99;           // a missing pH or second Koc
constexpr double No_Dissociation = 20;     // pKa of a substance that does not dissociate
constexpr double Default_Enthalpy = 98400; // of vaporisation, J/mol

} // namespace orvel
