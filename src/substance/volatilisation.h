#pragma once

#include "core/session.h"

#include <array>
#include <string>

namespace orvel {

// Volatilisation of the active substance at two temperatures: the form's own copy, which reaches the document only on
// "Done". The form writes only typed texts into the copy and shows the Henry constant and vapour pressure in scientific
// notation, so that values not typed keep all their digits.
struct Volatilisation {
    std::array<double, 2> Volat_Temp{}; // degrees Celsius
    std::array<double, 2> Henry{};      // J/mol
    std::array<double, 2> Vap_Press{};  // Pa
    std::array<double, 2> Solubility{}; // mg/L
    bool operator==(const Volatilisation&) const = default;
};

Volatilisation Load_Volatilisation(const Pesticide_Document& document);
void Store_Volatilisation(Pesticide_Document& document, const Volatilisation& pairs);

// Fills in Henry constants (J/mol) that are missing and not given directly: molar mass (g/mol) times vapour pressure
// over solubility (Schwarzenbach et al., Environmental Organic Chemistry, 1993).
void Calculate_Henry(Volatilisation& pairs, double molmass, bool henry_direct);

// Whether the solubility is missing at one of the temperatures, so that the form opens with a direct Henry constant.
bool Needs_Direct_Henry(const Volatilisation& pairs);

// Adds a second point 10 degrees higher for a substance known at one temperature: vapour pressure times 4, solubility
// and Henry constant times 2. For a calculated constant the solubility alone decides whether the second point is
// missing. Two equal temperatures are separated by 10 degrees.
void Fill_Second_Point(Volatilisation& pairs, bool henry_direct);

// The value as 0.00E+00.
std::string Scientific_Text(double value);

} // namespace orvel
