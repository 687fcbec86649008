#include "core/numbers.h"
#include "core/output_variables.h"
#include "core/text.h"
#include "engine/water/grid.h"
#include "engine_process.h"
#include "output_blocks.h"
#include "substance/pathway.h"
#include "verification.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

namespace {

// Print accuracy of a sum of figures like 1.23456E-01.
constexpr double Printed = 2e-5;

void Give_All_Water_Processes(Scenario_Document& scenario, int water_flag)
{
    scenario.SZE_Water_Flag = water_flag;
    scenario.SZE_Runoff_Depth = 2;
    scenario.SZE_Erosion = 1;
    scenario.SZE_Eros_K = 0.35, scenario.SZE_Eros_2 = 0.6, scenario.SZE_Eros_3 = 1, scenario.SZE_Eros_4 = 1,
    scenario.SZE_Eros_5 = 6;
    scenario.SZE_Macropore = 1;
    scenario.SZE_Macro_Depth = 60;
    scenario.SZE_Macro_Threshold = 1;
    scenario.SZE_Macro_Fraction = 0.3;
}

[[maybe_unused]] double Percentile_80(std::vector<double> values)
{
    std::ranges::sort(values);
    const auto rank = static_cast<std::size_t>(0.8 * static_cast<double>(values.size()));
    return (values[rank - 1] + values[rank]) / 2;
}

} // namespace

TEST(Run_Verification, Case_25_Water_Balance_Of_Nine_Sites)
{
    constexpr int run_years = Sanitized ? 2 : 26;
    for (const char* site : {"C", "H", "J", "K", "N", "P", "O", "S", "T"}) {
        for (const int drainage : {0, 1}) {
            Temporary_Directory directory;
            Engine_Case run = Demo_Case(site, "_potato", "demo_A.psm", run_years);
            Give_All_Water_Processes(run.Scenario, drainage);
            for (const int depth : {1, 5, 20, 60, 100})
                run.Rows.push_back(Row_Of("THET", depth));
            const std::string name = std::string(site) + (drainage ? ", restricted" : ", free");

            ASSERT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0) << name;

            const int top = Top_Layers(File_Of(directory.Path(), "echo.orv"));
            const auto years = Water_Blocks(File_Of(directory.Path(), "Wasser.orv"), "ANNUAL", top);
            ASSERT_EQ(years.size(), run_years) << name;
            double check = 0, sums = 0, supply = 0;
            for (const Water_Year& year : years) {
                check = std::max(check, std::fabs(year.Check));
                supply += year.Precipitation + year.Melt + year.Irrigation;
                sums = std::max(sums, std::fabs(year.Precipitation + year.Melt + year.Irrigation - year.Canopy_Loss -
                                                year.Evapotranspiration - year.Runoff - year.Recharge - year.Change));
            }
            Verify(25, name + ": closure of a year, relative to its supply", check / (supply / run_years), 0, 1e-9);
            Verify(25, name + ": printed amounts against the change of storage (cm)", sums, 0, 1e-3);
            const Grid grid = Build_Grid(run.Scenario);
            double below = 0, above = 0;
            for (const Plot_Line& line : Read_Plot(File_Of(directory.Path(), "plot.orv")).Lines) {
                for (std::size_t k = 0; k < line.Values.size(); ++k) {
                    const auto i = static_cast<std::size_t>(grid.Compartment_At(run.Rows[k].Depth));
                    below = std::max(below, 0.5 * grid.Wilting_Point[i] - line.Values[k]);
                    above = std::max(above, line.Values[k] - grid.Porosity[i]);
                }
            }
            Verify(25, name + ": water content outside half the wilting point to porosity", std::max(below, above), 0,
                   1e-5);
        }
    }
}

TEST(Run_Verification, Case_26_All_Arrows)
{
    Temporary_Directory directory;
    Engine_Case run = Demo_Case("H", "_maize", "demo_D.psm", 6);
    Pesticide_Document& pesticide = run.Pesticide;
    for (std::size_t s = 1; s <= Substances; ++s) {
        pesticide.Met_Present[s] = true;
        pesticide.Molmass[s] = 320.0 - 20.0 * static_cast<double>(s);
        pesticide.Koc[s] = 20;
        for (int j = 1; j <= Rows_Of_Substance(static_cast<int>(s)); ++j)
            pesticide.Degradation[s][static_cast<std::size_t>(j)].Deg_Rate = 0.01;
    }

    ASSERT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);

    const std::string echo = File_Of(directory.Path(), "echo.orv");
    Verify(26, "moles not found again, relative to those applied", Worst_Closure(echo).Moles, 0, 1e-9);
    Verify(26, "mass not found again, worst substance", Worst_Closure(echo).Solute, 0, 1e-9);
    std::array<Solute_Year, Substances + 1> total;
    constexpr std::array<const char*, Substances + 1> names = {"",
                                                               "chem.orv",
                                                               "chem_A1.orv",
                                                               "chem_B1.orv",
                                                               "chem_C1.orv",
                                                               "chem_D1.orv",
                                                               "chem_A2.orv",
                                                               "chem_B2.orv",
                                                               "chem_C2.orv",
                                                               "chem_D2.orv"};
    for (std::size_t s = 1; s <= Substances; ++s) {
        const auto years = Solute_Blocks(File_Of(directory.Path(), names[s]), "ANNUAL", Top_Layers(echo));
        ASSERT_EQ(years.size(), 6U) << names[s];
        for (const Solute_Year& year : years) {
            total[s].Gained += year.Gained;
            total[s].Decay += year.Decay;
        }
    }
    // All rows of a substance have one rate, so each takes the same part of its decay; what is formed follows from the
    // arrows and the molar masses.
    for (std::size_t s = 2; s <= Substances; ++s) {
        double formed = 0;
        for (int t = 1; t <= Last_Transformation; ++t) {
            const Arrow& arrow = Arrow_Of(t);
            const auto from = static_cast<std::size_t>(arrow.Source);
            if (arrow.Target == static_cast<int>(s))
                formed += total[from].Decay / Rows_Of_Substance(arrow.Source) * pesticide.Molmass[s].Number() /
                          pesticide.Molmass[from].Number();
        }
        Compare_Relative(26, std::string(names[s]) + ": formed (kg/ha) against the decay of its sources",
                         total[s].Gained, formed, 1e-4);
    }
}

TEST(Run_Verification, Case_27_All_Processes)
{
    Temporary_Directory directory;
    constexpr int run_years = Sanitized ? 6 : 26;
    Engine_Case run = Demo_Case("P", "_maize", "demo_B.psm", run_years);
    Give_All_Water_Processes(run.Scenario, 1);
    run.Scenario.SZE_DOC_Flag = 1;
    run.Scenario.SZE_DOC_Content = 20;
    Pesticide_Document& pesticide = run.Pesticide;
    pesticide.Met_Present[2] = true;
    pesticide.Molmass[2] = 200;
    pesticide.Koc[2] = 40;
    pesticide.Degradation[1][1].Deg_Rate = 0.02;
    pesticide.Degradation[2][4].Deg_Rate = 0.01;
    for (const std::size_t s : {std::size_t{1}, std::size_t{2}}) {
        pesticide.F_neq[s] = 0.4;
        pesticide.K_des[s] = 0.02;
        pesticide.K_doc[s] = 1000;
        pesticide.Plant_Uptake[s] = 0.5;
    }
    pesticide.Ann_Incr[1] = 5;
    pesticide.Vap_Press = {1e-3, 4e-3};
    pesticide.Plant_Decay = 0.05;
    pesticide.Plant_Penetration = 0.02;
    pesticide.Plant_Photodeg = 0.01;
    pesticide.Photo_Rate[1] = 0.05;
    pesticide.App_Count[6] = 26;
    for (auto& location : pesticide.Applications) {
        for (std::size_t a = 1; a <= 26; ++a)
            location[a].App_Time = 0.3;
    }

    ASSERT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);

    const std::string echo = File_Of(directory.Path(), "echo.orv");
    const Echo_Closure closure = Worst_Closure(echo);
    EXPECT_EQ(closure.Years, run_years);
    Verify(27, "closure of the substances, worst year", closure.Solute, 0, 1e-9);
    Verify(27, "closure of the moles, worst year", closure.Moles, 0, 1e-9);
    for (const char* name : {"chem.orv", "chem_A1.orv"}) {
        double stored = 0, residual = 0, scale = 0, lowest = 0;
        const auto years = Solute_Blocks(File_Of(directory.Path(), name), "ANNUAL", Top_Layers(echo));
        ASSERT_EQ(years.size(), run_years);
        for (const Solute_Year& year : years) {
            residual = std::max(residual, std::fabs(year.Gained - year.Uptake - year.Decay - year.Volatilised -
                                                    year.Runoff - year.Leached_Core - (year.Stored - stored)));
            scale = std::max(scale, year.Gained + year.Stored);
            lowest = std::min(lowest, *std::ranges::min_element(year.Stores));
            stored = year.Stored;
            EXPECT_GT(year.Uptake, 0);
            EXPECT_GT(year.Decay, 0);
            EXPECT_GE(year.Runoff, year.Sediment);
        }
        Verify(27, std::string(name) + ": residual of the printed balance (kg/ha)", residual, 0, Printed * scale);
        Verify(27, std::string(name) + ": lowest mass of a compartment (kg/ha)", lowest, 0, 0);
    }
}

// Nine substances over 66 years with every option, and daily blocks.
TEST(Run_Verification, Case_42_Closure_With_All_Options)
{
    constexpr int run_years = Sanitized ? 2 : 66;
    Temporary_Directory directory;
    Engine_Case run = Demo_Case("N", "_maize", "demo_D.psm", run_years);
    Give_All_Water_Processes(run.Scenario, 1);
    Scenario_Document& scenario = run.Scenario;
    for (Scenario_Horizon& horizon : scenario.Horizons)
        horizon.SZE_Hor_Drainage = 0.2;
    scenario.SZE_DOC_Flag = 1;
    scenario.SZE_DOC_Content = 30;
    scenario.Crops[0].SZE_Rot_Irrigated = 1;
    scenario.SZE_Freq_Water = scenario.SZE_Freq_Solute = "DAY";
    scenario.SZE_Out_Every_Water = scenario.SZE_Out_Every_Solute = scenario.SZE_Out_Every_Conc = 1000; // few rows
    Pesticide_Document& pesticide = run.Pesticide;
    for (std::size_t s = 1; s <= Substances; ++s) {
        pesticide.Met_Present[s] = true;
        pesticide.Molmass[s] = 320.0 - 20.0 * static_cast<double>(s);
        pesticide.Koc[s] = 10.0 * static_cast<double>(s);
        pesticide.Fr_Exp[s] = 0.85 + 0.02 * static_cast<double>(s);
        pesticide.F_neq[s] = 0.5;
        pesticide.K_des[s] = 0.02;
        pesticide.K_doc[s] = 1000;
        pesticide.Ann_Incr[s] = 20;
        pesticide.Koc_Change[s] = 10;
        pesticide.Plant_Uptake[s] = 0.5;
        for (int j = 1; j <= Rows_Of_Substance(static_cast<int>(s)); ++j) {
            pesticide.Degradation[s][static_cast<std::size_t>(j)] = pesticide.Degradation[1][5];
            pesticide.Degradation[s][static_cast<std::size_t>(j)].Deg_Rate = 0.004;
            pesticide.Degradation[s][static_cast<std::size_t>(j)].Deg_Neq = 0.1;
        }
    }
    pesticide.App_Method = 2; // onto the crop
    pesticide.Plant_Decay = 0.05, pesticide.Plant_Washoff = 0.5, pesticide.Plant_Penetration = 0.02;
    pesticide.Plant_Photodeg = 0.02, pesticide.Plant_Ref_Rad = 200, pesticide.Plant_Laminar = 0.03;
    pesticide.Henry_Flag = 0;
    pesticide.Henry = {0.001, 0.002};
    pesticide.Photo_Rate[5] = 0.2, pesticide.Photo_I_Ref[5] = 100;
    run.Rows = {Row_Of("LEAC", 100, 9)};

    ASSERT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);

    const std::string echo = File_Of(directory.Path(), "echo.orv");
    const Echo_Closure closure = Worst_Closure(echo);
    EXPECT_EQ(closure.Years, run_years);
    Verify(42, "closure of the water, worst year (cm)", closure.Water, 0, 1e-9);
    Verify(42, "closure of the substances, worst of nine in the worst year", closure.Solute, 0, 1e-9);
    Verify(42, "closure of the moles, worst year", closure.Moles, 0, 1e-9);
    int blocks = 0;
    double worst = 0;
    const std::string text = File_Of(directory.Path(), "chem_D2.orv");
    for (auto at = text.find(" BALANCE CHECK"); at != std::string::npos; at = text.find(" BALANCE CHECK", at + 1)) {
        worst = std::max(worst, std::fabs(Val(std::string_view(text).substr(at + 39, 12))));
        ++blocks;
    }
    // The years' days, months and years; every fourth year has a 29 February.
    const int days = 365 * run_years + run_years / 4;
    EXPECT_EQ(blocks, days + 12 * run_years + run_years);
    Verify(42, "closure of the last metabolite, worst day (kg/ha)", worst, 0, 1e-9);
}

TEST(Run_Verification, Case_28_Finer_Compartments_Give_The_Same_Percentile)
{
    if (Sanitized)
        GTEST_SKIP() << "too long a run for a build with sanitizers";
    std::vector<double> percentiles;
    for (const int layers : {80, 200, 400}) {
        Temporary_Directory directory;
        Engine_Case run = Demo_Case("H", "_maize", "demo_D.psm", 26);
        run.Scenario.SZE_Layers = static_cast<std::int16_t>(layers);

        ASSERT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);

        const int top = Top_Layers(File_Of(directory.Path(), "echo.orv"));
        const auto water = Water_Blocks(File_Of(directory.Path(), "Wasser.orv"), "ANNUAL", top);
        const auto solute = Solute_Blocks(File_Of(directory.Path(), "chem.orv"), "ANNUAL", top);
        std::vector<double> concentrations; // ug/L of the 20 years behind the warm-up
        for (std::size_t y = 6; y < 26; ++y)
            concentrations.push_back(solute[y].Leached / water[y].Percolate * 1e4);
        percentiles.push_back(Percentile_80(concentrations));
    }
    Compare_Relative(28, "80th percentile (ug/L), 2.5 cm against 0.5 cm", percentiles[0], percentiles[2], 0.10);
    Compare_Relative(28, "80th percentile (ug/L), 1 cm against 0.5 cm", percentiles[1], percentiles[2], 0.03);
}

} // namespace orvel::engine
