#include "records/reproduce.h"

#include "core/sha256.h"
#include "core/system/processors.h"
#include "records/archived_run.h"
#include "records/compare.h"

#include <cstdlib>

namespace orvel {

namespace fs = std::filesystem;

class Reproduce_Test : public Archived_Run_Test {
protected:
    Reproduce_Test()
    {
        Archive(Home / "a.zip");
        fs::create_directory(Home / "temporary");
        ::setenv("TMPDIR", (Home / "temporary").c_str(), 1);
    }
    ~Reproduce_Test() override { ::unsetenv("TMPDIR"); }

    Reproduction Again(double tolerance = 0, const fs::path& engine = {})
    {
        return Reproduce(
            {.Archive = Home / "a.zip", .Engine = engine, .App_Path = Home.Path(), .Tolerance = tolerance});
    }

    bool Left_Nothing() { return fs::is_empty(Home / "temporary"); }
};

TEST_F(Reproduce_Test, The_Same_Engine_Gives_The_Same_Bytes)
{
    const auto reproduction = Again();

    ASSERT_EQ(reproduction.Runs.size(), 2U);
    EXPECT_EQ(reproduction.Runs[0].Fault, "");
    EXPECT_TRUE(reproduction.Has_Same_Bytes());
    EXPECT_TRUE(reproduction.Is_Same());
    EXPECT_EQ(reproduction.Notes, std::vector<std::string>());
    EXPECT_TRUE(Left_Nothing());
}

TEST_F(Reproduce_Test, Other_Outputs_Are_Named_And_So_Is_The_Other_Engine)
{
    const auto model = (Home / "output of 2").string();
    Engine("cp '" + model + "'/*.orv .\necho more >>echo.orv\necho more >another.orv");

    const auto reproduction = Again();

    EXPECT_EQ(reproduction.Runs[0].Differing, (std::vector<std::string>{"echo.orv", "another.orv"}));
    EXPECT_FALSE(reproduction.Is_Same());
    ASSERT_EQ(reproduction.Notes.size(), 1U);
    EXPECT_TRUE(reproduction.Notes[0].starts_with("The engine orvel401.exe is not the one of the archive"));
    EXPECT_TRUE(Again(0.001).Is_Same()); // the percentiles are the same
}

TEST_F(Reproduce_Test, A_Feature_That_The_Processor_Lacks_Is_Named_When_Bytes_Differ)
{
    for (const auto& location : {"Hamburg_-_(H).run", "Porto_-_(O).run"}) {
        const auto run = Pesticide_Place() / "Maize.run" / location;
        Put(run / "Wasser.orv", Read_Whole(run / "Wasser.orv") + "more\r\n");
        Run_Record record = Read_Run_Record(run).value();
        record.Processor = Processor_Features() + " neon9";
        for (auto& output : record.Outputs) {
            if (output.File.Name == "Wasser.orv")
                output.File = {"Wasser.orv", fs::file_size(run / "Wasser.orv"), Sha256_Of_File(run / "Wasser.orv")};
        }
        Put(run / "run.json", Format_Run_Record(record));
    }
    Archive(Home / "a.zip");

    const auto reproduction = Again();

    EXPECT_EQ(reproduction.Runs[1].Differing, std::vector<std::string>{"Wasser.orv"});
    EXPECT_EQ(reproduction.Notes, std::vector<std::string>{"The processor of this computer lacks neon9, which that of "
                                                           "the archived simulations has."});
}

TEST_F(Reproduce_Test, A_Run_That_Fails_Now_Or_Was_Not_Complete_Is_A_Fault)
{
    Engine("exit 3");
    EXPECT_EQ(Again(100).Runs[0].Fault, "The engine ended with exit code 3.");
    EXPECT_FALSE(Again(100).Is_Same());

    fs::remove(Hamburg() / "run.json");
    Archive(Home / "a.zip");
    Good_Engine(2);
    const auto reproduction = Again(100);
    EXPECT_EQ(reproduction.Runs[0].Fault, "The archived simulation is not complete.");
    EXPECT_EQ(reproduction.Runs[1].Fault, "");
    EXPECT_FALSE(reproduction.Is_Same());
}

TEST_F(Reproduce_Test, An_Input_That_The_Archive_Lacks_Is_A_Fault_With_Its_Name)
{
    fs::remove(Home / "focus" / "H_01.cli");
    Archive(Home / "a.zip");

    EXPECT_EQ(Again().Runs[0].Fault, "The input ..\\..\\..\\H_01.cli is missing.");
}

TEST_F(Reproduce_Test, The_Engine_Must_Be_There_And_Be_One_That_May_Be_Run)
{
    EXPECT_NE(Told([&] { Again(0, Home / "none.exe"); }).find("is missing"), std::string::npos);
    Put(Home / "other.exe", "#!/bin/sh\n");
    EXPECT_NE(Told([&] { Again(0, Home / "other.exe"); }).find("has no right to be run"), std::string::npos);
    fs::permissions(Home / "other.exe", fs::perms::all);
    EXPECT_NE(Told([&] { Again(0, Home / "other.exe"); }).find("Every user of this computer may change"),
              std::string::npos);
}

TEST_F(Reproduce_Test, A_Stop_Ends_The_Engines_And_Leaves_No_Files)
{
    Engine("exec sleep 60");
    const auto stop_at_work = [](const std::string& text, double) { return !text.ends_with(" runs"); };
    const auto begun = std::chrono::steady_clock::now();

    EXPECT_THROW(Reproduce({.Archive = Home / "a.zip", .App_Path = Home.Path()}, stop_at_work), File_Error);

    EXPECT_LT(std::chrono::steady_clock::now() - begun, std::chrono::seconds(20));
    EXPECT_TRUE(Left_Nothing());
}

TEST_F(Reproduce_Test, An_Archive_Can_Be_Compared_With_Its_Installation_By_What_It_Holds)
{
    Pesticide("another.psm");
    EXPECT_TRUE(Compare(Home / "a.zip", Home.Path(), 0).Is_Same())
        << Comparison_Lines(Compare(Home / "a.zip", Home.Path(), 0));
    EXPECT_TRUE(Compare(Home.Path(), Home / "a.zip", 0).Is_Same());
    EXPECT_TRUE(Compare(Home / "a.zip", Home / "a.zip", 0).Is_Same());

    fs::remove_all(Hamburg());
    const auto comparison = Compare(Home / "a.zip", Home.Path(), 0);
    EXPECT_FALSE(comparison.Is_Same());
    EXPECT_EQ(comparison.Results[0].Second_State, "There is no such simulation.");
}

} // namespace orvel
