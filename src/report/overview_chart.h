#pragma once

#include "charts/chart.h"
#include "report/run_results.h"
#include "tables/soil_concentrations.h"

namespace orvel {

// The pictures of an overview's row.

enum class Conc_Values { Periods, Years };

// A substance's concentrations at one location.
struct Location_Values {
    std::string Location; // "Hamburg (H)"
    double Figure = 0;
    std::string Figure_Text;
    std::vector<double> Periods, Years; // of the evaluation, in their order; empty: not known
    int Period_A = 0, Period_B = 0;     // 1-based positions of those that make the percentile; 0: none
    int Year_A = 0, Year_B = 0;         // the same of the year table
    int Period_Index = 0;               // years of a period minus one
};
Location_Values Values_Of(const std::string& location, const Leachate_Tables& tables, std::size_t substance);

// A bar a location with the limit, its values as dots over it; the two that make the percentile stand out.
Chart Location_Chart(const std::string& substance, const std::vector<Location_Values>& locations, Conc_Values shown,
                     const std::string& unit, bool has_limit);

// The yearly values of a location against their rank.
Chart Rank_Chart(const std::string& substance, const Location_Values& values);

// A bar a location with its concentration in soil; `quantity` is what it is. Soils that the row does not have are left
// out: their places have no name.
Chart Soil_Chart(const std::string& substance, std::vector<Location_Values> locations, const std::string& unit,
                 const std::string& quantity);

// The highest averages at a location against the days that they are taken over; the chosen one stands out.
Chart Averaging_Chart(const std::string& substance, const std::string& location, const std::string& unit,
                      const Soil_Maxima& maxima, std::size_t chosen);

} // namespace orvel
