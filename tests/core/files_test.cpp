#include "core/files.h"

#include "core/system/lock.h"
#include "temporary_directory.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

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

TEST(List_Files, Tells_A_Directory_That_Cannot_Be_Read)
{
    Temporary_Directory place;
    fs::create_symlink("loop", place / "loop");

    EXPECT_THROW(List_Files(place / "loop", "*"), File_Error);
    EXPECT_THROW(List_Directories(place / "loop", "*"), File_Error);
    EXPECT_THROW(Find_File(place / "loop", "file"), File_Error);
    EXPECT_EQ(Find_File(place.Path(), std::string(300, 'x')), std::nullopt);
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

TEST(Write_Whole, Keeps_The_Owner_Of_The_File_It_Replaces)
{
    if (::geteuid() != 0)
        GTEST_SKIP() << "only the superuser may give files away";
    Temporary_Directory place;
    Put(place / "file", "old");
    ASSERT_EQ(::chown((place / "file").c_str(), 1234, 4321), 0);
    fs::permissions(place / "file", fs::perms(0640));

    Write_Whole(place / "file", "new");

    struct stat about {};
    ASSERT_EQ(::stat((place / "file").c_str(), &about), 0);
    EXPECT_EQ(about.st_uid, 1234U);
    EXPECT_EQ(about.st_gid, 4321U);
    EXPECT_EQ(about.st_mode & 07777U, 0640U);
    EXPECT_EQ(Slurp(place / "file"), "new");
}

TEST(Write_Whole, Takes_Names_As_Long_As_The_System_Does)
{
    Temporary_Directory place;
    const std::string longest(255, 'n');

    Write_Whole(place / longest, "first");
    Write_Whole(place / longest, "second");

    EXPECT_EQ(Slurp(place / longest), "second");
    EXPECT_EQ(Entries(place.Path()), 1U);
    EXPECT_THROW(Write_Whole(place / (longest + "n"), "third"), File_Error);
}

TEST(Write_Whole, Leaves_Alone_What_Is_No_Ordinary_File)
{
    Temporary_Directory place, elsewhere;
    Put(elsewhere / "document", "kept");
    fs::create_symlink(elsewhere / "document", place / "link");
    ASSERT_EQ(::mkfifo((place / "pipe").c_str(), 0600), 0);
    fs::create_symlink("loop", place / "loop");

    for (const char* name : {"link", "pipe", "loop"}) {
        EXPECT_THROW(Write_Whole(place / name, "new"), File_Error) << name;
        EXPECT_THROW(Read_Whole(place / name), File_Error) << name;
    }
    EXPECT_THROW(Write_Whole("/dev/null", "new"), File_Error);
    EXPECT_THROW(Read_Whole("/dev/zero"), File_Error);

    EXPECT_TRUE(fs::is_symlink(place / "link"));
    EXPECT_TRUE(fs::is_fifo(place / "pipe"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(Slurp(elsewhere / "document"), "kept");
    EXPECT_EQ(Entries(place.Path()), 3U);
}

TEST(Write_Whole, Says_Why_It_Leaves_A_File_Alone)
{
    Temporary_Directory place, elsewhere;
    fs::create_symlink(elsewhere / "document", place / "link");
    ASSERT_EQ(::mkfifo((place / "pipe").c_str(), 0600), 0);
    const auto reason = [&](const char* name) -> std::string {
        try {
            Read_Whole(place / name);
        } catch (const File_Error& error) {
            return error.what();
        }
        return "";
    };

    EXPECT_EQ(reason("link"), "Cannot read " + (place / "link").string() +
                                  ": It is a link that leads to another directory, not an ordinary file.");
    EXPECT_EQ(reason("pipe"),
              "Cannot read " + (place / "pipe").string() + ": It is a pipe or a device, not an ordinary file.");
}

TEST(Write_Whole, Follows_A_Link_Within_The_Directory)
{
    Temporary_Directory place;
    Put(place / "file", "old");
    fs::create_symlink("file", place / "link");

    Write_Whole(place / "link", "new");

    EXPECT_EQ(Slurp(place / "file"), "new");
    EXPECT_EQ(Read_Whole(place / "link"), "new");
    EXPECT_TRUE(fs::is_symlink(place / "link"));
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

TEST(A_Lock, That_Cannot_Be_Tested_Is_Told_And_Not_Taken_For_Free)
{
    Temporary_Directory place;
    fs::create_symlink("loop", place / "loop");

    EXPECT_THROW(Is_Locked(place / "loop"), File_Error);
    EXPECT_THROW(Lock::Take(place / "loop"), File_Error);
}

} // namespace orvel
