#include "core/named_input.h"

#include "core/files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

TEST(Named_Input_Test, Files_Of_Several_Directories_Are_Found_In_Any_Case)
{
    const Temporary_Directory place;
    fs::create_directories(place / "Inputs" / "focus");
    fs::create_directories(place / "runs" / "1");
    for (const char* name : {"Inputs/H_01.cli", "Inputs/focus/H_02.cli", "runs/1/own.psm"})
        Write_Whole(place / name, "x");

    Named_Inputs named(place / "runs" / "1");
    const auto found = [&](std::string_view name) {
        const auto file = named.Find(name);
        return file ? fs::relative(*file, place.Path()).string() : "nothing";
    };

    EXPECT_EQ(found("..\\..\\inputs\\h_01.CLI"), "Inputs/H_01.cli");
    EXPECT_EQ(found("..\\..\\inputs\\h_02.cli"), "nothing"); // of the other directory
    EXPECT_EQ(found("../../INPUTS/Focus/h_02.cli"), "Inputs/focus/H_02.cli");
    EXPECT_EQ(found(" OWN.PSM "), "runs/1/own.psm");
    EXPECT_EQ(found("..\\none\\H_01.cli"), "nothing");
    EXPECT_EQ(found((place / "inputs" / "h_01.cli").string()), "Inputs/H_01.cli");
    EXPECT_EQ(found(""), "nothing");
}

} // namespace orvel
