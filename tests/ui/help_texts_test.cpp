#include "ui/help_texts.h"

#include "core/files.h"
#include "temporary_directory.h"

#include <gtest/gtest.h>
#include <memory>

namespace orvel {

TEST(Help_Texts, A_File_In_Order_Gives_One_Text_For_Each_Number)
{
    EXPECT_EQ(Parse_Help_Texts("XXX0\r\nzero\r\nXXX1\r\none\r\nsecond line\r\nXXX2\r\ntwo\r\nXXX\r\n"),
              (std::vector<std::string>{"zero\r\n", "one\r\nsecond line\r\n", "two\r\n"}));
}

TEST(Help_Texts, Heads_Out_Of_Order_Count_By_Position)
{
    EXPECT_EQ(Parse_Help_Texts("XXX1\r\na\r\nXXX0\r\nb\r\nXXX2\r\nc\r\nXXX\r\n"),
              (std::vector<std::string>{"a\r\n", "b\r\n", "c\r\n"}));
}

TEST(Help_Texts, The_Last_Head_Sets_Their_Number)
{
    EXPECT_EQ(Parse_Help_Texts("XXX5\r\na\r\nXXX0\r\nb\r\nXXX\r\n"), std::vector<std::string>{"a\r\n"});
    EXPECT_EQ(Parse_Help_Texts("XXX0\r\na\r\nXXX2\r\nb\r\nXXX\r\n"), (std::vector<std::string>{"a\r\n", "b\r\n", ""}));
}

TEST(Help_Texts, A_File_Without_Its_End_Mark_Ends_With_The_File)
{
    EXPECT_EQ(Parse_Help_Texts("XXX0\r\na\r\nXXX1\r\nb"), (std::vector<std::string>{"a\r\n", "b\r\n"}));
}

TEST(Help_Texts, A_Number_Beyond_The_Last_Is_Silent)
{
    const auto session = std::make_unique<Session>();
    session->Program.Help_Text = {"zero\r\n"};

    EXPECT_EQ(Help_Text_Of(*session, 0), "zero\r\n");
    EXPECT_EQ(Help_Text_Of(*session, 1), "");
    EXPECT_EQ(Help_Text_Of(*session, -1), "");
}

TEST(Help_Texts, A_Missing_Or_Empty_File_Leaves_None)
{
    Temporary_Directory place;
    const auto session = std::make_unique<Session>();
    session->Program.App_Path = place.Path();
    session->Program.Help_Text = {"old"};

    Load_Help_Texts(*session);
    EXPECT_TRUE(session->Program.Help_Text.empty());

    Write_Whole(place / "assystant.TXT", "");
    Load_Help_Texts(*session);
    EXPECT_TRUE(session->Program.Help_Text.empty());
}

} // namespace orvel
