#pragma once

#include "engine/math/aligned_row.h"
#include "engine/solute/kernel.h"
#include "engine/solute/solute_records.h"

namespace orvel::engine {

// Sorption and transport coefficients of a column, renewed each day.
class Day_Storage {
public:
    Day_Storage(const Solute_Setup& setup, const Solute_Layout& layout);

    // For a day; ages are mean residence times in years, rows as everywhere. True if concentrations must be sought
    // anew, since sorption or the water at the day's start differs from the end of the day before.
    bool Prepare(const Solute_Kernel& kernel, const Solute_Day& day, const Aligned_Row& ages);

    // Lays the arrays into a kernel's column.
    void Show(Kernel_Column& column) const;

    double Doc_Factor(int slot) const { return Doc[slot]; }
    const Aligned_Row& Theta_Mean() const { return Theta; }

private:
    bool Prepare_Sorption(const Aligned_Row& ages);
    bool Prepare_Psi(const Solute_Day& day);
    void Prepare_Conductance(const Solute_Kernel& kernel, const Solute_Day& day);
    void Prepare_Vapour(const Solute_Kernel& kernel, const Solute_Day& day);

    const Solute_Setup& Setup;
    Solute_Layout Layout;
    bool Volatile = false;
    std::vector<bool> Moving; // by slot: K changes from day to day
    Aligned_Row Base_Rho_K, Rho_K, Exponent, Limit, Limit_Power, Psi_Start, Psi_End, Conductance, Doc, Escape, Inflow;
    Aligned_Row Thickness, Upwind_Weight, Inverse_Phi2, Theta, Air, Water_Tortuosity, Air_Tortuosity, Kaw,
        Air_Diffusivity;
    std::vector<double> Last_Theta;
};

} // namespace orvel::engine
