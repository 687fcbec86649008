// What the times of a run's files prove, and how often files that runs share are looked at.
#include "output/record_check.h"

#include "core/files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

class Record_Check_Test : public testing::Test {
protected:
    Record_Check_Test()
    {
        Write_Whole(Home / "orvel401.exe", "an engine");
        fs::create_directories(Mode());
        Write_Whole(Mode() / "H_01.cli", "a climate");
    }

    fs::path Mode() const { return Home / "focus"; }

    // A run that reads the mode's climate, its record written last.
    fs::path Add_Run(const fs::path& run)
    {
        fs::create_directories(run);
        Write_Whole(run / "orvel.inp", "control");
        Write_Whole(run / "chem.orv", "output");
        Write_Whole(run / Run_Record_Name, "written last");
        return run;
    }

    const Run_Record Record{
        .Engine = {"orvel401.exe", 9, {}},
        .Inputs = {{"orvel.inp", 7, {}}, {"../../../H_01.cli", 9, {}}},
        .Start = std::time(nullptr),
        .End = std::time(nullptr) + 3600,
        .Outputs = {{{"chem.orv", 6, {}}, {}}},
        .Verdict = Verdict::Complete,
    };
    Temporary_Directory Home;
    Record_Check Check{Home.Path()};
};

} // namespace

TEST_F(Record_Check_Test, A_Shared_Input_That_Changes_Is_Seen_When_The_Next_Pass_Begins)
{
    const auto first = Add_Run(Mode() / "a.run/Maize.run/Porto.run"),
               second = Add_Run(Mode() / "a.run/Maize.run/Thiva.run");
    EXPECT_EQ(Check.By_Times(first, Record), Proof::Same);

    Write_Whole(Mode() / "H_01.cli", "A CLIMATE");
    EXPECT_EQ(Check.By_Times(second, Record), Proof::Same) << "it was looked at in this pass";
    Check.Begin_Pass();
    EXPECT_EQ(Check.By_Times(second, Record), Proof::Unknown) << "the bytes may be others";

    fs::remove(Mode() / "H_01.cli");
    Check.Begin_Pass();
    EXPECT_EQ(Check.By_Times(first, Record), Proof::Changed);
    EXPECT_EQ(Check.By_Times(second, Record), Proof::Changed);
}

TEST_F(Record_Check_Test, The_Runs_Own_Files_Are_Looked_At_Each_Time)
{
    const auto run = Add_Run(Mode() / "a.run/Maize.run/Porto.run");
    EXPECT_EQ(Check.By_Times(run, Record), Proof::Same);

    Write_Whole(run / "orvel.inp", "CONTROL");

    EXPECT_EQ(Check.By_Times(run, Record), Proof::Unknown);
}

TEST_F(Record_Check_Test, Inputs_Of_The_Same_Name_In_Two_Modes_Are_Two)
{
    const auto here = Add_Run(Mode() / "a.run/Maize.run/Porto.run");
    const auto there = Add_Run(Home / "EFSA/a.run/Maize.run/Porto.run"); // without the climate

    EXPECT_EQ(Check.By_Times(here, Record), Proof::Same);
    EXPECT_EQ(Check.By_Times(there, Record), Proof::Changed);
}

TEST_F(Record_Check_Test, A_Run_Reached_By_A_Link_Has_The_Inputs_Of_The_Place_That_It_Leads_To)
{
    const auto here = Add_Run(Mode() / "a.run/Maize.run/Porto.run");
    const auto there = Add_Run(Home / "EFSA/a.run/Maize.run/Porto.run");
    fs::create_directory_symlink(there, here.parent_path() / "Thiva.run");

    EXPECT_EQ(Check.By_Times(here, Record), Proof::Same);
    EXPECT_EQ(Check.By_Times(here.parent_path() / "Thiva.run", Record), Proof::Changed);
}

} // namespace orvel
