#include "core/run_name.h"
#include "core/system/lock.h"
#include "jobs/run_again.h"
#include "runs/batch.h"
#include "runs/job_file.h"
#include "runs/mark.h"
#include "runs/output_selection.h"
#include "runs/run_fixture.h"

namespace orvel {

namespace fs = std::filesystem;

class Run_Again_Test : public Run_Test {
protected:
    // A simulation that was marked, started and ended with an error.
    void Fail()
    {
        auto choice = Maize_At_Hamburg();
        choice.Pattern = 1;
        choice.Options.Output = Minimum_Output();
        ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);
        fs::remove(Home / "focus" / "batch.bat");
        Put(Place() / "echo.orv", " *** ERROR 21: BAD INPUT\r\n");
    }

    fs::path Place() { return Run_Path(Home / "focus", Run_Directory("test.psm", "Maize", "Hamburg (H)")); }
    int Again()
    {
        return Mark_Failed_Again(The_Session.Program, The_Session.Ask, Focus(), Simulation_List(Home / "focus"));
    }
};

TEST_F(Run_Again_Test, A_Failed_Simulation_Is_Marked_With_Its_Own_Output_After_One_Question)
{
    Fail();
    const std::string before = Read_Whole(Place() / "orvel.inp");
    The_User.Answers = {Button::Yes};

    EXPECT_EQ(Again(), 1);

    EXPECT_EQ(The_User.Messages.size(), 1u);
    EXPECT_EQ(The_User.Messages.at(0).Text,
              "Do you want to mark the failed simulation for the batch again? What they wrote so far will be removed.");
    EXPECT_EQ(Read_Whole(Place() / "orvel.inp"), before);
    EXPECT_FALSE(fs::exists(Place() / "echo.orv"));
    EXPECT_TRUE(Batch_Pending(Home / "focus"));
}

TEST_F(Run_Again_Test, A_No_Keeps_What_The_Simulation_Wrote)
{
    Fail();
    The_User.Answers = {Button::No};

    EXPECT_EQ(Again(), 0);

    EXPECT_TRUE(fs::exists(Place() / "echo.orv"));
    EXPECT_FALSE(Batch_Pending(Home / "focus"));
}

TEST_F(Run_Again_Test, A_Simulation_That_Ended_Well_Is_Left_Alone)
{
    Fail();
    Put(Place() / "echo.orv", "*** END OF ECHO ***\r\n");
    fs::remove(Place() / "orvel401.exe"); // as its job did when it had ended

    EXPECT_EQ(Again(), 0);

    EXPECT_EQ(The_User.Messages.size(), 1u);
    EXPECT_EQ(The_User.Messages.at(0).Picture, Icon::Information);
    EXPECT_TRUE(fs::exists(Place() / "echo.orv"));
}

TEST_F(Run_Again_Test, One_Without_Its_Pesticide_File_Is_Told_And_Keeps_What_It_Wrote)
{
    Fail();
    fs::remove(Home / "test.psm");
    The_User.Answers = {Button::Yes};

    EXPECT_EQ(Again(), 0);

    EXPECT_GE(The_User.Messages.size(), 2u);
    EXPECT_TRUE(fs::exists(Place() / "echo.orv"));
}

TEST_F(Run_Again_Test, The_Tillage_Depth_Is_That_Of_The_Failed_Run)
{
    auto choice = Maize_At_Hamburg();
    Scenario(Home / "focus" / "H_maize.sze",
             [](Scenario_Document& scenario) { scenario.Crops[0].SZE_Rot_Tillage = 1; });
    choice.Options.Tillage = "17";
    choice.Tillage_Visible = true;
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);
    fs::remove(Home / "focus" / "batch.bat");
    Put(Place() / "echo.orv", "ERROR\r\n");
    const std::string before = Read_Whole(Place() / "orvel.inp");
    ASSERT_NE(before.find(" 17."), std::string::npos);
    The_User.Answers = {Button::Yes};

    ASSERT_EQ(Again(), 1);

    EXPECT_EQ(Read_Whole(Place() / "orvel.inp"), before);
}

TEST_F(Run_Again_Test, A_Simulation_Marked_Anew_Waits_Whatever_Its_Record_Said)
{
    Fail();
    Put(Place() / "run.json", Format_Run_Record({.Years_Expected = 26, .Reason = "It failed."}));
    The_User.Answers = {Button::Yes};

    ASSERT_EQ(Again(), 1);

    const auto list = Simulation_List(Home / "focus");
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].Status, Run_Status::Scheduled);
    EXPECT_EQ(list[0].State.Verdict, Verdict::Scheduled);
    EXPECT_TRUE(
        fs::exists(Home / "focus" / "bin" / "0001" / "test.run" / "Maize.run" / "Hamburg_-_(H).run" / "run.json"));
}

TEST_F(Run_Again_Test, A_Simulation_That_Failed_Before_Its_Echo_Is_Known_By_Its_Record)
{
    Fail();
    fs::remove(Place() / "echo.orv");
    Put(Place() / "run.json", Format_Run_Record({.Years_Expected = 26, .Reason = "It failed."}));
    The_User.Answers = {Button::Yes};

    EXPECT_EQ(Again(), 1);
}

TEST_F(Run_Again_Test, What_Is_Marked_Or_Waits_In_A_Job_At_Work_Is_Not_Missing)
{
    const auto choice = Maize_At_Hamburg();
    const auto missing = [&] { return Find_Missing(The_Session.Program, The_Session.Ask, Focus(), "test", "Maize"); };
    ASSERT_EQ(missing().Unprepared.size(), 1U);
    EXPECT_EQ(missing().Unprepared[0].Location, "Hamburg (H)");

    const auto mark = [&] { return Mark_Missing(The_Session.Program, The_Session.Ask, Focus(), "test", "Maize"); };
    EXPECT_TRUE(mark());
    EXPECT_FALSE(missing().Any()) << "marked";
    const auto can_run = [&] { return Can_Run_Missing(The_Session.Program, Focus(), "test", "Maize"); };
    EXPECT_TRUE(can_run()) << "the batch waits";
    EXPECT_TRUE(mark()) << "the batch waits";

    Put(Home / "focus/orveljob.bat", Format_Job(Read_Whole(Home / "focus/batch.bat")));
    fs::remove(Home / "focus/batch.bat");
    {
        const auto job = Lock::Take(Home / "focus");
        EXPECT_FALSE(missing().Any()) << "the job has yet to run it";
        EXPECT_FALSE(can_run());
    }
    EXPECT_TRUE(can_run());
    EXPECT_EQ(missing().Unfinished.size(), 1U) << "the job has gone without it";

    Put_Complete_Output(Place(), 26);
    fs::remove(Place() / "orvel401.exe");
    EXPECT_FALSE(missing().Any()) << "done";
    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_FALSE(mark());
    EXPECT_EQ(The_User.Messages.at(0).Text, "No location of this crop is missing.");
}

} // namespace orvel
