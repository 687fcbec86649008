#pragma once

#include <vector>

namespace orvel::engine {

// Share of each compartment in the exchange between runoff (or bypass) and the soil above a depth (cm): it decays
// exponentially to e^-3 at the depth. The shares sum to 1 if the column is that deep. [exponential interaction zone:
// Ahuja 1986]
std::vector<double> Interaction_Weights(const std::vector<double>& thickness, double depth);

// Loss (ug/cm2) of a compartment that would lose `carried` ug/cm2 if its mass stayed constant: mass (1 - e^(-carried /
// mass)).
double Carried_Loss(double mass, double carried);

// Spreads the mass of the top `depth` cm so that each gram of soil holds the same; the last compartment takes part with
// its share. Rows of `stride` numbers.
void Mix_Soil(double* mass, int stride, const std::vector<double>& thickness, const std::vector<double>& density,
              double depth);

} // namespace orvel::engine
