#include "core/files.h"
#include "core/system/spawn.h"
#include "core/text.h"
#include "output/engine_files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

struct Outcome {
    int Exit = -1;
    std::string Printed;
};

class Utilities : public testing::Test {
protected:
    Utilities() { Write_File(Place / "datum.dat", "1 30 12 1\r\n2 31 12 1\r\n3 1 1 2\r\n"); }

    Outcome Run(const std::string& name)
    {
        const Temporary_Directory told;
        const Program_End end = Wait_For_Program(Start_Program({.Program = std::filesystem::path(UTILITIES) / name,
                                                                .Directory = Place.Path(),
                                                                .Output = told / "printed"}));
        return {.Exit = end.Exit_Code, .Printed = Read_Whole(told / "printed")};
    }

    static std::string Head()
    {
        return Lines({"Engine", "", "Scenario", "Pesticide", "", "line 6", "    24     1     0", "            PRSN",
                      "                 0.0", "           1.0   "}) +
               Plot_Line(1, 1, {"0.0"});
    }

    Temporary_Directory Place;
};

// The first rows of a table, without the blanks that fill its cells.
std::vector<std::string> First_Cells(const std::string& table)
{
    std::vector<std::string> rows;
    bool inside = false;
    for (const auto line : Split_Lines(table)) {
        if (Contains(line, "---"))
            inside = !inside;
        else if (inside)
            rows.push_back(Replace_All(Replace_All(std::string(line), " ", ""), "\t", " "));
    }
    return rows;
}

} // namespace

TEST_F(Utilities, Each_Makes_Its_Table_In_The_Working_Directory)
{
    Write_File(Place / "plot.orv",
               Head() + Plot_Line(1, 24, {"0.25"}) + Plot_Line(2, 24, {"0.5"}) + Plot_Line(3, 24, {"2.0"}));

    for (const auto* name : {"wyear.exe", "wmonth.exe", "wday.exe"}) {
        const auto outcome = Run(name);
        EXPECT_EQ(outcome.Exit, 0) << outcome.Printed;
        EXPECT_EQ(outcome.Printed, "");
    }

    EXPECT_EQ(First_Cells(Read_File(Place / "year.orv")),
              (std::vector<std::string>{" 1 2 0.7500000", " 2 1 2.0000000"}));
    EXPECT_EQ(First_Cells(Read_File(Place / "month.orv")),
              (std::vector<std::string>{" 1 12 2 0.7500000", " 2 1 1 2.0000000"}));
    EXPECT_EQ(First_Cells(Read_File(Place / "day.orv")),
              (std::vector<std::string>{" 1 12 30 0.2500000", " 1 12 31 0.5000000", " 2 1 1 2.0000000"}));
}

TEST_F(Utilities, Without_Whole_Series_They_Fail_With_A_Sentence_And_Leave_No_File)
{
    const auto expect_failure = [&](const std::string& sentence) {
        for (const auto* name : {"wyear.exe", "wmonth.exe", "wday.exe"}) {
            const auto outcome = Run(name);
            EXPECT_EQ(outcome.Exit, 1);
            EXPECT_EQ(outcome.Printed, sentence + "\n");
        }
        for (const auto& entry : fs::directory_iterator(Place.Path()))
            EXPECT_TRUE(entry.path().filename() == "plot.orv" || entry.path().filename() == "datum.dat")
                << entry.path();
    };

    expect_failure("The file plot.orv is missing.");
    Write_File(Place / "plot.orv", "");
    expect_failure("The file plot.orv is empty or ends within its head.");
    Write_File(Place / "plot.orv", Head() + Plot_Line(1, 24, {"0.25"}).substr(0, 15));
    expect_failure("The file plot.orv is damaged in line 12: it has not the 1 values of the head.");
    Write_File(Place / "plot.orv", Head() + Plot_Line(1, 24, {"0.25"}) + Plot_Line(2, 24, {"0.5"}));
    expect_failure("The file plot.orv ends on 31.12.1, which is not the end of its run of 2 years.");
}

} // namespace orvel
