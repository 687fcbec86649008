#include "engine/water/water.h"

#include "engine/water/soil_water.h"
#include "engine/water/surface_water.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace orvel::engine {

namespace {

constexpr double Least_Runoff_Depth = 1;       // cm
constexpr double Usual_Evaporation_Depth = 10; // cm
constexpr double Irrigation_Threshold = 1.5;   // cm of deficit
constexpr int Irrigation_Interval = 7;         // days from emergence
constexpr double Frost_Depth = 5;              // cm
constexpr double Hectares_Per_Ton_Cm2 = 0.01;  // g/cm2 per t/ha

} // namespace

bool Runoff_Is_On(const Scenario_Document& scenario)
{
    return scenario.SZE_Runoff_Depth > 0 || scenario.SZE_Erosion == 1 ||
           (scenario.SZE_Water_Flag.Number() >= 2 && scenario.SZE_Macropore == 0);
}

double Runoff_Depth_Of(const Scenario_Document& scenario)
{
    return Runoff_Is_On(scenario) ? std::max(Least_Runoff_Depth, scenario.SZE_Runoff_Depth) : 0;
}

double Water_Day::Percolate(int interface) const
{
    const double bypass = interface <= Bypass_Outlet ? Bypass : interface == Bypass_Outlet + 1 ? Bypass_Below : 0;
    return Flux[static_cast<std::size_t>(interface)] + bypass;
}

double Water_Day::Evapotranspiration() const
{
    return std::accumulate(Transpiration.begin(), Transpiration.end(),
                           std::accumulate(Evaporation.begin(), Evaporation.end(), Canopy_Loss));
}

Water_Column::Water_Column(const Scenario_Document& scenario, const Grid& grid, const Haude_Table& haude)
    : Scenario(&scenario),
      Core(&grid),
      Haude(&haude)
{
    const auto n = static_cast<std::size_t>(grid.Count());
    Restricted = static_cast<int>(scenario.SZE_Water_Flag.Number()) % 2 == 1;
    With_Runoff = Runoff_Is_On(scenario);
    With_Bypass = scenario.SZE_Macropore == 1 && scenario.SZE_Macro_Fraction > 0;
    Evaporation_Depth =
        std::min(scenario.SZE_ET_Depth > 0 ? scenario.SZE_ET_Depth : Usual_Evaporation_Depth, scenario.SZE_Core_Depth);
    Evaporation_Shares = Linear_Shares(grid, Evaporation_Depth);
    if (With_Bypass)
        Place_Outlet(scenario.SZE_Macro_Depth);
    Frost_Node = grid.Compartment_At(Frost_Depth);
    for (std::size_t i = 0; i < n; ++i)
        Moisture.push_back(std::clamp(grid.Initial_Water[i], 0.5 * grid.Wilting_Point[i], grid.Porosity[i]));
    Day.Theta_Start = Day.Theta_End = Moisture;
    Day.Flux.assign(n + 1, 0.0);
    Day.Evaporation.assign(n, 0.0);
    Day.Transpiration.assign(n, 0.0);
}

// Shares the bypass between the compartments whose centres lie above and below the depth, so that its mean depth is the
// one asked for.
void Water_Column::Place_Outlet(double depth)
{
    const auto centre = [this](int i) { return Core->Top(i) + 0.5 * Core->Thickness[static_cast<std::size_t>(i)]; };
    Outlet = 0;
    while (Outlet < Core->Count() - 2 && centre(Outlet + 1) <= depth)
        ++Outlet;
    if (Outlet + 1 < Core->Count())
        Below_Share = std::clamp((depth - centre(Outlet)) / (centre(Outlet + 1) - centre(Outlet)), 0.0, 1.0);
}

double Water_Column::Storage() const
{
    double sum = Snow_Store + Canopy_Store + Pond_Store;
    for (std::size_t i = 0; i < Moisture.size(); ++i)
        sum += Moisture[i] * Core->Thickness[i];
    return sum;
}

double Water_Column::Potential(const Climate_Day& climate, int day_of_year, const Crop_State& crop) const
{
    const int method = Scenario->SZE_ET_Method;
    if (method == 3) {
        const auto& factors = Haude_Row(*Haude, crop.Present ? crop.Row->SZE_Rot_Crop_No : 0);
        return Haude_Evapotranspiration(factors[static_cast<std::size_t>(climate.Month - 1)], climate.Temperature_14,
                                        climate.Humidity);
    }
    if (method == 0 || (method == 2 && climate.Evaporation >= 0))
        return crop.Crop_Factor * std::max(climate.Evaporation, 0.0);
    return crop.Crop_Factor *
           Hamon_Evapotranspiration(climate.Temperature, Day_Length(Scenario->SZE_Latitude, day_of_year));
}

// Irrigation of the day, cm: the deficit of the rooted zone, every seventh day (FOCUS groundwater scenarios as restated
// in EFSA 2020, J. 18:6119, Table D.1).
double Water_Column::Irrigation(const Crop_State& crop) const
{
    if (!crop.Irrigated || crop.Days_Since_Emergence == 0 || crop.Days_Since_Emergence % Irrigation_Interval != 0)
        return 0;
    const double deficit = Deficit(*Core, Moisture, std::max(crop.Root_Depth, Evaporation_Depth));
    return deficit > Irrigation_Threshold ? deficit : 0;
}

double Water_Column::Runoff(double supply, const Crop_State& crop, bool frozen) const
{
    const double curve_number = crop.Curve_Number();
    if (!With_Runoff || curve_number <= 0 || supply <= 0)
        return 0;
    return Curve_Runoff(supply, Retention_At(curve_number, frozen ? 1 : Antecedent_Moisture(*Core, Moisture)));
}

void Water_Column::Erode(const Crop_State& crop)
{
    Day.Soil_Loss = Day.Sediment = 0;
    if (Scenario->SZE_Erosion != 1 || Day.Runoff <= 0)
        return;
    const double area = Scenario->SZE_Eros_4.Number();
    const Soil_Loss loss = Soil_Loss_Of(Day.Runoff, area, Scenario->SZE_Eros_5,
                                        {Scenario->SZE_Eros_K.Number(), Scenario->SZE_Eros_2.Number(),
                                         crop.Cover_Factor(), Scenario->SZE_Eros_3.Number()});
    Day.Soil_Loss = loss.Loss;
    Day.Sediment = Hectares_Per_Ton_Cm2 * loss.Loss / area * loss.Enrichment;
}

// What the soil has no room for runs off, or waits on the surface where runoff is not simulated.
void Water_Column::Hold_Back(double excess)
{
    Day.Held_Back = std::max(excess - Pond_Store, 0.0);
    if (excess > 0) {
        ++Full.Days;
        Full.Held_Back += Day.Held_Back;
    }
    Pond_Store = With_Runoff ? 0 : excess;
    if (With_Runoff)
        Day.Runoff += excess;
    Full.Deepest = std::max(Full.Deepest, Pond_Store);
}

const Water_Day& Water_Column::Step_Day(const Climate_Day& climate, int day_of_year, const Crop_State& crop,
                                        const std::vector<double>& soil_temperature)
{
    const double storage = Storage();
    const bool freezing = climate.Temperature <= 0;
    Day.Snowfall = freezing ? climate.Rain : 0;
    Day.Rain = freezing ? 0 : climate.Rain;
    Snow_Store += Day.Snowfall;
    Day.Melt = Snow_Melt(Snow_Store, Scenario->SZE_Snow_Factor.Number(), climate.Temperature);
    Snow_Store -= Day.Melt;

    Day.Irrigation = Irrigation(crop);
    Day.Potential = Potential(climate, day_of_year, crop);
    const double water = Day.Rain + Day.Irrigation;
    const double capacity = crop.Present ? crop.Row->SZE_Rot_Text2.Number() * crop.Growth : 0;
    const Canopy_Step canopy = Canopy_Day(Canopy_Store, water, crop.Cover, capacity, Day.Potential);
    Canopy_Store = canopy.Store;
    const double from_pond = std::min(Day.Potential - canopy.Evaporated, Pond_Store);
    Pond_Store -= from_pond;
    Day.Canopy_Loss = canopy.Evaporated + from_pond;
    Day.Throughfall = canopy.Throughfall;
    const double demand = Day.Potential - Day.Canopy_Loss;

    const double rain_through = water > 0 ? Day.Throughfall * Day.Rain / water : 0;
    const bool frozen = soil_temperature[static_cast<std::size_t>(Frost_Node)] < 0;
    Day.Runoff = std::min(Runoff(rain_through + Day.Melt, crop, frozen), rain_through + Day.Melt);
    const double infiltration = Day.Throughfall + Day.Melt - Day.Runoff;
    const double bypass = With_Bypass ? std::min(Scenario->SZE_Macro_Fraction, 1.0) *
                                            std::max(infiltration - Scenario->SZE_Macro_Threshold, 0.0)
                                      : 0;

    Day.Theta_Start = Moisture;
    const auto percolation =
        Percolate(*Core, {Restricted, infiltration - bypass + Pond_Store, bypass, Outlet, bypass * Below_Share},
                  Moisture, Day.Flux);
    Day.Bypass = percolation.Bypass;
    Day.Bypass_Below = percolation.Below;
    Day.Bypass_Outlet = Day.Bypass > 0 ? Outlet : -1;
    Hold_Back(percolation.Excess);
    Erode(crop);

    Evaporate(*Core, demand * (1 - crop.Cover), Evaporation_Depth, Evaporation_Shares, Moisture, Day.Evaporation);
    const double root_depth = std::max(crop.Root_Depth, Evaporation_Depth);
    if (crop.Present && root_depth != Root_Shares_Depth) {
        Root_Shares = Linear_Shares(*Core, root_depth);
        Root_Shares_Depth = root_depth;
    }
    if (crop.Present && crop.Cover > 0)
        Transpire(*Core, demand * crop.Cover, Root_Shares, Moisture, Day.Transpiration);
    else
        std::ranges::fill(Day.Transpiration, 0.0);
    Day.Theta_End = Moisture;
    Day.Closure =
        climate.Rain + Day.Irrigation - Day.Runoff - Day.Evapotranspiration() - Day.Flux.back() - (Storage() - storage);
    return Day;
}

} // namespace orvel::engine
