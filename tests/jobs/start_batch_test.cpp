#include "jobs/start_batch.h"

#include "core/system/lock.h"
#include "runs/batch.h"
#include "runs/run_fixture.h"

namespace orvel {

namespace fs = std::filesystem;

using Start_Batch_Test = Run_Test;

TEST_F(Start_Batch_Test, Starting_Without_A_Batch_Is_Told)
{
    EXPECT_EQ(Start_Batch(The_Session.Program, The_Session.Ask, Focus()).Result, Start_Result::Nothing_Pending);
    EXPECT_EQ(The_User.Messages.size(), 1u);
}

TEST_F(Start_Batch_Test, A_Job_At_Work_Or_A_Missing_Probe_File_Refuses_The_Start_And_Keeps_The_Batch)
{
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), Maize_At_Hamburg()), Mark_Result::Marked);
    {
        const auto job = Lock::Take(Home / "focus");
        EXPECT_EQ(Start_Batch(The_Session.Program, The_Session.Ask, Focus()).Result, Start_Result::Already_Running);
    }
    fs::remove(Home / "focus" / "Focuscheck.dat");
    EXPECT_EQ(Start_Batch(The_Session.Program, The_Session.Ask, Focus()).Result, Start_Result::Already_Running);

    EXPECT_EQ(The_User.Messages.at(0).Text, "The current ORVEL simulation is still running.");
    EXPECT_EQ(The_User.Messages.at(1).Text, "The file Focuscheck.dat of the installation is missing.");
    EXPECT_TRUE(Batch_Pending(Home / "focus"));
    EXPECT_FALSE(fs::exists(Home / "focus" / "orveljob.bat"));
}

TEST_F(Start_Batch_Test, A_Runner_That_Cannot_Be_Started_Is_Told_And_Keeps_The_Batch)
{
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), Maize_At_Hamburg()), Mark_Result::Marked);

    EXPECT_EQ(Start_Batch(The_Session.Program, The_Session.Ask, Focus(), {.Jobs = 1}, Home / "no runner").Result,
              Start_Result::Failed);
    EXPECT_TRUE(Batch_Pending(Home / "focus"));
    EXPECT_NE(The_User.Messages.at(0).Text.find("Cannot start"), std::string::npos);
}

TEST_F(Start_Batch_Test, An_Emptied_Batch_Is_None)
{
    Put(Home / "focus" / "batch.bat", "");

    EXPECT_EQ(Start_Batch(The_Session.Program, The_Session.Ask, Focus(), {.Jobs = 1}, ORVELJOB).Result,
              Start_Result::Nothing_Pending);
    EXPECT_EQ(The_User.Messages.back().Text, "No combination is marked for a batch.");
    EXPECT_FALSE(fs::exists(Home / "focus" / "orveljob.bat"));
}

TEST_F(Start_Batch_Test, An_Engine_Or_A_Level_Above_The_Run_That_Everyone_May_Change_Is_Refused)
{
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), Maize_At_Hamburg()), Mark_Result::Marked);
    const auto result = [&] {
        return Start_Batch(The_Session.Program, The_Session.Ask, Focus(), {.Jobs = 1}, ORVELJOB).Result;
    };
    const fs::path levels[] = {Home / "orvel401.exe", Home / "focus" / "test.run",
                               Home / "focus" / "test.run" / "Maize.run"};
    for (const auto& open : levels) {
        fs::permissions(open, fs::perms::others_write, fs::perm_options::add);
        EXPECT_EQ(result(), Start_Result::Failed) << open;
        EXPECT_NE(The_User.Messages.back().Text.find("Every user of this computer may change"), std::string::npos);
        fs::permissions(open, fs::perms::others_write, fs::perm_options::remove);
    }
    EXPECT_TRUE(Batch_Pending(Home / "focus"));
}

TEST_F(Start_Batch_Test, A_Batch_With_Foreign_Lines_Is_Told_And_Not_Started)
{
    Put(Home / "focus" / "batch.bat", "format c:\r\n");

    EXPECT_EQ(Start_Batch(The_Session.Program, The_Session.Ask, Focus(), {.Jobs = 1}, ORVELJOB).Result,
              Start_Result::Failed);

    EXPECT_EQ(The_User.Messages, std::vector{(Message{"Starting ORVEL Simulations",
                                                      "The job file holds something else than a job in line 1."})});
    EXPECT_FALSE(fs::exists(Home / "focus" / "orveljob.bat"));
}

} // namespace orvel
