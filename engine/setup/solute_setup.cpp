#include "engine/setup/solute_setup.h"

#include "substance/pathway.h"

#include <algorithm>

namespace orvel::engine {

namespace {

double Or(double value, double otherwise)
{
    return value > 0 ? value : otherwise;
}

Solute_Arrow Arrow_Values(const Pesticide_Document& document, const Arrow& arrow)
{
    const auto& row = document.Degradation[arrow.Source][arrow.Row];
    Solute_Arrow values;
    values.Target = arrow.Target;
    values.Rate = row.Deg_Rate.Number();
    values.Temperature = row.Deg_Temp.Number() == 0 ? 20 : row.Deg_Temp.Number();
    values.Q10 = Or(row.Deg_Q10.Number(), 1);
    values.Moist_Abs = row.Deg_Moist_Abs.Number();
    values.Moist_Rel = row.Deg_Moist_Rel.Number();
    values.Moist_Exp = row.Deg_Moist_Exp.Number();
    values.Neq = row.Deg_Neq;
    if (arrow.Source == 1) {
        values.Photo_Rate = document.Photo_Rate[arrow.Row];
        values.Photo_Reference = document.Photo_I_Ref[arrow.Row];
    }
    return values;
}

// Number of rows from 1 to N_Horizons that exist.
std::size_t Horizon_Count(const Pesticide_Document& document)
{
    const double named = std::max(document.N_Horizons.Number(), 0.0);
    const std::size_t there = document.Horizons.empty() ? 0 : document.Horizons.size() - 1;
    return named < static_cast<double>(there) ? static_cast<std::size_t>(named) : there;
}

Solute_Substance Substance_Of(const Pesticide_Document& document, int i)
{
    Solute_Substance substance;
    substance.Index = i;
    substance.Name = document.Substance_Name[i];
    substance.Molmass = document.Molmass[i].Number();
    substance.Kd_From_Koc = document.Kd_Flag[i].Number() != 0;
    substance.Koc = document.Koc[i].Number();
    substance.Koc2 = document.Koc2[i].Number();
    substance.pH = document.Sorp_pH[i].Number();
    substance.pH2 = document.Sorp_pH2[i].Number();
    substance.pKa = document.Sorp_pKa[i].Number();
    substance.Freundlich_Exponent = document.Fr_Exp[i].Number();
    substance.Freundlich_Limit = document.Freundl_Limit[i].Number();
    substance.Annual_Increase = document.Ann_Incr[i];
    substance.K_Doc = document.K_doc[i];
    substance.Koc_Change = Or(document.Koc_Change[i], 1);
    substance.F_Neq = document.F_neq[i];
    substance.K_Des = document.K_des[i];
    substance.Plant_Uptake = document.Plant_Uptake[i].Number();
    substance.Depth_Mode = document.Deg_Depth_Mode[i];
    substance.Liquid_Only = document.Deg_Liquid_Only[i] != 0;
    for (int t = 1; t <= Last_Transformation; ++t) {
        if (const Arrow& arrow = Arrow_Of(t); arrow.Source == i)
            substance.Arrows[arrow.Row] = Arrow_Values(document, arrow);
    }
    for (std::size_t h = 1; h <= Horizon_Count(document); ++h) {
        const auto& horizon = document.Horizons[h];
        substance.Horizon_Kd.push_back(horizon.Hor_Kd[i].Number());
        substance.Horizon_Exponent.push_back(horizon.Hor_FrExp[i].Number());
        for (int j = 1; j <= Arrows_Of_Substance; ++j)
            substance.Arrows[j].Horizon_Factor.push_back(horizon.Hor_Deg[i][j].Number());
    }
    return substance;
}

} // namespace

std::vector<Solute_Substance> Substances_Of(const Pesticide_Document& document, const std::vector<int>& indices)
{
    std::vector<Solute_Substance> substances;
    substances.reserve(indices.size());
    for (const int i : indices)
        substances.push_back(Substance_Of(document, i));
    return substances;
}

Solute_Volatilisation Volatilisation_Of(const Pesticide_Document& document)
{
    Solute_Volatilisation volatilisation;
    volatilisation.Henry_Calculated = document.Henry_Flag.Number() != 0;
    volatilisation.Henry = document.Henry;
    volatilisation.Vapour_Pressure = document.Vap_Press;
    volatilisation.Solubility = document.Solubility;
    volatilisation.Temperature = document.Volat_Temp;
    volatilisation.Enthalpy = document.Hv;
    volatilisation.Diffusion_Air = document.Diff_Air;
    volatilisation.Boundary_Layer = document.Depth_Volat;
    return volatilisation;
}

Solute_Plant Plant_Of(const Pesticide_Document& document)
{
    return {.Decay = document.Plant_Decay.Number(),
            .Washoff = document.Plant_Washoff.Number(),
            .Penetration = document.Plant_Penetration,
            .Photodegradation = document.Plant_Photodeg,
            .Reference_Radiation = document.Plant_Ref_Rad,
            .Laminar_Layer = document.Plant_Laminar};
}

} // namespace orvel::engine
