#include "core/numbers.h"
#include "core/text.h"
#include "engine_process.h"

#include <gtest/gtest.h>

namespace orvel::engine {

TEST(Engine_Run, A_Demonstration_Run_Completes_With_All_Its_Files)
{
    Temporary_Directory directory;
    Engine_Case run = Demo_Case("H", "_maize", "demo_C.psm", 3);
    run.Rows = {Row_Of("LEAC", 100), Row_Of("PRSN", 0)};

    const Engine_Result result = Run_Case(run, directory.Path());

    EXPECT_EQ(result.Exit_Code, 0);
    EXPECT_EQ(result.Output, "YEAR 1 OF 3\nYEAR 2 OF 3\nYEAR 3 OF 3\n");
    EXPECT_EQ(Last_Line(File_Of(directory.Path(), "echo.orv")), " *** SIMULATION COMPLETED ***");
    for (const char* name : {"Wasser.orv", "chem.orv", "chem_A1.orv"})
        EXPECT_EQ(Last_Line(File_Of(directory.Path(), name)), " *** END OF OUTPUT ***") << name;
    EXPECT_EQ(Split_Lines(File_Of(directory.Path(), "plot.orv")).size(), 11U + 3 * 365);
}

TEST(Engine_Run, A_Balance_Of_An_Earlier_Runs_Metabolite_Goes_Away)
{
    Temporary_Directory directory;
    ASSERT_EQ(Run_Case(Demo_Case("H", "_maize", "demo_C.psm", 1), directory.Path()).Exit_Code, 0);
    ASSERT_TRUE(std::filesystem::exists(directory / "chem_A1.orv"));

    ASSERT_EQ(Run_Case(Demo_Case("H", "_maize", "demo_D.psm", 1), directory.Path()).Exit_Code, 0);

    EXPECT_FALSE(std::filesystem::exists(directory / "chem_A1.orv"));
}

TEST(Engine_Run, A_Year_May_Start_And_End_On_Any_Day)
{
    Temporary_Directory directory;
    Engine_Case run = Demo_Case("H", "_maize", "demo_D.psm", 2);
    run.Start = "15 03", run.End = "30 06";
    run.Rows = {Row_Of("PRSN", 0)};

    EXPECT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);
    const std::string plot = File_Of(directory.Path(), "plot.orv");
    const auto lines = Split_Lines(plot);
    EXPECT_EQ(lines.size(), 11U + (365 - 73) + 181);
    EXPECT_TRUE(lines[11].starts_with("    74 24"));
}

TEST(Engine_Run, Tillage_Of_The_Demonstration_Pair_Is_Done_At_The_Depth_Of_The_Run)
{
    Temporary_Directory directory;
    Engine_Case run = Demo_Case("H", "_potato", "demo_A.psm", 3);
    run.Scenario.Crops[0].SZE_Rot_Tillage = 1;
    for (Rotation_Row& row : run.Scenario.Rotation)
        row.SZE_Til_Day = 20, row.SZE_Til_Month = 5, row.SZE_Til_Year = row.SZE_Eme_Year;
    run.Count_Tail = " 20.";
    run.Rows = {Row_Of("TPST", 1), Row_Of("TPST", 19), Row_Of("TPST", 22)};

    ASSERT_EQ(Run_Case(run, directory.Path()).Exit_Code, 0);

    // Applied on 9 May; on 20 May, day 140, the top 20 cm are mixed, and what moves within that day is little.
    const std::string plot = File_Of(directory.Path(), "plot.orv");
    const auto lines = Split_Lines(plot);
    const auto value = [&lines](std::size_t day, std::size_t column) {
        return Val(Columns(lines[10 + day], 11 + 10 * column, 10));
    };
    EXPECT_GT(value(139, 0), 5 * value(139, 1));
    EXPECT_NEAR(value(140, 0), value(140, 1), 0.1 * value(140, 1));
    EXPECT_LT(value(140, 2), 0.2 * value(140, 1));
}

} // namespace orvel::engine
