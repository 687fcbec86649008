#pragma once

#include <vector>

namespace orvel::engine {

// Share of each compartment in the exchange between runoff (or bypass) and the soil above a depth (cm): it falls by e
// three times over the depth. The shares add up to 1 if the column is that deep. [exponential interaction zone: Ahuja
// 1986]
std::vector<double> Interaction_Weights(const std::vector<double>& thickness, double depth);

// Loss (ug/cm2) of a compartment of which `carried` ug/cm2 would leave if its mass did not fall: mass (1 - e^(-carried
// / mass)).
double Carried_Loss(double mass, double carried);

// Mass in 0 to depth of a column spread so that each gram of soil holds the same; the last compartment takes part with
// its share. Rows of `stride`.
void Mix_Soil(double* mass, int stride, const std::vector<double>& thickness, const std::vector<double>& density,
              double depth);

} // namespace orvel::engine
