#pragma once

#include "engine/solute/solute_records.h"

namespace orvel::engine {

// Share of the neutral species at a pH, 0 to 1: 1 / (1 + 10^(pH - pKa)).
double Neutral_Share(double ph, double pka);

// Koc (L/kg) at a pH for a neutral and an ionised species: from two points, or from one if the ion does not sorb;
// constant if the substance does not dissociate or the neutral share is the same at both points. [two-species form:
// Franco & Trapp 2008]
double Koc_At_pH(const Solute_Substance& substance, double ph);

// Factor on K in dry soil: 1 at and above the wilting point, koc_change at half of it and below. [Petersen et al. 1995]
double Air_Dry_Factor(double koc_change, double theta, double wilting_point);

// A property known at one or two temperatures (degC) at another one: exponential in 1/T; with only one point from the
// enthalpy (J/mol).
double At_Temperature(const std::array<double, 2>& value, const std::array<double, 2>& temperature, double enthalpy,
                      double t);

// Henry constant (Pa m3/mol) and vapour pressure (Pa) at t degC.
double Henry_Constant(const Solute_Volatilisation& volatilisation, double molmass, double t);
double Vapour_Pressure(const Solute_Volatilisation& volatilisation, double t);

// Concentration of the substance in saturated air (ug/cm3) at t degC; 0: no vapour pressure is given.
double Saturated_Vapour(const Solute_Volatilisation& volatilisation, double molmass, double t);

// Solubility in water (mg/L) at t degC, constant if only one is given; 0: none.
double Solubility_In_Water(const Solute_Volatilisation& volatilisation, double t);

// Concentration in water (ug/cm3) above which the air is saturated; No_Saturation without a vapour pressure and a
// solubility.
constexpr double No_Saturation = 1e300;
double Saturating_Concentration(const Solute_Volatilisation& volatilisation, double molmass, double t);

// Air-water partition coefficient (dimensionless, concentration in air over concentration in water) at t degC.
double Air_Water_Ratio(const Solute_Volatilisation& volatilisation, double molmass, double t);

// Diffusion coefficient in air, cm2/d, at t degC.
double Air_Diffusion(const Solute_Volatilisation& volatilisation, double t);

// rho K, exponent and linear foot of a substance in a compartment: the part that is constant over the days. For linear
// sorption the foot never ends.
struct Sorption_Base {
    double Rho_K = 0, Exponent = 1, Limit = 1e200, Limit_Power = 1;
};
Sorption_Base Sorption_Of(const Solute_Setup& setup, const Solute_Substance& substance, int compartment);

// f(C) = C^n, and linear through 0 below the limit (ug/g per L/kg).
double Freundlich(double c, double exponent, double limit);

} // namespace orvel::engine
