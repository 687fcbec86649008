#include "runs/job_file.h"

#include "core/error.h"
#include "core/text.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

const std::string One_Block =
    "cd a.run\\b.run\\c.run\r\nif exist *.orv del *.orv\r\norvel401.exe\r\nif exist orvel401.exe del orvel401.exe\r\n";

} // namespace

TEST(Job_File, Its_Five_Kinds_Of_Line_Give_The_Runs)
{
    const auto runs = Parse_Job("echo off\r\n" + One_Block +
                                "cd ..\\..\\..\\\r\ncd x y.run\\$(rm).run\\;&%.run\r\nif exist *.orv del "
                                "*.orv\r\norvel5.exe\r\nif exist orvel5.exe del orvel5.exe\r\n");

    ASSERT_EQ(runs.size(), 2u);
    EXPECT_EQ(runs[0].Directory, "a.run\\b.run\\c.run");
    EXPECT_EQ(runs[0].Engine, "orvel401.exe");
    EXPECT_EQ(runs[1].Directory, "x y.run\\$(rm).run\\;&%.run");
    EXPECT_EQ(runs[1].Engine, "orvel5.exe");
    EXPECT_TRUE(Parse_Job("").empty());
    EXPECT_EQ(Parse_Job(Replace_All(One_Block, "\r\n", "\n")).size(), 1u);
}

TEST(Job_File, Two_Lines_That_Lead_To_One_Directory_Are_Refused)
{
    namespace fs = std::filesystem;
    const Temporary_Directory mode;
    fs::create_directories(mode / "a.run" / "b.run" / "c.run");
    if (!fs::exists(mode / "A.run")) // this system looks at case
        fs::create_directory_symlink("a.run", mode / "A.run");
    const Job_Run run{.Directory = "a.run\\b.run\\c.run", .Engine = "orvel401.exe"};
    const Job_Run other{.Directory = "A.run\\b.run\\c.run", .Engine = "orvel401.exe"};

    EXPECT_EQ(Resolve_Runs(mode.Path(), {run}).size(), 1u);
    EXPECT_THROW(Resolve_Runs(mode.Path(), {run, other}), File_Error);
}

TEST(Job_File, Anything_Else_Is_Refused_With_Its_Line)
{
    const auto refused_in = [](const std::string& text) {
        try {
            Parse_Job(text);
            return std::string("accepted");
        } catch (const File_Error& error) {
            return std::string(error.what());
        }
    };
    const auto in_line = [](int line) {
        return "The job file holds something else than a job in line " + std::to_string(line) + ".";
    };

    EXPECT_EQ(refused_in("echo off\r\nformat c:\r\n"), in_line(2));
    EXPECT_EQ(refused_in(One_Block + One_Block), in_line(5)); // does not climb back
    EXPECT_EQ(refused_in("cd ..\\..\\..\r\n"), in_line(1));
    EXPECT_EQ(refused_in(Replace_All(One_Block, "a.run", "..")), in_line(1));
    EXPECT_EQ(refused_in(Replace_All(One_Block, "a.run\\", "")), in_line(1));
    EXPECT_EQ(refused_in(Replace_All(One_Block, "a.run", "/etc/a.run")), in_line(1));
    EXPECT_EQ(refused_in(Replace_All(One_Block, "c.run", ".run")), in_line(1));
    EXPECT_EQ(refused_in(Replace_All(One_Block, "*.orv del *.orv", "*.psm del *.psm")), in_line(2));
    EXPECT_EQ(refused_in(Replace_All(One_Block, "orvel401.exe", "rm.exe")), in_line(3));
    EXPECT_EQ(refused_in(Replace_All(One_Block, "orvel401.exe", "orvel/../x.exe")), in_line(3));
    EXPECT_EQ(refused_in(Replace_All(One_Block, "del orvel401.exe", "del test.psm")), in_line(4));
    EXPECT_EQ(refused_in("cd a.run\\b.run\\c.run\r\n"), in_line(1)); // ends within a run
}

TEST(Job_File, What_Is_Written_Is_Read_Back)
{
    const std::string text = Format_Job(Format_Job_Run("a.run\\b.run\\Ch\xE2teau.run", "orvel401.exe", true) +
                                        Format_Job_Run("\xFC.run\\b.run\\\xDF.run", "orvel401.exe", false));

    const auto runs = Parse_Job(text);

    ASSERT_EQ(runs.size(), 2u);
    EXPECT_EQ(runs[0].Directory, "a.run\\b.run\\Ch\x83teau.run");
    EXPECT_EQ(runs[1].Directory, "\x81.run\\b.run\\\xE1.run");
    EXPECT_TRUE(text.starts_with("echo off\r\ncd a.run"));
}

} // namespace orvel
