// Files that only a POSIX system has: links, pipes, devices, owners, names that differ in case alone.
#include "core/files.h"
#include "core/system/lock.h"
#include "plain_files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvel {

namespace fs = std::filesystem;

TEST(Find_File, Prefers_The_Exact_Name)
{
    Temporary_Directory place;
    Put(place / "A.psm", "upper");
    Put(place / "a.psm", "lower");

    EXPECT_EQ(Find_File(place.Path(), "a.psm"), place / "a.psm");
    EXPECT_EQ(Find_File(place.Path(), "a.PSM"), place / "A.psm");
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

TEST(Write_Whole, Keeps_The_Mode_Of_The_File_It_Replaces)
{
    Temporary_Directory place;
    Put(place / "file", "old");
    fs::permissions(place / "file", fs::perms::owner_all);

    Write_Whole(place / "file", "new");

    EXPECT_EQ(fs::status(place / "file").permissions(), fs::perms::owner_all);
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

TEST(A_Lock, That_Cannot_Be_Tested_Is_Told_And_Not_Taken_For_Free)
{
    Temporary_Directory place;
    fs::create_symlink("loop", place / "loop");

    EXPECT_THROW(Is_Locked(place / "loop"), File_Error);
    EXPECT_THROW(Lock::Take(place / "loop"), File_Error);
}

} // namespace orvel
