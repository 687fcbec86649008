#include "tables/balance_tables.h"

#include "core/system/lock.h"
#include "leachate_run.h"

#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

// A run of one year, with one month of the same figures, and the metabolite B1.
class Balance_Tables_Test : public testing::Test {
protected:
    Balance_Tables_Test()
    {
        Water_Year water{.Precipitation = "64.3102",
                         .Irrigation = "1.0000",
                         .Loss = "6.0121",
                         .Snow = "3.4410",
                         .Runoff = "1.2077",
                         .Transpiration = {{1, "20.11873"}, {2, "9.55310"}},
                         .Recharge = "23.41876"};
        Chem_Year chem{.Application = {{0, "4.50000E-01"}, {1, "5.50000E-01"}},
                       .Uptake = "1.23000E-02",
                       .Decay = "7.65100E-01",
                       .Volatilization = "2.10000E-03",
                       .Runoff = "9.00000E-04",
                       .Bottom = "9.80000E-07"};
        Chem_Year metabolite{.Application = {{1, "2.00000E-01"}}, .Decay = "1.00000E-01"};
        std::string wasser, active, formed;
        for (const std::string kind : {"MONTHLY", "ANNUAL"}) {
            water.Kind = chem.Kind = metabolite.Kind = kind;
            wasser += Water_Block(water);
            active += Chem_Block(chem);
            formed += Chem_Block(metabolite);
        }
        Write_File(Run / "Wasser.orv", wasser + End_Of_Output());
        Write_File(Run / "Chem.orv", active + End_Of_Output());
        Write_File(Run / "chem_B1.orv", formed + End_Of_Output());
    }

    bool Has_Cache() const { return fs::exists(Run / "MBalance.orv") || fs::exists(Run / "PBalance.orv"); }

    Leachate_Run Run;
};

const std::string Titles = "Engine\r\nScenario\r\nPesticide\r\nSoil concentrations: total content (mg/kg)\r\n";
const std::string Shown_Titles = "          Engine\r\n          Scenario\r\n          Pesticide\r\n          Soil "
                                 "concentrations: total content (mg/kg)\r\n";

// The tables of the run, whose view says "Annual" and "Year  " or the like.
std::string Water_Table(const std::string& word, const std::string& first)
{
    return "\r\n\r\n\t" + word + " Water Balance (L/m\xB2)\r\n\r\n\t" + first +
           "\tPrecipitation\tIrrigation\t  Runoff\tEvapotransp.\t Percolate\tDiff. Storage\r\n"
           "\t1       \t677.512  \t10.0000  \t12.0770  \t356.839  \t234.188  \t84.4081  \r\n";
}

std::string Pesticide_Tables(const std::string& word, const std::string& first)
{
    const std::string heads = "\tVolatilisation\t  Runoff\tPlant uptake\tDegradation\t Percolate\tDiff. Storage\r\n\t" +
                              std::string(117, '-') + "\r\n";
    return "\r\n\r\n\t" + word + " Pesticide Balance (g/ha)\r\n\r\n\t" + first + "\tApplication" + heads +
           "\t1       \t1000.00  \t2.1000000\t0.9000000\t12.3000  \t765.100  \t9.80E-04 \t219.599   \r\n"
           "\r\n\r\n\t" +
           word + "  Metab.B1 Balance (g/ha)\r\n\r\n\t" + first + "\tFormation" + heads +
           "\t1       \t200.000  \t0.00E+00 \t0.00E+00 \t0.00E+00 \t100.000  \t0.00E+00 \t100.000   \r\n";
}

} // namespace

TEST_F(Balance_Tables_Test, Both_Caches_Are_Laid_Out_To_The_Byte)
{
    const auto tables = Build_Or_Load_Balance(Run.Path(), Balance_View::Annual);

    EXPECT_EQ(Read_File(Run / "MBalance.orv"), Titles + Water_Table("Annual", "Year  "));
    EXPECT_EQ(Read_File(Run / "PBalance.orv"), Titles + Pesticide_Tables("Annual", "Year  "));
    EXPECT_TRUE(tables.Kept);
    EXPECT_EQ(tables.Failure, "");
}

TEST_F(Balance_Tables_Test, The_Window_Right_After_A_Build_Has_Ten_Blanks_Before_The_Titles)
{
    const auto tables = Build_Or_Load_Balance(Run.Path(), Balance_View::Annual);

    EXPECT_EQ(tables.Water_Text, Shown_Titles + Water_Table("Annual", "Year  "));
    EXPECT_EQ(tables.Pesticide_Text, Shown_Titles + Pesticide_Tables("Annual", "Year  "));
    ASSERT_EQ(tables.Pesticide.size(), 2U);
    EXPECT_EQ(tables.Pesticide[1][0].Diff_Storage, 100);
    ASSERT_EQ(tables.Water.size(), 1U);
}

TEST_F(Balance_Tables_Test, The_Monthly_Tables_Head_Their_First_Column_With_Month_In_Two_Widths)
{
    const auto tables = Build_Or_Load_Balance(Run.Path(), Balance_View::Monthly);

    EXPECT_EQ(tables.Water_Text, Shown_Titles + Water_Table("Monthly", "Month  "));
    EXPECT_EQ(tables.Pesticide_Text, Shown_Titles + Pesticide_Tables("Monthly", "Month"));
}

TEST_F(Balance_Tables_Test, The_Monthly_View_Keeps_Its_Own_Cache_Files)
{
    Build_Or_Load_Balance(Run.Path(), Balance_View::Monthly);

    EXPECT_FALSE(Has_Cache());
    EXPECT_EQ(Read_File(Run / "MBalance_M.orv"), Titles + Water_Table("Monthly", "Month  "));
    EXPECT_EQ(Read_File(Run / "PBalance_M.orv"), Titles + Pesticide_Tables("Monthly", "Month"));
    EXPECT_EQ(Lines_With(Build_Or_Load_Balance(Run.Path(), Balance_View::Annual).Water_Text, "Annual").size(), 1U);
    EXPECT_EQ(Lines_With(Build_Or_Load_Balance(Run.Path(), Balance_View::Monthly).Water_Text, "Monthly").size(), 1U);
}

TEST_F(Balance_Tables_Test, Stored_Tables_Are_Shown_With_The_Older_Umlauts_Mapped)
{
    std::string plot = Plot_Head_Of(1, 0);
    plot.replace(plot.find("Scenario"), 8, "Kremsm\x81nster");
    Write_File(Run / "plot.orv", plot);
    Build_Or_Load_Balance(Run.Path(), Balance_View::Annual);
    fs::rename(Run / "MBalance.orv", Run / "mbalance.ORV");

    const auto tables = Build_Or_Load_Balance(Run.Path(), Balance_View::Annual);

    EXPECT_TRUE(tables.From_Cache);
    EXPECT_EQ(Lines_With(tables.Water_Text, "Kremsm\xFCnster").size(), 1U);
    EXPECT_EQ(Lines_With(tables.Pesticide_Text, "Kremsm\xFCnster").size(), 1U);
}

TEST_F(Balance_Tables_Test, A_Damaged_File_Is_Told_And_Both_Are_Built_Anew)
{
    const auto built = Build_Or_Load_Balance(Run.Path(), Balance_View::Annual);
    const std::string water = Read_File(Run / "MBalance.orv"), pesticide = Read_File(Run / "PBalance.orv");
    const auto second = pesticide.find("\r\n\r\n\tAnnual  Metab.B1");
    std::string another = water;
    another.replace(another.find("\t10.0000"), 8, "\t1O.0000");
    const std::vector<std::pair<std::string, std::string>> damages = {
        {"", pesticide},
        {water, ""},
        {"", ""},
        {water.substr(0, water.size() - 30), pesticide},
        {water.substr(0, water.find("\t1  ")), pesticide}, // without its row
        {water, pesticide.substr(0, second)},              // without its second table
        {water, pesticide.substr(0, pesticide.rfind("\t1  "))},
        {another, pesticide},
        {pesticide, water},
        {std::string(1 << 16, '\0'), std::string(1 << 16, '\0')},
        {"water", "mass"},
    };

    for (const auto& [bad_water, bad_pesticide] : damages) {
        SCOPED_TRACE(bad_water.substr(0, 40) + "/" + bad_pesticide.substr(0, 40));
        Write_File(Run / "MBalance.orv", bad_water);
        Write_File(Run / "PBalance.orv", bad_pesticide);

        const auto tables = Build_Or_Load_Balance(Run.Path(), Balance_View::Annual);

        EXPECT_FALSE(tables.From_Cache);
        EXPECT_EQ(tables.Note(), "The stored table was damaged: it has been built anew.");
        EXPECT_EQ(tables.Water_Text, built.Water_Text);
        EXPECT_EQ(Read_File(Run / "MBalance.orv"), water);
        EXPECT_EQ(Read_File(Run / "PBalance.orv"), pesticide);
    }
    EXPECT_EQ(Build_Or_Load_Balance(Run.Path(), Balance_View::Annual).Note(), "");
}

TEST_F(Balance_Tables_Test, A_Table_Older_Than_The_Output_Is_Told_And_Built_Anew)
{
    Build_Or_Load_Balance(Run.Path(), Balance_View::Annual);
    fs::last_write_time(Run / "chem_B1.orv", fs::last_write_time(Run / "PBalance.orv") + std::chrono::milliseconds(1));

    const auto tables = Build_Or_Load_Balance(Run.Path(), Balance_View::Annual);

    EXPECT_FALSE(tables.From_Cache);
    EXPECT_EQ(tables.Note(), "The stored table was older than its run: it has been built anew.");
}

TEST_F(Balance_Tables_Test, Tables_Of_Unequal_Length_Are_Shown_And_Not_Kept)
{
    Write_File(Run / "chem_B1.orv", Chem_Block({}) + Chem_Block({}) + End_Of_Output());

    const auto tables = Build_Or_Load_Balance(Run.Path(), Balance_View::Annual);

    EXPECT_EQ(tables.Not_Kept, "The balances of water and substances do not have the same number of years.");
    EXPECT_EQ(tables.Pesticide[1].size(), 2U);
    EXPECT_FALSE(Has_Cache());
}

TEST_F(Balance_Tables_Test, A_Missing_Cache_Causes_A_Rebuild_Of_Both)
{
    Write_File(Run / "MBalance.orv", "old");

    EXPECT_FALSE(Build_Or_Load_Balance(Run.Path(), Balance_View::Annual).From_Cache);
    EXPECT_EQ(Read_File(Run / "MBalance.orv"), Titles + Water_Table("Annual", "Year  "));
}

TEST_F(Balance_Tables_Test, No_Cache_Is_Written_From_A_Run_Whose_Lock_Is_Held)
{
    const auto lock = Lock::Take(Run.Path());

    const auto tables = Build_Or_Load_Balance(Run.Path(), Balance_View::Annual);

    EXPECT_EQ(tables.Not_Kept, "The simulation is still at work.");
    EXPECT_EQ(tables.Failure, "");
    EXPECT_EQ(tables.Water.size(), 1U);
    EXPECT_FALSE(Has_Cache());
}

TEST_F(Balance_Tables_Test, A_Run_Without_Plot_File_Is_Shown_But_Not_Cached)
{
    fs::remove(Run / "plot.orv");

    EXPECT_EQ(Build_Or_Load_Balance(Run.Path(), Balance_View::Annual).Water.size(), 1U);
    EXPECT_FALSE(Has_Cache());
}

TEST_F(Balance_Tables_Test, Without_A_Balance_File_The_Rows_Read_So_Far_Are_Shown_And_Not_Cached)
{
    fs::remove(Run / "Chem.orv");

    const auto tables = Build_Or_Load_Balance(Run.Path(), Balance_View::Annual);

    EXPECT_NE(tables.Failure, "");
    EXPECT_EQ(tables.Water_Text, Shown_Titles + Water_Table("Annual", "Year  "));
    EXPECT_TRUE(tables.Pesticide_Text.ends_with("\t" + std::string(117, '-') + "\r\n"));
    EXPECT_FALSE(Has_Cache());
}

TEST_F(Balance_Tables_Test, Each_Row_Is_Told_And_The_User_May_Stop)
{
    std::vector<std::string> told;
    Build_Or_Load_Balance(Run.Path(), Balance_View::Monthly, [&](const std::string& message, double) {
        told.push_back(message);
        return true;
    });
    EXPECT_EQ(told, (std::vector<std::string>{"Please wait! Reading file wasser, year 1.",
                                              "Please wait! Reading file chem.orv, year 1.",
                                              "Please wait! Reading file chem_B1.orv, year 1."}));

    const auto stopped =
        Build_Or_Load_Balance(Run.Path(), Balance_View::Annual, [](const std::string&, double) { return false; });
    EXPECT_EQ(stopped.Failure, "The reading was stopped.");
    EXPECT_FALSE(Has_Cache());
}

TEST_F(Balance_Tables_Test, Figures_That_No_Number_Holds_Are_Told)
{
    Write_File(Run / "Chem.orv", Chem_Block({.Decay = "1.00000E+308"}) + End_Of_Output());

    EXPECT_NE(Build_Or_Load_Balance(Run.Path(), Balance_View::Annual).Failure, "");
    EXPECT_FALSE(Has_Cache());
}

} // namespace orvel
