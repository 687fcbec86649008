#pragma once

#include "engine/math/aligned_row.h"
#include "engine/solute/kernel.h"
#include "engine/solute/solute_records.h"

#include <vector>

namespace orvel::engine {

// Share of each compartment in the exchange between runoff (or bypass) and the soil above a depth (cm): it decays
// exponentially to e^-3 at the depth. The shares sum to 1 if the column is that deep. [exponential interaction zone:
// Ahuja 1986]
std::vector<double> Interaction_Weights(const std::vector<double>& thickness, double depth);

// Loss (ug/cm2) of a compartment that would lose `carried` ug/cm2 if its mass stayed constant: mass (1 - e^(-carried /
// mass)).
double Carried_Loss(double mass, double carried);

// What runoff, sediment and bypass take from each compartment at the top in a day, and to whom it goes. The transport
// sub-step takes it, side by side with infiltration.
class Day_Extraction {
public:
    Day_Extraction(const Solute_Setup& setup, const Solute_Layout& layout);

    // The water and sediment of a day, even over its hours. Sediment comes from the uppermost soil, as far down as the
    // day's reaches.
    void Prepare(const Solute_Day& day);

    // The compartments at the top that lose anything today; 0: none
    int Rows() const { return Count; }
    // Sub-steps of a segment of that length (days), so that none takes much
    int Sub_Steps(double length) const;

    // Sets the solution that a compartment loses from the state at time t: with the sediment goes what is sorbed, at
    // the ratio of sorbed mass to concentration that holds there.
    void Open(const Kernel_Column& column, double t);

    // The amounts that a sub-step of length h has taken, and what sediment takes from the slow sites; the bypass's is
    // gathered by slot until it arrives.
    void Share_Out(const Kernel_Column& column, double h, Solute_Sums& sums);

    const double* Taking() const { return Rates.data(); }
    double* Taken() { return Masses.data(); }
    // What the bypass has taken from a compartment in the last sub-step
    double Bypassed(int compartment, int slot) const { return Deep[Layout.At(compartment, slot)]; }

private:
    const Solute_Setup& Setup;
    Solute_Layout Layout;
    std::vector<double> Runoff_Weights, Bypass_Weights;
    std::vector<double> Runoff, Bypass; // by compartment, cm/d
    std::vector<double> Sediment;       // by compartment, g/cm2/d
    Aligned_Row Rates, Masses, Deep;
    int Count = 0;
    double Pace = 0; // sub-steps a day
};

// Spreads the mass of the top `depth` cm so that each gram of soil holds the same; the last compartment takes part with
// its share. Rows of `stride` numbers.
void Mix_Soil(double* mass, int stride, const std::vector<double>& thickness, const std::vector<double>& density,
              double depth);

} // namespace orvel::engine
