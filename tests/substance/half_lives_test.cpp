#include "substance/half_lives.h"

#include <gtest/gtest.h>

namespace orvel {

namespace {

Rate_Texts Left(Rate_Texts texts, Rate_Field field)
{
    Leave_Rate_Field(texts, field);
    return texts;
}

} // namespace

TEST(Half_Lives, A_Rate_Of_0_0693_Has_10_0_And_33_2_Days)
{
    EXPECT_EQ(Texts_Of_Rate("0.0693"), (Rate_Texts{"0.0693", "10.0", "33.2"}));
}

TEST(Half_Lives, A_Rate_Of_Zero_Has_None)
{
    EXPECT_EQ(Texts_Of_Rate("0"), (Rate_Texts{"0", "0", "0"}));
    EXPECT_EQ(Texts_Of_Rate("abc"), (Rate_Texts{"abc", "0", "0"}));
}

TEST(Half_Lives, A_DT_50_Gives_The_Rate_With_Six_Decimals_And_The_DT_90)
{
    EXPECT_EQ(Left({"", "10", ""}, Rate_Field::DT50), (Rate_Texts{"0.069315", "10", "33.2"}));
    EXPECT_EQ(Left({"", "0.6931471805599453", ""}, Rate_Field::DT50), (Rate_Texts{"1.0", "0.6931471805599453", "2.3"}));
}

TEST(Half_Lives, A_DT_90_Gives_The_Rate_And_The_DT_50)
{
    EXPECT_EQ(Left({"", "", "100"}, Rate_Field::DT90), (Rate_Texts{"0.023026", "30.1", "100"}));
}

TEST(Half_Lives, A_Half_Life_Of_Zero_Sets_The_Two_Others_To_Zero)
{
    EXPECT_EQ(Left({"0.1", "0", "23.0"}, Rate_Field::DT50), (Rate_Texts{"0", "0", "0"}));
    EXPECT_EQ(Left({"0.1", "6.9", ""}, Rate_Field::DT90), (Rate_Texts{"0", "0", ""}));
}

TEST(Half_Lives, A_Computed_Rate_Keeps_Six_Decimals_So_That_A_Half_Life_Of_Ages_Gives_None)
{
    EXPECT_EQ(Left({"", "1E6", ""}, Rate_Field::DT50).Rate, "0.000001");
    EXPECT_EQ(Left({"", "1E7", ""}, Rate_Field::DT50).Rate, "0.0");
}

TEST(Half_Lives, A_Rate_Beyond_All_Bounds_Is_Shown_Without_Failing)
{
    EXPECT_EQ(Texts_Of_Rate("1E-320").DT50, "0.0");
    EXPECT_EQ(Left({"", "1E-320", ""}, Rate_Field::DT50).Rate, "0.0");
    EXPECT_EQ(Texts_Of_Rate("1E320").DT50, "0.0");
}

TEST(Half_Lives, One_Of_The_Three_Fields_Takes_Typing)
{
    EXPECT_EQ(Enabled_Rate_Fields(Rate_Field::Rate), (std::array{true, false, false}));
    EXPECT_EQ(Enabled_Rate_Fields(Rate_Field::DT50), (std::array{false, true, false}));
    EXPECT_EQ(Enabled_Rate_Fields(Rate_Field::DT90), (std::array{false, false, true}));
}

} // namespace orvel
