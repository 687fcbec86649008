#include "core/files.h"
#include "core/run_name.h"
#include "core/system/lock.h"
#include "core/text.h"
#include "jobs/simulations.h"
#include "runs/batch.h"
#include "runs/mark.h"
#include "runs/run_fixture.h"

namespace orvel {

namespace fs = std::filesystem;

class Simulations_Test : public Run_Test {
protected:
    fs::path Add_Run(const std::string& pesticide, const std::string& location, bool echo)
    {
        const fs::path run = Run_Path(Home / "focus", Run_Directory(pesticide + ".psm", "Maize", location));
        fs::create_directories(run);
        Put(run / "orvel.inp", "x");
        if (echo)
            Put(run / "echo.orv", "x");
        return run;
    }
};

TEST_F(Simulations_Test, A_Run_Without_An_Echo_Is_Removed_As_Long_As_No_Job_Was_Ever_Started)
{
    const auto never_run = Add_Run("a", "Hamburg (H)", false);
    const auto has_run = Add_Run("b", "Hamburg (H)", true);

    Clean_Leftovers(Home / "focus");

    EXPECT_FALSE(fs::exists(never_run.parent_path()));
    EXPECT_TRUE(fs::exists(has_run));
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Simulations_Test, A_Crop_Without_Any_Location_Is_A_Leftover_Too_But_Not_Behind_A_Link)
{
    const auto empty_crop = Home / "focus" / "a.run" / "Maize.run";
    fs::create_directories(empty_crop);
    fs::create_directories(Home / "elsewhere" / "Maize.run");
    fs::create_directory_symlink(Home / "elsewhere", Home / "focus" / "b.run");
    fs::create_directory_symlink(Home / "elsewhere", Home / "focus" / "a.run" / "Vines.run");

    Clean_Leftovers(Home / "focus");

    EXPECT_FALSE(fs::exists(empty_crop));
    EXPECT_TRUE(fs::exists(Home / "elsewhere" / "Maize.run"));
    EXPECT_TRUE(fs::exists(Home / "focus" / "a.run" / "Vines.run"));
}

TEST_F(Simulations_Test, A_Run_Without_An_Echo_Stays_Once_There_Is_A_Job_File)
{
    const auto scheduled = Add_Run("a", "Hamburg (H)", false);
    Put(Home / "focus" / "orveljob.bat", "echo off\r\n");

    Clean_Leftovers(Home / "focus");

    EXPECT_TRUE(fs::exists(scheduled));
}

TEST_F(Simulations_Test, The_Directories_Of_A_Pending_Batch_Are_No_Leftovers)
{
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), Maize_At_Hamburg()), Mark_Result::Marked);

    Clean_Leftovers(Home / "focus");

    EXPECT_EQ(Simulation_List(Home / "focus").size(), 1u);
}

TEST_F(Simulations_Test, Deleting_The_Last_Location_Takes_Crop_And_Pesticide_Directories_With_It)
{
    Add_Run("a", "Hamburg (H)", true);
    Add_Run("a", "Thiva (T), irrigated", true);
    auto list = Simulation_List(Home / "focus");
    The_User.Answers = {Button::Yes, Button::Yes};

    EXPECT_EQ(Delete_Simulations(The_Session.Program, The_Session.Ask, Focus(), {list[0]}), 1);
    EXPECT_TRUE(fs::exists(Home / "focus" / "a.run" / "Maize.run"));
    EXPECT_EQ(Delete_Simulations(The_Session.Program, The_Session.Ask, Focus(), {list[1]}), 1);

    EXPECT_FALSE(fs::exists(Home / "focus" / "a.run"));
    EXPECT_EQ(The_User.Messages.at(0), (Message{"Deleting simulations",
                                                "Do you really want to remove this simulation?",
                                                Icon::Question,
                                                {Button::Yes, Button::No},
                                                Button::Yes}));
}

TEST_F(Simulations_Test, A_No_Keeps_Everything)
{
    Add_Run("a", "Hamburg (H)", true);
    Add_Run("b", "Hamburg (H)", true);
    The_User.Answers = {Button::No};

    EXPECT_EQ(Delete_Simulations(The_Session.Program, The_Session.Ask, Focus(), Simulation_List(Home / "focus")), 0);

    EXPECT_EQ(Simulation_List(Home / "focus").size(), 2u);
    EXPECT_EQ(The_User.Messages.at(0).Text, "Do you really want to remove these simulations?");
}

TEST_F(Simulations_Test, A_Simulation_At_Work_Stays_And_The_Others_Go)
{
    const auto busy = Add_Run("a", "Hamburg (H)", true);
    Add_Run("b", "Hamburg (H)", true);
    const auto engine = Lock::Take(busy);
    The_User.Answers = {Button::Yes, Button::Ok};

    EXPECT_EQ(Delete_Simulations(The_Session.Program, The_Session.Ask, Focus(), Simulation_List(Home / "focus")), 1);

    EXPECT_EQ(The_User.Messages.at(1),
              (Message{"Deleting simulations", "You are currently running a simulation using the directory\r\n" +
                                                   busy.string() + ".\r\n\r\nDelete operation failed!\r\n\r\n"}));
    EXPECT_TRUE(fs::exists(busy / "echo.orv"));
    EXPECT_FALSE(fs::exists(Home / "focus" / "b.run"));
}

TEST_F(Simulations_Test, A_Stop_Leaves_The_Rest)
{
    for (const char* location : {"Hamburg (H)", "Porto (O)", "Thiva (T)"})
        Add_Run("a", location, true);
    The_User.Answers = {Button::Yes};
    std::string told;

    const int removed = Delete_Simulations(The_Session.Program, The_Session.Ask, Focus(),
                                           Simulation_List(Home / "focus"), [&](const std::string& location, double) {
                                               told += location + ";";
                                               return told.size() < 20;
                                           });

    EXPECT_EQ(removed, 1);
    EXPECT_EQ(told, "Hamburg (H);Porto (O);");
    EXPECT_EQ(Simulation_List(Home / "focus").size(), 2U);
}

TEST_F(Simulations_Test, A_Stop_Leaves_The_Rest_In_The_Bin)
{
    for (const char* location : {"Hamburg (H)", "Porto (O)", "Thiva (T)"})
        Add_Run("a", location, true);
    The_User.Answers = {Button::Yes};
    Delete_Simulations(The_Session.Program, The_Session.Ask, Focus(), Simulation_List(Home / "focus"));
    std::string told;

    const int put_back = Put_Back_Simulations(The_Session.Program, The_Session.Ask, Focus(),
                                              Runs_In_Bin(Home / "focus"), [&](const std::string& location, double) {
                                                  told += location + ";";
                                                  return told.size() < 20;
                                              });

    EXPECT_EQ(put_back, 1);
    EXPECT_EQ(told, "Hamburg (H);Porto (O);");
    EXPECT_EQ(Runs_In_Bin(Home / "focus").size(), 2U);
}

TEST_F(Simulations_Test, A_Deleted_Simulation_Is_No_Longer_Part_Of_The_Pending_Batch)
{
    const fs::path batch = Home / "focus" / "batch.bat";
    auto hamburg = Maize_At_Hamburg(), other = Maize_At_Hamburg();
    Pesticide("other.psm");
    other.Pesticide = "other.psm";
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), hamburg), Mark_Result::Marked);
    const std::string first_alone = Read_Whole(batch);
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), other), Mark_Result::Marked);
    auto list = Simulation_List(Home / "focus");
    const auto second = std::ranges::find(list, "other", &Simulation::Pesticide),
               first = std::ranges::find(list, "test", &Simulation::Pesticide);
    The_User.Answers = {Button::Yes, Button::Yes};

    EXPECT_EQ(Delete_Simulations(The_Session.Program, The_Session.Ask, Focus(), {*second}), 1);
    EXPECT_EQ(Read_Whole(batch), first_alone);
    EXPECT_EQ(Read_Batch(Home / "focus").size(), 1u);

    EXPECT_EQ(Delete_Simulations(The_Session.Program, The_Session.Ask, Focus(), {*first}), 1);
    EXPECT_FALSE(fs::exists(batch));
    EXPECT_TRUE(Read_Batch(Home / "focus").empty());
    EXPECT_EQ(Run_Caption(Home / "focus"), "Run");
    EXPECT_EQ(The_User.Messages.size(), 2u);
}

TEST_F(Simulations_Test, The_Block_Behind_A_Deleted_First_One_Begins_The_Batch)
{
    auto hamburg = Maize_At_Hamburg(), other = Maize_At_Hamburg();
    Pesticide("other.psm");
    other.Pesticide = "other.psm";
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), hamburg), Mark_Result::Marked);
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), other), Mark_Result::Marked);
    const auto list = Simulation_List(Home / "focus");
    The_User.Answers = {Button::Yes};

    EXPECT_EQ(Delete_Simulations(The_Session.Program, The_Session.Ask, Focus(),
                                 {*std::ranges::find(list, "test", &Simulation::Pesticide)}),
              1);

    const std::string batch = Read_Whole(Home / "focus" / "batch.bat");
    EXPECT_TRUE(batch.starts_with("cd ")) << batch;
    EXPECT_FALSE(Contains(batch, "cd ..")) << batch;
    EXPECT_EQ(Read_Batch(Home / "focus").size(), 1u);
}

TEST_F(Simulations_Test, Nothing_Is_Deleted_Where_The_Pending_Batch_Cannot_Be_Changed)
{
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), Maize_At_Hamburg()), Mark_Result::Marked);
    const auto list = Simulation_List(Home / "focus");
    Put(Home / "focus" / "batch.bat", "format c:\r\n");
    The_User.Answers = {Button::Yes};

    EXPECT_EQ(Delete_Simulations(The_Session.Program, The_Session.Ask, Focus(), list), 0);

    EXPECT_EQ(The_User.Messages.back().Title, "Deleting simulations");
    EXPECT_EQ(Simulation_List(Home / "focus").size(), 1u);
    EXPECT_EQ(Read_Whole(Home / "focus" / "batch.bat"), "format c:\r\n");
}

TEST_F(Simulations_Test, A_Simulation_At_Work_Keeps_Its_Place_In_The_Pending_Batch)
{
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), Maize_At_Hamburg()), Mark_Result::Marked);
    const auto list = Simulation_List(Home / "focus");
    const auto engine = Lock::Take(list.at(0).Directory);
    The_User.Answers = {Button::Yes};

    EXPECT_EQ(Delete_Simulations(The_Session.Program, The_Session.Ask, Focus(), list), 0);

    EXPECT_TRUE(Batch_Pending(Home / "focus"));
    EXPECT_TRUE(fs::exists(list.at(0).Directory));
}

TEST_F(Simulations_Test, A_Name_That_Does_Not_Survive_Its_Encoding_Is_Deleted_By_Its_True_Directory)
{
    const auto run = Add_Run("a--b", "Hamburg (H)", true); // shown as "a,b"
    The_User.Answers = {Button::Yes};

    EXPECT_EQ(Delete_Simulations(The_Session.Program, The_Session.Ask, Focus(), Simulation_List(Home / "focus")), 1);
    EXPECT_FALSE(fs::exists(run));
}

TEST_F(Simulations_Test, What_Is_Reached_Through_A_Link_Stays_And_Is_Told)
{
    const fs::path elsewhere = Home / "elsewhere";
    for (const char* run : {"location", "crop/Hamburg_-_(H).run", "pesticide/Maize.run/Hamburg_-_(H).run"}) {
        fs::create_directories(elsewhere / run);
        Put(elsewhere / run / "echo.orv", "x");
    }
    fs::create_directories(Home / "focus" / "a.run" / "Maize.run");
    fs::create_directories(Home / "focus" / "b.run");
    fs::create_directory_symlink(elsewhere / "location", Home / "focus" / "a.run" / "Maize.run" / "Hamburg_-_(H).run");
    fs::create_directory_symlink(elsewhere / "crop", Home / "focus" / "b.run" / "Maize.run");
    fs::create_directory_symlink(elsewhere / "pesticide", Home / "focus" / "c.run");
    const auto list = Simulation_List(Home / "focus");
    ASSERT_EQ(list.size(), 3u);

    The_User.Answers = {Button::Yes};
    EXPECT_EQ(Delete_Simulations(The_Session.Program, The_Session.Ask, Focus(), list), 0);

    EXPECT_EQ(The_User.Messages.size(), 4u); // the question, then one a simulation
    for (const char* run : {"location", "crop/Hamburg_-_(H).run", "pesticide/Maize.run/Hamburg_-_(H).run"})
        EXPECT_TRUE(fs::exists(elsewhere / run / "echo.orv")) << run;
}

TEST_F(Simulations_Test, Cleaning_Follows_No_Link_Either)
{
    fs::create_directories(Home / "elsewhere");
    Put(Home / "elsewhere" / "thesis.txt", "x");
    fs::create_directories(Home / "focus" / "a.run" / "Maize.run");
    fs::create_directory_symlink(Home / "elsewhere", Home / "focus" / "a.run" / "Maize.run" / "Hamburg_-_(H).run");

    Clean_Leftovers(Home / "focus");

    EXPECT_TRUE(fs::exists(Home / "elsewhere" / "thesis.txt"));
}

TEST_F(Simulations_Test, A_Link_Inside_A_Run_Is_Removed_And_Not_What_It_Leads_To)
{
    const auto run = Add_Run("a", "Hamburg (H)", true);
    Put(Home / "kept.txt", "x");
    fs::create_symlink(Home / "kept.txt", run / "link.txt");
    The_User.Answers = {Button::Yes};

    EXPECT_EQ(Delete_Simulations(The_Session.Program, The_Session.Ask, Focus(), Simulation_List(Home / "focus")), 1);

    EXPECT_FALSE(fs::exists(run));
    EXPECT_TRUE(fs::exists(Home / "kept.txt"));
}

} // namespace orvel
