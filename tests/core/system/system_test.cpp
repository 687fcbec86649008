// What the smaller units of core/system promise on every operating system.
#include "core/files.h"
#include "core/system/flush.h"
#include "core/system/processors.h"
#include "core/system/program_path.h"
#include "core/system/rights.h"
#include "core/system/times.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>
#include <set>

namespace orvel {

TEST(Read_Tail, Gives_The_Last_Bytes_And_Nothing_Without_A_File)
{
    const Temporary_Directory place;
    Write_Whole(place / "file", "0123456789");

    EXPECT_EQ(Read_Tail(place / "file", 3), "789");
    EXPECT_EQ(Read_Tail(place / "file", 30), "0123456789");
    EXPECT_EQ(Read_Head(place / "file", 3), "012");
    EXPECT_EQ(Read_Head(place / "file", 30), "0123456789");
    EXPECT_EQ(Read_Tail(place / "missing", 3), "");
    EXPECT_EQ(Read_Head(place / "missing", 3), "");
}

TEST(Make_Unique_Directory, Gives_Another_Name_Each_Time)
{
    const Temporary_Directory place;
    std::set<std::string> names;

    for (int i = 0; i < 20; ++i)
        names.insert(Make_Unique_Directory(place / "marked-").value().filename().string());

    EXPECT_EQ(names.size(), 20u);
    for (const auto& name : names)
        EXPECT_TRUE(Matches(name, "marked-??????")) << name;
    EXPECT_EQ(Make_Unique_Directory(place / "missing" / "marked-"), std::nullopt);
}

TEST(Flush, Reaches_Directories_With_Their_Files)
{
    const Temporary_Directory place;
    Write_Whole(place / "file", "bytes");

    EXPECT_TRUE(Flush_Directory_And_Files(place.Path()));
    EXPECT_FALSE(Flush_File_System(place.Path()));
    EXPECT_FALSE(Flush_Directory_And_Files(place / "missing"));
    EXPECT_TRUE(Flush_File_System(place / "missing"));
}

TEST(Program_Path, Finds_This_Program_And_What_Lies_Beside_It)
{
    EXPECT_EQ(Own_Path().stem(), "system_test");
    EXPECT_EQ(Program_Beside("other").parent_path(), Own_Path().parent_path());
    EXPECT_EQ(Program_Beside("other").stem(), "other");
    EXPECT_EQ(Program_In_Path("no such program"), "");
    EXPECT_GE(Processors(), 1);
}

TEST(Rights, Are_None_Where_There_Is_No_File)
{
    const Temporary_Directory place;
    Write_Whole(place / "file", "");

    EXPECT_TRUE(May_Read(place / "file"));
    EXPECT_TRUE(May_Write(place / "file"));
    EXPECT_TRUE(May_Change_Entries(place.Path()));
    EXPECT_FALSE(May_Read(place / "missing"));
    EXPECT_FALSE(May_Write(place / "missing"));
    EXPECT_FALSE(May_Change_Entries(place / "missing"));
}

TEST(Times, Know_When_A_File_Was_Changed)
{
    const Temporary_Directory place;
    const std::time_t before = std::time(nullptr);
    Write_Whole(place / "file", "");

    EXPECT_GE(Last_Change(place / "file"), before - 1);
    EXPECT_LE(Last_Change(place / "file"), std::time(nullptr) + 1);
    EXPECT_EQ(Last_Change(place / "missing"), 0);
}

} // namespace orvel
