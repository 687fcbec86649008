#include "engine/solute/day_storage.h"

#include "engine/solute/sorption.h"
#include "engine/solute/transport.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

Day_Storage::Day_Storage(const Solute_Setup& setup, const Solute_Layout& layout)
    : Setup(setup),
      Layout(layout),
      Base_Rho_K(layout.Rows(0)),
      Exponent(layout.Rows(1)),
      Limit(layout.Rows(Sorption_Base().Limit)),
      Limit_Power(layout.Rows(1)),
      Psi_Start(layout.Rows(1)),
      Psi_End(layout.Rows(1)),
      Conductance(layout.Rows(0, 1)),
      Doc(layout.One_Row(1)),
      Escape(layout.One_Row(0)),
      Escape_Limit(layout.One_Row(No_Saturation)),
      Inflow(layout.One_Row(0)),
      Thickness(layout.Column(1)),
      Upwind_Weight(layout.Column(0)),
      Inverse_Phi2(layout.Column(0)),
      Dispersion(layout.Column(0)),
      Theta(layout.Column(0.1)),
      Air(layout.Column(0)),
      Water_Tortuosity(layout.Column(0)),
      Air_Tortuosity(layout.Column(0)),
      Kaw(layout.Column(0)),
      Air_Diffusivity(layout.Column(0)),
      Saturation(layout.Column(No_Saturation)),
      Air_Conductance(layout.Column(0)),
      Air_Share(layout.Column(1))
{
    for (int k = 0; k < layout.Slots; ++k) {
        const auto& substance = setup.Substances[k];
        Moving.push_back(substance.Koc_Change != 1 || substance.Annual_Increase > 0);
        Doc[k] = 1 + 1e-6 * substance.K_Doc * setup.Doc;
        for (int i = 0; i < layout.N; ++i) {
            const Sorption_Base base = Sorption_Of(setup, substance, i);
            const auto at = layout.At(i, k);
            Base_Rho_K[at] = base.Rho_K;
            Exponent[at] = base.Exponent;
            Limit[at] = base.Limit;
            Limit_Power[at] = base.Limit_Power;
        }
    }
    Rho_K = Base_Rho_K;
    for (int i = 0; i < layout.N; ++i) {
        Thickness[i] = setup.Thickness[i];
        Inverse_Phi2[i] = 1 / (setup.Porosity[i] * setup.Porosity[i]);
        if (i + 1 < layout.N)
            Upwind_Weight[i] = setup.Thickness[i] / (setup.Thickness[i] + setup.Thickness[i + 1]);
        if (i > 0)
            Dispersion[i] = Interface_Mean(setup.Dispersion[i - 1], setup.Dispersion[i], setup.Thickness[i - 1],
                                           setup.Thickness[i]);
    }
    const auto& first = setup.Substances.front();
    Volatile = setup.Volatilisation.Diffusion_Air > 0 && Henry_Constant(setup.Volatilisation, first.Molmass, 20) > 0;
}

double Day_Storage::Saturated_At(double t) const
{
    return Saturating_Concentration(Setup.Volatilisation, Setup.Substances.front().Molmass, t);
}

bool Day_Storage::Prepare(const Solute_Kernel& kernel, const Solute_Day& day, const Aligned_Row& ages)
{
    for (int i = 0; i < Layout.N; ++i) {
        Theta[i] = 0.5 * (day.Theta_Start[i] + day.Theta_End[i]);
        Air[i] = std::max(Setup.Porosity[i] - Theta[i], 0.0);
    }
    if (Volatile)
        Prepare_Vapour(kernel, day);
    const bool moved = Prepare_Sorption(ages);
    const bool other = Prepare_Psi(day);
    Prepare_Conductance(kernel, day);
    return moved || other;
}

bool Day_Storage::Prepare_Sorption(const Aligned_Row& ages)
{
    bool moved = false;
    for (int k = 0; k < Layout.Slots; ++k) {
        if (!Moving[k])
            continue;
        const auto& substance = Setup.Substances[k];
        for (int i = 0; i < Layout.N; ++i) {
            const auto at = Layout.At(i, k);
            double factor = 1 + substance.Annual_Increase / 100 * ages[at];
            if (substance.Koc_Change != 1)
                factor *= Air_Dry_Factor(substance.Koc_Change, Theta[i], Setup.Wilting_Point[i]);
            const double now = Base_Rho_K[at] * factor;
            moved = moved || now != Rho_K[at];
            Rho_K[at] = now;
        }
    }
    return moved;
}

bool Day_Storage::Prepare_Psi(const Solute_Day& day)
{
    const bool continued = Last_Theta == day.Theta_Start;
    Last_Theta = day.Theta_End;
    for (int i = 0; i < Layout.N; ++i) {
        for (int k = 0; k < Layout.Lanes; ++k) {
            Psi_Start[Layout.At(i, k)] = day.Theta_Start[i] * Doc[k];
            Psi_End[Layout.At(i, k)] = day.Theta_End[i] * Doc[k];
        }
        if (Volatile) {
            Psi_Start[Layout.At(i, 0)] += std::max(Setup.Porosity[i] - day.Theta_Start[i], 0.0) * Kaw[i];
            Psi_End[Layout.At(i, 0)] += std::max(Setup.Porosity[i] - day.Theta_End[i], 0.0) * Kaw[i];
        }
    }
    return !continued || Volatile;
}

void Day_Storage::Prepare_Vapour(const Solute_Kernel& kernel, const Solute_Day& day)
{
    kernel.Powers(Layout.Padded, Air.data(), 10.0 / 3, Air_Tortuosity.data());
    const double molmass = Setup.Substances.front().Molmass;
    for (int i = 0; i < Layout.N; ++i) {
        Air_Tortuosity[i] *= Inverse_Phi2[i];
        Kaw[i] = Air_Water_Ratio(Setup.Volatilisation, molmass, day.Temperature[i]);
        Air_Diffusivity[i] = Air_Diffusion(Setup.Volatilisation, day.Temperature[i]);
    }
}

void Day_Storage::Prepare_Conductance(const Solute_Kernel& kernel, const Solute_Day& day)
{
    kernel.Powers(Layout.Padded, Theta.data(), 10.0 / 3, Water_Tortuosity.data());
    for (int i = 0; i < Layout.N; ++i)
        Water_Tortuosity[i] *= Inverse_Phi2[i];
    for (int i = 1; i < Layout.N; ++i) {
        const auto between = [&](double upper, double lower) {
            return Interface_Mean(upper, lower, Thickness[i - 1], Thickness[i]);
        };
        const double distance = 0.5 * (Thickness[i - 1] + Thickness[i]);
        const double diffusion = Setup.Dispersion_Is_Length
                                     ? Water_Diffusion * between(Water_Tortuosity[i - 1], Water_Tortuosity[i])
                                     : between(Theta[i - 1] * Setup.Dispersion[i - 1], Theta[i] * Setup.Dispersion[i]);
        const double spread = Setup.Dispersion_Is_Length ? Dispersion[i] * day.Flux[i] : 0;
        for (int k = 0; k < Layout.Lanes; ++k)
            Conductance[Layout.At(i, k)] = (spread * Doc[k] + diffusion) / distance;
        if (Volatile) {
            const double upper = Air_Diffusivity[i - 1] * Air_Tortuosity[i - 1] * Kaw[i - 1],
                         lower = Air_Diffusivity[i] * Air_Tortuosity[i] * Kaw[i];
            Air_Share[i] = 1;
            Air_Conductance[i] = between(upper, lower) / distance;
            Conductance[Layout.At(i, 0)] += Air_Conductance[i];
        }
    }
    Limited = Saturation_Known = false;
    if (Volatile) {
        const auto [coldest, warmest] = std::minmax_element(day.Temperature.begin(), day.Temperature.end());
        Least_Saturation = std::min(Saturated_At(*coldest), Saturated_At(*warmest)); // exponential in 1/T
        const double layer = Setup.Volatilisation.Boundary_Layer;
        const double conductance = Volatilisation_Conductance(layer, Air_Diffusivity[0], Thickness[0],
                                                              Air_Tortuosity[0], Water_Tortuosity[0], Kaw[0]);
        Escape[0] = Kaw[0] * conductance;
        // No more than crosses the boundary layer from saturated air.
        const double most = layer > 0 ? Air_Diffusivity[0] / layer : conductance;
        Escape_Limit[0] = conductance > 0 ? Saturated_At(day.Temperature[0]) * (most / conductance) : No_Saturation;
    }
}

void Day_Storage::Limit_Vapour(const double* c, const std::vector<double>& temperature)
{
    if (!Volatile)
        return;
    bool above = false; // without a branch for each compartment: there are few
    for (int i = 0; i < Layout.N; ++i)
        above |= c[Layout.At(i, 0)] > Least_Saturation;
    if (!above && !Limited)
        return;
    for (int i = 0; i < Layout.N && !Saturation_Known; ++i)
        Saturation[i] = Saturated_At(temperature[i]);
    Saturation_Known = true;
    Limited = above;
    for (int i = 1; i < Layout.N; ++i) {
        const auto at = Layout.At(i, 0), over = Layout.At(i - 1, 0);
        const double saturated = std::min(c[over], Saturation[i - 1]) - std::min(c[at], Saturation[i]);
        const double difference = c[over] - c[at];
        const double share = difference != 0 ? std::clamp(saturated / difference, 0.0, 1.0) : 1;
        Conductance[at] += (share - Air_Share[i]) * Air_Conductance[i];
        Air_Share[i] = share;
    }
}

void Day_Storage::Show(Kernel_Column& column) const
{
    column.Thickness = Thickness.data();
    column.Rho_K = Rho_K.data();
    column.Exponent = Exponent.data();
    column.Limit = Limit.data();
    column.Limit_Power = Limit_Power.data();
    column.Psi_Start = Psi_Start.data();
    column.Psi_End = Psi_End.data();
    column.Conductance = Conductance.data();
    column.Upwind_Weight = Upwind_Weight.data();
    column.Doc = Doc.data();
    column.Escape = Escape.data();
    column.Escape_Limit = Escape_Limit.data();
    column.Inflow = Inflow.data();
}

} // namespace orvel::engine
