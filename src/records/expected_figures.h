#pragma once

#include "records/results.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// What reference simulations should give: a table, comma-separated, UTF-8, with a row a simulation and substance.

struct Expected_Figure {
    Run_Key Key; // pesticide file, crop and location of a FOCUS simulation
    std::string Substance;
    double Value = 0;     // the 80th percentile at 1 m, ug/L
    double Tolerance = 0; // as a share of it
    bool operator==(const Expected_Figure&) const = default;
};

// Figures are printed in thousandths: two that are apart by no more are the same, whatever their ratio.
constexpr double Last_Place = 0.001;
constexpr double Usual_Tolerance = 0.001;

// Throws File_Error with line and column; a table without rows expects nothing and is refused.
std::vector<Expected_Figure> Parse_Expected(std::string_view text);
std::string Format_Expected(const std::vector<Expected_Figure>& figures);

bool Is_As_Expected(const Expected_Figure& expected, double obtained);

} // namespace orvel
