#include "core/system/file_handle.h"

#include "core/files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

using Use = File_Handle::Use;

} // namespace

TEST(File_Handle, Tells_Why_A_File_Cannot_Be_Opened)
{
    const Temporary_Directory place;
    std::error_code error;

    const File_Handle missing(place / "missing", Use::Read, error);

    EXPECT_FALSE(missing.Is_Open());
    EXPECT_EQ(error, std::errc::no_such_file_or_directory);
    EXPECT_FALSE(error.message().empty());
}

TEST(File_Handle, Keeps_What_Is_There_To_Update_And_Empties_It_To_Write)
{
    const Temporary_Directory place;
    Write_Whole(place / "file", "old bytes");
    std::error_code error;

    EXPECT_FALSE(File_Handle(place / "file", Use::Update, error).Write_At(4, "text"));
    EXPECT_EQ(Read_Whole(place / "file"), "old texts");

    EXPECT_FALSE(File_Handle(place / "file", Use::Write, error).Write("new"));
    EXPECT_EQ(Read_Whole(place / "file"), "new");
}

TEST(File_Handle, Appends_Behind_What_Others_Have_Written)
{
    const Temporary_Directory place;
    std::error_code error;
    File_Handle first(place / "log", Use::Append, error), second(place / "log", Use::Update, error);

    EXPECT_FALSE(first.Write("a"));
    EXPECT_FALSE(second.Write("bc"));
    EXPECT_FALSE(first.Write("d"));

    EXPECT_EQ(Read_Whole(place / "log"), "bcd");
}

TEST(File_Handle, Never_Takes_An_Existing_File_For_A_New_One)
{
    const Temporary_Directory place;
    Write_Whole(place / "file", "old");
    std::error_code error;

    const File_Handle refused(place / "file", Use::Write_New, error);

    EXPECT_EQ(error, std::errc::file_exists);
    EXPECT_EQ(Read_Whole(place / "file"), "old");
}

TEST(File_Handle, Reads_From_A_Place_And_Cuts_To_A_Size)
{
    const Temporary_Directory place;
    std::error_code error;
    File_Handle file(place / "file", Use::Update, error);
    char bytes[4] = {};

    EXPECT_FALSE(file.Write("0123456789"));
    EXPECT_EQ(file.Read_At(8, bytes, sizeof bytes, error), 2u);
    EXPECT_EQ(std::string_view(bytes, 2), "89");
    EXPECT_FALSE(file.Resize(3));
    EXPECT_FALSE(file.Flush());
    EXPECT_EQ(file.Size(error), 3u);
    EXPECT_FALSE(file.Close());
    EXPECT_FALSE(file.Is_Open());
}

TEST(File_Handle, Append_Keeps_What_Is_There)
{
    const Temporary_Directory place;
    Write_Whole(place / "log", "before ");
    std::error_code error;

    EXPECT_FALSE(File_Handle(place / "log", Use::Append, error).Write("after"));

    EXPECT_EQ(Read_Whole(place / "log"), "before after");
}

} // namespace orvel
