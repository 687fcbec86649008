#include "core/files.h"
#include "temporary_directory.h"
#include "ui/guide.h"

#include <gtest/gtest.h>

namespace orvel {

namespace fs = std::filesystem;

namespace {

void Make_File(const fs::path& file)
{
    fs::create_directories(file.parent_path());
    Write_Whole(file, "");
}

} // namespace

TEST(Guide_Pages, Are_Those_Beside_The_Program_Before_Those_Built_Or_Installed_With_It)
{
    const Temporary_Directory place;

    EXPECT_EQ(Guide_Directory(place / "bin/orvelsuite"), place / "share/orvelsuite/guide");
    Make_File(place / "guide/index.html");
    EXPECT_EQ(Guide_Directory(place / "bin/orvelsuite"), place / "guide");
    Make_File(place / "bin/guide/index.html");
    EXPECT_EQ(Guide_Directory(place / "bin/orvelsuite"), place / "bin/guide");
}

TEST(Guide_Pages, Are_Found_For_The_Nearest_Window_That_Has_One)
{
    const Temporary_Directory place;
    Make_File(place / "windows/Form_AS.html");

    EXPECT_EQ(Guide_Page(place.Path(), {"qt_msgbox", "Form_AS", "start"}), place / "windows/Form_AS.html");
    EXPECT_EQ(Guide_Page(place.Path(), {"", "start"}), place / "index.html");
    EXPECT_EQ(Guide_Page(place.Path(), {}), place / "index.html");
}

TEST(Guide_Pages, That_Are_Missing_Are_Told_With_Their_Place)
{
    const std::filesystem::path guide = "/usr/share/orvelsuite/guide";
    EXPECT_EQ(Guide_Not_Installed(guide),
              (Message{"Guide", "The guide is not installed: there is no " + (guide / "index.html").string() + "."}));
    EXPECT_EQ(Guide_Not_Shown("/usr/share/orvelsuite/guide/windows/start.html").Text,
              "No program was found that shows the guide. Its page here is "
              "/usr/share/orvelsuite/guide/windows/start.html.");
}

} // namespace orvel
