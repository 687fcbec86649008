#include "output/run_outputs.h"

#include "complete_output.h"
#include "core/files.h"
#include "core/text.h"
#include "engine_files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

// A run of three years whose outputs are changed one by one.
class Run_Outputs_Test : public testing::Test {
protected:
    Run_Outputs_Test()
    {
        Put_Complete_Output(Run.Path(), 3);
        Request = {.Years = 3, .Climates = {"a.cli", "a.cli", "a.cli"}, .Series = true};
        Write_File(Run / "a.cli", "title\r\n 010181 1.0\r\n");
    }
    Run_Outputs Found() { return Find_Outputs(Run.Path(), Request); }
    void Change(const std::string& name, const std::string& bytes) { Write_File(Run / name, bytes); }
    std::string Bytes(const std::string& name) { return Read_File(Run / name); }

    Temporary_Directory Run;
    Run_Request Request;
};

TEST_F(Run_Outputs_Test, A_Complete_Run_Has_All_Its_Years_In_Every_Output)
{
    const auto found = Found();

    EXPECT_EQ(found.Missing, "");
    EXPECT_EQ(found.Years_Found, 3);
    EXPECT_FALSE(found.Holds_Error);
    EXPECT_EQ(found.Files.size(), 4u);
    EXPECT_FALSE(found.Files.at(1).Years); // the echo is not yearly
    EXPECT_EQ(found.Files.at(0).Years, 3);
}

TEST_F(Run_Outputs_Test, A_Missing_Output_Is_Named)
{
    for (const char* name : {"echo.orv", "Wasser.orv", "chem.orv", "plot.orv"}) {
        Put_Complete_Output(Run.Path(), 3);
        fs::remove(Run / name);
        EXPECT_EQ(Found().Missing, "The output " + std::string(name) + " is missing.");
        EXPECT_EQ(Found().Years_Found, 0);
    }
}

TEST_F(Run_Outputs_Test, Without_Series_Nobody_Misses_Them)
{
    fs::remove(Run / "plot.orv");
    Request.Series = false;

    EXPECT_EQ(Found().Missing, "");
}

TEST_F(Run_Outputs_Test, A_Balance_Cut_In_Its_Last_Year_Has_One_Year_Less)
{
    for (const std::string name : {"Wasser.orv", "chem.orv"}) {
        const std::string whole = Bytes(name);
        const auto last_value = whole.rfind("BELOW CORE");
        for (const auto size : {last_value, last_value + 20, whole.rfind("ANNUAL") + 3}) {
            Change(name, whole.substr(0, size));
            EXPECT_EQ(Found().Missing, "The output " + name + " holds 2 of 3 years.") << size;
            EXPECT_EQ(Found().Years_Found, 2);
        }
        Change(name, "");
        EXPECT_EQ(Found().Missing, "The output " + name + " holds 0 of 3 years.");
        Change(name, whole);
    }
}

TEST_F(Run_Outputs_Test, A_File_Of_The_Bundled_Engine_Is_Whole_Only_With_Its_Closing_Line)
{
    const std::string head = " ORVEL ENGINE 4.01 - WATER BALANCE\r\n", whole = head + Bytes("Wasser.orv");
    Change("Wasser.orv", whole + "\r\n *** END OF OUTPUT ***\r\n");
    EXPECT_EQ(Found().Missing, "");

    Change("Wasser.orv", whole);
    EXPECT_EQ(Found().Missing, "The output Wasser.orv holds 2 of 3 years.");
}

TEST_F(Run_Outputs_Test, A_Series_That_Lacks_Its_Last_Day_Or_Jumps_Lacks_Years)
{
    const std::string whole = Bytes("plot.orv");

    Change("plot.orv", whole.substr(0, whole.size() - 4)); // the last value is cut
    EXPECT_EQ(Found().Missing, "The output plot.orv holds 2 of 3 years.");
    Change("plot.orv", Replace_All(whole, "   800 24         1.0\r\n", ""));
    EXPECT_EQ(Found().Missing, "The output plot.orv holds 2 of 3 years.");
    Change("plot.orv", whole.substr(0, 40));
    EXPECT_EQ(Found().Missing, "The output plot.orv holds 0 of 3 years.");
}

TEST_F(Run_Outputs_Test, A_Year_Has_A_29_February_If_Its_Climate_File_Has_One)
{
    Write_File(Run / "leap.cli", "title\r\n 280284 1.0\r\n 290284 1.0\r\n");
    Request.Climates[1] = "LEAP.cli";

    EXPECT_EQ(Found().Missing, "The output plot.orv holds 2 of 3 years."); // a day is missing
    EXPECT_TRUE(Has_Leap_Day(Run / "leap.cli"));
    EXPECT_FALSE(Has_Leap_Day(Run / "a.cli"));
}

TEST_F(Run_Outputs_Test, A_Run_That_Ends_Within_A_Year_Needs_No_More_Days)
{
    Request.End_Day = 31; // to the end of January
    Request.End_Month = 1;
    const std::string whole = Bytes("plot.orv");
    Change("plot.orv", whole.substr(0, whole.find("   762 24")));

    EXPECT_EQ(Found().Missing, "");
}

TEST_F(Run_Outputs_Test, An_Error_Is_Found_However_Far_From_The_End_It_Stands)
{
    Change("echo.orv", " *** ERROR 21: NO FILE\r\n" + std::string(3U << 20U, 'x') + Bytes("echo.orv"));

    EXPECT_TRUE(Found().Holds_Error);
}

TEST_F(Run_Outputs_Test, A_Cut_Echo_Is_Told)
{
    Change("echo.orv", " ECHO\r\n TOTAL COMPARTMENTS IN CORE\r\n");
    EXPECT_EQ(Found().Missing, "The output echo.orv ends early.");

    Change("echo.orv", Echo_File({.Last = " CLOSURE BY YEAR"}));
    EXPECT_EQ(Found().Missing, "The output echo.orv ends early.");
    Change("echo.orv", Echo_File());
    EXPECT_EQ(Found().Missing, "");
    EXPECT_EQ(Found().Engine_Version, "4.01");
}

TEST_F(Run_Outputs_Test, Each_Substance_Of_The_Echo_Needs_Its_Balance)
{
    Change("echo.orv", Echo_File({.Names = {"Parent", "Child"}}));
    EXPECT_EQ(Found().Missing, "The balance of 1 of 2 substances is missing.");

    Change("chem_A1.orv", Bytes("chem.orv"));
    EXPECT_EQ(Found().Missing, "");
}

TEST_F(Run_Outputs_Test, Tables_And_Progress_Are_No_Output_Of_The_Engine)
{
    for (const char* name : {"year.orv", "PERIOD.ORV", "MBalance_M.orv", "PECsoil_20.orv", "progress.orv"})
        EXPECT_FALSE(Is_Engine_Output(name)) << name;
    EXPECT_TRUE(Is_Engine_Output("CHEM_A1.ORV"));
}

TEST_F(Run_Outputs_Test, A_Pipe_In_The_Place_Of_An_Output_Is_No_Output)
{
    fs::remove(Run / "chem.orv");
    fs::create_symlink("/dev/zero", Run / "chem.orv");

    EXPECT_EQ(Found().Missing, "The output chem.orv is not an ordinary file.");
}

} // namespace orvel
