#pragma once

#include "engine/math/aligned_row.h"
#include "engine/solute/kernel.h"
#include "engine/solute/solute_records.h"

namespace orvel::engine {

// Sorption and transport coefficients of a column, updated daily.
class Day_Storage {
public:
    Day_Storage(const Solute_Setup& setup, const Solute_Layout& layout);

    // Prepares a day; ages are mean residence times in years, in rows of Lanes. True if concentrations must be
    // recomputed, since sorption or the water at the start of the day differs from the end of the previous day.
    bool Prepare(const Solute_Kernel& kernel, const Solute_Day& day, const Aligned_Row& ages);

    // Lets no more diffuse in air than between concentrations up to saturation, for the state of a sub-step's start and
    // the temperatures of the day.
    void Limit_Vapour(const double* c, const std::vector<double>& temperature);

    // Points the column of a kernel at the arrays.
    void Show(Kernel_Column& column) const;

    double Doc_Factor(int slot) const { return Doc[slot]; }
    const Aligned_Row& Theta_Mean() const { return Theta; }

private:
    double Saturated_At(double t) const;
    bool Prepare_Sorption(const Aligned_Row& ages);
    bool Prepare_Psi(const Solute_Day& day);
    void Prepare_Conductance(const Solute_Kernel& kernel, const Solute_Day& day);
    void Prepare_Vapour(const Solute_Kernel& kernel, const Solute_Day& day);

    const Solute_Setup& Setup;
    Solute_Layout Layout;
    bool Volatile = false;
    double Least_Saturation = 0; // of today's
    bool Saturation_Known = false;
    bool Limited = false;     // the conductances are those of saturated air in some place
    std::vector<bool> Moving; // by slot: whether K changes from day to day
    Aligned_Row Base_Rho_K, Rho_K, Exponent, Limit, Limit_Power, Psi_Start, Psi_End, Conductance, Doc, Escape,
        Escape_Limit, Inflow;
    Aligned_Row Thickness, Upwind_Weight, Inverse_Phi2, Dispersion, Theta, Air, Water_Tortuosity, Air_Tortuosity, Kaw,
        Air_Diffusivity, Saturation, Air_Conductance, Air_Share;
    std::vector<double> Last_Theta;
};

} // namespace orvel::engine
