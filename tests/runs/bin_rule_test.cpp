// How much a bin keeps by the rule of its installation.
#include "runs/bin_rule.h"

#include "core/files.h"
#include "runs/bin.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

class Bin_Rule_Test : public testing::Test {
protected:
    Bin_Rule_Test() { fs::create_directories(Mode()); }
    fs::path Mode() const { return Home / "focus"; }

    // A run of 600,000 bytes goes to the bin, in a generation of its own.
    void Remove_A_Run(const std::string& location)
    {
        const fs::path run = Mode() / "p.run" / "c.run" / (location + ".run");
        fs::create_directories(run);
        Write_Whole(run / "chem.orv", std::string(600'000, 'x'));
        Begin_Generation(Mode());
        Move_To_Bin(Mode(), run);
    }
    std::vector<std::string> In_Bin() const
    {
        std::vector<std::string> locations;
        for (const auto& binned : Runs_In_Bin(Mode()))
            locations.push_back(binned.Run.stem().string());
        return locations;
    }

    static constexpr std::time_t Day = 86'400;
    Temporary_Directory Home;
};

} // namespace

TEST_F(Bin_Rule_Test, Without_A_Rule_Everything_Stays)
{
    for (const char* location : {"a", "b", "c"})
        Remove_A_Run(location);

    Empty_Bin(Mode(), std::time(nullptr) + 1000 * Day);

    EXPECT_EQ(In_Bin(), (std::vector<std::string>{"c", "b", "a"}));
}

TEST_F(Bin_Rule_Test, Of_More_Than_The_Megabytes_The_Oldest_Go)
{
    for (const char* location : {"a", "b", "c", "d"})
        Remove_A_Run(location);
    Write_Bin_Rule(Home.Path(), {.Megabytes = 2});

    Empty_Bin(Mode());

    EXPECT_EQ(In_Bin(), (std::vector<std::string>{"d", "c", "b"})) << "1.8 of 2.4 MB";
    EXPECT_FALSE(fs::exists(Mode() / "bin" / "0001")) << "nothing is left of a generation that is empty";
}

TEST_F(Bin_Rule_Test, What_Is_Older_Than_The_Days_Goes_But_What_Was_Put_There_Last_Stays)
{
    for (const char* location : {"a", "b"})
        Remove_A_Run(location);
    Write_Bin_Rule(Home.Path(), {.Days = 30});

    Empty_Bin(Mode(), std::time(nullptr) + 29 * Day);
    EXPECT_EQ(In_Bin(), (std::vector<std::string>{"b", "a"}));
    Empty_Bin(Mode(), std::time(nullptr) + 31 * Day);
    EXPECT_EQ(In_Bin(), std::vector<std::string>{"b"});

    Write_Bin_Rule(Home.Path(), {.Megabytes = 1});
    Remove_A_Run("c");
    Empty_Bin(Mode());
    EXPECT_EQ(In_Bin(), std::vector<std::string>{"c"});
}

TEST_F(Bin_Rule_Test, A_Rule_That_Cannot_Be_Read_Is_Told_And_Nothing_Goes)
{
    Remove_A_Run("a");
    Remove_A_Run("b");
    for (const char* damaged :
         {"", "{", "{\"megabytes\": 1}", "{\"megabytes\": -1, \"days\": 1}", "{\"megabytes\": 1, \"days\": 99999}"}) {
        Write_Whole(Home / "bin.json", damaged);
        EXPECT_THROW(Empty_Bin(Mode()), File_Error) << damaged;
    }
    EXPECT_EQ(In_Bin().size(), 2U);
}

TEST_F(Bin_Rule_Test, A_Link_In_The_Bin_Is_Left_With_What_It_Leads_To)
{
    Remove_A_Run("a");
    fs::create_directories(Home / "elsewhere" / "l.run");
    Write_Whole(Home / "elsewhere" / "l.run" / "mine.txt", "mine");
    fs::create_directories(Mode() / "bin" / "0001" / "q.run");
    fs::create_directory_symlink(Home / "elsewhere", Mode() / "bin" / "0001" / "q.run" / "c.run");
    Remove_A_Run("b");
    Write_Bin_Rule(Home.Path(), {.Days = 1});

    Empty_Bin(Mode(), std::time(nullptr) + 2 * Day);

    EXPECT_TRUE(fs::exists(Home / "elsewhere" / "l.run" / "mine.txt"));
}

} // namespace orvel
