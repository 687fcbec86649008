// The soil column of water and heat, laid out from the scenario's horizons.
#include "engine/setup/input.h"
#include "engine/setup/solute_setup.h"
#include "engine/water/water.h"

#include <algorithm>

namespace orvel::engine {

namespace {

constexpr double Deposit_Depth = 0.1; // cm, of an application to the surface with a surface layer

} // namespace

bool Acts_At_The_Surface(const Scenario_Document& scenario, const Pesticide_Document& pesticide)
{
    const auto positive = [](double value) { return value > 0; };
    const Solute_Volatilisation volatilisation = Volatilisation_Of(pesticide);
    const bool vapour =
        volatilisation.Diffusion_Air > 0 &&
        (volatilisation.Henry_Calculated ? volatilisation.Vapour_Pressure[0] > 0 : volatilisation.Henry[0] > 0);
    return vapour || Runoff_Is_On(scenario) || (scenario.SZE_Macropore == 1 && scenario.SZE_Macro_Fraction > 0) ||
           std::ranges::any_of(pesticide.Photo_Rate, positive);
}

Solute_Setup Build_Solute_Setup(const Pesticide_Document& pesticide, const Scenario_Document& scenario,
                                const Grid& grid, const std::vector<int>& substances)
{
    Solute_Setup setup;
    setup.Thickness = grid.Thickness;
    setup.Surface = grid.Surface;
    setup.Deposit_Depth = grid.Surface > 0 ? Deposit_Depth : 0;
    setup.Density = grid.Density;
    setup.Porosity = grid.Porosity;
    setup.Field_Capacity = grid.Field_Capacity;
    setup.Wilting_Point = grid.Wilting_Point;
    setup.Organic_Carbon = grid.Organic_Carbon;
    setup.pH = grid.pH;
    setup.Dispersion = grid.Dispersion;
    setup.Biodegradation = grid.Biodegradation;
    setup.Horizon_Share = grid.Horizon_Share;
    setup.Horizons = static_cast<int>(scenario.Horizons.size());
    setup.Dispersion_Is_Length = scenario.SZE_Dispersion_Flag == 1;
    setup.Doc = scenario.SZE_DOC_Flag != 0 ? scenario.SZE_DOC_Content : 0;
    setup.Runoff_Depth = Runoff_Depth_Of(scenario);
    setup.Substances = Substances_Of(pesticide, substances);
    setup.Volatilisation = Volatilisation_Of(pesticide);
    setup.Plant = Plant_Of(pesticide);
    return setup;
}

} // namespace orvel::engine
