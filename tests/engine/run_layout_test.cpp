#include "core/numbers.h"
#include "core/text.h"
#include "engine/water/grid.h"
#include "engine_process.h"
#include "output_blocks.h"
#include "verification.h"

#include <algorithm>
#include <numeric>

namespace orvel::engine {

namespace {

constexpr std::string_view Hostile = "ANNUAL ERROR PRECIPITATION *** PARAMETERS OF WATR E R R O R";

Engine_Case Layout_Case(int every)
{
    Engine_Case run = Demo_Case("H", "_maize", "demo_C.psm", 8);
    run.Scenario.SZE_Title = Hostile;
    run.Pesticide.PSM_Title = Hostile;
    run.Pesticide.Substance_Name[1] = "ERROR WATR";
    run.Scenario.SZE_Freq_Water = run.Scenario.SZE_Freq_Solute = "MNTH";
    run.Scenario.SZE_Out_Every_Water = run.Scenario.SZE_Out_Every_Solute = run.Scenario.SZE_Out_Every_Conc = every;
    run.Rows = {Row_Of("INFL", 100),  Row_Of("PFLX", 100, 1), Row_Of("PFLX", 100, 2),
                Row_Of("TDKF", 0, 1), Row_Of("PRSN", 0),      Row_Of("TETD", 0),
                Row_Of("TPAP", 0, 2), Row_Of("TVOX", 0, 1),   Row_Of("LEAC", 100)};
    return run;
}

// Sum of a column over the days of a year without 29 February before it.
double Sum_Of_Year(const Plot_File& plot, int year, std::size_t column)
{
    double sum = 0;
    const int first = 365 * (year - 1) + (year - 1) / 4 + 1, days = year % 4 == 0 ? 366 : 365;
    for (const Plot_Line& line : plot.Lines) {
        if (line.Day >= first && line.Day < first + days)
            sum += line.Values[column];
    }
    return sum;
}

} // namespace

TEST(Run_Verification, Case_29_Readers_By_Column_Find_The_Engines_Own_Sums)
{
    std::vector<double> leached;
    for (const int every : {1, 7}) {
        Temporary_Directory directory;
        ASSERT_EQ(Run_Case(Layout_Case(every), directory.Path()).Exit_Code, 0);
        const std::string echo = File_Of(directory.Path(), "echo.orv");
        const int top = Top_Layers(echo);
        const auto water = Water_Blocks(File_Of(directory.Path(), "Wasser.orv"), "ANNUAL", top);
        const auto months = Water_Blocks(File_Of(directory.Path(), "Wasser.orv"), "MONTHLY", top);
        const auto active = Solute_Blocks(File_Of(directory.Path(), "chem.orv"), "ANNUAL", top);
        const auto formed = Solute_Blocks(File_Of(directory.Path(), "chem_A1.orv"), "ANNUAL", top);
        const Plot_File plot = Read_Plot(File_Of(directory.Path(), "plot.orv"));
        const std::string name = "every " + std::to_string(every) + ": ";

        Compare(29, name + "years in Wasser.orv", static_cast<double>(water.size()), 8, 0);
        Compare(29, name + "years in chem.orv", static_cast<double>(active.size()), 8, 0);
        Compare(29, name + "months in Wasser.orv", static_cast<double>(months.size()), 96, 0);
        for (int y = 1; y <= 8; ++y) {
            const auto i = static_cast<std::size_t>(y - 1);
            const std::string year = name + "year " + std::to_string(y) + ", ";
            Compare_Relative(29, year + "percolate (cm)", water[i].Percolate, Sum_Of_Year(plot, y, 0), 1e-4);
            Compare(29, year + "leached (kg/ha)", active[i].Leached, Sum_Of_Year(plot, y, 1),
                    1e-3 * std::fabs(active[i].Leached) + 1e-12);
            Compare(29, year + "metabolite leached", formed[i].Leached, Sum_Of_Year(plot, y, 2),
                    1e-3 * std::fabs(formed[i].Leached) + 1e-12);
            Compare_Relative(29, year + "decay (kg/ha)", active[i].Decay, Sum_Of_Year(plot, y, 3), 1e-4);
            Compare_Relative(29, year + "rain and snow (cm)", water[i].Precipitation + water[i].Snowfall,
                             Sum_Of_Year(plot, y, 4), 1e-4);
            Compare_Relative(29, year + "evapotranspiration (cm)", water[i].Evapotranspiration + water[i].Canopy_Loss,
                             Sum_Of_Year(plot, y, 5), 1e-3);
            Compare_Relative(29, year + "formed (kg/ha)", formed[i].Gained, Sum_Of_Year(plot, y, 6), 1e-4);
            Compare(29, year + "volatilised (kg/ha)", active[i].Volatilised, Sum_Of_Year(plot, y, 7), 1e-6);
            Compare(29, year + "applied (kg/ha)", active[i].Gained, 1, 1e-6);
            double percolate = 0, rain = 0;
            for (std::size_t m = 12 * i; m < 12 * (i + 1); ++m) {
                percolate += months[m].Percolate;
                rain += months[m].Precipitation;
            }
            Compare(29, year + "percolate of the months", percolate, water[i].Percolate, 1e-4);
            Compare(29, year + "rain of the months", rain, water[i].Precipitation, 1e-3);
            leached.push_back(active[i].Leached);
        }
    }
    for (std::size_t y = 0; y < 8; ++y)
        Compare(29, "leached mass of a run with every seventh layer", leached[y + 8], leached[y], 0);
}

TEST(Run_Layout, Hostile_Titles_Cannot_Fail_A_Run)
{
    Temporary_Directory directory;
    ASSERT_EQ(Run_Case(Layout_Case(1), directory.Path()).Exit_Code, 0);
    const std::string echo = File_Of(directory.Path(), "echo.orv"), water = File_Of(directory.Path(), "Wasser.orv");

    EXPECT_FALSE(Contains(echo, "ERROR"));
    EXPECT_FALSE(Contains(echo, "E R R O R"));
    EXPECT_TRUE(Contains(echo, "*** PARAMETERS OF error watr***\r\n"));
    EXPECT_FALSE(Contains(water, "ERROR"));
    const Plot_File plot = Read_Plot(File_Of(directory.Path(), "plot.orv"));
    EXPECT_EQ(plot.Head[2], Hostile);
    EXPECT_EQ(plot.Head[3], Hostile);
}

TEST(Run_Layout, The_Echo_Has_The_Lines_And_Columns_That_Are_Looked_For)
{
    Temporary_Directory directory;
    ASSERT_EQ(Run_Case(Layout_Case(7), directory.Path()).Exit_Code, 0);
    const std::string echo = File_Of(directory.Path(), "echo.orv");
    const auto lines = Split_Lines(echo);
    const auto at = [&lines](std::string_view anchor) {
        return std::ranges::find_if(lines, [anchor](std::string_view line) { return Contains(line, anchor); }) -
               lines.begin();
    };
    const auto total = at("TOTAL COMPARTMENTS IN CORE"), frequency = at("WATR"),
               top = at(" Total number of layers in the top meter:");

    EXPECT_EQ(lines[static_cast<std::size_t>(total)], " TOTAL COMPARTMENTS IN CORE" + std::string(27, ' ') + "80");
    EXPECT_EQ(lines[static_cast<std::size_t>(frequency)], " OUTPUT    WATR    MNTH    LAYER STEP     7");
    EXPECT_EQ(lines[static_cast<std::size_t>(frequency + 1)], " OUTPUT    PEST    MNTH    LAYER STEP     7");
    EXPECT_EQ(lines[static_cast<std::size_t>(top)], " Total number of layers in the top meter:                   40");
    EXPECT_LT(total, frequency);
    EXPECT_LT(frequency + 1, top);
    EXPECT_EQ(std::ranges::count_if(lines, [](std::string_view line) { return Contains(line, "*** PARAMETERS OF "); }),
              2);
    EXPECT_EQ(lines.back(), " *** SIMULATION COMPLETED ***");
}

TEST(Run_Layout, The_Head_Of_The_Series_Is_As_Its_Readers_Want_It)
{
    Temporary_Directory directory;
    Engine_Case run = Demo_Case("H", "_maize", "demo_D.psm", 1);
    run.Rows = {Row_Of("PRSN", 0), Row_Of("LEAC", 100)};
    ASSERT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);
    const Plot_File plot = Read_Plot(File_Of(directory.Path(), "plot.orv"));

    EXPECT_EQ(plot.Head[0], "ORVEL engine 4.01");
    EXPECT_EQ(plot.Head[1], "");
    EXPECT_EQ(plot.Head[4], "");
    EXPECT_EQ(plot.Head[6], "    12     2     0");
    EXPECT_EQ(plot.Head[7], "            PRSN      LEAC");
    EXPECT_EQ(plot.Head[8], "                 0.0     100.0");
    EXPECT_EQ(plot.Head[9], "           1.0       1.0E09");
    EXPECT_EQ(plot.Head[10], "     1 01        0.0       0.0");
    EXPECT_EQ(plot.Lines.size(), 365U);
    EXPECT_EQ(plot.Lines.back().Day, 365);
    EXPECT_EQ(plot.Lines.back().Hour, 24);
}

TEST(Run_Layout, Daily_Blocks_Stand_Before_Their_Month_And_Year)
{
    Temporary_Directory directory;
    Engine_Case run = Demo_Case("H", "_maize", "demo_D.psm", 1);
    run.Scenario.SZE_Freq_Water = run.Scenario.SZE_Freq_Solute = run.Scenario.SZE_Freq_Conc = "DAY";
    ASSERT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);

    for (const char* name : {"Wasser.orv", "chem.orv"}) {
        std::string order;
        const std::string text = File_Of(directory.Path(), name);
        for (const auto line : Split_Lines(text))
            order += Contains(line, "*** DAILY")     ? "d"
                     : Contains(line, "*** MONTHLY") ? "m"
                     : Contains(line, "*** ANNUAL")  ? "y"
                                                     : "";
        EXPECT_EQ(order.size(), 365U + 12 + 1) << name;
        EXPECT_EQ(order.substr(0, 33), std::string(31, 'd') + "md") << name;
        EXPECT_EQ(order.substr(order.size() - 3), "dmy") << name;
    }
    const auto days = Water_Blocks(File_Of(directory.Path(), "Wasser.orv"), "DAILY", 40),
               year = Water_Blocks(File_Of(directory.Path(), "Wasser.orv"), "ANNUAL", 40);
    const double percolate = std::accumulate(days.begin(), days.end(), 0.0,
                                             [](double sum, const Water_Year& day) { return sum + day.Percolate; });
    EXPECT_NEAR(percolate, year[0].Percolate, 365 * 1e-5);
}

TEST(Run_Layout, Every_Code_Gives_A_Column_And_What_Is_Not_There_A_Column_Of_Zeros)
{
    Temporary_Directory directory;
    Engine_Case run = Demo_Case("H", "_maize", "demo_C.psm", 2);
    for (const char* code : {"PRSN", "TETD", "INFL", "RUNF", "ESLS", "THET", "TEMP", "TPAP", "TDKF", "TDKQ",
                             "TDKN", "TUPF", "TVOX", "TPST", "QPST", "NPST", "DKFX", "DKFQ", "DKFN", "PFLX",
                             "RFLX", "EFLX", "LEAC", "SPST", "TPSC", "QPSC", "NPSC", "SPSC"})
        run.Rows.push_back(Row_Of(code, 2));
    run.Rows.push_back(Row_Of("LEAC", 100, 7)); // a substance that is not in the run
    run.Rows.push_back(Row_Of("    ", 0));
    ASSERT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);
    const Plot_File plot = Read_Plot(File_Of(directory.Path(), "plot.orv"));
    std::vector<double> largest(30);
    for (const Plot_Line& line : plot.Lines) {
        ASSERT_EQ(line.Values.size(), 30U);
        for (std::size_t k = 0; k < 30; ++k)
            largest[k] = std::max(largest[k], std::fabs(line.Values[k]));
    }

    // Runoff, soil loss, the non-equilibrium domain, plant uptake and volatilisation are switched off in this case.
    const std::vector<std::size_t> zero = {3, 4, 10, 11, 12, 15, 18, 20, 21, 26, 28, 29};
    for (std::size_t k = 0; k < 30; ++k)
        EXPECT_EQ(largest[k] == 0, std::ranges::count(zero, k) == 1) << "column " << k;
    const auto state = [&plot](std::size_t k) { return plot.Lines[400].Values[k]; };
    const Grid grid = Build_Grid(run.Scenario);
    EXPECT_NEAR(state(13), state(24) * grid.Density[0], 1e-3 * state(13)); // per volume, per mass
    EXPECT_NEAR(state(23), state(27) * state(5), 1e-3 * state(23));        // per soil, per water
    EXPECT_EQ(state(13), state(14));
    EXPECT_TRUE(Contains(File_Of(directory.Path(), "echo.orv"),
                         "NOTE 14: SUBSTANCE 7 OF LEAC IS NOT IN THE RUN: COLUMN OF ZEROS"));
}

TEST(Run_Verification, Case_35_Content_Right_After_An_Application)
{
    for (const char* code : {"TPSC", "SPSC"}) {
        Temporary_Directory directory;
        Engine_Case run = Demo_Case("T_C", "_maize", "demo_S.psm", 2);
        run.Header_Tail = " Version 5          SOIL 0 ";
        run.Count_Tail = "    0.000000020";
        run.Profile_Rows = 20;
        run.Rows = {Row_Of("PRSN", 0)};
        for (int depth = 1; depth <= 20; ++depth)
            run.Rows.push_back(Row_Of(code, depth));
        for (auto& location : run.Pesticide.Applications) {
            location[1] = {.App_Day = 10, .App_Month = 6, .App_Year = 1, .App_Rate = 1, .App_Crop_Flag = 12};
            for (std::size_t a = 2; a <= Last_Application; ++a)
                location[a].App_Rate = 0;
        }

        ASSERT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);

        const Plot_File plot = Read_Plot(File_Of(directory.Path(), "plot.orv"));
        EXPECT_EQ(plot.Head[6], "    24    21    20");
        EXPECT_EQ(Contains(plot.Head[5], "Pore"), std::string_view(code) == "SPSC");
        EXPECT_EQ(plot.Lines.size(), 729U + 24);
        const int day = 31 + 28 + 31 + 30 + 31 + 10;
        const auto first = std::ranges::find_if(plot.Lines, [](const Plot_Line& line) { return line.Values[1] > 0; });
        EXPECT_EQ(first->Day, day);
        EXPECT_EQ(first->Hour, 12);
        const Grid grid = Build_Grid(run.Scenario);
        if (std::string_view(code) == "TPSC") {
            Verify_Relative(35, "content of the first centimetre (mg/kg)", first->Values[1], 10 / (grid.Density[0] * 1),
                            1e-3);
            Verify(35, "content of the second centimetre", first->Values[2], 0, 0);
        }
        const auto hours = std::ranges::count_if(plot.Lines, [day](const Plot_Line& line) { return line.Day == day; });
        Verify(35, "lines on the day of the application", static_cast<double>(hours), 24, 0);
    }
}

} // namespace orvel::engine
