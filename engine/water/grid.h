#pragma once

#include "core/session.h"

#include <vector>

namespace orvel::engine {

// The compartments of the core, numbered from 0 at the top.
struct Grid {
    std::vector<double> Thickness, Bottom; // cm
    std::vector<int> Horizon;              // 1-based horizon at the middle of the compartment, for the tables
    std::vector<double> Horizon_Share;     // [compartment * horizons + horizon]: share of the soil mass
    std::vector<double> Density, Porosity, Field_Capacity, Wilting_Point, Initial_Water;
    std::vector<double> Sand, Clay, pH, Organic_Carbon, Dispersion, Drainage, Biodegradation;
    int Top_Layers = 0; // 1-based number of the compartment that ends nearest to 1 m

    int Count() const { return static_cast<int>(Thickness.size()); }
    double Top(int i) const { return Bottom[static_cast<std::size_t>(i)] - Thickness[static_cast<std::size_t>(i)]; }
    int Compartment_At(double depth) const;    // top < depth <= bottom; the first for 0, the last below the core
    int Interface_Nearest(double depth) const; // 0 to Count()
};

// Water contents of a horizon, given or from the pedotransfer functions.
struct Horizon_Water {
    double Field_Capacity = 0, Wilting_Point = 0; // cm3/cm3
};

// Rawls, Brakensiek & Saxton 1982 (Trans. ASAE 25:1316): water contents at 33 and 1500 kPa. Texture and organic matter
// in %.
Horizon_Water Rawls_Functions(double sand, double clay, double organic_matter);

// Woesten et al. 1999 (Geoderma 90:169), continuous functions: parameters of van Genuchten 1980 (SSSAJ 44:892), with a
// residual water content of 0.01. Texture and organic matter in %, density in g/cm3, suction in cm, water content in
// cm3/cm3.
struct Van_Genuchten {
    double Saturated = 0, Alpha = 0, N = 1; // alpha in 1/cm
};
Van_Genuchten Woesten_Functions(double clay, double silt, double organic_matter, double density, bool topsoil);
double Water_Content(const Van_Genuchten& curve, double suction_cm);

// Porosity (cm3/cm3) from the bulk density (g/cm3), at least 0.01 above field capacity.
double Porosity(double density, double field_capacity);

// Thicknesses of the compartments, cm: equal ones, or ones that increase with depth. The depths are in cm; the last
// horizon ends at the core depth.
std::vector<double> Equal_Compartments(double core_depth, int count);
std::vector<double> Graded_Compartments(const std::vector<double>& horizon_bottoms, double core_depth);

Grid Build_Grid(const Scenario_Document& scenario);

} // namespace orvel::engine
