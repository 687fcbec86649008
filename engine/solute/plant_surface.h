#pragma once

#include "engine/solute/solute_records.h"

namespace orvel::engine {

// Share of an application that stays on the plants, 0 to 1. Methods: 1 soil, 2 linear (cover), 3 exponential
// (filtration in m2/kg times dry mass in kg/m2) [form of Willis et al. 1980, USDA Cons. Res. Rep. 26], 4 as given in
// percent. Without a crop, methods 2 and 3 give 0.
double Plant_Fraction(int method, bool crop, double cover, double filtration, double dry_mass, double percent);

// Deposit on the plants, ug/cm2: well exposed, and poorly exposed to light, air and rain.
struct Leaf_Pools {
    double Well = 0, Poor = 0;
};

struct Leaf_Losses {
    double Washed_Off = 0, Decayed = 0, Penetrated = 0, Volatilised = 0; // ug/cm2; photodegradation counts as decay
};

// Loss rates of a pool over a part of a day.
struct Leaf_Rates {
    double Decay = 0, Photodegradation = 0, Penetration = 0, Volatilisation = 0; // 1/d
    double Washed_Off = 0;                                                       // share, taken first
};

// Volatilisation rate (1/d) at full exposure: through a laminar layer (cm) from saturated air, for a deposit of 1
// kg/ha, at t degC. [form of Leistra et al. 2006]
double Leaf_Volatilisation(const Solute_Volatilisation& volatilisation, double molmass, double laminar_layer, double t);

// The loss rates of the well exposed or the poorly exposed deposit over `length` days of a day, with that share of its
// water.
Leaf_Rates Rates_Of_Leaf(const Solute_Setup& setup, const Solute_Day& day, bool poorly_exposed, double length = 1);

// Advances a pool by `length` days: wash-off first, then the four rates at the same time.
Leaf_Losses Step_Leaf(double& pool, const Leaf_Rates& rates, double length = 1);

} // namespace orvel::engine
