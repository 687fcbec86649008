// Marking where a name, the disk or a right is in the way, and behind an attempt that was killed.
#include "runs/mark.h"

#include "mark_fixture.h"
#include "runs/bin.h"
#include "runs/run_directory.h"

#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

namespace orvel {

namespace fs = std::filesystem;

TEST_F(Mark_Test, A_Name_That_Is_Too_Long_For_A_Directory_Is_Told)
{
    auto choice = Maize_At_Hamburg();
    choice.Pesticide = std::string(249, 'x') + " .psm"; // the blank takes three characters of the directory's name

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Failed);

    const auto place = Run_Of(Run_Directory(choice.Pesticide, "Maize", "Hamburg (H)"));
    EXPECT_EQ(The_User.Messages.at(0).Text,
              "An error occured when preparing this simulation (errorcode 3).\r\n"
              "ORVEL could not create the following directory for the new simulation.\r\n" +
                  place.string() +
                  ".\r\n\r\nIf you are using Windows NT or Windows 2000, please check whether you have sufficient "
                  "rights to create "
                  "or delete directories.");
    EXPECT_FALSE(Pending());
}

TEST_F(Mark_Test, A_Copy_That_Fails_Marks_Nothing_And_Keeps_The_Earlier_Simulation)
{
    const auto choice = Maize_At_Hamburg();
    fs::create_directories(Run_Of(Hamburg));
    Put(Run_Of(Hamburg) / "old.txt", "x");
    fs::remove(Home / "Haude.dat");

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Failed);

    EXPECT_EQ(The_User.Messages.at(0).Text,
              "An error occured when preparing this simulation (errorcode 6).\r\nCannot read " +
                  (Home / "Haude.dat").string() + ": No such file or directory.");
    EXPECT_EQ(Names_In(Run_Of(Hamburg)), std::vector<std::string>{"old.txt"});
    EXPECT_FALSE(Pending());
}

TEST_F(Mark_Test, Each_Copy_Has_Its_Stage_And_Leaves_No_Half_Made_Directory)
{
    const std::pair<const char*, const char*> cases[] = {{"test.psm", "(errorcode 4)"},
                                                         {"orvel401.exe", "(errorcode 5)"},
                                                         {"Haude.dat", "(errorcode 6)"},
                                                         {"focus/H_maize.sze", "(errorcode 9)"}};
    for (const auto& [missing, stage] : cases) {
        const auto choice = Maize_At_Hamburg();
        fs::rename(Home / missing, Home / "aside");

        EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Failed);
        EXPECT_NE(The_User.Messages.back().Text.find(stage), std::string::npos) << missing;
        EXPECT_TRUE(List_Directories(Home / "focus", "*").empty()) << missing;
        fs::rename(Home / "aside", Home / missing);
    }
    EXPECT_FALSE(Pending());
}

TEST_F(Mark_Test, A_Batch_File_That_Cannot_Be_Written_Takes_Everything_Back)
{
    const auto choice = Maize_At_Hamburg();
    fs::create_directories(Run_Of(Hamburg));
    Put(Run_Of(Hamburg) / "old.txt", "x");
    Put(Home / "focus" / "batch.bat", "");
    Set_Read_Only(Home / "focus" / "batch.bat", true);

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Failed);

    EXPECT_NE(The_User.Messages.at(0).Text.find("(errorcode 8)"), std::string::npos);
    EXPECT_EQ(Names_In(Run_Of(Hamburg)), std::vector<std::string>{"old.txt"});
    EXPECT_EQ(List_Directories(Home / "focus" / "test.run" / "Maize.run", "*").size(), 1u);
}

TEST_F(Mark_Test, A_Batch_That_Cannot_Be_Read_Is_Told_And_Nothing_Is_Marked)
{
    fs::create_directory(Home / "focus" / "batch.bat");

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), Maize_At_Hamburg()), Mark_Result::Failed);

    EXPECT_NE(The_User.Messages.at(0).Text.find("batch.bat: Is a directory."), std::string::npos);
    EXPECT_FALSE(fs::exists(Run_Of(Hamburg)));
}

TEST_F(Mark_Test, A_Disk_That_Takes_No_More_Is_Told_With_Its_Stage_And_Leaves_Nothing)
{
    const auto choice = Maize_At_Hamburg();
    Put(Home / "orvel401.exe", std::string(1 << 20, 'x'));
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit small{.rlim_cur = 1 << 19, .rlim_max = before.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &small);

    const auto result = Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice);

    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(result, Mark_Result::Failed);
    EXPECT_EQ(The_User.Messages.at(0).Text,
              "An error occured when preparing this simulation (errorcode 5).\r\nCannot copy " +
                  (Home / "orvel401.exe").string() + ": File too large.");
    EXPECT_TRUE(List_Directories(Home / "focus", "*").empty());
    EXPECT_FALSE(Pending());
}

TEST_F(Mark_Test, A_Mode_Directory_Without_The_Right_To_Write_Is_Told)
{
    constexpr uid_t Nobody = 65534;
    const auto choice = Maize_At_Hamburg();
    fs::permissions(Home.Path(), fs::perms(0755));
    fs::permissions(Home / "focus", fs::perms(0555));
    const uid_t user = ::geteuid();
    ASSERT_TRUE(user != 0 || ::seteuid(Nobody) == 0);
    if (::faccessat(AT_FDCWD, (Home / "focus").c_str(), X_OK, AT_EACCESS) != 0) {
        ASSERT_EQ(::seteuid(user), 0);
        GTEST_SKIP() << "no other user may enter the directory of temporary files";
    }

    const auto result = Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice);

    ASSERT_EQ(::seteuid(user), 0);
    fs::permissions(Home / "focus", fs::perms(0755));
    EXPECT_EQ(result, Mark_Result::Failed);
    EXPECT_EQ(The_User.Messages, std::vector{(Message{"File check", "Cannot write ORVEL.INP"})});
    EXPECT_FALSE(Pending());
}

TEST_F(Mark_Test, A_Run_Control_File_That_Is_Read_Only_Is_Told)
{
    const auto choice = Maize_At_Hamburg();
    Put(Home / "focus" / "orvel.inp", "x");
    Set_Read_Only(Home / "focus" / "orvel.inp", true);

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Failed);
    EXPECT_EQ(The_User.Messages, std::vector{(Message{"File check", "Cannot write ORVEL.INP"})});
}

TEST_F(Mark_Test, What_A_Killed_Attempt_Left_Is_Cleared_Away_By_The_Next)
{
    const auto choice = Maize_At_Hamburg();
    const fs::path crop = Home / "focus" / "test.run" / "Maize.run";
    fs::create_directories(crop / "marked-aB3xYz");
    Put(crop / "marked-aB3xYz" / "test.psm", "half");

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), choice), Mark_Result::Marked);
    EXPECT_EQ(List_Directories(crop, "*"), std::vector<std::string>{"Hamburg_-_(H).run"});
}

TEST_F(Mark_Test, Results_That_Were_Deleted_Before_A_Killed_Attempt_Stay_In_The_Bin)
{
    const fs::path crop = Home / "focus" / "test.run" / "Maize.run", place = crop / "Hamburg_-_(H).run";
    fs::create_directories(place);
    Put(place / "chem.orv", "a result");
    Move_To_Bin(Home / "focus", place);
    fs::create_directories(crop / "Hamburg_-_(H).new"); // killed while it was made, with nothing to replace

    End_Interrupted_Marks(Home / "focus");

    EXPECT_FALSE(fs::exists(place));
    EXPECT_FALSE(fs::exists(crop / "Hamburg_-_(H).new"));
    EXPECT_EQ(Runs_In_Bin(Home / "focus").size(), 1U);
}

TEST_F(Mark_Test, Results_That_A_Killed_Attempt_Had_In_The_Bin_Are_Back_After_The_Next)
{
    const fs::path crop = Home / "focus" / "test.run" / "Maize.run", place = crop / "Hamburg_-_(H).run";
    fs::create_directories(place);
    Put(place / "chem.orv", "a result");
    Move_To_Bin(Home / "focus", place);
    fs::create_directories(crop / "Hamburg_-_(H).put"); // killed behind its first move
    Scenario(Home / "focus" / "C_maize.sze");
    auto other = Maize_At_Hamburg();
    other.Location = "Ch\xE2teaudun (C)";
    other.Scenario = "C_maize.sze";

    EXPECT_EQ(Mark_For_Batch(The_Session.Program, The_Session.Ask, Focus(), other), Mark_Result::Marked);

    EXPECT_EQ(Read_Whole(place / "chem.orv"), "a result");
    EXPECT_FALSE(fs::exists(crop / "Hamburg_-_(H).put"));
    EXPECT_TRUE(Runs_In_Bin(Home / "focus").empty());
}

} // namespace orvel
