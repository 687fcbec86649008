#pragma once

namespace orvel {

// Values of documents that stand for something else than a number, and what the older form of a pesticide file lacks.

constexpr double No_Value = -99;           // a pH or a second Koc that there is not
constexpr double No_Dissociation = 20;     // pKa of a substance that does not dissociate
constexpr double Default_Enthalpy = 98400; // of vaporisation, J/mol

} // namespace orvel
