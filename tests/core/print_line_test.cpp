#include "core/print_line.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Print_Line, Puts_Items_One_Behind_The_Other)
{
    EXPECT_EQ(Print_Line().Number(1).Spc(2).Text("x").Item("20").Item(20).End().Printed(), " 1   x20 20 \r\n");
}

TEST(Print_Line, Tab_Fills_Up_To_The_Column)
{
    EXPECT_EQ(Print_Line().Text("ab").Tab(5).Text("c").Printed(), "ab  c");
    EXPECT_EQ(Print_Line().Text("abcd").Tab(5).Text("e").Printed(), "abcde");
}

TEST(Print_Line, Tab_Starts_A_New_Line_Where_As_Many_Characters_Stand_Already)
{
    EXPECT_EQ(Print_Line().Text("abcde").Tab(5).Text("f").Printed(), "abcde\r\n    f");
}

TEST(Print_Line, Counts_Columns_From_The_Line_It_Is_On)
{
    EXPECT_EQ(Print_Line().Text("long first line").End().Text("a").Tab(3).Text("b").Printed(),
              "long first line\r\na b");
}

TEST(Print_Line, Goes_To_The_Next_Zone_Even_When_It_Stands_At_One)
{
    EXPECT_EQ(Print_Line().Text("ab").Zone().Text("c").Printed(), "ab            c");
    EXPECT_EQ(Print_Line().Zone().Text("c").Printed(), std::string(14, ' ') + "c");
    EXPECT_EQ(Print_Line().Spc(14).Zone().Text("c").Printed(), std::string(28, ' ') + "c");
    EXPECT_EQ(Print_Line().Spc(13).Zone().Text("c").Printed(), std::string(14, ' ') + "c");
}

} // namespace orvel
