// What the units of core/system promise on every operating system.
#include "core/files.h"
#include "core/system/file_handle.h"
#include "core/system/flush.h"
#include "core/system/lock.h"
#include "core/system/processors.h"
#include "core/system/program_path.h"
#include "core/system/rights.h"
#include "core/system/spawn.h"
#include "core/system/times.h"
#include "temporary_directory.h"

#include <csignal>
#include <gtest/gtest.h>
#include <set>
#include <unistd.h>

namespace orvel {

namespace {

using Use = File_Handle::Use;

int Start_Shell(const Temporary_Directory& place, const std::string& script)
{
    return Start_Program(
        {.Program = Program_In_Path("sh"), .Arguments = {"-c", script}, .Directory = place.Path(), .Output = {}});
}

} // namespace

TEST(File_Handle, Tells_Why_A_File_Cannot_Be_Opened)
{
    const Temporary_Directory place;
    std::error_code error;

    const File_Handle missing(place / "missing", Use::Read, error);

    EXPECT_FALSE(missing.Is_Open());
    EXPECT_EQ(error, std::errc::no_such_file_or_directory);
    EXPECT_EQ(error.message(), "No such file or directory");
}

TEST(File_Handle, Keeps_What_Is_There_To_Update_And_Empties_It_To_Write)
{
    const Temporary_Directory place;
    Write_Whole(place / "file", "old bytes");
    std::error_code error;

    EXPECT_FALSE(File_Handle(place / "file", Use::Update, error).Write_At(4, "text"));
    EXPECT_EQ(Read_Whole(place / "file"), "old texts");

    EXPECT_FALSE(File_Handle(place / "file", Use::Write, error).Write("new"));
    EXPECT_EQ(Read_Whole(place / "file"), "new");
}

TEST(File_Handle, Appends_Behind_What_Others_Have_Written)
{
    const Temporary_Directory place;
    std::error_code error;
    File_Handle first(place / "log", Use::Append, error), second(place / "log", Use::Update, error);

    EXPECT_FALSE(first.Write("a"));
    EXPECT_FALSE(second.Write("bc"));
    EXPECT_FALSE(first.Write("d"));

    EXPECT_EQ(Read_Whole(place / "log"), "bcd");
}

TEST(File_Handle, Never_Takes_An_Existing_File_For_A_New_One)
{
    const Temporary_Directory place;
    Write_Whole(place / "file", "old");
    std::error_code error;

    const File_Handle refused(place / "file", Use::Write_New, error);

    EXPECT_EQ(error, std::errc::file_exists);
    EXPECT_EQ(Read_Whole(place / "file"), "old");
}

TEST(File_Handle, Reads_From_A_Place_And_Cuts_To_A_Size)
{
    const Temporary_Directory place;
    std::error_code error;
    File_Handle file(place / "file", Use::Update, error);
    char bytes[4] = {};

    EXPECT_FALSE(file.Write("0123456789"));
    EXPECT_EQ(file.Read_At(8, bytes, sizeof bytes, error), 2u);
    EXPECT_EQ(std::string_view(bytes, 2), "89");
    EXPECT_FALSE(file.Resize(3));
    EXPECT_FALSE(file.Flush());
    EXPECT_EQ(file.Size(error), 3u);
    EXPECT_FALSE(file.Close());
    EXPECT_FALSE(file.Is_Open());
}

TEST(Read_Tail, Gives_The_Last_Bytes_And_Nothing_Without_A_File)
{
    const Temporary_Directory place;
    Write_Whole(place / "file", "0123456789");

    EXPECT_EQ(Read_Tail(place / "file", 3), "789");
    EXPECT_EQ(Read_Tail(place / "file", 30), "0123456789");
    EXPECT_EQ(Read_Head(place / "file", 3), "012");
    EXPECT_EQ(Read_Head(place / "file", 30), "0123456789");
    EXPECT_EQ(Read_Tail(place / "missing", 3), "");
    EXPECT_EQ(Read_Head(place / "missing", 3), "");
}

TEST(Make_Unique_Directory, Gives_Another_Name_Each_Time)
{
    const Temporary_Directory place;
    std::set<std::string> names;

    for (int i = 0; i < 20; ++i)
        names.insert(Make_Unique_Directory(place / "marked-").value().filename().string());

    EXPECT_EQ(names.size(), 20u);
    for (const auto& name : names)
        EXPECT_TRUE(Matches(name, "marked-??????")) << name;
    EXPECT_EQ(Make_Unique_Directory(place / "missing" / "marked-"), std::nullopt);
}

TEST(Flush, Reaches_Directories_With_Their_Files)
{
    const Temporary_Directory place;
    Write_Whole(place / "file", "bytes");

    EXPECT_TRUE(Flush_Directory_And_Files(place.Path()));
    EXPECT_FALSE(Flush_File_System(place.Path()));
    EXPECT_FALSE(Flush_Directory_And_Files(place / "missing"));
    EXPECT_TRUE(Flush_File_System(place / "missing"));
}

TEST(Program_End, Tells_An_Exit_Code_From_A_Signal)
{
    const Temporary_Directory place;

    const int failing = Start_Shell(place, "exit 7");
    const Program_End failed = Wait_For_Program(failing);
    const Program_End killed = Wait_For_Program(Start_Shell(place, "kill -KILL $$"));

    EXPECT_EQ(failed.Process, failing);
    EXPECT_EQ(failed.Exit_Code, 7);
    EXPECT_EQ(failed.Signal, 0);
    EXPECT_EQ(killed.Signal, SIGKILL);
}

TEST(Program_End, Is_Unknown_As_Long_As_The_Program_Is_At_Work)
{
    const Temporary_Directory place;
    const int process = Start_Shell(place, "while [ ! -e done ]; do sleep 0.01; done");

    EXPECT_FALSE(End_Of_Program(process));
    Write_Whole(place / "done", "");

    EXPECT_EQ(Wait_For_Program(process).Exit_Code, 0);
    EXPECT_EQ(End_Of_Program(process).value().Exit_Code, Unknown_Program); // it has been waited for
    EXPECT_FALSE(Wait_For_Any_Of({}, std::chrono::milliseconds(1)));
}

TEST(Program_End, Is_Waited_For_No_Longer_Than_Asked_And_No_Longer_Than_Needed)
{
    const Temporary_Directory place;
    const int process = Start_Shell(place, "while [ ! -e done ]; do sleep 0.01; done");
    const std::array processes{process};
    EXPECT_FALSE(Wait_For_Any_Of(processes, std::chrono::milliseconds(20)));

    Write_Whole(place / "done", "");
    const auto end = Wait_For_Any_Of(processes, std::chrono::minutes(1));

    ASSERT_TRUE(end);
    EXPECT_EQ(end->Process, process);
}

TEST(Program_End, Of_Another_Program_Is_Left_To_Whom_It_Belongs)
{
    const Temporary_Directory place;
    const int other = Start_Shell(place, "exit 3");
    const int process = Start_Shell(place, "exit 4");
    const std::array processes{process};

    auto end = Wait_For_Any_Of(processes, std::chrono::seconds(10));
    if (!end) // that of the other one came first
        end = Wait_For_Any_Of(processes, std::chrono::seconds(10));

    EXPECT_EQ(end.value().Exit_Code, 4);
    EXPECT_EQ(Wait_For_Program(other).Exit_Code, 3);
}

TEST(Program_End, Comes_To_A_Whole_Group_At_Once)
{
    const Temporary_Directory place;
    Program_Start start{.Program = "/bin/sh",
                        .Arguments = {"-c", "trap '' TERM; sleep 100 & echo $! > child; wait"},
                        .Directory = place.Path(),
                        .Output = {},
                        .Own_Group = true};
    const int process = Start_Program(start);
    while (Read_If_There(place.Path(), "child").empty())
        ::usleep(1000);

    End_Group(process, true);

    EXPECT_EQ(Wait_For_Program(process).Signal, SIGKILL);
    const int child = std::stoi(Read_Whole(place / "child"));
    // Whoever inherits it may not have asked for its end yet: then it is a zombie.
    const auto lives = [child] {
        const std::string state = Read_Head("/proc/" + std::to_string(child) + "/stat", 64);
        return !state.empty() && state.find(") Z") == std::string::npos;
    };
    for (int i = 0; i < 1000 && lives(); ++i)
        ::usleep(1000);
    EXPECT_FALSE(lives());
}

TEST(Lock, May_Be_Shared_By_Many_But_Not_With_One_That_Is_Alone)
{
    const Temporary_Directory place;
    auto first = Lock::Take_Shared(place.Path()), second = Lock::Take_Shared(place.Path());
    EXPECT_TRUE(first && second);
    EXPECT_FALSE(Lock::Take(place.Path()));
    first.reset();
    second.reset();

    const auto alone = Lock::Take(place.Path());
    EXPECT_TRUE(alone);
    EXPECT_FALSE(Lock::Take_Shared(place.Path()));
}

TEST(File_Handle, Append_Keeps_What_Is_There)
{
    const Temporary_Directory place;
    Write_Whole(place / "log", "before ");
    std::error_code error;

    EXPECT_FALSE(File_Handle(place / "log", Use::Append, error).Write("after"));

    EXPECT_EQ(Read_Whole(place / "log"), "before after");
}

TEST(Program_Path, Finds_This_Program_And_What_Lies_Beside_It)
{
    EXPECT_EQ(Own_Path().filename(), "core_test");
    EXPECT_EQ(Program_Beside("other"), Own_Path().parent_path() / "other");
    EXPECT_EQ(Program_In_Path("no such program"), "");
    EXPECT_GE(Processors(), 1);
}

TEST(Rights, Are_None_Where_There_Is_No_File)
{
    const Temporary_Directory place;
    Write_Whole(place / "file", "");

    EXPECT_TRUE(May_Read(place / "file"));
    EXPECT_TRUE(May_Write(place / "file"));
    EXPECT_TRUE(May_Change_Entries(place.Path()));
    EXPECT_FALSE(May_Read(place / "missing"));
    EXPECT_FALSE(May_Write(place / "missing"));
    EXPECT_FALSE(May_Change_Entries(place / "missing"));
}

TEST(Times, Know_When_A_File_Was_Changed)
{
    const Temporary_Directory place;
    const std::time_t before = std::time(nullptr);
    Write_Whole(place / "file", "");

    EXPECT_GE(Last_Change(place / "file"), before - 1);
    EXPECT_LE(Last_Change(place / "file"), std::time(nullptr) + 1);
    EXPECT_EQ(Last_Change(place / "missing"), 0);
}

} // namespace orvel
