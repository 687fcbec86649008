#include "files/climate_file.h"
#include "files/misread.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Misread, A_Number_Is_Whole_And_Alone)
{
    for (const char* text : {"0", " 12 ", "-3", "+3", "1.", ".5", "-.5", "1.5E-16", "1e5", "\t7", "00"})
        EXPECT_TRUE(Is_One_Number(text)) << text;
    for (const char* text :
         {"", " ", "0,02", "abc", "3O", "nan", "inf", "n/a", "1.2.3", "1e", "e5", ".", "-", "1 2", "--1"})
        EXPECT_FALSE(Is_One_Number(text)) << text;
    EXPECT_TRUE(Is_Digits(" 0101 "));
    EXPECT_FALSE(Is_Digits("01.01"));
    EXPECT_FALSE(Is_Digits(""));
}

TEST(Misread, A_Climate_Row_Lists_Its_Fields_That_Are_No_Numbers)
{
    Misreads found;
    const auto table = Parse_CLI("T\r\n 010181n/a       1.5\r\n 000081abc\r\n", &found);

    EXPECT_EQ(table.Rows.at(0).Cli_Rain, 0);
    ASSERT_EQ(found.size(), 1U); // a row that is left out is not looked at
    EXPECT_EQ(found[0].At.Line, 2);
    EXPECT_EQ(found[0].At.Column, 8);
    EXPECT_EQ(found[0].Word, "n/a");
    EXPECT_EQ(found[0].Field, "Rainfall");
}

} // namespace orvel
