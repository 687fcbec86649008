#pragma once

#include "engine/math/steady_math.h"
#include "engine/water/grid.h"

#include <vector>

namespace orvel::engine {

// Soil temperature by heat conduction through the compartments and further nodes down to 10 m. SI units: m, W/(m K),
// J/(m3 K); temperatures in degC.

// Thermal conductivity, W/(m K) (Campbell 1985, Soil Physics with BASIC): density in g/cm3, clay as a fraction (0 if
// unknown), water content in cm3/cm3.
struct Conductivity {
    double A = 0, B = 0, C = 0, D = 0;
};
Conductivity Conductivity_Of(double density, double clay);
double Conductivity_At(const Conductivity& parameters, double water);
double Heat_Capacity(double density, double water); // J/(m3 K)

// One backward Euler step of `seconds`: the surface conductance is in W/(m2 K), no heat flows through the bottom. The
// arrays have one entry per node.
void Conduct_Heat(std::vector<double>& temperature, const std::vector<double>& thickness,
                  const std::vector<double>& conductivity, const std::vector<double>& capacity,
                  double surface_temperature, double surface_conductance, double seconds);

// The soil temperature of the column from day to day.
class Soil_Heat {
public:
    // `exps` is Steady_Exps or what gives the same bits faster.
    using Exps = decltype(&Steady_Exps);
    Soil_Heat(const Grid& grid, double start_temperature, Exps exps = Steady_Exps);

    // Advances one day from the air temperature (degC), water contents (cm3/cm3) and snow (cm of water).
    void Step_Day(const std::vector<double>& theta, double air_temperature, double snow);

    const std::vector<double>& Temperature() const
    {
        return Nodes;
    } // degC by node; the first entries are the compartments

private:
    const Grid* Core;
    Exps Fast_Exps;
    std::vector<double> Nodes, Thickness, Conducts, Capacity;
    std::vector<double>
        Dryness; // by compartment, padded: the exponent of the conductivity's fall in dry soil, then e to it
    std::vector<Conductivity> Parameters;
};

} // namespace orvel::engine
