#include "core/text.h"

#include "core/error.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Next_Token, Keeps_The_Blank_Behind_The_Word)
{
    std::string line = "  12  34";

    EXPECT_EQ(Next_Token(line), "12 ");
    EXPECT_EQ(line, "  34");
    EXPECT_EQ(Next_Token(line), "34");
    EXPECT_EQ(line, "");
}

TEST(Next_Token, Of_An_Empty_Line_Is_Empty_And_Leaves_An_Empty_Line)
{
    std::string line;

    EXPECT_EQ(Next_Token(line), "");
    EXPECT_EQ(line, "");
}

TEST(Next_Token, Is_Not_Ended_By_A_Tab)
{
    std::string line = "a\tb c";

    EXPECT_EQ(Next_Token(line), "a\tb ");
}

TEST(Columns, Count_From_One_And_Never_Read_Past_The_End)
{
    EXPECT_EQ(Columns("abcdef", 2, 3), "bcd");
    EXPECT_EQ(Columns("abcdef", 5, 10), "ef");
    EXPECT_EQ(Columns("abcdef", 7, 1), "");
    EXPECT_EQ(Columns("abcdef", 3), "cdef");
}

TEST(Line_Reader, Takes_Lines_That_End_In_CR_LF_Or_LF)
{
    Line_Reader lines("one\r\ntwo\n\nlast");

    EXPECT_EQ(lines.Next(), "one");
    EXPECT_EQ(lines.Next(), "two");
    EXPECT_EQ(lines.Next(), "");
    EXPECT_FALSE(lines.At_End());
    EXPECT_EQ(lines.Next(), "last");
    EXPECT_TRUE(lines.At_End());
    EXPECT_THROW(lines.Next(), File_Error);
}

TEST(Line_Reader, Says_Where_A_Text_Ends)
{
    Line_Reader lines("one\ntwo\n"), nothing("");
    lines.Skip(2);

    for (auto& [reader, text] :
         {std::pair{&lines, "Line 2: The file ends behind this line."}, std::pair{&nothing, "The file is empty."}}) {
        try {
            reader->Next();
            FAIL();
        } catch (const File_Error& error) {
            EXPECT_STREQ(error.what(), text);
        }
    }
}

TEST(File_Error, Names_File_Line_And_Column_As_Far_As_They_Are_Known)
{
    EXPECT_EQ(Located("a.psm", File_Error("No.", 12, 5)), "a.psm, line 12, column 5: No.");
    EXPECT_EQ(Located("a.psm", File_Error("No.", 12)), "a.psm, line 12: No.");
    EXPECT_EQ(Located("a.psm", File_Error("No.")), "a.psm: No.");
    EXPECT_STREQ(File_Error("No.", 12, 5).what(), "Line 12, column 5: No.");
    EXPECT_STREQ(File_Error("No.").what(), "No.");
}

TEST(Replace_All, Does_Not_Look_Again_At_What_It_Wrote)
{
    EXPECT_EQ(Replace_All("a--b", "-", "--"), "a----b");
}

TEST(Same_Text, Looks_At_No_Letters_Case_But_A_To_Z)
{
    EXPECT_TRUE(Same_Text("Wasser.ORV", "wasser.orv"));
    EXPECT_FALSE(Same_Text("\xC4", "\xE4"));
}

} // namespace orvel
