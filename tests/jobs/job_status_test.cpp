#include "core/run_name.h"
#include "core/system/lock.h"
#include "jobs/input_changes.h"
#include "jobs/job_status.h"
#include "jobs/run_commands.h"
#include "runs/batch.h"
#include "runs/job_file.h"
#include "runs/run_fixture.h"

namespace orvel {

namespace fs = std::filesystem;

class Job_Status_Test : public Run_Test {
protected:
    fs::path Add_Run(const std::string& pesticide, const std::string& crop, const std::string& location)
    {
        const fs::path run = Run_Path(Home / "focus", Run_Directory(pesticide + ".psm", crop, location));
        fs::create_directories(run);
        return run;
    }
};

TEST_F(Job_Status_Test, The_Status_Follows_The_Echo_File_And_The_Locks)
{
    const auto run = Add_Run("test", "Maize", "Hamburg (H)");
    EXPECT_EQ(Status_Of_Run(run), Run_Status::Scheduled);

    Put(run / "Echo.orv", "echo\r\n");
    EXPECT_EQ(Status_Of_Run(run), Run_Status::Data_Available);
    {
        const auto of_run = Lock::Take(run);
        EXPECT_EQ(Status_Of_Run(run), Run_Status::Running);
    }
    {
        const auto of_echo = Lock::Take(run / "Echo.orv");
        EXPECT_EQ(Status_Of_Run(run), Run_Status::Running);
    }
    EXPECT_EQ(Status_Of_Run(run), Run_Status::Data_Available);
    EXPECT_EQ(Status_Text(Run_Status::Scheduled), "Scheduled");
    EXPECT_EQ(Status_Text(Run_Status::Running), "Running");
    EXPECT_EQ(Status_Text(Run_Status::Data_Available), "Data available");
}

TEST_F(Job_Status_Test, A_Run_Without_A_Record_Is_Judged_By_Its_Whole_Echo_And_Said_To_Be_So)
{
    const auto run = Add_Run("test", "Maize", "Hamburg (H)");
    const auto result = [&](const std::string& echo) {
        Put(run / "echo.orv", echo);
        return Result_Text(Simulation_List(Home / "focus").at(0));
    };

    EXPECT_EQ(result("*** END OF ECHO ***\r\n"), "unrecorded");
    EXPECT_EQ(result("*** ERROR 21: NO FILE\r\n" + std::string(200000, 'x') + "\r\n"), "unrecorded: ERROR");
    EXPECT_EQ(result(" E R R O R\r\n"), "unrecorded: ERROR");
}

TEST_F(Job_Status_Test, A_Run_That_Nobody_Recorded_But_That_Still_Has_Its_Engine_Was_Cut_Off)
{
    const auto run = Add_Run("test", "Maize", "Hamburg (H)");
    Put(run / "orvel401.exe", "engine");
    EXPECT_EQ(State_Of_Run(run).Verdict, Verdict::Scheduled);

    Put(run / "echo.orv", "*** END OF ECHO ***\r\n");

    EXPECT_EQ(State_Of_Run(run).Verdict, Verdict::Incomplete);
    EXPECT_TRUE(State_Of_Run(run).Cut_Off);
    const auto lock = Lock::Take(run);
    EXPECT_EQ(State_Of_Run(run).Verdict, Verdict::Running);
}

TEST_F(Job_Status_Test, A_Damaged_Record_Is_Told_And_Never_Taken_For_None)
{
    const auto run = Add_Run("test", "Maize", "Hamburg (H)");
    Put(run / "echo.orv", "*** END OF ECHO ***\r\n");
    Put(run / "run.json", "{\"schema\": 1,\n  oops");

    const auto state = State_Of_Run(run);

    EXPECT_EQ(state.Verdict, Verdict::Incomplete);
    EXPECT_TRUE(state.Unreadable);
    EXPECT_EQ(state.Reason, (run / "run.json").string() + ", line 2, column 3: This is not JSON.");
}

TEST_F(Job_Status_Test, A_Run_That_Cannot_Be_Looked_At_Hides_No_Other)
{
    const auto first = Add_Run("test", "Maize", "Hamburg (H)"),
               second = Add_Run("test", "Maize", "Kremsm\xFCnster (K)");
    Put(first / "chem.orv", "output");
    ::mkfifo((first / "echo.orv").c_str(), 0600); // which is no file to read

    const auto list = Simulation_List(Home / "focus");

    ASSERT_EQ(list.size(), 2U);
    EXPECT_TRUE(list[0].State.Unreadable);
    EXPECT_NE(list[0].State.Reason, "");
    EXPECT_EQ(list[1].Directory, second);
    EXPECT_FALSE(list[1].State.Unreadable);
}

TEST_F(Job_Status_Test, The_List_Gives_Names_As_They_Were_Chosen_In_Order)
{
    Add_Run("my,file 1", "Winter cereals", "Ch\xE2teaudun (C), no irrigation");
    const auto second = Add_Run("Alpha", "Maize", "Hamburg (H)");
    Put(second / "echo.orv", "ERROR\r\n");
    fs::create_directories(Home / "focus" / "no run" / "x.run" / "y.run");

    const auto list = Simulation_List(Home / "focus");

    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].Pesticide, "Alpha");
    EXPECT_TRUE(list[0].Echo_Failed);
    EXPECT_EQ(list[1].Pesticide, "my,file 1");
    EXPECT_EQ(list[1].Crop, "Winter cereals");
    EXPECT_EQ(list[1].Location, "Ch\xE2teaudun (C), no irrigation");
    EXPECT_EQ(list[1].Status, Run_Status::Scheduled);
    EXPECT_EQ(Simulation_Lines(list), "Alpha\tMaize\tHamburg (H)\t" + Date_Text(list[0].Date) +
                                          "\tData available\tunrecorded: ERROR\n" +
                                          "my,file 1\tWinter cereals\tCh\xE2teaudun (C), no irrigation\t" +
                                          Date_Text(list[1].Date) + "\tScheduled\n");
    Input_Changes changes(Home.Path());
    EXPECT_NE(Simulation_Json(list, changes).find("\"location\": \"Ch\u00E2teaudun (C), no irrigation\""),
              std::string::npos)
        << Simulation_Json(list, changes);
}

TEST_F(Job_Status_Test, An_Empty_Tree_Gives_An_Empty_List)
{
    EXPECT_TRUE(Simulation_List(Home / "focus").empty());
    fs::remove_all(Home / "EFSA");
    EXPECT_TRUE(Simulation_List(Home / "EFSA").empty());
}

TEST_F(Job_Status_Test, At_Most_31_Locations_Of_A_Crop_Are_Listed)
{
    for (int i = 10; i < 45; ++i)
        Add_Run("test", "Maize", std::to_string(i));

    EXPECT_EQ(Simulation_List(Home / "focus").size(), 31u);
}

TEST_F(Job_Status_Test, The_Probe_File_Must_Be_There_And_No_Lock_Be_Held_For_The_Idle_State)
{
    EXPECT_FALSE(Job_Running(The_Session.Program, Focus()));
    const auto run = Add_Run("test", "Maize", "Hamburg (H)");
    Put(Home / "focus" / "orveljob.bat",
        Format_Job(Format_Job_Run("test.run\\Maize.run\\Hamburg_-_(H).run", "orvel401.exe", true)));
    EXPECT_FALSE(Job_Running(The_Session.Program, Focus()));
    {
        const auto engine = Lock::Take(run);
        EXPECT_TRUE(Job_Running(The_Session.Program, Focus()));
    }
    {
        const auto job = Lock::Take(Home / "focus");
        EXPECT_TRUE(Job_Running(The_Session.Program, Focus()));
    }
    fs::rename(Home / "EFSA" / "focuscheck.dat", Home / "EFSA" / "FocusCheck.DAT");
    EXPECT_FALSE(Job_Running(The_Session.Program, Tier_2())); // in any case
    fs::remove(Home / "focus" / "Focuscheck.dat");
    EXPECT_TRUE(Job_Running(The_Session.Program, Focus()));
}

TEST_F(Job_Status_Test, Years_Come_From_The_Water_Balance_Where_The_Engine_Says_Nothing)
{
    const auto run = Add_Run("test", "Maize", "Hamburg (H)");
    Put(run / "orvel.inp", "046 01 01 31 12\r\n");
    Put(run / "WASSER.ORV",
        "*** ANNUAL WATER BALANCE ***     YEAR   6\r\n*** ANNUAL WATER BALANCE ***     YEAR   7\r\n x\r\n");
    Put(Home / "focus" / "orveljob.bat",
        Format_Job(Format_Job_Run("test.run\\Maize.run\\Hamburg_-_(H).run", "orvel401.exe", true)));
    Put(Home / "focus" / "orveljob.log",
        "2024-05-31 14:05:00\tbegin\t\t\n2024-05-31 14:05:00\tstarted\ttest.run/Maize.run/Hamburg_-_(H).run\t\n");
    const auto engine = Lock::Take(run);

    const auto progress = Progress_Of_Job(Home / "focus");

    EXPECT_EQ(progress.Running, 1);
    EXPECT_EQ(progress.Years, 46);
    EXPECT_EQ(progress.Years_Done, 7);
    EXPECT_GT(progress.Seconds_Left, 0);
}

TEST_F(Job_Status_Test, A_Run_Whose_Job_Was_Killed_Counts_As_Failed)
{
    Add_Run("test", "Maize", "Hamburg (H)");
    Put(Home / "focus" / "orveljob.bat",
        Format_Job(Format_Job_Run("test.run\\Maize.run\\Hamburg_-_(H).run", "orvel401.exe", true)));
    Put(Home / "focus" / "orveljob.log", "2024-05-31 14:05:00\tstarted\ttest.run/Maize.run/Hamburg_-_(H).run\t\n");

    const auto progress = Progress_Of_Job(Home / "focus");

    EXPECT_EQ(progress.Running, 0);
    EXPECT_EQ(progress.Done, 1);
    EXPECT_EQ(progress.Failed, 1);
}

TEST_F(Job_Status_Test, The_Journal_Says_Nothing_About_What_A_Run_Is_Worth)
{
    const auto run = Add_Run("test", "Maize", "Hamburg (H)");
    Put(run / "orvel401.exe", "engine");
    Put(Home / "focus" / "orveljob.log", "2024-05-31 14:05:00\tfinished\ttest.run/Maize.run/Hamburg_-_(H).run\t\n");

    EXPECT_EQ(Simulation_List(Home / "focus").at(0).State.Verdict, Verdict::Scheduled);
}

TEST(Progress_Line, It_Tells_Runs_Percent_And_The_Time_Left)
{
    EXPECT_EQ(
        Progress_Text({.Runs = 12, .Done = 3, .Running = 2, .Years = 100, .Years_Done = 41.9, .Seconds_Left = 125}),
        "3 of 12 runs, 2 running, 41 %, 3 min left");
    EXPECT_EQ(Progress_Text({.Runs = 2, .Done = 2, .Failed = 1, .Years = 52, .Years_Done = 52, .Seconds_Left = 0}),
              "2 of 2 runs, 1 failed, 100 %");
    EXPECT_EQ(Progress_Text({.Runs = 1, .Running = 1, .Years = 66, .Years_Done = 1, .Seconds_Left = 5400}),
              "0 of 1 runs, 1 running, 1 %, 1.5 h left");
    EXPECT_EQ(Progress_Text({}), "0 of 0 runs");
}

} // namespace orvel
