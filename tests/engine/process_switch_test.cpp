// Each process by itself: switching it on changes what it should and nothing else.
#include "engine_process.h"
#include "output_blocks.h"

#include <algorithm>
#include <array>
#include <functional>
#include <gtest/gtest.h>

namespace orvel::engine {

namespace {

constexpr int Run_Years = 5;

struct Totals {
    double Uptake = 0, Volatilised = 0, Runoff = 0, Sediment = 0, Decay = 0, Leached = 0; // kg/ha
    std::string Water;
    std::string Solute;
};

// A run at Okehampton with maize: soil applications of a mobile substance in May, and every optional process off.
Engine_Case Bare_Case()
{
    Engine_Case run = Demo_Case("N", "_maize", "demo_B.psm", Run_Years);
    run.Scenario.SZE_Erosion = run.Scenario.SZE_Macropore = run.Scenario.SZE_DOC_Flag = 0;
    run.Scenario.SZE_Runoff_Depth = 0;
    Pesticide_Document& pesticide = run.Pesticide;
    pesticide.App_Method = 1;
    pesticide.Henry_Flag = 0;
    pesticide.Henry = pesticide.Vap_Press = {0, 0};
    pesticide.Plant_Uptake[1] = 0;
    pesticide.Plant_Penetration = pesticide.Plant_Photodeg = 0;
    return run;
}

Totals Run_Of(const Engine_Case& run, const std::string& name)
{
    Temporary_Directory directory;
    EXPECT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0) << name;
    Totals totals{.Water = File_Of(directory.Path(), "Wasser.orv"), .Solute = File_Of(directory.Path(), "chem.orv")};
    for (const Solute_Year& year :
         Solute_Blocks(totals.Solute, "ANNUAL", Top_Layers(File_Of(directory.Path(), "echo.orv")))) {
        totals.Uptake += year.Uptake;
        totals.Volatilised += year.Volatilised;
        totals.Runoff += year.Runoff;
        totals.Sediment += year.Sediment;
        totals.Decay += year.Decay;
        totals.Leached += year.Leached;
    }
    return totals;
}

enum class Water_Is { Same, Other, Either };
enum class Goes { Up, Down, Anywhere };

struct Process {
    std::string Name;
    std::function<void(Engine_Case&)> Switch_On;
    std::vector<double Totals::*> Appear; // losses that were 0 and no longer are; the other ones stay 0
    Water_Is Water = Water_Is::Same;
    Goes Decay = Goes::Anywhere, Leached = Goes::Anywhere;
    std::function<void(Engine_Case&)> Prepare = [](Engine_Case&) {}; // in both runs
};

void Expect_Goes(Goes direction, double before, double after, const std::string& what)
{
    if (direction == Goes::Up) {
        EXPECT_GT(after, before) << what;
    } else if (direction == Goes::Down) {
        EXPECT_LT(after, before) << what;
    }
}

void Foliar(Engine_Case& run)
{
    run.Pesticide.App_Method = 4;
    for (auto& location : run.Pesticide.Applications) {
        for (auto& application : location)
            application.App_Frpex = 60;
    }
}

void Till(Engine_Case& run)
{
    run.Scenario.Crops[0].SZE_Rot_Tillage = 1;
    for (Rotation_Row& row : run.Scenario.Rotation) {
        row.SZE_Til_Day = 20;
        row.SZE_Til_Month = 11;
        row.SZE_Til_Year = row.SZE_Eme_Year;
    }
    run.Count_Tail = " 20.";
}

const std::vector<Process> Processes = {
    {.Name = "plant uptake",
     .Switch_On = [](Engine_Case& run) { run.Pesticide.Plant_Uptake[1] = 1; },
     .Appear = {&Totals::Uptake},
     .Decay = Goes::Down,
     .Leached = Goes::Down},
    {.Name = "volatilisation",
     .Switch_On =
         [](Engine_Case& run) {
             run.Pesticide.Henry = {0.1, 0.2};
         },
     .Appear = {&Totals::Volatilised},
     .Decay = Goes::Down},
    {.Name = "runoff",
     .Switch_On = [](Engine_Case& run) { run.Scenario.SZE_Runoff_Depth = 2; },
     .Appear = {&Totals::Runoff},
     .Water = Water_Is::Other},
    {.Name = "erosion",
     .Switch_On =
         [](Engine_Case& run) {
             run.Scenario.SZE_Erosion = 1;
             run.Scenario.SZE_Eros_K = 0.35, run.Scenario.SZE_Eros_2 = 0.6, run.Scenario.SZE_Eros_3 = 1,
             run.Scenario.SZE_Eros_4 = 1, run.Scenario.SZE_Eros_5 = 6;
         },
     .Appear = {&Totals::Runoff, &Totals::Sediment},
     .Water = Water_Is::Other},
    {.Name = "macropores",
     .Switch_On =
         [](Engine_Case& run) {
             run.Scenario.SZE_Macropore = 1;
             run.Scenario.SZE_Macro_Depth = 60;
             run.Scenario.SZE_Macro_Threshold = 0.5;
             run.Scenario.SZE_Macro_Fraction = 0.5;
         },
     .Appear = {},
     .Water = Water_Is::Other},
    {.Name = "restricted drainage",
     .Switch_On = [](Engine_Case& run) { run.Scenario.SZE_Water_Flag = 1; },
     .Appear = {},
     .Water = Water_Is::Other},
    {.Name = "slow sorption sites",
     .Switch_On =
         [](Engine_Case& run) {
             run.Pesticide.F_neq[1] = 0.5;
             run.Pesticide.K_des[1] = 0.02;
         },
     .Appear = {},
     .Decay = Goes::Down},
    {.Name = "dissolved organic carbon",
     .Switch_On =
         [](Engine_Case& run) {
             run.Scenario.SZE_DOC_Flag = 1;
             run.Scenario.SZE_DOC_Content = 50;
             run.Pesticide.K_doc[1] = 5000;
         },
     .Appear = {},
     .Leached = Goes::Up},
    {.Name = "soil photolysis",
     .Switch_On = [](Engine_Case& run) { run.Pesticide.Photo_Rate[5] = 0.5; },
     .Appear = {},
     .Decay = Goes::Up,
     .Leached = Goes::Down},
    {.Name = "decay constant with depth",
     .Switch_On = [](Engine_Case& run) { run.Pesticide.Deg_Depth_Mode[1] = 1; },
     .Appear = {},
     .Decay = Goes::Up,
     .Leached = Goes::Down},
    {.Name = "decay in the liquid phase only",
     .Switch_On = [](Engine_Case& run) { run.Pesticide.Deg_Liquid_Only[1] = 1; },
     .Appear = {},
     .Decay = Goes::Down,
     .Leached = Goes::Up},
    {.Name = "more sorption in air-dry soil",
     .Switch_On = [](Engine_Case& run) { run.Pesticide.Koc_Change[1] = 100; },
     .Appear = {}},
    {.Name = "sorption that grows with the years",
     .Switch_On = [](Engine_Case& run) { run.Pesticide.Ann_Incr[1] = 50; },
     .Appear = {},
     .Leached = Goes::Down},
    {.Name = "sorption by pH",
     .Switch_On =
         [](Engine_Case& run) {
             run.Pesticide.Sorp_pKa[1] = 5;
             run.Pesticide.Sorp_pH[1] = 4;
             run.Pesticide.Sorp_pH2[1] = 8;
             run.Pesticide.Koc2[1] = 1;
         },
     .Appear = {},
     .Leached = Goes::Up},
    {.Name = "a dispersion coefficient",
     .Switch_On = [](Engine_Case& run) { run.Scenario.SZE_Dispersion_Flag = 0; },
     .Appear = {}},
    {.Name = "compartments by soil depth",
     .Switch_On = [](Engine_Case& run) { run.Scenario.SZE_Delxflg = 0; },
     .Appear = {},
     .Water = Water_Is::Other},
    {.Name = "tillage", .Switch_On = Till, .Appear = {}},
    {.Name = "warmer soil",
     .Switch_On = [](Engine_Case& run) { run.Header_Tail = " Version 5          SOIL5"; },
     .Appear = {},
     .Water = Water_Is::Either,
     .Decay = Goes::Up},
    {.Name = "foliar fate",
     .Switch_On = Foliar,
     .Appear = {}, // decay on the plants and wash-off; penetration and volatilisation are off
     .Leached = Goes::Down},
    {.Name = "penetration into leaves",
     .Switch_On = [](Engine_Case& run) { run.Pesticide.Plant_Penetration = 0.1; },
     .Appear = {&Totals::Uptake},
     .Leached = Goes::Down,
     .Prepare = Foliar},
    {.Name = "photodegradation on leaves",
     .Switch_On = [](Engine_Case& run) { run.Pesticide.Plant_Photodeg = 0.5; },
     .Appear = {},
     .Decay = Goes::Up,
     .Leached = Goes::Down,
     .Prepare = Foliar},
    {.Name = "volatilisation from leaves",
     .Switch_On =
         [](Engine_Case& run) {
             run.Pesticide.Vap_Press = {1e-3, 4e-3};
         },
     .Appear = {&Totals::Volatilised},
     .Leached = Goes::Down,
     .Prepare = Foliar},
    {.Name = "poorly exposed deposits",
     .Switch_On =
         [](Engine_Case& run) {
             for (auto& location : run.Pesticide.Applications) {
                 for (auto& application : location)
                     application.App_Time = 0.5;
             }
         },
     .Appear = {}, // washed off later, so that more decays on the leaves
     .Leached = Goes::Down,
     .Prepare = Foliar},
};

class Process_Switch : public testing::TestWithParam<std::size_t> {};

} // namespace

TEST_P(Process_Switch, Changes_What_It_Should_And_Nothing_Else)
{
    const Process& process = Processes[GetParam()];
    Engine_Case without = Bare_Case();
    process.Prepare(without);
    Engine_Case with = without;
    process.Switch_On(with);

    const Totals off = Run_Of(without, process.Name), on = Run_Of(with, process.Name);

    EXPECT_NE(on.Solute, off.Solute) << process.Name << " changed nothing";
    const std::array<double Totals::*, 4> losses = {&Totals::Uptake, &Totals::Volatilised, &Totals::Runoff,
                                                    &Totals::Sediment};
    for (const auto loss : losses) {
        EXPECT_EQ(off.*loss, 0) << process.Name;
        const bool appears = std::find(process.Appear.begin(), process.Appear.end(), loss) != process.Appear.end();
        EXPECT_EQ(on.*loss > 0, appears) << process.Name;
    }
    if (process.Water != Water_Is::Either) {
        EXPECT_EQ(on.Water == off.Water, process.Water == Water_Is::Same) << process.Name;
    }
    Expect_Goes(process.Decay, off.Decay, on.Decay, process.Name + ": decay");
    Expect_Goes(process.Leached, off.Leached, on.Leached, process.Name + ": leaching at 1 m");
}

INSTANTIATE_TEST_SUITE_P(All, Process_Switch, testing::Range(std::size_t{0}, Processes.size()), [](const auto& about) {
    std::string name = Processes[about.param].Name;
    std::ranges::replace(name, ' ', '_');
    std::ranges::replace(name, '-', '_');
    return name;
});

// Leaching at 1 m in the order that sorption and half-life demand, at all nine locations.
TEST(Demonstration_Substances, Leach_In_The_Order_Of_Their_Sorption_And_Half_Lives)
{
    constexpr int years = Sanitized ? 3 : 8;
    double total = 0;
    for (const char* site : {"C", "H", "J", "K", "N", "P", "O", "S", "T"}) {
        const auto leached = [&](const char* substance) {
            Engine_Case run = Demo_Case(site, "_wcerea", "demo_D.psm", years);
            const Engine_Case other = Demo_Case(site, "_wcerea", substance, years);
            run.Pesticide.Koc[1] = other.Pesticide.Koc[1]; // the same applications for all
            run.Pesticide.Degradation[1] = other.Pesticide.Degradation[1];
            run.Pesticide.Met_Present = other.Pesticide.Met_Present;
            run.Pesticide.Molmass = other.Pesticide.Molmass;
            return Run_Of(run, std::string(site) + " " + substance).Leached;
        };
        const double a = leached("demo_A.psm"), b = leached("demo_B.psm"), c = leached("demo_C.psm"),
                     d = leached("demo_D.psm");

        EXPECT_GE(b, d) << site << ": sorbed less, the same half-life";
        EXPECT_GE(d, c) << site << ": sorbed less, the same half-life";
        EXPECT_GE(a, c) << site << ": sorbed less and lasting longer";
        total += a + b + c + d;
    }
    EXPECT_GT(total, 0);
}

} // namespace orvel::engine
