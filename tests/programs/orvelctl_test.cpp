#include "core/files.h"
#include "files/pesticide_example.h"
#include "temporary_directory.h"

#include <cstdlib>
#include <gtest/gtest.h>
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

TEST_F(Orvelctl, An_Installation_Directory_That_Is_Not_There_Is_Told)
{
    EXPECT_EQ(Run("-C " + In_Directory("nowhere") + " status --mode focus"), 1);
    EXPECT_EQ(Error, "File check: The directory " + In_Directory("nowhere") + " does not exist.\n");
}

} // namespace orvel
