#include "tables/leachate_tables.h"

#include "core/system/lock.h"
#include "core/text.h"
#include "leachate_run.h"

#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

const std::string Rule = "\t------------------------------------------------------------\r\n";

// Eight years: at 1 m the flux is the year's number, at the core bottom always 2 g/ha.
void Write_Eight_Years(Leachate_Run& run)
{
    run.Write_Water(8);
    run.Write_Chem(".orv", Rising(8), std::vector<int>(8, 2));
}

// The year table of that run, behind the titles.
std::string Eight_Years(const std::string& percentile_at_1_m)
{
    return " \r\n"
           " \r\n"
           "\tResults for Substance D in the percolate at 1 m soil depth\r\n"
           " \r\n"
           "\t  Year  \tPesticide Flux\t   Percolate\tPesticide Conc.\r\n"
           "\t         \t     (g/ha)\t     (L/m\xB2)\t     (\xB5g/L)  \r\n"
           "\t1       \t1.0000000   \t100.000     \t1.000\r\n"
           "\t2       \t2.0000000   \t100.000     \t2.000\r\n"
           "\t3       \t3.0000000   \t100.000     \t3.000\r\n"
           "\t4       \t4.0000000   \t100.000     \t4.000\r\n"
           "\t5       \t5.0000000   \t100.000     \t5.000\r\n"
           "\t6       \t6.0000000   \t100.000     \t6.000\r\n" +
           Rule +
           "\t7       \t7.0000000   \t100.000     \t7.000\r\n"
           "\t8       \t8.0000000   \t100.000     \t8.000\r\n" +
           Rule + "\tTotal    \t15.0000     \t200.000     \t7.500\r\n\t" + percentile_at_1_m +
           "(8/7)\t15.0000     \t200.000     \t7.500\r\n"
           " \r\n"
           " \r\n"
           "\tResults for Substance D in the percolate at the bottom of the simulated soil core\r\n"
           " \r\n"
           "\t  Year  \tPesticide  Flux\t   Percolate\tPesticide Conc.\r\n"
           "\t         \t     (g/ha)\t     (L/m\xB2)\t     (\xB5g/L)  \r\n"
           "\t1       \t2.0000000   \t50.0000     \t4.000\r\n"
           "\t2       \t2.0000000   \t50.0000     \t4.000\r\n"
           "\t3       \t2.0000000   \t50.0000     \t4.000\r\n"
           "\t4       \t2.0000000   \t50.0000     \t4.000\r\n"
           "\t5       \t2.0000000   \t50.0000     \t4.000\r\n"
           "\t6       \t2.0000000   \t50.0000     \t4.000\r\n" +
           Rule +
           "\t7       \t2.0000000   \t50.0000     \t4.000\r\n"
           "\t8       \t2.0000000   \t50.0000     \t4.000\r\n" +
           Rule +
           "\tTotal    \t4.0000000   \t100.000     \t4.000\r\n"
           "\t80 Perc.(7/8)\t4.0000000   \t100.000     \t4.000\r\n";
}

} // namespace

TEST(Leachate_Tables, The_Year_Cache_Is_Laid_Out_To_The_Byte)
{
    Leachate_Run run;
    Write_Eight_Years(run);

    Build_Or_Load(run.Path());

    EXPECT_EQ(Read_File(run / "year.orv"),
              "Engine\r\nScenario\r\nPesticide\r\nSoil concentrations: total content (mg/kg)\r\n" +
                  Eight_Years("80 Perc."));
}

TEST(Leachate_Tables, The_Window_Right_After_A_Build_Has_Ten_Blanks_Before_The_Titles_And_No_80_At_1_M)
{
    Leachate_Run run;
    Write_Eight_Years(run);

    const auto tables = Build_Or_Load(run.Path());

    EXPECT_EQ(tables.Year_Text, "          Engine\r\n          Scenario\r\n          Pesticide\r\n          Soil "
                                "concentrations: total content (mg/kg)\r\n" +
                                    Eight_Years("Perc."));
    EXPECT_FALSE(tables.From_Cache);
    EXPECT_TRUE(tables.Kept);
    EXPECT_EQ(tables.Failure, "");
}

TEST(Leachate_Tables, The_Figures_Are_Given_By_Depth_And_Substance)
{
    Leachate_Run run;
    Write_Eight_Years(run);

    const auto tables = Build_Or_Load(run.Path());

    ASSERT_EQ(tables.Year[0].size(), 1U);
    ASSERT_EQ(tables.Year[0][0].Rows.size(), 8U);
    EXPECT_EQ(tables.Year[0][0].Rows[7], (Leachate_Row{8, 100, 8}));
    EXPECT_EQ(tables.Year[1][0].Rows[7], (Leachate_Row{2, 50, 4}));
    EXPECT_EQ(tables.Year[0][0].Result, (Leachate_Result{{15, 200, 7.5}, {15, 200, 7.5}, 8, 7}));
    ASSERT_EQ(tables.Period[1].size(), 1U);
    EXPECT_EQ(tables.Period[1][0].Rows[1], (Leachate_Row{2, 50, 4}));
}

TEST(Leachate_Tables, Metabolites_Are_Walked_A1_B1_C1_D1_A2_B2_C2_D2)
{
    Leachate_Run run({.Names = {"P", "a1", "b1", "c1", "d1", "a2", "b2", "c2", "d2"}});
    run.Write_Water(1);
    for (const std::string suffix :
         {".orv", "_D2.orv", "_A2.orv", "_B2.orv", "_C2.orv", "_A1.orv", "_C1.orv", "_B1.orv", "_D1.orv"})
        run.Write_Chem(suffix, {1}, {1});

    const auto text = Build_Or_Load(run.Path()).Year_Text;

    std::vector<std::string> titles, heads;
    for (const std::string name : {"P", "a1", "b1", "c1", "d1", "a2", "b2", "c2", "d2"})
        titles.push_back("\tResults for " + name + " in the percolate at 1 m soil depth");
    for (const std::string label : {"Pesticide", " Metab.A1", " Metab.B1", " Metab.C1", " Metab.D1", " Metab.A2",
                                    " Metab.B2", " Metab.C2", " Metab.D2"})
        heads.push_back("\t  Year  \t" + label + " Flux\t   Percolate\tPesticide Conc.");
    EXPECT_EQ(Lines_With(text, "1 m soil depth"), titles);
    EXPECT_EQ(Lines_With(text.substr(0, text.find("at the bottom")), " Flux"), heads);
}

TEST(Leachate_Tables, A_Metabolite_Without_A_File_Is_Left_Out)
{
    Leachate_Run run({.Names = {"P", "M"}});
    run.Write_Water(8);
    run.Write_Chem(".orv", Rising(8), Rising(8));
    run.Write_Chem("_C1.orv", Rising(8), Rising(8));

    const auto tables = Build_Or_Load(run.Path());

    EXPECT_EQ(tables.Year[0].size(), 2U);
    EXPECT_EQ(Lines_With(tables.Year_Text, "Results for M").size(), 2U);
    EXPECT_EQ(Lines_With(tables.Year_Text, " Metab.C1 Flux").size(), 1U);
}

TEST(Leachate_Tables, File_Names_Are_Found_In_Any_Case)
{
    Leachate_Run run;
    Write_Eight_Years(run);
    fs::rename(run / "Wasser.orv", run / "WASSER.ORV");
    fs::rename(run / "chem.orv", run / "Chem.orv");

    EXPECT_EQ(Build_Or_Load(run.Path()).Failure, "");
    EXPECT_EQ(Read_File(run / "year.orv").substr(0, 6), "Engine");
}

TEST(Leachate_Tables, The_Shorter_Of_Two_Files_Counts_The_Years)
{
    Leachate_Run run;
    run.Write_Water(9);
    run.Write_Chem(".orv", Rising(8), Rising(8));

    EXPECT_EQ(Build_Or_Load(run.Path()).Year[0][0].Rows.size(), 8U);

    fs::remove(run / "year.orv");
    run.Write_Water(7);
    EXPECT_EQ(Build_Or_Load(run.Path()).Year[0][0].Rows.size(), 7U);
}

TEST(Leachate_Tables, A_Metabolite_File_May_Be_Longer_Than_That_Of_The_Active_Substance)
{
    Leachate_Run run;
    run.Write_Water(9);
    run.Write_Chem(".orv", Rising(7), Rising(7));
    run.Write_Chem("_A1.orv", Rising(9), Rising(9));

    const auto tables = Build_Or_Load(run.Path());

    EXPECT_EQ(tables.Year[0][0].Rows.size(), 7U);
    EXPECT_EQ(tables.Year[0][1].Rows.size(), 9U);
}

TEST(Leachate_Tables, With_Six_Years_Or_Fewer_The_Total_Is_Zero_And_The_Percentile_Names_No_Year)
{
    for (const int years : {6, 3}) {
        Leachate_Run run;
        run.Write_Water(static_cast<std::size_t>(years));
        run.Write_Chem(".orv", Rising(years), Rising(years));

        const auto tables = Build_Or_Load(run.Path());

        const std::string bytes = Read_File(run / "year.orv");
        EXPECT_EQ(Lines_With(bytes, "Perc."),
                  std::vector<std::string>(2, "\t80 Perc.(0/0)\t0.00E+00    \t0.00E+00    \t0.000"));
        EXPECT_EQ(Lines_With(bytes, "Total"),
                  std::vector<std::string>(2, "\tTotal    \t0.00E+00    \t0.00E+00    \t0.000"));
        EXPECT_EQ(Lines_With(Read_File(run / "period.orv"), "1 m soil depth").size(), 1U);
        EXPECT_EQ(tables.Period[0][0].Rows, std::vector<Leachate_Row>(20));
    }
}

TEST(Leachate_Tables, After_The_Sixth_Year_A_Rule_Parts_The_Warm_Up)
{
    Leachate_Run run;
    run.Write_Water(6);
    run.Write_Chem(".orv", Rising(6), Rising(6));

    EXPECT_EQ(Lines_With(Build_Or_Load(run.Path()).Year_Text, "---").size(), 4U); // two in each table
}

TEST(Leachate_Tables, The_Number_Of_Years_Sets_The_Period_Index_And_Any_Other_Leaves_It)
{
    const auto index_of = [](int years, int before) {
        Leachate_Run run;
        run.Write_Water(static_cast<std::size_t>(years));
        run.Write_Chem(".orv", Rising(years), Rising(years));
        return Build_Or_Load(run.Path(), {}, before).Period_Index;
    };

    EXPECT_EQ(index_of(26, 2), 0);
    EXPECT_EQ(index_of(46, 0), 1);
    EXPECT_EQ(index_of(66, 0), 2);
    EXPECT_EQ(index_of(27, 1), 1);
}

TEST(Leachate_Tables, More_Than_66_Years_End_The_Text_Behind_The_Last_Row)
{
    Leachate_Run run;
    run.Write_Water(67);
    run.Write_Chem(".orv", Rising(67), Rising(67));

    const auto tables = Build_Or_Load(run.Path());

    EXPECT_EQ(tables.Failure, "A simulation of more than 66 years cannot be evaluated.");
    EXPECT_TRUE(tables.Year_Text.ends_with("\t66      \t66.0000     \t100.000     \t66.000\r\n"));
    EXPECT_FALSE(fs::exists(run / "year.orv"));
}

TEST(Leachate_Tables, Without_A_Balance_File_The_Text_Ends_Behind_The_Head_Of_The_Table)
{
    Leachate_Run run;
    run.Write_Water(8);

    const auto tables = Build_Or_Load(run.Path());

    EXPECT_NE(tables.Failure, "");
    EXPECT_TRUE(tables.Year_Text.ends_with("\t         \t     (g/ha)\t     (L/m\xB2)\t     (\xB5g/L)  \r\n"));
    EXPECT_EQ(tables.Period_Text, "");
    EXPECT_FALSE(fs::exists(run / "year.orv"));
    EXPECT_FALSE(fs::exists(run / "period.orv"));
}

TEST(Leachate_Tables, Without_An_Echo_File_There_Is_Nothing_But_The_Titles)
{
    Leachate_Run run;
    Write_Eight_Years(run);
    fs::remove(run / "echo.orv");

    const auto tables = Build_Or_Load(run.Path());

    EXPECT_TRUE(Contains(tables.Failure, "echo.orv")) << tables.Failure;
    EXPECT_EQ(Lines_With(tables.Year_Text, "percolate").size(), 0U);
}

TEST(Leachate_Tables, Each_Year_Is_Told_With_The_Number_Of_Those_Before_It)
{
    Leachate_Run run;
    run.Write_Water(2);
    run.Write_Chem(".orv", {1, 2}, {1, 2});
    run.Write_Chem("_A1.orv", {1}, {1});
    std::vector<std::string> told;
    double last = 0;

    Build_Or_Load(run.Path(), [&](const std::string& message, double share) {
        told.push_back(message);
        EXPECT_GE(share, last);
        EXPECT_LE(share, 1);
        last = share;
        return true;
    });

    EXPECT_EQ(told, (std::vector<std::string>{
                        "Please wait! Reading file chem.orv, year 0 at 1 m soil depth.",
                        "Please wait! Reading file chem.orv, year 1 at 1 m soil depth.",
                        "Please wait! Reading file chem.orv, year 2 at the soil bottom.",
                        "Please wait! Reading file chem_a1.orv, year 0 at 1 m soil depth.",
                        "Please wait! Reading file chem_a1.orv, year 1 at the soil bottom.",
                    }));
    EXPECT_EQ(last, 1);
}

TEST(Leachate_Tables, The_User_May_Stop_The_Reading_And_No_Cache_Is_Left)
{
    Leachate_Run run;
    Write_Eight_Years(run);
    int told = 0;

    const auto tables = Build_Or_Load(run.Path(), [&](const std::string&, double) { return ++told < 3; });

    EXPECT_EQ(told, 3);
    EXPECT_EQ(tables.Failure, "The reading was stopped.");
    EXPECT_TRUE(tables.Year_Text.ends_with("\t3       \t3.0000000   \t100.000     \t3.000\r\n"));
    EXPECT_FALSE(fs::exists(run / "year.orv"));
}

TEST(Leachate_Tables, Figures_Whose_Sum_No_Number_Holds_Are_Told)
{
    Leachate_Run run;
    run.Write_Water(8);
    std::string chem;
    for (int y = 0; y < 8; ++y)
        chem += Chem_Block("1.70E+305", "1.70E+305");
    Write_File(run / "chem.orv", chem + End_Of_Output());

    const auto tables = Build_Or_Load(run.Path());

    EXPECT_EQ(tables.Failure, "A value that is not a number cannot be printed.");
    EXPECT_FALSE(fs::exists(run / "year.orv"));
}

} // namespace orvel
