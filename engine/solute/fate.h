#pragma once

#include "engine/solute/solute_records.h"

namespace orvel::engine {

// Factors on transformation rates, for a single value; the column gets the temperature and moisture factors for four
// values at a time from the kernel.

// Q10^((t - reference) / 10) with temperatures in degC; 0 below 0 degC. [FOCUS 2006, 2014; EFSA 2007]
double Temperature_Factor(double t, double reference, double q10);

// Water content of the study, cm3/cm3: from the moisture relative to field capacity if given, else the absolute one,
// else 0 (no correction).
double Reference_Moisture(const Solute_Arrow& arrow, double field_capacity);

// (min(theta, field capacity) / reference)^exponent; 1 if the reference is 0. [Walker 1974]
double Moisture_Factor(double theta, double field_capacity, double reference, double exponent);

// Depth factor: that of the scenario (mode 0), 1 (mode 1), or that of the substance by horizon (mode 2).
double Depth_Factor(const Solute_Setup& setup, const Solute_Substance& substance, const Solute_Arrow& arrow,
                    int compartment);

// Mean light in a soil layer between two depths (cm) relative to the surface: it falls by a factor of e per millimetre.
// [Hebert & Miller 1990]
double Photolysis_Share(double top, double bottom);

// Photolysis rate (1/d) at the surface under a crop with the given cover (0 to 1) and radiation in kJ/m2 a day.
double Photolysis_Rate(const Solute_Arrow& arrow, double radiation, double cover);

} // namespace orvel::engine
