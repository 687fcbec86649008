#pragma once

#include "engine/input/climate.h"
#include "engine/input/crop.h"
#include "engine/water/grid.h"

#include <vector>

namespace orvel::engine {

// The water balance of one day, cm.
struct Water_Day {
    double Rain = 0, Snowfall = 0, Melt = 0, Irrigation = 0;
    double Canopy_Loss = 0; // evaporated from the canopy and from water on the surface
    double Throughfall = 0, Runoff = 0, Bypass = 0;
    int Bypass_Outlet = -1;
    double Bypass_Below = 0; // part of the bypass that enters the compartment below the outlet
    double Soil_Loss = 0;    // t from the field
    double Sediment = 0;     // soil loss x enrichment, g/cm2
    double Potential = 0;    // potential evapotranspiration
    double Held_Back = 0;    // found no room in the soil: on the surface, or part of the runoff
    std::vector<double> Theta_Start, Theta_End;
    std::vector<double> Flux; // by interface, without bypass
    std::vector<double> Evaporation, Transpiration;
    double Closure = 0; // supply - losses - change of storage

    double Percolate(int interface) const; // including bypass above its outlet
    double Evapotranspiration() const;     // canopy, soil and plants
};

// The water in the column, in the canopy and as snow.
class Water_Column {
public:
    Water_Column(const Scenario_Document& scenario, const Grid& grid, const Haude_Table& haude);

    // Advances one day; `soil_temperature` (degC) is that of the evening before. The result stays valid until the next
    // call.
    const Water_Day& Step_Day(const Climate_Day& climate, int day_of_year, const Crop_State& crop,
                              const std::vector<double>& soil_temperature);

    const Water_Day& Today() const { return Day; }
    const std::vector<double>& Theta() const { return Moisture; }
    double Snow() const { return Snow_Store; }
    double Canopy() const { return Canopy_Store; }
    double Pond() const { return Pond_Store; }
    double Storage() const; // soil, canopy, pond and snow, cm

    // What a saturated profile did to the water since the start; all 0 without restricted drainage.
    struct Saturation {
        int Days = 0;         // on which water found no room
        double Held_Back = 0; // in the first place, cm
        double Deepest = 0;   // that stood on the surface, cm
    };
    const Saturation& Saturated() const { return Full; }
    bool Ponds() const { return Restricted && !With_Runoff; }

private:
    double Potential(const Climate_Day& climate, int day_of_year, const Crop_State& crop) const;
    double Irrigation(const Crop_State& crop) const;
    double Runoff(double supply, const Crop_State& crop, bool frozen) const;
    void Place_Outlet(double depth);
    void Hold_Back(double excess);
    void Erode(const Crop_State& crop);

    const Scenario_Document* Scenario;
    const Grid* Core;
    const Haude_Table* Haude;
    bool Restricted = false, With_Runoff = false, With_Bypass = false;
    int Outlet = -1, Frost_Node = 0;
    double Below_Share = 0; // of the bypass, for the compartment below the outlet
    double Evaporation_Depth = 10;
    std::vector<double> Evaporation_Shares, Root_Shares;
    double Root_Shares_Depth = -1;
    std::vector<double> Moisture;
    double Snow_Store = 0, Canopy_Store = 0, Pond_Store = 0;
    Saturation Full;
    Water_Day Day;
};

// Whether runoff is simulated, and the depth from which it extracts substance (cm, 0 without runoff).
bool Runoff_Is_On(const Scenario_Document& scenario);
double Runoff_Depth_Of(const Scenario_Document& scenario);

} // namespace orvel::engine
