#include "engine/output/water_report.h"
#include "engine/water/soil_water.h"
#include "engine/water/surface_water.h"
#include "engine/water/water.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <numeric>

namespace orvel::engine {

namespace {

// N compartments of 10 cm: field capacity 0.30, wilting point 0.10, porosity 0.45.
Grid Column(int n)
{
    Scenario_Document scenario;
    Reset_SZE(scenario);
    scenario.SZE_Delxflg = 1;
    scenario.SZE_Core_Depth = 10 * n;
    scenario.SZE_Layers = static_cast<std::int16_t>(n);
    scenario.SZE_Hydraulic_Flag = 0;
    scenario.Horizons[0].SZE_Hor_Thickness = 10 * n;
    scenario.Horizons[0].SZE_Hor_Bulk_Density = 2.65 * 0.55;
    scenario.Horizons[0].SZE_Hor_FC = 0.30;
    scenario.Horizons[0].SZE_Hor_WP = 0.10;
    scenario.Horizons[0].SZE_Hor_Drainage = 0.5;
    return Build_Grid(scenario);
}

double Content(const Grid& grid, const std::vector<double>& theta)
{
    double sum = 0;
    for (std::size_t i = 0; i < theta.size(); ++i)
        sum += theta[i] * grid.Thickness[i];
    return sum;
}

} // namespace

TEST(Grid, Equal_Compartments_Take_The_Horizons_By_Overlap)
{
    Scenario_Document scenario;
    Reset_SZE(scenario);
    scenario.SZE_Delxflg = 1;
    scenario.SZE_Core_Depth = 30;
    scenario.SZE_Layers = 3;
    scenario.SZE_Hydraulic_Flag = 0;
    const auto horizon = [](double thickness, double density, double carbon, double capacity) {
        Scenario_Horizon h;
        h.SZE_Hor_Thickness = thickness, h.SZE_Hor_Bulk_Density = density, h.SZE_Hor_OC = carbon,
        h.SZE_Hor_FC = capacity, h.SZE_Hor_WP = 0.1;
        return h;
    };
    scenario.Horizons = {horizon(15, 1.0, 2.0, 0.3), horizon(15, 1.5, 0.5, 0.4)};
    const Grid grid = Build_Grid(scenario);

    EXPECT_DOUBLE_EQ(grid.Density[1], 1.25);
    EXPECT_DOUBLE_EQ(grid.Field_Capacity[1], 0.35);
    EXPECT_DOUBLE_EQ(grid.Organic_Carbon[1], (1.0 * 2.0 + 1.5 * 0.5) / 2.5); // by soil mass
    EXPECT_DOUBLE_EQ(grid.Horizon_Share[2] + grid.Horizon_Share[3], 1);
    EXPECT_EQ(grid.Horizon[2], 2);
    EXPECT_EQ(grid.Top_Layers, 3);
    EXPECT_EQ(grid.Initial_Water[0], 0.3); // field capacity where the file has 0
    EXPECT_DOUBLE_EQ(grid.Porosity[2], 0.4339622641509434);
    EXPECT_DOUBLE_EQ(Porosity(2.6, 0.3), 0.31); // not below field capacity
}

TEST(Grid, Depths_Fall_Into_The_Compartment_That_Ends_At_Or_Below_Them)
{
    const Grid grid = Column(12);

    EXPECT_EQ(grid.Compartment_At(0), 0);
    EXPECT_EQ(grid.Compartment_At(10), 0);
    EXPECT_EQ(grid.Compartment_At(10.5), 1);
    EXPECT_EQ(grid.Compartment_At(500), 11);
    EXPECT_EQ(grid.Interface_Nearest(0), 0);
    EXPECT_EQ(grid.Interface_Nearest(4), 0);
    EXPECT_EQ(grid.Interface_Nearest(6), 1);
    EXPECT_EQ(grid.Interface_Nearest(100), 10);
    EXPECT_EQ(grid.Top_Layers, 10);
}

TEST(Grid, Graded_Compartments_Meet_Every_Break_And_Stay_Below_401)
{
    const auto thickness = Graded_Compartments({27, 60, 150}, 150);
    double depth = 0;
    std::vector<double> bottoms;
    for (const double dz : thickness)
        bottoms.push_back(depth += dz);

    EXPECT_NEAR(thickness[0], 0.5, 1e-12);
    EXPECT_NEAR(thickness[10], 1, 1e-12); // below 5 cm
    for (const double wanted : {5.0, 27.0, 30.0, 60.0, 100.0, 150.0})
        EXPECT_TRUE(std::ranges::any_of(bottoms, [wanted](double b) { return std::fabs(b - wanted) < 1e-9; }))
            << wanted;
    EXPECT_EQ(thickness.size(), 10U + 22 + 3 + 12 + 16 + 10);
    EXPECT_LE(Graded_Compartments({100000}, 100000).size(), 400U);
    EXPECT_EQ(Equal_Compartments(200, 80), std::vector<double>(80, 2.5));
}

TEST(Grid, The_Surface_Layer_Is_The_Same_Below_Each_Kind_Of_Compartments)
{
    const std::vector<double> cuts = {0.05, 0.1, 0.2, 0.35, 0.5, 0.75, 1, 1.5, 2, 2.5};
    for (const double thickness : {0.5, 2.5, 5.0, 10.0}) {
        std::vector<double> bottoms;
        for (int i = 1; i * thickness <= 10; ++i)
            bottoms.push_back(i * thickness);
        const auto divided = Divide_Surface(bottoms);
        for (const double cut : cuts)
            EXPECT_TRUE(std::ranges::count(divided, cut)) << thickness << ": " << cut;
    }
    // Nothing is cut off that is much smaller than the pieces around it, and nothing below 5 cm.
    EXPECT_EQ(Divide_Surface({4.99, 20}),
              (std::vector<double>{0.05, 0.1, 0.2, 0.35, 0.5, 0.75, 1, 1.5, 2, 2.5, 3, 4, 4.99, 20}));
}

TEST(Grid, A_Surface_Layer_Keeps_The_Compartments_Of_The_Document)
{
    Scenario_Document scenario;
    Reset_SZE(scenario);
    scenario.SZE_Delxflg = 1;
    scenario.SZE_Core_Depth = 120;
    scenario.SZE_Layers = 48;
    scenario.SZE_Hydraulic_Flag = 0;
    scenario.Horizons[0].SZE_Hor_Thickness = 120;
    const Grid plain = Build_Grid(scenario), fine = Build_Grid(scenario, Surface_Layer::With);

    EXPECT_EQ(plain.Surface, 0);
    EXPECT_EQ(plain.Document_Count(), 48);
    EXPECT_EQ(fine.Document_Count(), 48);
    EXPECT_EQ(fine.Count(), 48 + 9 + 2); // nine cuts within the first compartment, 3 and 4 cm within the second
    EXPECT_EQ(fine.Surface, 13);
    EXPECT_EQ(fine.Top_Layers, plain.Top_Layers);
    EXPECT_EQ(fine.Interface_Below(1), 10);
    for (int number = 0; number <= 48; ++number)
        EXPECT_EQ(fine.Depth_Of(fine.Interface_Below(number)), plain.Depth_Of(plain.Interface_Below(number)));
    EXPECT_EQ(fine.Document_At(1.2), (Compartment_Range{0, 9}));
    EXPECT_EQ(fine.Interface_Nearest(1.2), 0);
    EXPECT_EQ(fine.Interface_Nearest(1.3), 10);
    EXPECT_NEAR(std::accumulate(fine.Thickness.begin(), fine.Thickness.end(), 0.0), 120, 1e-12);
}

TEST(Grid, Pedotransfer_Keeps_Its_Distance_From_Porosity)
{
    Scenario_Document scenario;
    Reset_SZE(scenario);
    scenario.SZE_Delxflg = 1;
    scenario.Horizons[0].SZE_Hor_Thickness = 100;
    scenario.Horizons[0].SZE_Hor_Bulk_Density = 2.2; // porosity 0.17
    scenario.Horizons[0].SZE_Hor_Sand = 10;
    scenario.Horizons[0].SZE_Hor_Clay = 60;
    for (const int flag : {1, 2}) {
        scenario.SZE_Hydraulic_Flag = flag;
        const Grid grid = Build_Grid(scenario);
        EXPECT_GE(grid.Wilting_Point[0], 0.005);
        EXPECT_GE(grid.Field_Capacity[0], grid.Wilting_Point[0] + 0.02 - 1e-12);
        EXPECT_LE(grid.Field_Capacity[0], grid.Porosity[0] - 0.01 + 1e-12);
    }
}

TEST(Percolation, Water_Above_Field_Capacity_Runs_Through_Freely)
{
    const Grid grid = Column(3);
    std::vector<double> theta = {0.20, 0.30, 0.30}, flux(4);
    const auto result = Percolate(grid, {false, 3, 0, -1}, theta, flux);

    EXPECT_DOUBLE_EQ(flux[0], 3);
    EXPECT_DOUBLE_EQ(flux[1], 2); // 1 cm fills the first
    EXPECT_NEAR(flux[3], 2, 1e-12);
    EXPECT_DOUBLE_EQ(theta[0], 0.30);
    EXPECT_EQ(result.Excess, 0);
}

TEST(Percolation, Bypass_Enters_At_Its_Outlet)
{
    const Grid grid = Column(3);
    std::vector<double> theta = {0.30, 0.30, 0.30}, flux(4);
    Percolate(grid, {false, 1, 2, 1}, theta, flux);

    EXPECT_NEAR(flux[1], 1, 1e-12);
    EXPECT_NEAR(flux[2], 3, 1e-12);
}

TEST(Percolation, Restricted_Drainage_Slows_What_Enters)
{
    const Grid grid = Column(2);
    std::vector<double> theta = {0.30, 0.30}, flux(3);
    const auto result = Percolate(grid, {true, 1, 0, -1}, theta, flux);

    // 0.5 a day of 100 cm: 50 cm/d, and 10 cm to pass.
    EXPECT_NEAR(flux[1], std::exp(-10.0 / 50), 1e-12);
    EXPECT_NEAR(flux[2], std::exp(-20.0 / 50), 1e-12);
    EXPECT_EQ(result.Excess, 0);
}

// At most a (porosity - field capacity) a day enters, however thick the first compartment is.
TEST(Percolation, Restricted_Infiltration_Is_Bounded_By_The_Soil)
{
    for (const double thickness : {0.5, 5.0}) {
        Grid grid;
        const std::size_t n = 10;
        grid.Thickness.assign(n, thickness);
        grid.Drainage.assign(n, 0.1);
        grid.Field_Capacity.assign(n, 0.3);
        grid.Porosity.assign(n, 0.45);
        for (std::size_t i = 0; i < n; ++i) {
            grid.Bottom.push_back(thickness * static_cast<double>(i + 1));
            grid.Document.push_back({static_cast<int>(i), static_cast<int>(i)});
        }
        std::vector<double> theta(n, 0.3), flux(n + 1, 0.0);

        const auto result = Percolate(grid, {true, 4, 0, -1}, theta, flux);

        EXPECT_DOUBLE_EQ(result.Excess, 4 - 0.1 * 100 * 0.15) << thickness;
        EXPECT_DOUBLE_EQ(flux[0], 1.5);
    }
}

TEST(Percolation, Restricted_Drainage_Does_Not_Depend_On_The_Compartments)
{
    for (const int n : {1, 2, 10, 40, 200}) {
        double flux = 0.8;
        for (int i = 0; i < n; ++i)
            flux = Restricted_Outflow(flux, 0.05, 100.0 / n, 0.5, 0.15);
        EXPECT_NEAR(flux, 50 * 0.05 + (0.8 - 50 * 0.05) * std::exp(-2.0), 1e-12) << n;
    }
}

TEST(Percolation, Restricted_Drainage_Becomes_Free_Where_The_Parameter_Is_Large)
{
    for (const double excess : {0.05, -0.02})
        EXPECT_NEAR(Restricted_Outflow(1, excess, 2.5, 1e6, 0.15), Free_Outflow(1, excess, 2.5), 1e-6);
    EXPECT_EQ(Restricted_Outflow(1, 0.05, 2.5, 0, 0.15), 0);
    EXPECT_DOUBLE_EQ(Restricted_Outflow(20, 0.05, 2.5, 0.5, 0.15), 50 * 0.15); // saturated
    EXPECT_EQ(Restricted_Outflow(0.01, -0.2, 2.5, 0.5, 0.15), 0);              // dry soil takes it all
}

TEST(Percolation, Rounding_Is_No_Flux)
{
    EXPECT_EQ(Free_Outflow(0, 6.9e-17, 2.5), 0);
    EXPECT_EQ(Restricted_Outflow(0, 6.9e-17, 2.5, 1, 0.15), 0);
    const Canopy_Step wet = Canopy_Day(0.1, 0.3, 1, 1, 0);
    EXPECT_EQ(wet.Throughfall, 0);
    EXPECT_DOUBLE_EQ(wet.Store, 0.1 + 0.3);
}

TEST(Percolation, Water_That_Finds_No_Room_Leaves_The_Top_And_Nothing_Is_Lost)
{
    const Grid grid = Column(3);
    for (const double bypass : {0.0, 4.0}) {
        std::vector<double> theta = {0.40, 0.44, 0.45}, flux(4);
        const double before = Content(grid, theta);
        const auto result = Percolate(grid, {true, 12, bypass, bypass > 0 ? 1 : -1}, theta, flux);

        // 50 cm/d times the 0.15 between field capacity and porosity can leave, and 0.6 cm have room.
        EXPECT_GE(result.Excess, 12 + bypass - 7.5 - 0.6 - 1e-9);
        EXPECT_LE(result.Bypass, bypass);
        for (std::size_t i = 0; i < 3; ++i) {
            EXPECT_LE(theta[i], grid.Porosity[i] + 1e-12);
            EXPECT_GE(flux[i], 0);
        }
        EXPECT_NEAR(flux[0] + result.Bypass + result.Excess, 12 + bypass, 1e-12);
        EXPECT_NEAR(Content(grid, theta), before + flux[0] + result.Bypass - flux[3], 1e-12);
    }
}

TEST(Evaporation, Falls_From_The_Readily_Evaporable_Water_To_Half_The_Wilting_Point)
{
    EXPECT_EQ(Evaporation_Factor(0.5, 2, 0.8), 1);
    EXPECT_DOUBLE_EQ(Evaporation_Factor(1.4, 2, 0.8), 0.5);
    EXPECT_EQ(Evaporation_Factor(3, 2, 0.8), 0);

    const Grid grid = Column(3);
    std::vector<double> theta = {0.30, 0.30, 0.30}, taken(3);
    Evaporate(grid, 0.4, 10, Linear_Shares(grid, 10), theta, taken);
    EXPECT_NEAR(taken[0], 0.4, 1e-12);
    EXPECT_EQ(taken[1], 0);
    EXPECT_NEAR(theta[0], 0.26, 1e-12);

    theta[0] = 0.051;
    Evaporate(grid, 5, 10, Linear_Shares(grid, 10), theta, taken);
    EXPECT_GE(theta[0], 0.05);
}

TEST(Evaporation, A_Linear_Distribution_Falls_To_Nothing_At_Its_Depth)
{
    const auto shares = Linear_Shares(Column(4), 20);

    EXPECT_DOUBLE_EQ(shares[0], 0.75);
    EXPECT_DOUBLE_EQ(shares[1], 0.25);
    EXPECT_EQ(shares[2], 0);
    const auto deeper = Linear_Shares(Column(2), 100); // roots below the core
    EXPECT_NEAR(deeper[0] + deeper[1], 1, 1e-12);
}

TEST(Transpiration, Unmet_Demand_Goes_To_Unstressed_Compartments)
{
    const Grid grid = Column(2);
    std::vector<double> theta = {0.15, 0.30}, taken(2); // stress 0.5 above, none below
    Transpire(grid, 0.4, {0.5, 0.5}, theta, taken);

    EXPECT_NEAR(taken[0], 0.1, 1e-12);
    EXPECT_NEAR(taken[1], 0.3, 1e-12);
    EXPECT_NEAR(theta[1], 0.27, 1e-12);
}

TEST(Transpiration, Ends_At_The_Wilting_Point)
{
    const Grid grid = Column(2);
    std::vector<double> theta = {0.1001, 0.05}, taken(2);
    Transpire(grid, 10, {0.5, 0.5}, theta, taken);

    EXPECT_GE(theta[0], 0.10);
    EXPECT_EQ(theta[1], 0.05); // below it nothing is taken
}

TEST(Soil_Water, Deficit_And_Moisture_Are_Those_Of_Their_Zones)
{
    const Grid grid = Column(4);

    EXPECT_NEAR(Deficit(grid, {0.20, 0.25, 0.30, 0.10}, 15), 1 + 0.25, 1e-12);
    EXPECT_NEAR(Antecedent_Moisture(grid, {0.10, 0.30, 0, 0}), 0.5, 1e-12);
    EXPECT_EQ(Antecedent_Moisture(grid, {0.40, 0.40, 0, 0}), 1);
}

TEST(Canopy, Holds_Water_Up_To_Its_Capacity_And_Drops_The_Rest)
{
    const Canopy_Step wet = Canopy_Day(0.05, 1.0, 0.5, 0.15, 0.04);
    EXPECT_DOUBLE_EQ(wet.Throughfall, 0.9);
    EXPECT_DOUBLE_EQ(wet.Evaporated, 0.04);
    EXPECT_DOUBLE_EQ(wet.Store, 0.11);

    const Canopy_Step harvest = Canopy_Day(0.11, 0, 0, 0, 0.5);
    EXPECT_DOUBLE_EQ(harvest.Throughfall, 0.11);
    EXPECT_EQ(harvest.Store, 0);
}

TEST(Runoff_Curves, Bare_Figures_Have_Sensible_Ends)
{
    EXPECT_EQ(Curve_Runoff(1, 10), 0);
    EXPECT_EQ(Curve_Runoff(3, 0), 3); // a sealed surface
    EXPECT_DOUBLE_EQ(Dry_Curve_Number(100), 100);
    EXPECT_DOUBLE_EQ(Wet_Curve_Number(100), 100);
    EXPECT_EQ(Soil_Loss_Of(0, 10, 2, {1, 1, 1, 1}).Loss, 0);
    EXPECT_EQ(Soil_Loss_Of(1, 10, 2, {0, 1, 1, 1}).Enrichment, 1);
}

TEST(Runoff_Switch, Is_On_With_A_Depth_Erosion_Or_The_Water_Flag_Without_Macropores)
{
    Scenario_Document scenario;
    Reset_SZE(scenario);
    EXPECT_FALSE(Runoff_Is_On(scenario));
    EXPECT_EQ(Runoff_Depth_Of(scenario), 0);
    scenario.SZE_Water_Flag = 2;
    EXPECT_TRUE(Runoff_Is_On(scenario));
    EXPECT_EQ(Runoff_Depth_Of(scenario), 1);
    scenario.SZE_Macropore = 1;
    EXPECT_FALSE(Runoff_Is_On(scenario));
    scenario.SZE_Runoff_Depth = 2;
    EXPECT_EQ(Runoff_Depth_Of(scenario), 2);
    scenario.SZE_Runoff_Depth = 0;
    scenario.SZE_Erosion = 1;
    EXPECT_TRUE(Runoff_Is_On(scenario));
}

TEST(Report_Rows, Groups_End_At_Multiples_At_One_Metre_And_At_The_Bottom)
{
    EXPECT_EQ(Row_Groups(10, 5, 4), (std::vector<Row_Group>{{0, 3}, {4, 4}, {5, 7}, {8, 9}}));
    EXPECT_EQ(Row_Groups(3, 2, 1).size(), 3U);
    EXPECT_EQ(Row_Groups(3, 2, 0).size(), 3U);
    EXPECT_EQ(Row_Groups(4, 4, 9), (std::vector<Row_Group>{{0, 3}}));
}

TEST(Report_Rows, Blocks_Are_Due_By_Their_Frequency_And_Years_Always)
{
    EXPECT_TRUE(Is_Due(Frequency::Year, Span::Year));
    EXPECT_FALSE(Is_Due(Frequency::Year, Span::Month));
    EXPECT_TRUE(Is_Due(Frequency::Month, Span::Month));
    EXPECT_FALSE(Is_Due(Frequency::Month, Span::Day));
    EXPECT_TRUE(Is_Due(Frequency::Day, Span::Month));
    EXPECT_TRUE(Is_Due(Frequency::Day, Span::Day));
}

TEST(Report_Rows, Block_Titles_Hold_The_Word_Of_Their_Span_Alone)
{
    std::string year, month, day;
    Put_Block_Title(year, Span::Year, "WATER BALANCE ***     ", {7, 12, 31});
    Put_Block_Title(month, Span::Month, "WATER BALANCE ***     ", {7, 3, 31});
    Put_Block_Title(day, Span::Day, "WATER BALANCE ***     ", {7, 3, 1});

    EXPECT_EQ(year, " *** ANNUAL WATER BALANCE ***     YEAR   7\r\n");
    EXPECT_EQ(month, " *** MONTHLY WATER BALANCE ***     YEAR   7 MONTH  3\r\n");
    EXPECT_EQ(day, " *** DAILY WATER BALANCE ***     YEAR   7 MONTH  3 DAY  1\r\n");
}

} // namespace orvel::engine
