#pragma once

#include "core/pesticide_constants.h"
#include <array>
#include <string>
#include <vector>

namespace orvel::engine {

// The solute side of the engine: what water, crop and heat hand over, and what sorption, transport, fate, plant surface
// and extraction make of it. Units: cm, day, degC, ug/cm2 (1 kg/ha = 10), ug/cm3 = mg/L, g/cm3, ug/g.
//
// Compartments count from 0 at the top; interface i lies above compartment i, interface 0 is the surface, interface N
// the core's bottom. Substances of the run stand in slots 0, 1, ... in the order of their index (1 active substance, 2
// to 9 metabolites). State and sums are arrays of rows of `Lanes` numbers (slots rounded up to a multiple of 4; the
// rest is 0): [row * Lanes + slot].

constexpr int Arrows_Of_Substance = 5;
constexpr double Ug_Cm2_Per_Kg_Ha = 10;

// One arrow (row j) of a substance's transformation.
struct Solute_Arrow {
    int Target =
        0; // index of the substance formed, above the source's; 0 or a substance that is not in the run: a sink
    double Rate = 0;                  // 1/d
    double Temperature = 20, Q10 = 1; // of the study
    double Moist_Abs = 0;             // vol %, used if Moist_Rel is 0
    double Moist_Rel = 100;           // % of field capacity
    double Moist_Exp = 0;
    double Neq = 0;                     // rate in the non-equilibrium domain, relative to Rate
    double Photo_Rate = 0;              // 1/d at Photo_Reference, active substance only
    double Photo_Reference = 0;         // W/m2
    std::vector<double> Horizon_Factor; // by horizon of the scenario, for Depth_Mode 2
};

struct Solute_Substance {
    int Index = 1;                   // 1 to 9
    std::string Name;                // only for messages
    double Molmass = 0;              // g/mol
    bool Kd_From_Koc = true;         // else the horizon tables
    double Koc = 0, Koc2 = No_Value; // L/kg, at pH and pH2
    double pH = 7, pH2 = No_Value;
    double pKa = No_Dissociation;   // at or above this, or 0 and below: no dissociation
    double Freundlich_Exponent = 1; // with Koc
    double Freundlich_Limit = 0.01; // ug/L, linear below
    double Annual_Increase = 0;     // % a year
    double K_Doc = 0;               // L/kg
    double Koc_Change = 1;          // factor for air-dry soil
    double F_Neq = 0, K_Des = 0;    // slow sites: ratio to the fast ones; 1/d
    double Plant_Uptake = 0;        // transpiration stream factor
    int Depth_Mode = 0;             // 0 scenario's factors, 1 constant, 2 individual
    bool Liquid_Only = false;
    std::vector<double> Horizon_Kd, Horizon_Exponent; // by horizon of the scenario, L/kg and -, without Kd_From_Koc
    std::array<Solute_Arrow, Arrows_Of_Substance + 1> Arrows; // 1 to 5
};

// Volatilisation of the active substance; each pair belongs to the two temperatures.
struct Solute_Volatilisation {
    bool Henry_Calculated = false;           // from molar mass, vapour pressure and solubility
    std::array<double, 2> Henry{};           // Pa m3/mol
    std::array<double, 2> Vapour_Pressure{}; // Pa
    std::array<double, 2> Solubility{};      // mg/L
    std::array<double, 2> Temperature{{20, 30}};
    double Enthalpy = Default_Enthalpy; // J/mol, used if only one point is given
    double Diffusion_Air = 0;           // cm2/s at 20 degC
    double Boundary_Layer = 0;          // cm
};

struct Solute_Plant {
    double Decay = 0, Washoff = 0, Penetration = 0, Photodegradation = 0; // 1/d, 1/cm, 1/d, 1/d
    double Reference_Radiation = 0;                                       // W/m2
    double Laminar_Layer = 0;                                             // cm
};

struct Solute_Setup {
    // By compartment
    std::vector<double> Thickness, Density, Porosity, Field_Capacity, Wilting_Point;
    std::vector<double> Organic_Carbon, pH; // %, -
    std::vector<double> Dispersion;         // length in cm, or coefficient in cm2/d
    std::vector<double> Biodegradation;     // factor for Depth_Mode 0
    std::vector<double>
        Horizon_Share; // [compartment * Horizons + horizon]: share of the compartment's soil mass, sum 1
    int Horizons = 0;
    int Surface = 0;          // compartments of the surface layer, in which advection is implicit
    double Deposit_Depth = 0; // cm, of an application to the surface; 0: the first compartment

    bool Dispersion_Is_Length = true;
    double Doc = 0;                           // mg/L, 0 if switched off
    double Runoff_Depth = 0;                  // cm, 0: no extraction by runoff
    std::vector<Solute_Substance> Substances; // ascending index, the first is 1
    Solute_Volatilisation Volatilisation;
    Solute_Plant Plant;
};

struct Solute_Application {
    double Hour = 0;           // 0 to 24; otherwise 0
    double Mass = 0;           // ug/cm2
    double Depth = 0;          // cm, of the soil share; 0: into the first compartment
    double Plant_Share = 0;    // 0 to 1, see Plant_Fraction
    double Poorly_Exposed = 0; // share of the deposit on the plants
};

// One day, as computed by water, crop and heat.
struct Solute_Day {
    std::vector<double> Theta_Start, Theta_End; // by compartment
    std::vector<double> Flux;                   // by interface, cm/d downwards, never negative, without bypass
    std::vector<double> Transpiration;          // by compartment, cm/d
    std::vector<double> Temperature;            // by compartment, degC
    double Air_Temperature = 0;                 // degC
    double Radiation = 0;                       // kJ/m2 in the day
    double Cover = 0;                           // 0 to 1
    double Runoff = 0, Bypass = 0;              // cm
    int Bypass_Outlet = -1;                     // compartment that receives the bypass
    double Bypass_Below = 0;                    // share of it that the compartment below receives
    double Sediment = 0;                        // erosion x enrichment, g/cm2
    double Plant_Water = 0;                     // rain and irrigation on the crop, cm
    double Poor_Photo = 0.2, Poor_Penetration = 0.2, Poor_Volatilisation = 0.2,
           Poor_Washoff = 0.2; // of the crop, relative to well exposed
    double Tillage_Depth = 0;  // cm, 0: no tillage today
    bool Harvest = false;      // the plant deposit goes to the first compartment
    bool Hourly = false;       // 24 segments (soil mode, day of an application)
    std::vector<Solute_Application> Applications;
};

// Amounts since the last Clear. The caller chooses the span: Step_Day adds, Add sums days into months and years. A
// compartment's balance: change of M + W = Applied + Formed - Decay_Eq - Decay_Neq - Uptake + Flux above - Flux below,
// for the first one also - Soil_Volatilised and - Sediment; runoff and tillage are not kept by compartment.
struct Solute_Sums {
    Solute_Sums() = default;
    Solute_Sums(int compartments, int lanes);

    void Clear();
    void Add(const Solute_Sums& other);

    std::vector<double> Applied, Formed, Decay_Eq, Decay_Neq, Uptake; // by compartment; photolysis is in Decay_Eq
    std::vector<double> Flux; // by interface, downwards, with bypass; 0: wash-off and harvest from the plants
    std::vector<double> Plant_Applied, Plant_Decay, Plant_Penetration, Plant_Volatilised; // by substance
    std::vector<double> Soil_Volatilised, Runoff, Sediment,
        Bypass;            // by substance; Runoff is dissolved and washed off, without Sediment
    double Sink_Moles = 0; // into CO2 and bound residue, umol/cm2
};

// Mass on the plants and in the soil, by slot.
struct Solute_Stores {
    std::vector<double> Soil, Plant;
};

// Where more of the active substance was in solution than dissolves: days, and the highest concentration with its
// place.
struct Dissolved_Excess {
    int Days = 0;
    double Most = 0, Solubility = 0; // mg/L
    int Compartment = 0;
};

struct Solute_Closure {
    std::vector<double> In, Out, Change;       // ug/cm2, by slot
    std::vector<double> Error;                 // In - Out - Change
    double Moles_Applied = 0, Moles_Found = 0; // umol/cm2: Moles_Found = change of stores + all outputs + sinks
};

} // namespace orvel::engine
