#include "core/numbers.h"
#include "core/text.h"
#include "engine_process.h"
#include "output_blocks.h"
#include "verification.h"

#include <algorithm>
#include <cmath>

namespace orvel::engine {

// Whole runs whose result must not depend on the compartments of the document.

namespace {

// Means of the years behind the first two.
struct Outcome {
    double Percolate = 0;                                                    // cm a year below 1 m
    double Runoff = 0;                                                       // cm a year
    double Volatilised = 0, Washed = 0, Sediment = 0, Bypass = 0, Decay = 0; // kg/ha a year
    double Percentile = 0;                                                   // 80th, ug/L
    std::string Echo;
};

Outcome Outcome_Of(Engine_Case run, double thickness)
{
    Temporary_Directory directory;
    run.Scenario.SZE_Layers = static_cast<std::int16_t>(std::lround(run.Scenario.SZE_Core_Depth / thickness));
    EXPECT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);
    Outcome outcome;
    outcome.Echo = File_Of(directory.Path(), "echo.orv");
    const auto years = Water_Blocks(File_Of(directory.Path(), "Wasser.orv"), "ANNUAL", Top_Layers(outcome.Echo));
    for (std::size_t y = 2; y < years.size(); ++y) {
        outcome.Percolate += years[y].Percolate / static_cast<double>(years.size() - 2);
        outcome.Runoff += years[y].Runoff / static_cast<double>(years.size() - 2);
    }
    const auto solute = Solute_Blocks(File_Of(directory.Path(), "chem.orv"), "ANNUAL", Top_Layers(outcome.Echo));
    std::vector<double> concentrations;
    const std::size_t warm_up = solute.size() > 6 ? 6 : 2;
    for (std::size_t y = 2; y < solute.size(); ++y) {
        const double share = 1 / static_cast<double>(solute.size() - 2);
        outcome.Volatilised += share * solute[y].Volatilised;
        outcome.Washed += share * (solute[y].Runoff - solute[y].Sediment);
        outcome.Sediment += share * solute[y].Sediment;
        outcome.Bypass += share * solute[y].Bypass;
        outcome.Decay += share * solute[y].Decay;
        if (y >= warm_up)
            concentrations.push_back(years[y].Percolate > 0 ? solute[y].Leached / years[y].Percolate * 1e4 : 0);
    }
    std::ranges::sort(concentrations);
    const std::size_t rank = concentrations.size() * 4 / 5;
    outcome.Percentile = (concentrations[rank - 1] + concentrations[rank]) / 2;
    return outcome;
}

Engine_Case Restricted_Case(double drainage)
{
    Engine_Case run = Demo_Case("H", "_maize", "demo_D.psm", Sanitized ? 6 : 10);
    run.Scenario.SZE_Water_Flag = 1;
    for (Scenario_Horizon& horizon : run.Scenario.Horizons)
        horizon.SZE_Hor_Drainage = drainage;
    return run;
}

constexpr int Surface_Years = Sanitized ? 4 : 26;

// The figures that a surface process changes, on grids of 5, 2.5 and 1 cm against one of 0.5 cm.
void Compare_Grids(const std::string& name, const Engine_Case& run,
                   const std::vector<std::pair<std::string, double Outcome::*>>& figures, double tolerance = 0.05)
{
    const Outcome fine = Outcome_Of(run, 0.5);
    for (const double thickness : {2.5, 1.0}) {
        const Outcome outcome = Outcome_Of(run, thickness);
        for (const auto& [figure, member] : figures)
            Compare_Relative(41, name + ": " + figure + " at " + General_Text(thickness) + " cm against 0.5 cm",
                             outcome.*member, fine.*member, tolerance);
    }
}

} // namespace

TEST(Run_Verification, Case_41_Surface_Processes_On_Three_Grids)
{
    Engine_Case vapour = Demo_Case("H", "_maize", "demo_D.psm", Surface_Years);
    vapour.Pesticide.Henry_Flag = 0;
    vapour.Pesticide.Henry = {0.005, 0.01};
    Compare_Grids("volatilisation", vapour,
                  {{"volatilised (kg/ha a)", &Outcome::Volatilised}, {"80th percentile (ug/L)", &Outcome::Percentile}});

    Engine_Case light = Demo_Case("H", "_maize", "demo_A.psm", Surface_Years);
    light.Pesticide.Photo_Rate[5] = 0.5;
    light.Pesticide.Photo_I_Ref[5] = 100;
    Compare_Grids("soil photolysis", light, {{"decayed (kg/ha a)", &Outcome::Decay}});

    Engine_Case pores = Demo_Case("H", "_maize", "demo_D.psm", Surface_Years);
    pores.Scenario.SZE_Macropore = 1;
    pores.Scenario.SZE_Macro_Depth = 80;
    pores.Scenario.SZE_Macro_Threshold = 0.5;
    pores.Scenario.SZE_Macro_Fraction = 0.5;
    Compare_Grids("macropores", pores,
                  {{"bypass (kg/ha a)", &Outcome::Bypass}, {"80th percentile (ug/L)", &Outcome::Percentile}});

    // At 60 cm the outlet lies on a border where sorption changes fivefold: a half of it above, by the compartments.
    pores.Scenario.SZE_Macro_Depth = 60;
    Compare_Grids("macropores to a border of horizons", pores, {{"bypass (kg/ha a)", &Outcome::Bypass}});
    Compare_Grids("macropores to a border of horizons", pores, {{"80th percentile (ug/L)", &Outcome::Percentile}}, 0.1);

    const Engine_Case slope = Demo_Case("N", "_maize", "demo_D.psm", Surface_Years);
    Compare_Grids("runoff and erosion", slope,
                  {{"with runoff (kg/ha a)", &Outcome::Washed}, {"with sediment (kg/ha a)", &Outcome::Sediment}});
}

// A surface layer that nothing acts on changes next to nothing, and water not at all.
TEST(Run_Verification, Case_41_The_Layer_Itself_Changes_Little)
{
    Engine_Case run = Demo_Case("H", "_maize", "demo_C.psm", Surface_Years);
    const Outcome without = Outcome_Of(run, 2.5);
    run.Pesticide.Photo_Rate[5] = 1e-12;
    run.Pesticide.Photo_I_Ref[5] = 100;
    const Outcome with = Outcome_Of(run, 2.5);

    Compare_Relative(41, "80th percentile (ug/L), with the layer against without", with.Percentile, without.Percentile,
                     0.05);
    Compare(41, "percolate (cm/a), with the layer against without", with.Percolate, without.Percolate, 0);
}

TEST(Run_Verification, Case_38_Restricted_Drainage_On_Four_Grids)
{
    for (const double drainage : {5.0, 1.0, 0.1, 0.02}) {
        const std::string name = "parameter " + General_Text(drainage);
        const Outcome fine = Outcome_Of(Restricted_Case(drainage), 0.5);
        for (const double thickness : {5.0, 2.5, 1.0}) {
            const Outcome outcome = Outcome_Of(Restricted_Case(drainage), thickness);
            Compare_Relative(38, name + ": percolate (cm/a) at " + General_Text(thickness) + " cm against 0.5 cm",
                             outcome.Percolate, fine.Percolate, 0.01);
            Verify(38, name + ": runoff (cm/a) that is switched off", outcome.Runoff, 0, 0);
        }
    }
}

TEST(Run_Verification, Case_38_Restricted_Drainage_Nears_The_Free_One)
{
    Engine_Case free = Restricted_Case(1);
    free.Scenario.SZE_Water_Flag = 0;
    Compare_Relative(38, "percolate (cm/a), parameter 10,000 against free drainage",
                     Outcome_Of(Restricted_Case(10000), 2.5).Percolate, Outcome_Of(free, 2.5).Percolate, 1e-3);
}

// The note's days and amounts: what enters in a day is bounded by the soil and not by the first compartment.
TEST(Run_Verification, Case_38_The_Saturated_Days_On_Four_Grids)
{
    const auto noted = [](double thickness) {
        const std::string echo = Outcome_Of(Restricted_Case(0.1), thickness).Echo;
        int days = 0;
        double amount = 0;
        const auto at = echo.find("THE PROFILE WAS SATURATED ON ");
        const char* text = at == std::string::npos ? "" : echo.c_str() + at;
        EXPECT_EQ(std::sscanf(text, "THE PROFILE WAS SATURATED ON %d DAYS: %lf", &days, &amount), 2);
        return std::pair(days, amount);
    };
    const auto [days, amount] = noted(0.5);
    for (const double thickness : {5.0, 2.5, 1.0}) {
        const auto [other_days, other_amount] = noted(thickness);
        const std::string at = " at " + General_Text(thickness) + " cm against 0.5 cm";
        Compare_Relative(38, "parameter 0.1: saturated days" + at, other_days, days, 0.05);
        Compare_Relative(38, "parameter 0.1: water that found no room (cm)" + at, other_amount, amount, 0.05);
    }
}

TEST(Run_Verification, Case_38_What_Saturates_The_Profile_Is_Noted)
{
    const Outcome wet = Outcome_Of(Restricted_Case(0.02), 2.5), dry = Outcome_Of(Restricted_Case(5), 2.5);
    Engine_Case with_runoff = Restricted_Case(0.02);
    with_runoff.Scenario.SZE_Runoff_Depth = 1;
    const Outcome away = Outcome_Of(with_runoff, 2.5);

    Verify(38, "parameter 0.02: a note of the water that waits on the surface",
           Contains(wet.Echo, "NOTE 18: THE PROFILE WAS SATURATED ON ") && Contains(wet.Echo, "WAITED ON THE SURFACE"),
           1, 0);
    Verify(38, "parameter 0.02 with runoff: a note of the water that ran off",
           Contains(away.Echo, "CM FOUND NO ROOM AND RAN OFF") && away.Runoff > 1, 1, 0);
    Verify(38, "parameter 5: no such note", Contains(dry.Echo, "NOTE 18"), 0, 0);
}

} // namespace orvel::engine
