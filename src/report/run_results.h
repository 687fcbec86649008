#pragma once

#include "tables/leachate_tables.h"

#include <string>
#include <string_view>
#include <vector>

namespace orvel {

// The limit of drinking water, ug/L.
constexpr double Drinking_Water_Limit = 0.1;
constexpr std::string_view Leachate_Unit = "\xB5g/L";
std::string Limit_Number(); // "0.1"
std::string Limit_Text();   // with its unit

// One of the two periods whose mean concentration is the percentile.
struct Selected_Period {
    int Number = 0;    // 0: no year was evaluated
    std::string Years; // of the simulation: "17", "15 to 16"
    double Conc = 0;   // ug/L
    bool operator==(const Selected_Period&) const = default;
};

// The result of a substance at 1 m depth, as report and overview take it from the period table of a run.
struct Run_Result {
    std::string Substance;
    Leachate_Row P80; // as printed: mean concentration, sums of flux and percolate
    Selected_Period A, B;
    bool Above_Limit = false;
};

struct Run_Results {
    std::vector<Run_Result> Substances; // the active substance first
    int Years = 0;                      // simulated, warm-up included
    int Dry_Periods = 0;                // evaluated ones without percolate at 1 m, which count as 0 in the percentile
    std::string Problem;                // why there are none, a sentence; empty if there are
};
Run_Results Results_Of(const Leachate_Tables& tables);

// The years of the simulation that make up a period, which holds `period_index` + 1 of them.
std::string Years_Of_Period(int period, int period_index);

// A concentration in the leachate as every table and report prints it.
std::string Conc_Text(double conc);

} // namespace orvel
