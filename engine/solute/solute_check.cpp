#include "engine/solute/solute_check.h"

#include "engine/solute/sorption.h"

#include <algorithm>

namespace orvel::engine {

namespace {

constexpr double Least_Exponent = 0.1, Largest_Exponent = 1.5;

bool In_Run(const Solute_Setup& setup, int index)
{
    return std::any_of(setup.Substances.begin(), setup.Substances.end(),
                       [&](const auto& other) { return other.Index == index; });
}

bool Acts(const Solute_Arrow& arrow)
{
    return arrow.Rate > 0 || arrow.Photo_Rate > 0;
}

// The first required horizon table that lacks a row for some horizon; empty if there is none.
std::string Missing_Table(const Solute_Setup& setup, const Solute_Substance& substance)
{
    const auto needed = static_cast<std::size_t>(setup.Horizons);
    if (!substance.Kd_From_Koc &&
        (substance.Horizon_Kd.size() != needed || substance.Horizon_Exponent.size() != needed))
        return "sorption";
    if (substance.Depth_Mode == 0 || substance.Depth_Mode == 1)
        return {};
    for (const auto& arrow : substance.Arrows) {
        if (arrow.Rate > 0 && arrow.Horizon_Factor.size() != needed)
            return "transformation";
    }
    return {};
}

std::string Sorption_Fault(const Solute_Setup& setup, const Solute_Substance& substance)
{
    if (substance.K_Doc < 0 || substance.Annual_Increase < 0 || substance.Koc_Change <= 0)
        return "K_doc, annual increase or increase of sorption in dry soil is negative";
    for (std::size_t i = 0; i < setup.Thickness.size(); ++i) {
        const Sorption_Base base = Sorption_Of(setup, substance, static_cast<int>(i));
        if (!(base.Rho_K >= 0))
            return "sorption coefficient is negative";
        if (!(base.Exponent >= Least_Exponent && base.Exponent <= Largest_Exponent))
            return "Freundlich exponent is not between 0.1 and 1.5";
    }
    return {};
}

std::string Rate_Fault(const Solute_Substance& substance)
{
    if (substance.F_Neq < 0 || substance.K_Des < 0)
        return "F_neq or K_des is negative";
    if (substance.Plant_Uptake < 0)
        return "plant uptake factor is negative";
    for (const auto& arrow : substance.Arrows) {
        const bool factor =
            std::any_of(arrow.Horizon_Factor.begin(), arrow.Horizon_Factor.end(), [](double f) { return f < 0; });
        if (arrow.Rate < 0 || arrow.Photo_Rate < 0 || arrow.Neq < 0 || factor)
            return "a transformation rate is negative";
    }
    return {};
}

bool Molmass_Missing(const Solute_Setup& setup, const Solute_Substance& substance)
{
    for (const auto& arrow : substance.Arrows) {
        if (!Acts(arrow) || arrow.Target <= substance.Index)
            continue;
        for (const auto& target : setup.Substances) {
            if (target.Index == arrow.Target && (substance.Molmass <= 0 || target.Molmass <= 0))
                return true;
        }
    }
    return false;
}

std::string Volatilisation_Fault(const Solute_Setup& setup)
{
    const auto& v = setup.Volatilisation;
    const bool leaves = setup.Plant.Laminar_Layer > 0 && v.Vapour_Pressure[0] > 0;
    const bool soil = v.Henry_Calculated && v.Vapour_Pressure[0] > 0;
    if (v.Henry[0] < 0 || v.Vapour_Pressure[0] < 0 || v.Diffusion_Air < 0 || v.Boundary_Layer < 0)
        return "Henry constant, vapour pressure, diffusion coefficient or boundary layer is negative";
    if ((leaves || soil) && setup.Substances.front().Molmass <= 0)
        return "molar mass missing for volatilisation";
    if (soil && v.Solubility[0] <= 0)
        return "solubility missing for the Henry constant";
    return {};
}

} // namespace

std::vector<Solute_Fault> Check_Solute_Setup(const Solute_Setup& setup)
{
    std::vector<Solute_Fault> faults;
    const auto add = [&](Fault fault, const Solute_Substance& substance, const std::string& text) {
        if (!text.empty())
            faults.push_back({fault, "substance " + std::to_string(substance.Index) + ": " + text});
    };
    for (const auto& substance : setup.Substances) {
        const std::string table = Missing_Table(setup, substance);
        add(Fault::Horizon_Tables, substance,
            table.empty() ? "" : table + " table does not have the scenario's number of horizons");
        if (substance.Kd_From_Koc || table.empty())
            add(Fault::Sorption, substance, Sorption_Fault(setup, substance));
        add(Fault::Rate, substance, Rate_Fault(substance));
        add(Fault::Volatility, substance,
            Molmass_Missing(setup, substance) ? "molar mass missing for a conversion" : "");
        for (const auto& arrow : substance.Arrows) {
            if (Acts(arrow) && In_Run(setup, arrow.Target) && arrow.Target <= substance.Index)
                add(Fault::Rate, substance, "a transformation leads back in the scheme");
        }
    }
    add(Fault::Volatility, setup.Substances.front(), Volatilisation_Fault(setup));
    const auto& plant = setup.Plant;
    if (std::min({plant.Decay, plant.Washoff, plant.Penetration, plant.Photodegradation}) < 0)
        add(Fault::Rate, setup.Substances.front(), "a rate on the plant surface is negative");
    return faults;
}

} // namespace orvel::engine
