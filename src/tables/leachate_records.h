#pragma once

#include "output/run_records.h"
#include "tables/table_status.h"

#include <array>
#include <string>
#include <vector>

namespace orvel {

// The average concentrations in the leachate of a run: a table by year and a table by application period, of each
// substance at two depths.

constexpr int Leachate_Periods = 20;

struct Leachate_Row {
    double Flux = 0;      // g/ha
    double Percolate = 0; // L/m2
    double Conc = 0;      // ug/L
    bool operator==(const Leachate_Row&) const = default;
};

// The total and the 80th percentile of a table. The percentile's concentration is the mean, its flux and percolate the
// sums of those of the years (or periods) A and B. A and B are 0 if no year was evaluated.
struct Leachate_Result {
    Leachate_Row Total, P80;
    int A = 0, B = 0;
    bool operator==(const Leachate_Result&) const = default;
};

// Rows[0] is year 1 or period 1; the first six years of a year table are the warm-up.
struct Leachate_Table {
    std::vector<Leachate_Row> Rows;
    Leachate_Result Result;
    std::string P80_Text;    // the percentile's positions and figures as printed; empty if the table ends before them
    std::string Result_Name; // "Results for ..." from its title; empty without a name
    std::string Label;       // its substance's column heading: "Pesticide", " Metab.A1" ...
};

// The tables of one kind: [depth][substance], the active substance first, then the metabolites found.
using Leachate_Set = std::array<std::vector<Leachate_Table>, 2>;

// Figures are rounded as printed, whether the tables were built or read from their cache.
struct Leachate_Tables : Table_Status {
    std::string Year_Text, Period_Text;   // as a window shows them, bytes of Windows-1252, lines end in CR LF
    std::vector<std::string> Titles;      // the four lines above the tables
    std::vector<std::string> Result_Name; // "Results for ..." by substance, as echo.orv names them
    bool Has_Echo = false;                // echo.orv existed to name them
    Leachate_Set Year, Period;
    int Period_Index = 0; // years per period minus one: 0, 1 or 2
};

} // namespace orvel
