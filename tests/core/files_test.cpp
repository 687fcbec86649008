#include "core/files.h"

#include "core/system/lock.h"
#include "plain_files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

TEST(Find_File, Looks_At_No_Case)
{
    Temporary_Directory place;
    Put(place / "Wasser.ORV", "");

    EXPECT_TRUE(fs::equivalent(Find_File(place.Path(), "wasser.orv").value(), place / "Wasser.ORV"));
    EXPECT_EQ(Find_File(place.Path(), "chem.orv"), std::nullopt);
    EXPECT_EQ(Found_Or_New(place.Path(), "chem.orv"), place / "chem.orv");
}

TEST(List_Files, Sorts_By_Name_Without_Regard_To_Case)
{
    Temporary_Directory place;
    for (const char* name : {"beta.psm", "Alpha.PSM", "gamma.psm", "other.sze"})
        Put(place / name, "");
    fs::create_directory(place / "delta.psm");

    EXPECT_EQ(List_Files(place.Path(), "*.psm"), (std::vector<std::string>{"Alpha.PSM", "beta.psm", "gamma.psm"}));
    EXPECT_EQ(List_Directories(place.Path(), "*.psm"), (std::vector<std::string>{"delta.psm"}));
    EXPECT_TRUE(List_Files(place / "missing", "*").empty());
}

TEST(Matches, Knows_Stars_And_Question_Marks)
{
    EXPECT_TRUE(Matches("C_apples.sze", "?_APPLES.sze"));
    EXPECT_FALSE(Matches("T_N_apples.sze", "?_apples.sze"));
    EXPECT_TRUE(Matches("orvel401.exe", "orvel*.exe"));
    EXPECT_TRUE(Matches("anything", "*"));
    EXPECT_TRUE(Matches("aXbXc", "a*b*c"));
    EXPECT_FALSE(Matches("abd", "a*c"));
}

TEST(Write_Whole, Replaces_The_File_And_Leaves_Nothing_Beside_It)
{
    Temporary_Directory place;
    Put(place / "file", "old");

    Write_Whole(place / "file", "new");

    EXPECT_EQ(Slurp(place / "file"), "new");
    EXPECT_EQ(Entries(place.Path()), 1U);
}

TEST(Write_Whole, Refuses_A_Read_Only_Target_For_Root_Too)
{
    Temporary_Directory place;
    Put(place / "file", "old");
    Set_Read_Only(place / "file", true);

    EXPECT_THROW(Write_Whole(place / "file", "new"), File_Error);
    EXPECT_EQ(Slurp(place / "file"), "old");
}

TEST(Write_Whole, Sweeps_What_A_Killed_Save_Left_But_Not_What_One_At_Work_Needs)
{
    Temporary_Directory place;
    for (const char* name : {".orvel-save-killed", ".orvel-save-atwork", ".orvel-save-justnw", ".orvel-save-mine.psm"})
        Put(place / name, "");
    const auto old = fs::file_time_type::clock::now() - std::chrono::minutes(1);
    for (const char* name : {".orvel-save-killed", ".orvel-save-atwork", ".orvel-save-mine.psm"})
        fs::last_write_time(place / name, old);
    const auto at_work = Lock::Take(place / ".orvel-save-atwork");

    Write_Whole(place / "file", "new");

    EXPECT_FALSE(fs::exists(place / ".orvel-save-killed"));
    EXPECT_TRUE(fs::exists(place / ".orvel-save-atwork"));
    EXPECT_TRUE(fs::exists(place / ".orvel-save-justnw"));
    EXPECT_TRUE(fs::exists(place / ".orvel-save-mine.psm"));
}

TEST(Write_Whole, Tells_A_Failure_And_Leaves_The_Old_File)
{
    Temporary_Directory place;
    fs::create_directory(place / "file");

    EXPECT_THROW(Write_Whole(place / "file", "new"), File_Error);
    EXPECT_THROW(Write_Whole(place / "missing" / "file", "new"), File_Error);
    EXPECT_TRUE(fs::is_directory(place / "file"));
    EXPECT_EQ(Entries(place.Path()), 1U);
}

TEST(Read_Whole, Refuses_A_File_That_Is_Too_Large)
{
    Temporary_Directory place;
    Put(place / "file", "12345");

    EXPECT_EQ(Read_Whole(place / "file", 5), "12345");
    EXPECT_THROW(Read_Whole(place / "file", 4), File_Error);
    EXPECT_THROW(Read_Whole(place / "missing"), File_Error);
    EXPECT_THROW(Read_Whole(place.Path()), File_Error);
}

TEST(Read_If_There, Is_Empty_For_A_Missing_File_And_Throws_For_One_That_Cannot_Be_Read)
{
    Temporary_Directory place;
    fs::create_directory(place / "directory");
    Put(place / "File", "bytes");

    EXPECT_EQ(Read_If_There(place.Path(), "missing"), "");
    EXPECT_EQ(Read_If_There(place / "nowhere", "missing"), "");
    EXPECT_EQ(Read_If_There(place.Path(), "FILE"), "bytes");
    EXPECT_THROW(Read_If_There(place.Path(), "directory"), File_Error);
}

TEST(Read_Head, And_Read_Tail_Give_Both_Ends_And_Tell_A_Failure)
{
    Temporary_Directory place;
    fs::create_directory(place / "directory");
    Put(place / "file", "0123456789");

    EXPECT_EQ(Read_Head(place / "file", 3), "012");
    EXPECT_EQ(Read_Tail(place / "file", 3), "789");
    EXPECT_EQ(Read_Tail(place / "file", 30), "0123456789");
    EXPECT_EQ(Read_Head(place / "missing", 3) + Read_Tail(place / "missing", 3), "");
    EXPECT_THROW(Read_Head(place / "directory", 3), File_Error);
    EXPECT_THROW(Read_Tail(place / "directory", 3), File_Error);
}

TEST(Pass_On_If_Unreadable, Passes_On_What_Is_Not_Known_To_Be_Missing_Or_Damaged)
{
    Temporary_Directory place;
    const auto taken_for_none = [](auto read) {
        try {
            read();
        } catch (const File_Error& error) {
            Pass_On_If_Unreadable(error);
        }
    };

    EXPECT_NO_THROW(taken_for_none([&] { Read_Whole(place / "missing"); }));
    EXPECT_NO_THROW(taken_for_none([&] { throw File_Error("There is no such metabolite.", 3); }));
    EXPECT_THROW(taken_for_none([&] { Read_Whole(place.Path()); }), File_Error);
}

TEST(Copy_Whole, Makes_A_Writable_Copy_Of_A_Read_Only_File)
{
    Temporary_Directory place;
    Put(place / "from", "bytes");
    Set_Read_Only(place / "from", true);

    Copy_Whole(place / "from", place / "to");

    EXPECT_EQ(Slurp(place / "to"), "bytes");
    EXPECT_FALSE(Is_Read_Only(place / "to"));
}

TEST(Path_Of, Is_The_Unicode_Name_Of_Bytes_Of_The_Code_Page)
{
    EXPECT_EQ(Path_Of("Ch\xE2teaudun").string(), "Châteaudun");
    EXPECT_EQ(Name_Of(fs::path("Châteaudun")), "Ch\xE2teaudun");
    EXPECT_EQ(Name_Of(fs::path("α.psm")), std::nullopt);
}

} // namespace orvel
