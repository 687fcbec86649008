#include "runs/bin.h"

#include "complete_output.h"
#include "core/files.h"
#include "core/system/lock.h"
#include "output/run_record.h"
#include "runs/batch.h"
#include "runs/mark.h"
#include "runs/run_directory.h"
#include "runs/run_fixture.h"

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace orvel {

namespace fs = std::filesystem;

class Bin_Test : public Run_Test {
protected:
    fs::path Mode() const { return Home / "focus"; }
    fs::path Add_Run(const std::string& text)
    {
        const fs::path run = Mode() / "p.run" / "c.run" / "l.run";
        fs::create_directories(run);
        Put(run / "orvel.inp", "input");
        Put(run / "orvel401.exe", "engine");
        Put(run / "echo.orv", text);
        Put(run / "run.json", text);
        return run;
    }
    fs::path In_Bin(const std::string& generation) const
    {
        return Mode() / "bin" / generation / "p.run" / "c.run" / "l.run";
    }
};

TEST_F(Bin_Test, A_Second_Removal_Of_The_Same_Run_Begins_A_New_Generation)
{
    Move_To_Bin(Mode(), Add_Run("first"));
    Move_To_Bin(Mode(), Add_Run("second"));

    EXPECT_EQ(Read_Whole(In_Bin("0001") / "echo.orv"), "first");
    EXPECT_EQ(Read_Whole(In_Bin("0002") / "echo.orv"), "second");
    const auto runs = Runs_In_Bin(Mode());
    ASSERT_EQ(runs.size(), 2u);
    EXPECT_EQ(runs[0], (Binned_Run{2, fs::path("p.run") / "c.run" / "l.run", In_Bin("0002")}));
}

TEST_F(Bin_Test, What_Goes_Between_Two_Starts_Is_One_Generation_And_The_Last_20_Are_Kept)
{
    for (int start = 1; start <= 25; ++start) {
        Begin_Generation(Mode());
        Begin_Generation(Mode()); // nothing has gone meanwhile
        Move_To_Bin(Mode(), Add_Run(std::to_string(start)));
    }

    const auto runs = Runs_In_Bin(Mode());
    ASSERT_EQ(runs.size(), 20u);
    EXPECT_EQ(runs.front().Generation, 25);
    EXPECT_EQ(runs.back().Generation, 6);
}

TEST_F(Bin_Test, Output_Goes_Without_The_Inputs_But_The_Bin_Holds_Them_Too)
{
    const auto run = Add_Run("old");

    Move_Output_To_Bin(Mode(), run);

    EXPECT_EQ(List_Files(run, "*"), (std::vector<std::string>{"orvel.inp", "orvel401.exe"}));
    EXPECT_EQ(List_Files(In_Bin("0001"), "*"), (std::vector<std::string>{"echo.orv", "orvel.inp", "run.json"}));
    Move_Output_To_Bin(Mode(), run); // nothing more to move
    EXPECT_EQ(Runs_In_Bin(Mode()).size(), 1u);
}

TEST_F(Bin_Test, A_Run_Is_Put_Back_Where_It_Was_And_Changes_Places_With_One_That_Is_There)
{
    const auto place = Add_Run("first");
    Move_To_Bin(Mode(), place);
    Put_Back(Mode(), Runs_In_Bin(Mode()).at(0));
    EXPECT_EQ(Read_Whole(place / "echo.orv"), "first");
    EXPECT_TRUE(Runs_In_Bin(Mode()).empty());

    Move_To_Bin(Mode(), place);
    Add_Run("second");
    Put_Back(Mode(), Runs_In_Bin(Mode()).at(0));

    EXPECT_EQ(Read_Whole(place / "echo.orv"), "first");
    ASSERT_EQ(Runs_In_Bin(Mode()).size(), 1u);
    EXPECT_EQ(Read_Whole(Runs_In_Bin(Mode())[0].Directory / "echo.orv"), "second");
}

TEST_F(Bin_Test, Nothing_Is_Put_In_The_Place_Of_A_Run_At_Work_Nor_Behind_A_Link)
{
    const auto place = Add_Run("first");
    Move_To_Bin(Mode(), place);
    Add_Run("second");
    {
        const auto engine = Lock::Take(place);
        EXPECT_THROW(Put_Back(Mode(), Runs_In_Bin(Mode()).at(0)), File_Error);
    }
    EXPECT_EQ(Read_Whole(place / "echo.orv"), "second");

    fs::rename(Mode() / "bin", Home / "elsewhere");
    fs::create_directory_symlink(Home / "elsewhere", Mode() / "bin");
    EXPECT_THROW(Move_To_Bin(Mode(), place), File_Error);
    EXPECT_TRUE(fs::exists(place / "echo.orv"));
}

TEST_F(Bin_Test, What_A_Mark_Replaces_Goes_To_The_Bin_And_Comes_Back_When_The_Mark_Fails)
{
    const auto choice = Maize_At_Hamburg();
    ASSERT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);
    fs::remove(Mode() / "batch.bat");
    const fs::path run = fs::path("test.run") / "Maize.run" / "Hamburg_-_(H).run";
    Put(Mode() / run / "echo.orv", "results");
    The_User.Answers = {Button::Ok, Button::Ok, Button::Ok}; // the second one closes the message

    fs::create_directory(Mode() / "batch.bat"); // cannot be written
    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Failed);
    EXPECT_EQ(Read_Whole(Mode() / run / "echo.orv"), "results");
    fs::remove(Mode() / "batch.bat");
    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);

    EXPECT_FALSE(fs::exists(Mode() / run / "echo.orv"));
    EXPECT_EQ(Read_Whole(Runs_In_Bin(Mode()).at(0).Directory / "echo.orv"), "results");
}

TEST_F(Bin_Test, A_Mark_Killed_Before_Its_Batch_Is_Written_Loses_Nothing_Nor_Does_The_Next)
{
    const auto choice = Maize_At_Hamburg();
    const fs::path run = fs::path("test.run") / "Maize.run" / "Hamburg_-_(H).run";
    fs::create_directories(Mode() / run);
    Put(Mode() / run / "echo.orv", "results");
    Put(Mode() / "orvel.inp", "control");
    const pid_t mark = ::fork();
    if (mark == 0) {
        New_Run_Directory made(Mode() / run, Sources_Of_Run(The_Session.Program, Focus(), choice));
        made.Put_In_Place();
        ::kill(::getpid(), SIGKILL);
    }
    ::waitpid(mark, nullptr, 0);
    ASSERT_EQ(Runs_In_Bin(Mode()).size(), 1u);

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);

    EXPECT_EQ(Read_Batch(Mode()).size(), 1u);
    ASSERT_EQ(Runs_In_Bin(Mode()).size(), 1u);
    EXPECT_EQ(Read_Whole(Runs_In_Bin(Mode())[0].Directory / "echo.orv"), "results");
}

} // namespace orvel
