#include "charts/axis.h"

#include <gtest/gtest.h>

#include <cmath>

namespace orvel {

namespace {

TEST(Log10_Routine, Is_The_Quotient_Of_Two_Natural_Logarithms)
{
    EXPECT_DOUBLE_EQ(Log10(100), 2);
    EXPECT_DOUBLE_EQ(Log10(0.5), std::log(0.5) / std::log(10.0));
}

TEST(Round_Up_Axis_Routine, Goes_To_The_Next_Value_With_One_Significant_Digit)
{
    EXPECT_EQ(Round_Up_Axis(3.2), 4);
    EXPECT_DOUBLE_EQ(Round_Up_Axis(0.0123), 0.02);
    EXPECT_EQ(Round_Up_Axis(9.5), 10);
    EXPECT_EQ(Round_Up_Axis(123456), 200000);
}

TEST(Round_Up_Axis_Routine, Leaves_A_Value_With_One_Significant_Digit)
{
    EXPECT_EQ(Round_Up_Axis(70), 70);
    EXPECT_EQ(Round_Up_Axis(1), 1);
    EXPECT_EQ(Round_Up_Axis(1000), 1000);
}

TEST(Round_Up_Axis_Routine, Gives_8_Hundredths_For_7_Since_The_Quotient_Is_A_Hair_Above_7)
{
    EXPECT_DOUBLE_EQ(Round_Up_Axis(0.07), 0.08);
}

TEST(Round_Up_Axis_Routine, Rounds_A_Negative_Value_Away_From_Zero)
{
    EXPECT_EQ(Round_Up_Axis(-3.2), -4);
    EXPECT_EQ(Round_Up_Axis(-70), -70);
    EXPECT_DOUBLE_EQ(Round_Up_Axis(-0.0123), -0.02);
}

TEST(Round_Up_Axis_Routine, Leaves_Zero)
{
    EXPECT_EQ(Round_Up_Axis(0), 0);
}

TEST(Axis_Step_Routine, Is_A_Tenth_Of_An_Exact_Power_Of_Ten)
{
    for (const double top : {0.01, 0.1, 1.0, 10.0, 100.0, 1000.0, 1e6}) {
        const auto steps = Axis_Step(top);

        EXPECT_DOUBLE_EQ(steps.Step, top / 10) << top;
        EXPECT_DOUBLE_EQ(steps.Small_Tick, top / 20) << top;
        EXPECT_DOUBLE_EQ(steps.Tiny_Tick, top / 100) << top;
    }
}

TEST(Axis_Step_Routine, Is_A_Tenth_Of_The_Power_Below_A_Fraction_Of_0_2)
{
    const auto steps = Axis_Step(15); // log10(1.5) is 0.176

    EXPECT_DOUBLE_EQ(steps.Step, 1);
    EXPECT_DOUBLE_EQ(steps.Small_Tick, 0.5);
    EXPECT_DOUBLE_EQ(steps.Tiny_Tick, 0.1);
}

TEST(Axis_Step_Routine, Is_Half_The_Power_From_A_Fraction_Of_0_2_On)
{
    for (const double top : {16.0, 39.0}) { // log10: 0.204 and 0.591
        const auto steps = Axis_Step(top);

        EXPECT_DOUBLE_EQ(steps.Step, 5);
        EXPECT_DOUBLE_EQ(steps.Small_Tick, 1);
        EXPECT_DOUBLE_EQ(steps.Tiny_Tick, 0.5);
    }
}

TEST(Axis_Step_Routine, Is_The_Power_From_A_Fraction_Of_0_6_On)
{
    for (const double top : {40.0, 90.0}) { // log10: 0.602 and 0.954
        const auto steps = Axis_Step(top);

        EXPECT_DOUBLE_EQ(steps.Step, 10);
        EXPECT_DOUBLE_EQ(steps.Small_Tick, 5);
        EXPECT_DOUBLE_EQ(steps.Tiny_Tick, 1);
    }
}

TEST(Axis_Step_Routine, Holds_For_A_Top_Below_1_Since_The_Logarithm_Is_Rounded_Downwards)
{
    const auto steps = Axis_Step(0.05); // log10 is -1.301: the power is 0.01, the fraction 0.699

    EXPECT_DOUBLE_EQ(steps.Step, 0.01);
    EXPECT_DOUBLE_EQ(steps.Small_Tick, 0.005);
    EXPECT_DOUBLE_EQ(steps.Tiny_Tick, 0.001);
}

TEST(Axis_Label_Routine, Is_The_General_Form)
{
    EXPECT_EQ(Axis_Label(0), "0");
    EXPECT_EQ(Axis_Label(0.001), "0.001");
    EXPECT_EQ(Axis_Label(12.5), "12.5");
    EXPECT_EQ(Axis_Label(3 * 0.1), "0.3");
    EXPECT_EQ(Axis_Label(2000000), "2000000");
}

TEST(Axis_Label_Routine, Has_An_Exponent_Between_0_And_A_Thousandth)
{
    EXPECT_EQ(Axis_Label(0.0005), "5.0E-04");
    EXPECT_EQ(Axis_Label(0.000999), "1.0E-03");
}

TEST(Axis_Label_Routine, Has_No_Exponent_For_A_Small_Negative_Value)
{
    EXPECT_EQ(Axis_Label(-0.0005), "-0.0005");
}

} // namespace

} // namespace orvel
