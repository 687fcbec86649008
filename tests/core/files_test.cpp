#include "core/files.h"

#include "core/system/lock.h"
#include "temporary_directory.h"

#include <fstream>
#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

void Put(const fs::path& file, std::string_view bytes)
{
    std::ofstream(file, std::ios::binary) << bytes;
}

std::string Slurp(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::size_t Entries(const fs::path& directory)
{
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(directory), fs::directory_iterator()));
}

} // namespace

TEST(Find_File, Looks_At_No_Case)
{
    Temporary_Directory place;
    Put(place / "Wasser.ORV", "");

    EXPECT_EQ(Find_File(place.Path(), "wasser.orv"), place / "Wasser.ORV");
    EXPECT_EQ(Find_File(place.Path(), "chem.orv"), std::nullopt);
    EXPECT_EQ(Found_Or_New(place.Path(), "chem.orv"), place / "chem.orv");
}

TEST(Find_File, Prefers_The_Exact_Name)
{
    Temporary_Directory place;
    Put(place / "A.psm", "upper");
    Put(place / "a.psm", "lower");

    EXPECT_EQ(Find_File(place.Path(), "a.psm"), place / "a.psm");
    EXPECT_EQ(Find_File(place.Path(), "a.PSM"), place / "A.psm");
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

TEST(Write_Whole, Keeps_The_Mode_Of_The_File_It_Replaces)
{
    Temporary_Directory place;
    Put(place / "file", "old");
    fs::permissions(place / "file", fs::perms::owner_all);

    Write_Whole(place / "file", "new");

    EXPECT_EQ(fs::status(place / "file").permissions(), fs::perms::owner_all);
}

TEST(Write_Whole, Refuses_A_Read_Only_Target_For_Root_Too)
{
    Temporary_Directory place;
    Put(place / "file", "old");
    Set_Read_Only(place / "file", true);

    EXPECT_THROW(Write_Whole(place / "file", "new"), File_Error);
    EXPECT_EQ(Slurp(place / "file"), "old");
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

TEST(A_Lock, Is_Seen_While_It_Is_Held_And_Not_After)
{
    Temporary_Directory place;

    EXPECT_FALSE(Is_Locked(place.Path()));
    {
        const auto lock = Lock::Take(place.Path());
        ASSERT_TRUE(lock);
        EXPECT_TRUE(Is_Locked(place.Path()));
        EXPECT_FALSE(Lock::Take(place.Path()));
    }
    EXPECT_FALSE(Is_Locked(place.Path()));
    EXPECT_FALSE(Is_Locked(place / "missing"));
}

} // namespace orvel
