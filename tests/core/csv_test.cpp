#include "core/csv.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(Csv_Field, Is_Quoted_Where_It_Holds_A_Separator_Or_A_Quote)
{
    EXPECT_EQ(Csv_Field("plain"), "plain");
    EXPECT_EQ(Csv_Field("a,b"), "\"a,b\"");
    EXPECT_EQ(Csv_Field("a;b"), "\"a;b\"");
    EXPECT_EQ(Csv_Field("say \"so\""), "\"say \"\"so\"\"\"");
    EXPECT_EQ(Csv_Field(" a"), "\" a\"");
}

TEST(Csv_Field, Is_Marked_As_Text_Where_A_Spreadsheet_Would_Take_It_For_A_Formula)
{
    EXPECT_EQ(Csv_Field("=1+1"), "'=1+1");
    EXPECT_EQ(Csv_Field("+cmd|' /C calc'!A0"), "'+cmd|' /C calc'!A0");
    EXPECT_EQ(Csv_Field("-Metabolite"), "'-Metabolite");
    EXPECT_EQ(Csv_Field("@SUM(A1)"), "'@SUM(A1)");
    EXPECT_EQ(Csv_Field("=HYPERLINK(\"a\",\"b\")"), "\"'=HYPERLINK(\"\"a\"\",\"\"b\"\")\"");
}

TEST(Csv_Field, Leaves_Numbers_As_They_Are)
{
    for (const char* number : {"-1", "-0.5", "-1.2E-05", "0.100", "12"})
        EXPECT_EQ(Csv_Field(number), number);
    EXPECT_EQ(Csv_Field(""), "");
}

} // namespace orvel
