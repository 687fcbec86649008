#pragma once

#include "engine/water/grid.h"

#include <vector>

namespace orvel::engine {

// Soil water, one day at a time: free functions over plain arrays; cm, cm3/cm3 and days.

// Water moves down from the top: `theta` is that of the start of the day, afterwards that after percolation; `flux` (N
// + 1) receives the fluxes through the interfaces. With restricted drainage, water above the porosity is pushed up and
// leaves the top as Excess; at the bypass outlet it also reduces the bypass taken.
struct Percolation {
    bool Restricted = false; // exponentially restricted drainage
    double Infiltration = 0; // onto the soil, without the bypass
    double Bypass = 0;       // into compartment Outlet and, with Below, into the one below it
    int Outlet = -1;
    double Below = 0; // part of the bypass
};
struct Percolation_Result {
    double Excess = 0; // cm that left the top
    double Bypass = 0; // cm that the outlet took
    double Below = 0;  // part of it
};
Percolation_Result Percolate(const Grid& grid, const Percolation& supply, std::vector<double>& theta,
                             std::vector<double>& flux);

// Smaller fluxes are rounding: the water stays where it is, cm/d.
constexpr double Least_Flux = 1e-9;

// The flux out of a compartment of free drainage in a day, cm: what enters and what lies above field capacity; `excess`
// is water content less field capacity, negative in dry soil.
double Free_Outflow(double inflow, double excess, double thickness);

// The same for restricted drainage: the flux is K = drainage * 100 cm times the water content above field capacity
// (unit gradient with a linear conductivity: Sisson, Ferguson & van Genuchten 1980, Soil Sci. Soc. Am. J. 44:1147),
// implicit over the day and exact over the compartment's depth, so that it does not depend on the compartments. It is
// K at saturation at most; `room` is porosity less field capacity.
double Restricted_Outflow(double inflow, double excess, double thickness, double drainage, double room);

// Reduction factor of soil evaporation, 0 to 1 (Allen et al. 1998, FAO-56 eq. 74); arguments in cm.
double Evaporation_Factor(double depletion, double total, double readily);

// The shares of a demand by compartment, falling linearly to 0 at `depth` (cm).
std::vector<double> Linear_Shares(const Grid& grid, double depth);

// Takes the evaporation demand (cm/d) from theta; `taken` receives cm/d by compartment. The sum may fall short of the
// demand.
void Evaporate(const Grid& grid, double demand, double depth, const std::vector<double>& shares,
               std::vector<double>& theta, std::vector<double>& taken);

// Takes the transpiration demand (cm/d) from theta with a stress function of the form of Feddes et al. 1978; unmet
// demand is offered once more to unstressed compartments.
void Transpire(const Grid& grid, double demand, const std::vector<double>& shares, std::vector<double>& theta,
               std::vector<double>& taken);

// The water needed to bring the soil above `depth` to field capacity, cm.
double Deficit(const Grid& grid, const std::vector<double>& theta, double depth);

// Relative moisture of the top 20 cm: 0 at wilting point, 1 at field capacity.
double Antecedent_Moisture(const Grid& grid, const std::vector<double>& theta);

} // namespace orvel::engine
