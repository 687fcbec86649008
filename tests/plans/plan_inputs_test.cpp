#include "plans/plan_inputs.h"

#include "core/files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

// A colon is no part of a name on Windows.
TEST(Plan_Inputs, A_File_On_A_Drive_Is_Kept_Below_A_Directory_Of_The_Drive)
{
    const Temporary_Directory plan;
    std::filesystem::create_directories(plan / "inputs" / "files" / "_drive_C" / "my data");
    Write_Whole(plan / "inputs" / "files" / "_drive_C" / "my data" / "a.psm", "");

    const auto input = Plan_Inputs::Of_Plan(plan.Path()).Named_File("C:\\my data\\a.psm");

    EXPECT_EQ(input.Kept, "files/_drive_C/my data/a.psm");
    EXPECT_TRUE(std::filesystem::exists(input.File));
}

} // namespace orvel
