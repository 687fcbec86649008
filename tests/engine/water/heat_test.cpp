#include "engine/water/heat.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace orvel::engine {

namespace {

Grid Sand_Column()
{
    Scenario_Document scenario;
    Reset_SZE(scenario);
    scenario.SZE_Delxflg = 1;
    scenario.SZE_Layers = 40;
    scenario.SZE_Hydraulic_Flag = 0;
    scenario.Horizons[0].SZE_Hor_Thickness = 100;
    scenario.Horizons[0].SZE_Hor_FC = 0.25;
    scenario.Horizons[0].SZE_Hor_WP = 0.05;
    return Build_Grid(scenario);
}

} // namespace

// A loam of 1.3 g/cm3 with 20 % clay: about 0.2 W/(m K) when it is dry, above 1 when it is wet.
TEST(Soil_Heat_Parameters, Conductivity_Rises_With_Water)
{
    const Conductivity loam = Conductivity_Of(1.3, 0.2);

    EXPECT_NEAR(Conductivity_At(loam, 0), 0.03 + 0.1 * 1.69, 1e-12); // the dry limit
    EXPECT_NEAR(loam.C, 1 + 2.6 / std::sqrt(0.2), 1e-12);
    EXPECT_GT(Conductivity_At(loam, 0.3), 1);
    EXPECT_LT(Conductivity_At(loam, 0.1), Conductivity_At(loam, 0.2));
    EXPECT_EQ(Conductivity_Of(1.3, 0).C, loam.C); // unknown clay counts as 20 %
    EXPECT_EQ(Conductivity_Of(1.3, 0.001).C, Conductivity_Of(1.3, 0.02).C);
}

TEST(Soil_Heat_Parameters, Capacity_Is_That_Of_Solids_And_Water)
{
    EXPECT_NEAR(Heat_Capacity(1.325, 0.3), 1.2e6 + 1.254e6, 1);
}

TEST(Soil_Heat, Settles_To_The_Temperature_Of_The_Air)
{
    const Grid grid = Sand_Column();
    Soil_Heat heat(grid, 15);
    for (int day = 0; day < 20000; ++day)
        heat.Step_Day(grid.Field_Capacity, 5, 0);

    for (const double temperature : heat.Temperature())
        EXPECT_NEAR(temperature, 5, 0.01);
    EXPECT_GT(heat.Temperature().size(), grid.Thickness.size()); // nodes below the core
}

TEST(Soil_Heat, Snow_Keeps_The_Frost_Out)
{
    const Grid grid = Sand_Column();
    Soil_Heat bare(grid, 5), covered(grid, 5);
    for (int day = 0; day < 10; ++day) {
        bare.Step_Day(grid.Field_Capacity, -10, 0);
        covered.Step_Day(grid.Field_Capacity, -10, 10);
    }

    EXPECT_LT(bare.Temperature()[0], -5);
    EXPECT_GT(covered.Temperature()[0], 0);
}

TEST(Soil_Heat, Conduction_Keeps_All_Heat_That_Enters)
{
    std::vector<double> temperature = {5, 10, 0, 8};
    const std::vector<double> thickness = {0.1, 0.2, 0.1, 0.4}, conductivity = {1, 0.5, 2, 1},
                              capacity = {2e6, 3e6, 1e6, 2e6};
    const auto heat = [&] {
        double sum = 0;
        for (std::size_t i = 0; i < 4; ++i)
            sum += temperature[i] * thickness[i] * capacity[i];
        return sum;
    };
    const double before = heat(), conductance = 4, surface = 20;
    Conduct_Heat(temperature, thickness, conductivity, capacity, surface, conductance, 86400);

    EXPECT_NEAR(heat() - before, conductance * (surface - temperature[0]) * 86400, 1e-3);
}

} // namespace orvel::engine
