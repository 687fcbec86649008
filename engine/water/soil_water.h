#pragma once

#include "engine/water/grid.h"

#include <vector>

namespace orvel::engine {

// Water in the soil column, one day at a time: free functions over plain arrays, cm and days.

// Capacity cascade from the top: `theta` at the start of the day becomes theta behind percolation, `flux` (N + 1) the
// fluxes through the interfaces. Water that finds no room leaves the top and is returned; what finds none at the bypass
// outlet comes off `bypass`.
struct Percolation {
    bool Restricted = false; // exponentially restricted drainage
    double Infiltration = 0; // onto the soil, without the bypass
    double Bypass = 0;       // into compartment Outlet
    int Outlet = -1;
};
struct Percolation_Result {
    double Excess = 0; // cm that left the top
    double Bypass = 0; // cm that the outlet took
};
Percolation_Result Percolate(const Grid& grid, const Percolation& supply, std::vector<double>& theta,
                             std::vector<double>& flux);

// What a compartment above field capacity releases in a day, cm: all of it, or restricted by exp(-AD).
double Drained(double water, double field_capacity, double thickness, bool restricted, double drainage);

// Reduction of soil evaporation (Allen et al. 1998, FAO-56 eq. 74).
double Evaporation_Factor(double depletion, double total, double readily);

// Shares of a demand that falls off linearly to nothing at `depth`.
std::vector<double> Linear_Shares(const Grid& grid, double depth);

// Takes evaporation from theta; `taken` gets cm/d by compartment. The sum may fall short of the demand.
void Evaporate(const Grid& grid, double demand, double depth, const std::vector<double>& shares,
               std::vector<double>& theta, std::vector<double>& taken);

// Takes transpiration from theta with a stress function of the form of Feddes et al. 1978; unmet demand goes once more
// to unstressed compartments.
void Transpire(const Grid& grid, double demand, const std::vector<double>& shares, std::vector<double>& theta,
               std::vector<double>& taken);

// Water to bring the zone down to `depth` to field capacity, cm.
double Deficit(const Grid& grid, const std::vector<double>& theta, double depth);

// Relative moisture of the top 20 cm, 0 at wilting point and 1 at field capacity.
double Antecedent_Moisture(const Grid& grid, const std::vector<double>& theta);

} // namespace orvel::engine
