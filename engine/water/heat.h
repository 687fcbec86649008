#pragma once

#include "engine/water/grid.h"

#include <vector>

namespace orvel::engine {

// Soil temperature: heat conduction on the compartments and below them to 10 m. SI units: m, W/(m K), J/(m3 K).

// Heat conductivity (Campbell 1985, Soil Physics with BASIC): density g/cm3, clay as a fraction, water content.
struct Conductivity {
    double A = 0, B = 0, C = 0, D = 0;
};
Conductivity Conductivity_Of(double density, double clay);
double Conductivity_At(const Conductivity& parameters, double water);
double Heat_Capacity(double density, double water); // J/(m3 K)

// One backward Euler step of `seconds`: conductance of the surface in W/(m2 K), no flux at the bottom. The arrays have
// one entry a node.
void Conduct_Heat(std::vector<double>& temperature, const std::vector<double>& thickness,
                  const std::vector<double>& conductivity, const std::vector<double>& capacity,
                  double surface_temperature, double surface_conductance, double seconds);

// The column's temperature over the days.
class Soil_Heat {
public:
    Soil_Heat(const Grid& grid, double start_temperature);

    // One day with the day's air temperature, water contents and snow (cm of water).
    void Step_Day(const std::vector<double>& theta, double air_temperature, double snow);

    const std::vector<double>& Temperature() const { return Nodes; } // the first entries are the compartments

private:
    const Grid* Core;
    std::vector<double> Nodes, Thickness, Conducts, Capacity;
    std::vector<Conductivity> Parameters;
};

} // namespace orvel::engine
