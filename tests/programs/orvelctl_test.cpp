#include "core/files.h"
#include "files/pesticide_example.h"
#include "temporary_directory.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

namespace orvel {

namespace {

// Runs the command line program itself.
class Orvelctl : public testing::Test {
protected:
    int Run(const std::string& arguments)
    {
        const std::string out = (Directory / "out").string(), error = (Directory / "error").string();
        const int status =
            std::system((std::string("'" ORVELCTL "' ") + arguments + " >" + out + " 2>" + error).c_str());
        Out = Read_Whole(out);
        Error = Read_Whole(error);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string In_Directory(const std::string& name) const { return (Directory / name).string(); }

    Temporary_Directory Directory;
    std::string Out, Error;
};

} // namespace

TEST_F(Orvelctl, Converts_A_Pesticide_File)
{
    Write_Whole(In_Directory("in.psm"), Example_File());

    EXPECT_EQ(Run("convert " + In_Directory("in.psm") + " " + In_Directory("out.psm")), 0);

    EXPECT_EQ(Read_Whole(In_Directory("out.psm")), Example_File());
    EXPECT_EQ(Out + Error, "");
}

TEST_F(Orvelctl, Shows_A_Pesticide_File_As_Json)
{
    Write_Whole(In_Directory("in.psm"), Example_File());

    EXPECT_EQ(Run("show " + In_Directory("in.psm")), 0);

    EXPECT_TRUE(Out.starts_with("{\n  \"PSM_Title\": \"Demo compound\",\n"));
    EXPECT_TRUE(Out.ends_with("}\n"));
    EXPECT_EQ(Error, "");
}

TEST_F(Orvelctl, Tells_A_Bad_File_As_The_Box_Would_And_Exits_With_1)
{
    Write_Whole(In_Directory("bad.psm"), "no document");

    EXPECT_EQ(Run("show " + In_Directory("bad.psm")), 1);
    EXPECT_EQ(Error, "Readin check: bad.psm is not a ORVEL 4.01 PSM file\n"
                     "bad.psm, line 1: The file ends behind this line.\n");
    EXPECT_EQ(Out, "");

    EXPECT_EQ(Run("convert " + In_Directory("bad.psm") + " " + In_Directory("out.psm")), 1);
    EXPECT_FALSE(std::filesystem::exists(In_Directory("out.psm")));
}

TEST_F(Orvelctl, Gives_The_Usage_For_A_Wrong_Command_Line_And_Exits_With_2)
{
    for (const auto arguments : {"", "convert one.psm", "nonsense", "show"}) {
        EXPECT_EQ(Run(arguments), 2) << arguments;
        EXPECT_NE(Error.find("Usage: "), std::string::npos) << arguments;
    }
}

TEST_F(Orvelctl, A_Pipe_A_Loop_Of_Links_And_An_Overlong_Name_Are_Told_And_Never_Waited_For)
{
    const std::string pipe = In_Directory("pipe.psm"), loop = In_Directory("loop.psm"), good = In_Directory("good.psm"),
                      longest = In_Directory(std::string(300, 'n') + ".psm");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    std::filesystem::create_symlink("loop.psm", loop);
    Write_Whole(good, Example_File());

    for (const auto& bad : {pipe, loop, longest}) {
        for (const auto& command :
             {"show " + bad, "convert " + bad + " " + In_Directory("out.psm"), "convert " + good + " " + bad,
              "tables " + bad, "balance " + bad, "pecsoil --depth 5 " + bad, "series --column 1 " + bad,
              "-C " + bad + " status --mode focus", "-C " + bad + " start --mode focus",
              "-C " + bad + " report --mode focus --pesticide demo --crop Maize"}) {
            EXPECT_EQ(Run(command), 1) << command;
            EXPECT_NE(Error, "") << command;
            EXPECT_EQ(Error.find("terminate"), std::string::npos) << Error;
        }
    }
    EXPECT_TRUE(std::filesystem::is_fifo(pipe));
    EXPECT_TRUE(std::filesystem::is_symlink(loop));
}

TEST_F(Orvelctl, A_Current_Directory_That_Vanished_Is_Told)
{
    std::filesystem::create_directory(In_Directory("gone"));
    for (const std::string command : {"status --mode focus", "tables .", "init new", "start --mode focus"}) {
        const int status = std::system(("cd " + In_Directory("gone") + " && rmdir ../gone && '" ORVELCTL "' " +
                                        command + " 2>" + In_Directory("error"))
                                           .c_str());
        EXPECT_EQ(WEXITSTATUS(status), 1) << command;
        EXPECT_NE(Read_Whole(In_Directory("error")).find("No such file or directory."), std::string::npos);
        std::filesystem::create_directory(In_Directory("gone"));
    }
}

TEST_F(Orvelctl, A_Standard_Output_That_Takes_Nothing_Is_Told_And_Exits_With_1)
{
    Write_Whole(In_Directory("in.psm"), Example_File());
    for (const std::string output : {">/dev/full", ">&-"}) {
        for (const auto& command : {"show " + In_Directory("in.psm"), std::string("--help")}) {
            const int status =
                std::system(("'" ORVELCTL "' " + command + " " + output + " 2>" + In_Directory("error")).c_str());
            EXPECT_EQ(WEXITSTATUS(status), 1) << command << output;
            EXPECT_EQ(Read_Whole(In_Directory("error")), "File check: Cannot write to standard output.\n");
        }
    }
}

TEST_F(Orvelctl, With_Closed_Standard_Channels_No_File_Is_Written_Over)
{
    Write_Whole(In_Directory("in.psm"), Example_File());

    const int status = std::system(
        ("'" ORVELCTL "' convert " + In_Directory("in.psm") + " " + In_Directory("out.psm") + " <&- >&- 2>&-").c_str());

    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(Read_Whole(In_Directory("out.psm")), Example_File());
    EXPECT_NE(std::system(("'" ORVELCTL "' show " + In_Directory("bad.psm") + " <&- >&- 2>&-").c_str()), 0);
}

TEST_F(Orvelctl, A_Killed_Init_Is_No_Installation_And_Can_Be_Repeated)
{
    const std::string place = In_Directory("place");
    std::filesystem::create_directories(place + "/.orvel-init/EFSA");
    std::filesystem::create_directories(place + "/focus");

    EXPECT_EQ(Run("-C " + place + " status --mode focus"), 1);
    EXPECT_NE(Error.find("is not complete. Please lay it out again: orvelctl init "), std::string::npos) << Error;

    EXPECT_EQ(Run("init " + place), 0) << Error;
    EXPECT_EQ(Run("-C " + place + " status --mode focus"), 0) << Error;
}

TEST_F(Orvelctl, An_Installation_Directory_That_Is_Not_There_Is_Told)
{
    EXPECT_EQ(Run("-C " + In_Directory("nowhere") + " status --mode focus"), 1);
    EXPECT_EQ(Error, "File check: The directory " + In_Directory("nowhere") + " does not exist.\n");
}

TEST_F(Orvelctl, A_File_In_Place_Of_An_Installation_Directory_Is_Told)
{
    const std::string file = In_Directory("demo.psm");
    Write_Whole(file, "a file");

    EXPECT_EQ(Run("-C " + file + " status --mode focus"), 1);
    EXPECT_EQ(Error, "File check: " + file + " is a file, not the directory of an installation.\n");
}

} // namespace orvel
