#pragma once

#include "engine/solute/solute_records.h"

namespace orvel::engine {

// Share of the neutral species at a pH: 1 / (1 + 10^(pH - pKa)).
double Neutral_Share(double ph, double pka);

// Koc (L/kg) at a pH: a neutral and an ionised species, from two points, or from one with no sorption of the ion;
// constant where the substance does not dissociate or both points lie where the share is the same. [two-species form:
// Franco & Trapp 2008]
double Koc_At_pH(const Solute_Substance& substance, double ph);

// Factor on K in air-dry soil: 1 at and above the wilting point, koc_change at half of it and below. [Petersen et al.
// 1995]
double Air_Dry_Factor(double koc_change, double theta, double wilting_point);

// A property known at one or two temperatures (degC), at another: exponential in 1/T; with one point by the enthalpy
// (J/mol).
double At_Temperature(const std::array<double, 2>& value, const std::array<double, 2>& temperature, double enthalpy,
                      double t);

// Henry constant (Pa m3/mol) and vapour pressure (Pa) at t degC.
double Henry_Constant(const Solute_Volatilisation& volatilisation, double molmass, double t);
double Vapour_Pressure(const Solute_Volatilisation& volatilisation, double t);

// Concentration in air per concentration in water at t degC.
double Air_Water_Ratio(const Solute_Volatilisation& volatilisation, double molmass, double t);

// cm2/d at t degC.
double Air_Diffusion(const Solute_Volatilisation& volatilisation, double t);

// rho K, exponent and linear foot of one substance in one compartment, without what changes from day to day. Linear
// sorption has a foot without end.
struct Sorption_Base {
    double Rho_K = 0, Exponent = 1, Limit = 1e200, Limit_Power = 1;
};
Sorption_Base Sorption_Of(const Solute_Setup& setup, const Solute_Substance& substance, int compartment);

// f(C): C^n, below the limit linear through 0. (ug/g per L/kg)
double Freundlich(double c, double exponent, double limit);

} // namespace orvel::engine
