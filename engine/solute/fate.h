#pragma once

#include "engine/solute/solute_records.h"

namespace orvel::engine {

// Factors on the rates of transformation, one value at a time. The column takes those of temperature and moisture four
// at a time from the kernel.

// Q10^((t - reference) / 10), 0 below 0 degC. [FOCUS 2006, 2014; EFSA 2007]
double Temperature_Factor(double t, double reference, double q10);

// Water content of the study: relative to field capacity if that is given, else absolute, else 0 (no correction).
double Reference_Moisture(const Solute_Arrow& arrow, double field_capacity);

// (min(theta, field capacity) / reference)^exponent; 1 without a reference. [Walker 1974]
double Moisture_Factor(double theta, double field_capacity, double reference, double exponent);

// Factor of the depth: the scenario's (mode 0), 1 (mode 1), the substance's own by horizon (mode 2).
double Depth_Factor(const Solute_Setup& setup, const Solute_Substance& substance, const Solute_Arrow& arrow,
                    int compartment);

// Mean light in a layer of soil, relative to that at the surface: it falls by e each millimetre. [Hebert & Miller 1990]
double Photolysis_Share(double top, double bottom);

// Rate (1/d) at the surface under a crop of the given cover (0 to 1) for a day's radiation in kJ/m2.
double Photolysis_Rate(const Solute_Arrow& arrow, double radiation, double cover);

} // namespace orvel::engine
