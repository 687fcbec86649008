#include "core/system/spawn.h"

#include "core/system/companion.h"

#include <array>
#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

bool Was_Printed(const fs::path& file, const std::string& text)
{
    return Comes_True([&] { return Read_Head(file, 100) == text; });
}

} // namespace

TEST(Start_Program, Passes_Arguments_On_As_They_Are)
{
    const Temporary_Directory place;
    const std::vector<std::string> arguments = {"plain",
                                                "two words",
                                                "",
                                                R"(")",
                                                R"(say "so")",
                                                R"(C:\runs\)",
                                                R"(C:\my runs\)",
                                                R"(a\"b)",
                                                R"(\\\")",
                                                R"(a\\b c\\)",
                                                "%PATH% %NO_SUCH%",
                                                "^&|<>()!",
                                                "*",
                                                "?.psm",
                                                "'$HOME' `x`",
                                                "tab\tnew\nline",
                                                "Größe αβγ \U0001F33E",
                                                "-C",
                                                "a=b;c,d",
                                                R"("quoted whole")"};
    std::string expected;
    for (const auto& argument : arguments)
        expected += std::to_string(argument.size()) + ":" + argument + "\n";

    auto start = Companion(place, {"arguments"});
    start.Arguments.insert(start.Arguments.end(), arguments.begin(), arguments.end());
    const auto end = Wait_For_Program(Start_Program(start));

    EXPECT_EQ(end.Exit_Code, 0);
    EXPECT_EQ(Read_Whole(place / "output"), expected);
}

TEST(Start_Program, Hands_Nothing_To_A_Command_Interpreter)
{
    const Temporary_Directory place;
    Write_Whole(place / "commands.bat", "echo made > made\r\n");
    Write_Whole(place / "commands.CMD", "echo made > made\r\n");

    for (const char* name : {"commands.bat", "commands.CMD"}) {
        fs::permissions(place / name, fs::perms::owner_all);
        auto start = Companion(place, {});
        start.Program = place / name;
        EXPECT_THROW(Wait_For_Program(Start_Program(start)), File_Error) << name;
    }

    EXPECT_FALSE(fs::exists(place / "made"));
}

TEST(Start_Program, Tells_The_Name_Of_What_Cannot_Be_Started)
{
    const Temporary_Directory place;
    auto start = Companion(place, {});
    start.Program = place / "no such program.exe";

    try {
        Start_Program(start);
        FAIL();
    } catch (const File_Error& error) {
        EXPECT_EQ(std::string(error.what()).find("Cannot start " + start.Program.string() + ": "), 0u) << error.what();
    }
}

TEST(Start_Program, Works_Where_Names_Have_Blanks_And_Other_Letters)
{
    const Temporary_Directory place;
    const auto directory = place / fs::path("Größe α & %PATH%");
    fs::create_directory(directory);
    fs::copy_file(Program_Beside("companion"), directory / "my companion.exe");
    Program_Start start = Companion(place, {"arguments", "x"});
    start.Program = directory / "my companion.exe";
    start.Directory = directory;
    start.Output = "what it printed";

    EXPECT_EQ(Wait_For_Program(Start_Program(start)).Exit_Code, 0);

    EXPECT_EQ(Read_Whole(directory / "what it printed"), "1:x\n");
}

TEST(Program_End, Tells_An_Exit_Code_From_A_Signal)
{
    const Temporary_Directory place;

    const int failing = Start_Program(Companion(place, {"exit", "7"}));
    const Program_End failed = Wait_For_Program(failing);
    const Companion_At_Work killed(Companion(place, {"await", "never"}));

    EXPECT_EQ(failed.Process, failing);
    EXPECT_EQ(failed.Exit_Code, 7);
    EXPECT_EQ(failed.Signal, 0);
    EXPECT_EQ(killed.Kill(), Killed);
}

TEST(Program_End, Is_Unknown_As_Long_As_The_Program_Is_At_Work)
{
    const Temporary_Directory place;
    const int process = Start_Program(Companion(place, {"await", "done"}));

    EXPECT_FALSE(End_Of_Program(process));
    Write_Whole(place / "done", "");

    EXPECT_EQ(Wait_For_Program(process).Exit_Code, 0);
    EXPECT_EQ(End_Of_Program(process).value().Exit_Code, Unknown_Program); // it has been waited for
    EXPECT_FALSE(Wait_For_Any_Of({}, std::chrono::milliseconds(1)));
}

TEST(Program_End, Is_Waited_For_No_Longer_Than_Asked_And_No_Longer_Than_Needed)
{
    const Temporary_Directory place;
    const int process = Start_Program(Companion(place, {"await", "done"}));
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
    const int other = Start_Program(Companion(place, {"exit", "3"}));
    const int process = Start_Program(Companion(place, {"exit", "4"}));
    const std::array processes{process};

    auto end = Wait_For_Any_Of(processes, std::chrono::seconds(30));
    if (!end) // that of the other one came first
        end = Wait_For_Any_Of(processes, std::chrono::seconds(30));

    EXPECT_EQ(end.value().Exit_Code, 4);
    EXPECT_EQ(Wait_For_Program(other).Exit_Code, 3);
}

TEST(Program_End, Comes_To_A_Whole_Group_At_Once)
{
    const Temporary_Directory place;
    const Companion_At_Work first(Companion(place, {"start", "plain", "hold", place.Path().string()}));
    ASSERT_TRUE(Was_Printed(place / "output of child", "held"));

    EXPECT_EQ(first.Kill(), Killed);

    EXPECT_TRUE(Comes_True([&] { return !Is_Locked(place.Path()); })); // the child has gone
}

TEST(Program_End, Of_The_Starter_Leaves_A_Program_With_A_Session_Of_Its_Own)
{
    const Temporary_Directory place;
    const Companion_At_Work shell(Companion(place, {"start", "apart", "hold", place.Path().string()}));
    ASSERT_TRUE(Was_Printed(place / "output of child", "held"));

    EXPECT_EQ(shell.Kill(), Killed);
    std::this_thread::sleep_for(std::chrono::milliseconds(100));

    EXPECT_TRUE(Is_Locked(place.Path()));
    EXPECT_TRUE(Comes_True([&] { return !Lock::Take(place.Path()); }));
}

} // namespace orvel
