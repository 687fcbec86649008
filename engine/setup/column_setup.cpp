// The soil column of water and heat, laid out from the scenario's horizons.
#include "engine/setup/input.h"
#include "engine/setup/solute_setup.h"
#include "engine/water/water.h"

namespace orvel::engine {

Solute_Setup Build_Solute_Setup(const Pesticide_Document& pesticide, const Scenario_Document& scenario,
                                const Grid& grid, const std::vector<int>& substances)
{
    Solute_Setup setup;
    setup.Thickness = grid.Thickness;
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
