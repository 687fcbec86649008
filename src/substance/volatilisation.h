#pragma once

#include "core/session.h"

#include <array>
#include <string>

namespace orvel {

// Volatilisation of the active substance at two temperatures: the form's own copy, which reaches the document on "Done"
// only. The form puts what is typed into the copy and shows Henry constant and vapour pressure as scientific text, so
// that a value that was not typed keeps all its digits.
struct Volatilisation {
    std::array<double, 2> Volat_Temp{}; // degrees Celsius
    std::array<double, 2> Henry{};      // J/mol
    std::array<double, 2> Vap_Press{};  // Pa
    std::array<double, 2> Solubility{}; // mg/L
    bool operator==(const Volatilisation&) const = default;
};

Volatilisation Load_Volatilisation(const Pesticide_Document& document);
void Store_Volatilisation(Pesticide_Document& document, const Volatilisation& pairs);

// After load: a Henry constant that is missing and not given directly is molar mass (g/mol) times vapour pressure over
// solubility (Schwarzenbach et al., Environmental Organic Chemistry, 1993).
void Calculate_Henry(Volatilisation& pairs, double molmass, bool henry_direct);

// A substance without a solubility at one of the temperatures opens with a direct Henry constant.
bool Needs_Direct_Henry(const Volatilisation& pairs);

// Gives a substance that is known at one temperature a second point 10 degrees higher: vapour pressure times 4,
// solubility and Henry constant times
// 2. For a calculated constant the solubility alone decides whether the second point is missing. Two equal temperatures
// part by 10 degrees.
void Fill_Second_Point(Volatilisation& pairs, bool henry_direct);

// 0.00E+00
std::string Scientific_Text(double value);

} // namespace orvel
