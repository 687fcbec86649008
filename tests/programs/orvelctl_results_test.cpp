#include "tables/leachate_run.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/wait.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

// Runs the command line program on the results of a run.
class Orvelctl_Results : public testing::Test {
protected:
    Orvelctl_Results()
    {
        Run_Files.Write_Water(8);
        Run_Files.Write_Chem(".orv", Rising(8), Rising(8));
    }

    int Run(const std::string& words)
    {
        const auto out = Home / "out", told = Home / "told";
        const int status = std::system((std::string("'" ORVELCTL "' -C '") + Home.Path().string() + "' " + words +
                                        " >" + out.string() + " 2>" + told.string())
                                           .c_str());
        Out = Read_File(out);
        Standard_Error = Read_File(told);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string Run_Path() const { return "'" + Run_Files.Path().string() + "'"; }

    Leachate_Run Run_Files;
    Temporary_Directory Home;
    std::string Out, Standard_Error;
};

} // namespace

TEST_F(Orvelctl_Results, Tables_Prints_The_Year_Table_First_In_Utf_8)
{
    EXPECT_EQ(Run("tables " + Run_Path()), 0);

    EXPECT_TRUE(Out.starts_with("          Engine\n          Scenario\n"));
    EXPECT_LT(Out.find("\t  Year  \tPesticide Flux"), Out.find("\t Period \tPesticide Flux"));
    EXPECT_NE(Out.find("     (L/m\xC2\xB2)\t     (\xC2\xB5g/L)  \n"), std::string::npos);
    EXPECT_EQ(Standard_Error, "");
    EXPECT_TRUE(fs::exists(Run_Files / "year.orv"));
}

TEST_F(Orvelctl_Results, A_Second_Call_Prints_The_Cache)
{
    Run("tables " + Run_Path());

    EXPECT_EQ(Run("tables " + Run_Path()), 0);

    EXPECT_TRUE(Out.starts_with("Engine\nScenario\n"));
}

TEST_F(Orvelctl_Results, A_Damaged_Or_Older_Table_Is_Told_And_Built_Anew)
{
    Run("tables " + Run_Path());
    Write_File(Run_Files / "year.orv", "");
    EXPECT_EQ(Run("tables " + Run_Path()), 0);
    EXPECT_EQ(Standard_Error, "File check: The stored table was damaged: it has been built anew.\n");
    EXPECT_TRUE(Out.starts_with("          Engine\n"));

    Run_Files.Write_Chem(".orv", std::vector<int>(8, 3), Rising(8));
    fs::last_write_time(Run_Files / "chem.orv",
                        fs::last_write_time(Run_Files / "period.orv") + std::chrono::seconds(1));
    EXPECT_EQ(Run("tables " + Run_Path()), 0);
    EXPECT_EQ(Standard_Error, "File check: The stored table was older than its run: it has been built anew.\n");
    EXPECT_NE(Out.find("\t8       \t3.0000000"), std::string::npos);
}

TEST_F(Orvelctl_Results, A_Report_Over_Damaged_Tables_Has_Their_True_Figures)
{
    const auto run = Home / "focus/test.run/Maize.run/Hamburg_-_(H).run";
    fs::create_directories(run.parent_path());
    fs::copy(Run_Files.Path(), run);
    Write_File(Home / "orvel401.exe", "");
    const std::string command = "report --mode focus --pesticide test --crop Maize";
    ASSERT_EQ(Run(command), 0) << Standard_Error;
    const std::string whole = Out, year = Read_File(run / "year.orv"), period = Read_File(run / "period.orv");

    for (const auto& [bad_year, bad_period] : std::vector<std::pair<std::string, std::string>>{
             {"", period}, {year, ""}, {year, period.substr(0, 300)}, {"", ""}, {"noise", "noise"}}) {
        Write_File(run / "year.orv", bad_year);
        Write_File(run / "period.orv", bad_period);

        EXPECT_EQ(Run(command), 0) << Standard_Error;
        EXPECT_EQ(Out, whole);
        Write_File(run / "year.orv", bad_year);
        Write_File(run / "period.orv", bad_period);
        EXPECT_EQ(Run(command + " --to '" + (Home / "r.csv").string() + "'"), 0) << Standard_Error;
        EXPECT_NE(Read_File(Home / "r.csv").find(",0.000,no,"), std::string::npos) << Read_File(Home / "r.csv");
    }
}

TEST_F(Orvelctl_Results, A_Failure_Is_Told_Behind_The_Text_So_Far_And_Exits_With_1)
{
    fs::remove(Run_Files / "chem.orv");

    for (const std::string command : {"tables ", "balance "}) {
        EXPECT_EQ(Run(command + Run_Path()), 1);
        EXPECT_TRUE(Standard_Error.starts_with("File check: The file ")) << Standard_Error;
        EXPECT_NE(Out.find("Engine"), std::string::npos);
    }
    EXPECT_EQ(Run("tables '" + (Home / "nowhere").string() + "'"), 1);
    EXPECT_EQ(Run("pecsoil --depth 5 '" + (Home / "nowhere").string() + "'"), 1);
}

TEST_F(Orvelctl_Results, A_Table_That_Is_Not_Kept_Is_Told_And_Exits_With_0)
{
    fs::remove(Run_Files / "plot.orv");

    EXPECT_EQ(Run("tables " + Run_Path()), 0);

    EXPECT_EQ(Standard_Error, "File check: The run has no complete plot.orv.\n");
}

TEST_F(Orvelctl_Results, A_File_That_Cannot_Be_Read_Is_Told_With_The_Reason_And_Exits_With_1)
{
    for (const std::string name : {"echo.orv", "Wasser.orv", "chem.orv", "plot.orv"}) {
        const std::string bytes = Read_File(Run_Files / name);
        fs::remove(Run_Files / name);
        fs::create_directory(Run_Files / name);

        for (const std::string command : {"tables ", "balance "}) {
            EXPECT_EQ(Run(command + Run_Path()), 1) << command << name;
            EXPECT_NE(Standard_Error.find(name), std::string::npos) << Standard_Error;
            EXPECT_NE(Standard_Error.find("directory"), std::string::npos) << Standard_Error;
            EXPECT_FALSE(fs::exists(Run_Files / "year.orv"));
        }
        fs::remove(Run_Files / name);
        Write_File(Run_Files / name, bytes);
    }
    EXPECT_EQ(Run("tables " + Run_Path()), 0);
}

TEST_F(Orvelctl_Results, A_Mode_Directory_That_Cannot_Be_Read_Is_No_Empty_List)
{
    EXPECT_EQ(Run("status --mode focus"), 1);
    EXPECT_NE(Standard_Error.find("does not exist"), std::string::npos) << Standard_Error;

    fs::create_symlink("focus", Home / "focus");
    EXPECT_EQ(Run("status --mode focus"), 1);
    EXPECT_NE(Standard_Error.find("Too many levels of symbolic links"), std::string::npos) << Standard_Error;

    fs::remove(Home / "focus");
    Write_File(Home / "focus", "");
    EXPECT_EQ(Run("status --mode focus"), 1);
    EXPECT_NE(Standard_Error, "");
}

TEST_F(Orvelctl_Results, A_Directory_That_Is_Not_There_Is_One_Sentence_And_Nothing_Else)
{
    for (const std::string command : {"tables ", "balance ", "pecsoil --depth 5 "}) {
        EXPECT_EQ(Run(command + "/no/such/run"), 1);
        EXPECT_EQ(Out, "");
        EXPECT_NE(Standard_Error.find("The directory /no/such/run does not exist."), std::string::npos);
    }
}

TEST_F(Orvelctl_Results, What_A_Failed_Run_Left_Is_Printed_Told_And_Exits_With_1)
{
    Write_File(Run_Files / "echo.orv", Echo_File({.Last = "*** ERROR 99: RUN NOT COMPLETED"}));

    for (const std::string command : {"tables ", "balance ", "pecsoil --depth 5 "}) {
        EXPECT_EQ(Run(command + Run_Path()), 1);
        EXPECT_EQ(Standard_Error, "File check: The simulation failed: its echo file, echo.orv, tells why.\n")
            << command;
        EXPECT_NE(Out.find("Engine"), std::string::npos);
    }
}

TEST_F(Orvelctl_Results, Balance_Prints_The_Water_Table_First_By_Year_Or_By_Month)
{
    EXPECT_EQ(Run("balance " + Run_Path()), 0);
    EXPECT_LT(Out.find("Annual Water Balance (L/m\xC2\xB2)"), Out.find("Annual Pesticide Balance (g/ha)"));
    EXPECT_TRUE(fs::exists(Run_Files / "MBalance.orv"));

    EXPECT_EQ(Run("balance --monthly " + Run_Path()), 0);
    EXPECT_LT(Out.find("Monthly Water Balance (L/m\xC2\xB2)"), Out.find("Monthly Pesticide Balance (g/ha)"));
    EXPECT_TRUE(fs::exists(Run_Files / "PBalance_M.orv"));
}

TEST_F(Orvelctl_Results, Pecsoil_Prints_The_Text_And_Writes_The_File_Of_Its_Depth)
{
    Write_File(Run_Files / "plot.orv", Plot_Head_Of(20, 20) + Plot_Line(2190, 24, {}) +
                                           Plot_Line(2191, 24, std::vector<std::string>(20, "2.0")));

    EXPECT_EQ(Run("pecsoil " + Run_Path() + " --depth 5"), 0);

    EXPECT_NE(Out.find("            \t2.0000000   \t0 January 7\n"), std::string::npos);
    EXPECT_TRUE(fs::exists(Run_Files / "PECsoil_5.orv"));
    EXPECT_EQ(Run("pecsoil " + Run_Path() + " --depth 0"), 2);
    EXPECT_EQ(Run("pecsoil " + Run_Path()), 2);
}

TEST_F(Orvelctl_Results, Report_Finds_The_Mode_Directory_In_Any_Case_And_Names_The_Engine)
{
    const auto crop = Home / "FOCUS/test.run/Winter_-_cereals.run";
    fs::create_directories(crop);
    fs::copy(Run_Files.Path(), crop / "Ch\xC3\xA2teaudun_-_(C).run");
    Write_File(Home / "orvel401.exe", "");

    EXPECT_EQ(Run("report --mode focus --pesticide test --crop 'Winter cereals'"), 0) << Standard_Error;

    EXPECT_TRUE(Out.starts_with("FOCUS Summary Output File\n\nModel Version:          \tORVEL 4.01\n")) << Out;
    EXPECT_NE(Out.find("Results for Substance D\n"), std::string::npos);
    EXPECT_NE(Out.find("\nCh\xC3\xA2teaudun (C)   \t(4/5)\t0.00E+00    \t0.00E+00    \t0.000\n"), std::string::npos)
        << Out;
}

TEST_F(Orvelctl_Results, Report_Is_Saved_By_The_Ending_Of_The_File_And_Tells_What_Is_Missing)
{
    const auto crop = Home / "focus/test.run/Maize.run";
    fs::create_directories(crop);
    fs::copy(Run_Files.Path(), crop / "Hamburg_-_(H).run");
    const std::string report = "report --mode focus --pesticide test --crop all --to " + (Home / "r").string();

    EXPECT_EQ(Run(report + ".txt"), 0) << Standard_Error;
    EXPECT_TRUE(Read_File(Home / "r.txt").starts_with("FOCUS Summary Output File\r\n"));
    EXPECT_EQ(Run(report + ".csv --locations H,C"), 0);
    EXPECT_NE(Standard_Error.find("Report: The location was not simulated: Ch\xC3\xA2teaudun (C).\n"),
              std::string::npos)
        << Standard_Error;
    EXPECT_NE(Read_File(Home / "r.csv").find("\r\nMaize,Substance D,Ch\xC3\xA2teaudun (C),,"), std::string::npos);
    EXPECT_EQ(Run(report + ".html"), 0);
    EXPECT_TRUE(Read_File(Home / "r.html").starts_with("<!DOCTYPE html>"));
    const std::string notes = Standard_Error;
    EXPECT_NE(notes, "");
    EXPECT_EQ(Run(report + ".pdf"), 0) << Standard_Error;
    EXPECT_TRUE(Read_File(Home / "r.pdf").starts_with("%PDF-"));
    EXPECT_EQ(Standard_Error, notes); // those of the page, once
    EXPECT_EQ(Run("report --mode focus --pesticide test --crop all --to nowhere/r.pdf"), 1);
    EXPECT_NE(Standard_Error.find("File check: Cannot write nowhere/r.pdf"), std::string::npos) << Standard_Error;
}

TEST_F(Orvelctl_Results, Report_Refuses_Another_Ending_And_A_Text_Without_One_Of_Its_Locations)
{
    const auto crop = Home / "focus/test.run/Maize.run";
    fs::create_directories(crop);
    fs::copy(Run_Files.Path(), crop / "Hamburg_-_(H).run");

    EXPECT_EQ(Run("report --mode focus --pesticide test --crop Maize --to " + (Home / "r.doc").string()), 1);
    EXPECT_FALSE(fs::exists(Home / "r.doc"));
    EXPECT_EQ(Run("report --mode focus --pesticide test --crop Maize --locations C"), 1);
    EXPECT_EQ(Standard_Error, "File check: There is no simulation of Maize at Ch\xC3\xA2teaudun (C).\n");
}

TEST_F(Orvelctl_Results, A_Report_Without_Runs_Or_With_A_Failed_Run_Is_Refused)
{
    EXPECT_EQ(Run("report --mode focus --pesticide test --crop Maize"), 1);
    EXPECT_TRUE(Standard_Error.starts_with("File check: There are no simulations of test in ")) << Standard_Error;

    fs::create_directories(Home / "focus/test.run/Maize.run/Porto_-_(O).run");
    EXPECT_EQ(Run("report --mode focus --pesticide test --crop Maize"), 1);
    EXPECT_TRUE(Standard_Error.starts_with(
        "File check: Problem with output files. Probably, one of the simulations failed!\nPorto (O): "))
        << Standard_Error;
    EXPECT_EQ(Out, "");
}

} // namespace orvel
