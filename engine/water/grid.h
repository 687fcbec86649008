#pragma once

#include "core/session.h"

#include <vector>

namespace orvel::engine {

// Compartments First to Last that stand for one of the document.
struct Compartment_Range {
    int First = 0, Last = 0;
    bool operator==(const Compartment_Range&) const = default;
};

// The compartments of the core, numbered from 0 at the top. With a surface layer, those of the document that lie at the
// surface are divided, always in the same way: the substances have it, water and heat keep the document's compartments.
struct Grid {
    std::vector<double> Thickness, Bottom; // cm
    std::vector<int> Horizon;              // 1-based horizon at the middle of the compartment, for the tables
    std::vector<double> Horizon_Share;     // [compartment * horizons + horizon]: share of the soil mass
    std::vector<double> Density, Porosity, Field_Capacity, Wilting_Point, Initial_Water;
    std::vector<double> Sand, Clay, pH, Organic_Carbon, Dispersion, Drainage, Biodegradation;
    std::vector<Compartment_Range> Document; // the compartments of the document
    int Surface = 0;                         // number of compartments that a surface layer takes, 0 without one
    int Top_Layers = 0;                      // 1-based number of the document's compartment that ends nearest to 1 m

    int Document_Count() const { return static_cast<int>(Document.size()); }
    int Interface_Below(int number) const // of the document's compartment, 1-based; the surface for 0
    {
        return number == 0 ? 0 : Document[static_cast<std::size_t>(number - 1)].Last + 1;
    }
    double Depth_Of(int interface) const
    {
        return interface == 0 ? 0 : Bottom[static_cast<std::size_t>(interface - 1)];
    }
    const Compartment_Range& Document_At(double depth) const; // as Compartment_At

    int Count() const { return static_cast<int>(Thickness.size()); }
    double Top(int i) const { return Bottom[static_cast<std::size_t>(i)] - Thickness[static_cast<std::size_t>(i)]; }
    int Compartment_At(double depth) const;    // top < depth <= bottom; the first for 0, the last below the core
    int Interface_Nearest(double depth) const; // of those between the document's compartments, 0 to Count()
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

// Porosity (cm3/cm3) from the bulk density (g/cm3) alone, and at least 0.01 above field capacity.
double Porosity_Of_Density(double density);
double Porosity(double density, double field_capacity);

// Thicknesses of the compartments, cm: equal ones, or ones that increase with depth. The depths are in cm; the last
// horizon ends at the core depth.
std::vector<double> Equal_Compartments(double core_depth, int count);
std::vector<double> Graded_Compartments(const std::vector<double>& horizon_bottoms, double core_depth);

// Lower boundaries of compartments, of which those within the surface layer are divided.
std::vector<double> Divide_Surface(const std::vector<double>& bottoms);

enum class Surface_Layer { Without, With };
Grid Build_Grid(const Scenario_Document& scenario, Surface_Layer layer = Surface_Layer::Without);

} // namespace orvel::engine
