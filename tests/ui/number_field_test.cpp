#include "ui/number_field.h"

#include <gtest/gtest.h>

namespace orvel {

TEST(A_Number_Field, Says_Nothing_Of_A_Text_That_Is_A_Number_From_End_To_End)
{
    for (const auto* typed : {"0", "1.5", ".5", "5.", "-3", "+4", "1e-3", "1.5E+10", "  20 ", "-99"})
        EXPECT_EQ(Reading_Hint(typed), std::nullopt) << typed;
}

TEST(A_Number_Field, Tells_At_Once_That_A_Comma_Ends_The_Number)
{
    EXPECT_EQ(Reading_Hint("1,5"), "\"1,5\" is read as 1. The decimal sign is the point.");
    EXPECT_EQ(Reading_Hint(" 0,05 "), "\"0,05\" is read as 0. The decimal sign is the point.");
}

TEST(A_Number_Field, Tells_At_Once_That_A_Text_Is_Read_As_Zero_Or_In_Part)
{
    EXPECT_EQ(Reading_Hint("abc"), "\"abc\" is read as 0.");
    EXPECT_EQ(Reading_Hint("12 cm"), "\"12 cm\" is read as 12.");
    EXPECT_EQ(Reading_Hint("1 2"), "\"1 2\" is read as 1.");
    EXPECT_EQ(Reading_Hint("1D2"), "\"1D2\" is read as 1.");
    EXPECT_EQ(Reading_Hint("1E"), "\"1E\" is read as 1.");
    EXPECT_EQ(Reading_Hint("1,000.5"), "\"1,000.5\" is read as 1.");
    EXPECT_EQ(Reading_Hint("."), "\".\" is read as 0.");
    EXPECT_EQ(Reading_Hint("--5"), "\"--5\" is read as 0.");
}

TEST(A_Number_Field, Tells_That_An_Empty_Field_Is_Zero)
{
    EXPECT_EQ(Reading_Hint(""), "An empty field is read as 0.");
    EXPECT_EQ(Reading_Hint("  "), "An empty field is read as 0.");
}

TEST(A_Number_Field, Tells_That_A_Number_Beyond_The_Range_Is_The_Largest_One)
{
    EXPECT_EQ(Reading_Hint("1E999"), "\"1E999\" is read as 1.79769313486232E+308.");
}

TEST(A_Number_Field, Gives_The_Document_The_Text_As_Typed_Only_If_It_Is_A_Number)
{
    EXPECT_EQ(Typed_Number(" 20.0 "), Variant("20.0"));
    EXPECT_EQ(Typed_Number("1,5"), Variant(1));
    EXPECT_EQ(Typed_Number("abc"), Variant(0));
    EXPECT_EQ(Typed_Number(""), Variant(0));
    EXPECT_EQ(Typed_Number("1 5").Print(), " 1 ");
}

TEST(A_Number_Field, Refuses_A_Number_Whose_Double_Could_Not_Be_Written)
{
    EXPECT_EQ(Check_Size(" 1e308 ", "Text_vol0_0"),
              (Refusal{{"Data check", "\"1e308\" is too large a number."}, "Text_vol0_0"}));
    EXPECT_TRUE(Check_Size("-1E999", ""));
    EXPECT_FALSE(Check_Size("1e299", ""));
    EXPECT_FALSE(Check_Size("abc", ""));
}

TEST(A_Number_Field, Of_Whole_Numbers_Rounds_Halves_To_Even_And_Ends_Where_An_I16_Ends)
{
    EXPECT_EQ(Typed_Integer("12"), 12);
    EXPECT_EQ(Typed_Integer("2.5"), 2);
    EXPECT_EQ(Typed_Integer("abc"), 0);
    EXPECT_EQ(Typed_Integer("1E9"), 32767);
    EXPECT_EQ(Typed_Integer("-1E9"), -32768);
}

} // namespace orvel
