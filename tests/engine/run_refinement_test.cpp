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

struct Outcome {
    double Percolate = 0; // cm a year below 1 m, mean of the years behind the first two
    double Runoff = 0;    // cm a year
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
    return outcome;
}

Engine_Case Restricted_Case(double drainage)
{
    Engine_Case run = Demo_Case("H", "_maize", "demo_D.psm", Sanitized ? 3 : 10);
    run.Scenario.SZE_Water_Flag = 1;
    for (Scenario_Horizon& horizon : run.Scenario.Horizons)
        horizon.SZE_Hor_Drainage = drainage;
    return run;
}

} // namespace

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
