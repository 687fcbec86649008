// Paths that are longer than the 260 characters that some functions of some systems take.
#include "core/files.h"
#include "core/system/companion.h"
#include "core/system/file_identity.h"
#include "core/system/lock.h"
#include "core/system/rename.h"

#include <fstream>
#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

// About 400 characters, none of its names longer than 100.
class Long_Path_Test : public testing::Test {
protected:
    Long_Path_Test() { fs::create_directories(Deep); }
    ~Long_Path_Test() override
    {
        std::error_code error;
        fs::remove_all(Place.Path(), error);
        EXPECT_FALSE(error || fs::exists(Place.Path()));
    }
    Temporary_Directory Place;
    fs::path Deep = Place / std::string(95, 'd') / std::string(95, 'e') / "with blanks and ä" / std::string(95, 'f');
};

} // namespace

TEST_F(Long_Path_Test, Files_Are_Written_Found_And_Read)
{
    Write_Whole(Deep / "file.psm", "old");
    Write_Whole(Deep / "file.psm", "new bytes");
    Copy_Whole(Deep / "file.psm", Deep / "copy.psm");
    fs::create_directory(Deep / "one.run");

    EXPECT_EQ(Read_Whole(Found_Or_New(Deep, "FILE.PSM")), "new bytes");
    EXPECT_EQ(List_Files(Deep, "*.psm"), (std::vector<std::string>{"copy.psm", "file.psm"}));
    EXPECT_EQ(List_Directories(Deep, "*.run"), std::vector<std::string>{"one.run"});
    EXPECT_EQ(fs::file_size(Deep / "copy.psm"), 9u);
    EXPECT_TRUE(fs::is_regular_file(Deep / "copy.psm"));
    EXPECT_FALSE(fs::exists(Deep / "missing"));
    EXPECT_EQ(Identity_Of(Deep / "copy.psm").value().Size, 9u);
}

TEST_F(Long_Path_Test, Files_Are_Marked_Renamed_And_Removed)
{
    Write_Whole(Deep / "file", "bytes");
    Set_Read_Only(Deep / "file", true);
    EXPECT_TRUE(Is_Read_Only(Deep / "file"));
    Set_Read_Only(Deep / "file", false);

    EXPECT_FALSE(Rename(Deep / "file", Deep / "renamed"));
    fs::rename(Deep / "renamed", Deep / "again");
    std::ofstream(Deep / "stream", std::ios::binary) << "text";

    EXPECT_EQ(Read_Whole(Deep / "again"), "bytes");
    EXPECT_EQ(Read_Whole(Deep / "stream"), "text");
    EXPECT_TRUE(fs::remove(Deep / "again"));
    EXPECT_FALSE(fs::exists(Deep / "again"));
}

TEST_F(Long_Path_Test, Trees_Are_Walked)
{
    Write_Whole(Deep / "file", "");
    std::size_t files = 0;

    for (const auto& entry : fs::recursive_directory_iterator(Place.Path()))
        files += entry.is_regular_file() ? 1U : 0U;

    EXPECT_EQ(files, 1u);
}

TEST_F(Long_Path_Test, Locks_Are_Held_And_Seen)
{
    const auto lock = Lock::Take(Deep);

    EXPECT_TRUE(lock);
    EXPECT_TRUE(Is_Locked(Deep));
}

// Where a system cannot, its user learns the limit.
TEST_F(Long_Path_Test, Programs_Work_There_Or_Tell_The_Limit)
{
    Write_Whole(Deep / "done", "");
    auto start = Companion(Place, {"await", "done"});
    start.Directory = Deep;

    try {
        EXPECT_EQ(Wait_For_Program(Start_Program(start)).Exit_Code, 0);
        EXPECT_TRUE(fs::exists(Deep / "output"));
    } catch (const File_Error& error) {
        EXPECT_NE(std::string(error.what()).find("Windows starts a program only where 258 are enough."),
                  std::string::npos)
            << error.what();
        EXPECT_FALSE(fs::exists(Deep / "output"));
    }
}

TEST_F(Long_Path_Test, It_May_Be_The_Current_Directory)
{
    const auto before = fs::current_path();
    fs::current_path(Deep);
    Write_Whole("here", "bytes");
    fs::create_directory("below");
    Write_Whole(fs::path("below") / std::string(60, 'g'), "x");

    const auto found = List_Files(".", "*");
    fs::current_path(before);

    EXPECT_EQ(found, std::vector<std::string>{"here"});
    EXPECT_EQ(Read_Whole(Deep / "here"), "bytes");
    EXPECT_EQ(Read_Whole(Deep / "below" / std::string(60, 'g')), "x");
}

} // namespace orvel
