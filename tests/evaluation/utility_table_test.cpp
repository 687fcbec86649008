#include "evaluation/utility_table.h"

#include "core/files.h"
#include "core/system/lock.h"
#include "jobs/start_batch.h"
#include "output/engine_files.h"
#include "recording_user.h"
#include "temporary_directory.h"

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace orvel {

namespace fs = std::filesystem;

namespace {

class Utility_Table_Test : public testing::Test {
protected:
    Utility_Table_Test()
    {
        The_Session->Ask = [this](const Message& message) { return The_User(message); };
        The_Session->Program.App_Path = Place / "home";
        fs::create_directories(Place / "home");
        fs::create_directories(Place / "run");
        Write_Whole(Run() / "plot.orv", "series\r\n");
    }

    fs::path Run() const { return Place / "run"; }

    // A utility that makes its table of the series' copy.
    void Put_Utility()
    {
        Write_Whole(Place / "home/wyear.exe", "#!/bin/sh\ncat grw.orv > year.orv\n");
        fs::permissions(Place / "home/wyear.exe", fs::perms::owner_all);
    }

    int Exit_Code_Of(int process)
    {
        std::optional<int> code;
        while (!(code = Job_Exit_Code(process)))
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        return *code;
    }

    Temporary_Directory Place;
    Recording_User The_User;
    std::unique_ptr<Session> The_Session = std::make_unique<Session>();
};

} // namespace

TEST_F(Utility_Table_Test, The_Batch_File_Copies_The_Series_And_Runs_The_Utility_There)
{
    EXPECT_EQ(Format_Utility_Batch(Utility::Month, "/runs/a", "/home/orvel"),
              "copy  \"/runs/a\\plot.orv\" \"/runs/a\\grw.orv\"\r\n"
              "\r\n"
              "CD \"/runs/a\"\r\n"
              "\"/home/orvel\\wmonth.exe\"\r\n"
              "quit\r\n");
}

TEST_F(Utility_Table_Test, A_Table_Is_Due_While_It_Or_The_Copy_Is_Missing_Or_The_Series_Are_Newer)
{
    EXPECT_TRUE(Is_Due(Utility::Year, Run()));
    Write_Whole(Run() / "year.orv", "table\r\n");
    EXPECT_TRUE(Is_Due(Utility::Year, Run()));
    Write_Whole(Run() / "grw.orv", "series\r\n");
    EXPECT_FALSE(Is_Due(Utility::Year, Run()));

    fs::last_write_time(Run() / "plot.orv", fs::last_write_time(Run() / "year.orv") + std::chrono::seconds(2));
    EXPECT_TRUE(Is_Due(Utility::Year, Run()));

    fs::remove(Run() / "plot.orv");
    EXPECT_FALSE(Is_Due(Utility::Year, Run()));
    EXPECT_FALSE(Is_Due(Utility::Day, Run()));
}

TEST_F(Utility_Table_Test, The_Utility_Works_In_The_Directory_And_Its_Table_Is_Shown_Less_Its_Last_End_Of_Line)
{
    Put_Utility();

    const auto process = Start_Utility(*The_Session, Utility::Year, Run());

    ASSERT_TRUE(process);
    EXPECT_EQ(Exit_Code_Of(*process), 0);
    EXPECT_EQ(Utility_Table(*The_Session, Utility::Year, Run()), "series");
    EXPECT_EQ(Read_Whole(Place / "home/wyear.bat"), Format_Utility_Batch(Utility::Year, Run(), Place / "home"));
    EXPECT_TRUE(The_User.Messages.empty());
}

TEST_F(Utility_Table_Test, The_Copy_Has_The_First_Seven_Lines_Of_The_Series)
{
    Put_Utility();
    Write_Whole(Run() / "plot.orv", Plot_Head_Of(1, 0) + Plot_Line(1, 24, {"0.5"}));

    const auto process = Start_Utility(*The_Session, Utility::Year, Run());

    ASSERT_TRUE(process);
    EXPECT_EQ(Exit_Code_Of(*process), 0);
    const std::string plot = Read_Whole(Run() / "plot.orv"), copy = Read_Whole(Run() / "grw.orv");
    EXPECT_EQ(copy, plot.substr(0, copy.size()));
    EXPECT_EQ(std::ranges::count(copy, '\n'), 7);
}

TEST_F(Utility_Table_Test, What_The_Utility_Tells_When_It_Fails_Is_Taken_Once)
{
    Write_Whole(Place / "home/wyear.exe", "#!/bin/sh\necho The file plot.orv is damaged. >&2\nexit 1\n");
    fs::permissions(Place / "home/wyear.exe", fs::perms::owner_all);

    const auto process = Start_Utility(*The_Session, Utility::Year, Run());

    ASSERT_TRUE(process);
    EXPECT_EQ(Exit_Code_Of(*process), 1);
    EXPECT_EQ(Take_Utility_Log(Run()), "The file plot.orv is damaged.");
    EXPECT_FALSE(fs::exists(Run() / "utility.log"));
    EXPECT_EQ(Take_Utility_Log(Run()), "");
}

TEST_F(Utility_Table_Test, No_Table_Is_Made_While_The_Simulation_Is_At_Work)
{
    Put_Utility();
    const auto lock = Lock::Take(Run());

    EXPECT_FALSE(Start_Utility(*The_Session, Utility::Year, Run()));

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Text, "The simulation is still at work.");
    EXPECT_FALSE(fs::exists(Run() / "grw.orv"));
}

TEST_F(Utility_Table_Test, A_Missing_Utility_Is_Told)
{
    EXPECT_FALSE(Start_Utility(*The_Session, Utility::Year, Run()));

    ASSERT_EQ(The_User.Messages.size(), 1U);
    EXPECT_EQ(The_User.Messages[0].Text, "The program wyear.exe is missing in the installation directory.");
    EXPECT_FALSE(fs::exists(Run() / "grw.orv"));
}

TEST(Batch_Directory, Is_Known_By_Its_Name_However_It_Is_Given)
{
    Temporary_Directory place;
    std::filesystem::create_directories(place / "a.run");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(place / "a.run");
    const bool as_point = Is_Of_A_Batch(".");
    std::filesystem::current_path(before);

    EXPECT_TRUE(as_point);
    EXPECT_TRUE(Is_Of_A_Batch(place / "a.run/"));
    EXPECT_TRUE(Is_Of_A_Batch("a.RUN"));
    EXPECT_FALSE(Is_Of_A_Batch(place.Path()));
}

TEST_F(Utility_Table_Test, The_Leachate_Table_Of_A_Batch_Is_Never_Overwritten)
{
    Put_Utility();
    const fs::path run = Place / "home/focus/a.run/Maize.run/Hamburg_-_(H).run";
    fs::create_directories(run);
    Write_Whole(run / "plot.orv", "series\r\n");
    Write_Whole(run / "year.orv", "leachate\r\n");

    EXPECT_FALSE(Start_Utility(*The_Session, Utility::Year, run));
    EXPECT_FALSE(Start_Utility(*The_Session, Utility::Year, run / ""));

    EXPECT_EQ(The_User.Messages.size(), 2U);
    EXPECT_EQ(Read_Whole(run / "year.orv"), "leachate\r\n");
}

TEST_F(Utility_Table_Test, The_Size_Limit_Holds_For_The_Table_By_Day_Alone)
{
    const std::string big(40000, 'x');
    Write_Whole(Run() / "day.orv", big + "\r\n");
    Write_Whole(Run() / "month.orv", big + "\r\n");

    EXPECT_EQ(Utility_Table(*The_Session, Utility::Month, Run()), big);
    EXPECT_TRUE(The_User.Messages.empty());
    EXPECT_EQ(Utility_Table(*The_Session, Utility::Day, Run())->size(), 32767U);
    EXPECT_EQ(The_User.Messages.size(), 1U);
    EXPECT_FALSE(Utility_Table(*The_Session, Utility::Year, Run()));
}

} // namespace orvel
