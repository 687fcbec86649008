#include "desktop/update_check.h"

#include "desktop/release_notes.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

// The 26 characters before ".zip", ending in a date.
std::string Page(const std::string& date)
{
    return "<html>\r\n<a href=\"ORVELSUITE_release_" + date + ".zip\">\r\n";
}

Message Answer(std::string_view page)
{
    return Evaluate_Update_Page(page, "20120312");
}

} // namespace

TEST(Update_Check, Tells_A_Newer_An_Older_And_The_Same_Release)
{
    EXPECT_EQ(Answer(Page("20120313")).Title, "Update available!");
    EXPECT_EQ(Answer(Page("20120313")).Text, "There is a new version of the software available.\r\n");
    EXPECT_EQ(Answer(Page("20120311")).Text, "You are using an unofficial version of the software.\r\n");
    EXPECT_EQ(Answer(Page("20120312")).Text, "You have the latest version of the software.");
}

TEST(Update_Check, Joins_The_Lines_Of_The_Page)
{
    EXPECT_EQ(Answer("a long text before the name 2012\r\n0312.z\nip").Text,
              "You have the latest version of the software.");
}

TEST(Update_Check, A_Page_Without_A_Package_Is_A_Connection_Problem)
{
    const Message problem{"Connection problem!", "Connection to the internet not successfull!\r\n"};

    EXPECT_EQ(Answer(""), problem);
    EXPECT_EQ(Answer("404 not found"), problem);
}

TEST(Update_Check, A_Package_Within_The_First_Characters_Has_No_Name_And_Is_A_Connection_Problem)
{
    EXPECT_EQ(Answer("20120313.zip"), Connection_Problem());
    EXPECT_EQ(Answer(".zip"), Connection_Problem());
    EXPECT_EQ(Answer(std::string(17, 'x') + "20120313.zip"),
              Connection_Problem());                                                     // 25 characters before it
    EXPECT_EQ(Answer(std::string(18, 'x') + "20120313.zip").Title, "Update available!"); // 26
}

TEST(Update_Check, Only_The_First_Package_Counts)
{
    EXPECT_EQ(Answer(Page("20120312") + Page("20990101")).Text, "You have the latest version of the software.");
}

TEST(Update_Check, Compares_With_The_Date_Of_This_Build)
{
    EXPECT_EQ(Release_Date.size(), 8u);
    EXPECT_EQ(Evaluate_Update_Page(Page(std::string(Release_Date))).Text,
              "You have the latest version of the software.");
}

TEST(Program_Version, Is_That_Of_The_Packages)
{
    EXPECT_EQ(Program_Version, ORVEL_PROJECT_VERSION);
}

TEST(Release_Notes, Begin_With_This_Version)
{
    EXPECT_TRUE(Release_Notes().starts_with("ORVELSUITE " + std::string(Program_Version) + " ("));
}

} // namespace orvel
